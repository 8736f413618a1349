"""The one exception of the package."""


class Error(Exception):
    """What a report, the books or a call of the library fails with.

    number is the library's number of the error (501 books that cannot be opened, 3001 an argument
    out of range, ...), text its sentence with the cause.
    """

    def __init__(self, number: int, text: str) -> None:
        super().__init__(number, text)
        self.number = number
        self.text = text

    def __str__(self) -> str:
        return f"{self.text} ({self.number})"
