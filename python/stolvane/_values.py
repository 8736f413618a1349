"""Values of Python as the arguments of an operation."""

from __future__ import annotations

import datetime
import enum
import operator
from typing import Type, TypeVar, Union

Day = Union[datetime.date, str]
Member = TypeVar("Member", bound=enum.IntEnum)


def whole(value: int) -> int:
    return operator.index(value)


def day(value: Day | None) -> str | None:
    """A date, or its ISO text as it stands; None is left out of the call."""
    return value.isoformat() if isinstance(value, datetime.date) else value


def member(names: Type[Member], value: Member | int | str) -> int:
    """The number of a name in any case, or of a beginning that only one name has.

    A report type's name may be without its "rt".
    """
    if not isinstance(value, str):
        return operator.index(value)
    wanted = value.lower()
    names_of = {one: (name.lower(), name.lower().removeprefix("rt"))
                for name, one in names.__members__.items()}
    found = [one for one, either in names_of.items() if wanted in either]
    found = found or [one for one, either in names_of.items() if either[0].startswith(wanted) or
                      either[1].startswith(wanted)]
    if not wanted or len(found) != 1:
        fits = ", ".join(one.name for one in found) if wanted and found else ", ".join(names.__members__)
        raise ValueError(f"{value!r} is no {names.__name__}: one of {fits}")
    return found[0].value
