"""Reports: rows with the names of their columns, and the forms that they are handed on in."""

from __future__ import annotations

import datetime
import decimal
import functools
import json
import re
from typing import TYPE_CHECKING, Any, Callable, Iterator, NamedTuple, Sequence, overload

from . import native

if TYPE_CHECKING:
    from ._books import Books


class Column(NamedTuple):
    """A column of a report: its name, and the number of its type (6 is money, 7 a date ...)."""

    name: str
    type: int


class Row(tuple[Any, ...]):
    """A line of a report: a tuple whose cells have names as well.

    row.Ledger, row["Ledger"] and row[0] are the same cell. Money is a Decimal, a date a
    datetime.date (a datetime where it has a time), a flag a bool, Null is None; the rows that
    belong to a line are a list of Rows.
    """

    __slots__ = ()
    _fields: tuple[str, ...] = ()
    _places: dict[str, int] = {}

    def __getitem__(self, at: Any) -> Any:
        if isinstance(at, str):
            at = self._places[at]
        return tuple.__getitem__(self, at)

    def __getattr__(self, name: str) -> Any:
        try:
            return tuple.__getitem__(self, self._places[name])
        except KeyError:
            raise AttributeError(f"the report has no column {name!r}", name=name, obj=self) from None

    def __dir__(self) -> list[str]:  # what a notebook completes, and Python thinks was meant
        return [*super().__dir__(), *self._fields]

    def __repr__(self) -> str:
        return "Row(" + ", ".join(f"{name}={cell!r}" for name, cell in zip(self._fields, self)) + ")"

    def __reduce__(self) -> Any:
        return _row_of, (self._fields, tuple(self))

    def _asdict(self) -> dict[str, Any]:
        return dict(zip(self._fields, map(_plain, self)))


@functools.lru_cache(maxsize=64)
def _row_type(names: tuple[str, ...]) -> type[Row]:
    places = {name: place for place, name in enumerate(names)}
    return type("Row", (Row,), {"__slots__": (), "_fields": names, "_places": places})


def _row_of(names: tuple[str, ...], cells: Sequence[Any]) -> Row:
    return _row_type(names)(cells)


def _plain(cell: Any) -> Any:
    return [row._asdict() for row in cell] if isinstance(cell, list) else cell


@functools.lru_cache(maxsize=1024)
def _day(text: str) -> datetime.date | str:
    try:
        if len(text) > len("2004-03-31"):
            return datetime.datetime.fromisoformat(text)
        return datetime.date.fromisoformat(text)
    except ValueError:  # a year that Python does not have
        return text


def _rows_of(table: dict[str, Any]) -> list[Row]:
    columns = table["columns"]
    make = _row_type(tuple(column["name"] for column in columns))
    # Column by column, which is faster than cell by cell.
    cells_of = list(zip(*table["rows"]))
    if not cells_of:
        return []
    for place, column in enumerate(columns):
        change = _FROM_JSON.get(column["type"])
        if change is not None:
            cells_of[place] = tuple([None if one is None else change(one) for one in cells_of[place]])
    return list(map(make, zip(*cells_of)))


_FROM_JSON: dict[int, Callable[[Any], Any]] = {
    4: float, 5: float, 6: decimal.Decimal, 7: _day, 136: _rows_of}

# A notebook has a look of its own, for light and dark: only what the lines mean is drawn.
_STYLE = """<style scoped>
.stolvane {overflow: auto; max-height: 40em}
.stolvane table {border-collapse: collapse}
.stolvane th, .stolvane td {text-align: left; white-space: nowrap; vertical-align: top}
.stolvane th {border-bottom: 2px solid; vertical-align: bottom}
.stolvane th.n, .stolvane td.n {text-align: right; font-variant-numeric: tabular-nums}
.stolvane tr.group td, .stolvane tr.total td {font-weight: bold}
.stolvane tr.rule td {border-top: 1px solid; padding: 0; height: 0}
.stolvane tr.total td {border-bottom: 3px double}
</style>"""
_SHOWN_FIRST, _SHOWN_LAST = 60, 10


def _in_a_notebook(page: str) -> str:
    body = page[page.index("<body>") + len("<body>"):page.index("</body>")]
    body = body.replace("<h1>", "<strong>").replace("</h1>", "</strong>")
    head, *lines = body.split("\n<tr ")
    if len(lines) > _SHOWN_FIRST + _SHOWN_LAST:
        left_out = len(lines) - _SHOWN_FIRST - _SHOWN_LAST
        lines = [*lines[:_SHOWN_FIRST],
                 f'class="line"><td colspan="{head.count("<th ")}">… {left_out:,} lines …</td></tr>',
                 *lines[-_SHOWN_LAST:]]
    return f'<div class="stolvane">{_STYLE}' + "\n<tr ".join([head, *lines]) + "</div>"


class Report:
    """A finished report. Its columns are those of the list of reports, twins included.

    It stays when its books are closed; its page then lacks what only they know, as names of keys.
    """

    def __init__(self, books: Books, rowset: native.Rowset, operation: str,
                 arguments: dict[str, Any], changed: dict[str, Any], asked: int) -> None:
        self._books = books
        self._rowset = rowset
        self._arguments = arguments
        self._asked = asked
        self._table: tuple[tuple[Column, ...], list[Row]] | None = None
        self.operation = operation
        # What the operation made of arguments that it changes, under their names in the catalogue.
        self.changed = changed
        # False when CancelFetching cut it: lines may be missing.
        self.is_whole = True

    def _read(self) -> tuple[tuple[Column, ...], list[Row]]:
        if self._table is None:
            table = json.loads(self._rowset.json())
            columns = tuple(Column(one["name"], one["type"]) for one in table["columns"])
            self._table = columns, _rows_of(table)
        return self._table

    @property
    def columns(self) -> tuple[Column, ...]:
        return self._read()[0]

    def __len__(self) -> int:
        return self._rowset.size()

    def __iter__(self) -> Iterator[Row]:
        return iter(self._read()[1])

    @overload
    def __getitem__(self, at: int) -> Row: ...
    @overload
    def __getitem__(self, at: slice) -> list[Row]: ...
    @overload
    def __getitem__(self, at: str) -> list[Any]: ...
    def __getitem__(self, at: int | slice | str) -> Row | list[Row] | list[Any]:
        """A row, rows, or all cells of a column."""
        columns, rows = self._read()
        if not isinstance(at, str):
            return rows[at]
        places = [place for place, column in enumerate(columns) if column.name == at]
        if not places:
            raise KeyError(f"the report has no column {at!r}")
        return [row[places[0]] for row in rows]

    def __repr__(self) -> str:
        return f"<Report {self.operation}: {len(self)} rows>"

    def to_dicts(self) -> list[dict[str, Any]]:
        """A dictionary for each row, by the names of the columns."""
        return [row._asdict() for row in self]

    def to_csv(self) -> str:
        """All columns and rows, exact, with a line of names above."""
        return self._rowset.csv()

    def to_html(self) -> str:
        """A whole page as people read the report: titles, words over the columns, totals."""
        return self._books._page(self._rowset, self.operation, self._arguments)

    def _repr_html_(self) -> str:
        return _in_a_notebook(self.to_html())

    def __arrow_c_stream__(self, requested_schema: object | None = None) -> object:
        """The columns for data frames and query engines, without a copy: polars.DataFrame(report).

        Money is decimal128(19, 4), a date date32 without its time. It is given in these types
        whatever schema is asked for.
        """
        return self._rowset.arrow()

    def sort(self, columns: str) -> None:
        """Puts the rows in an order, "DummySort, AmountSort DESC"; "" is the report's own."""
        self._table = None
        self._rowset.sort(columns)

    def sort_by(self, twin: str, *, descending: bool = False, detailed: bool | None = None) -> None:
        """Puts the rows in the order of a twin: totals stay last, lines with their heads.

        detailed is what the report was asked with unless it is given; it is True as well for a
        report of one party, item or group.
        """
        if detailed is None:
            detailed = bool(self._arguments.get("blnDetailed"))
        self.sort(native.sort_text(self.operation, self._asked, detailed, descending, twin))
