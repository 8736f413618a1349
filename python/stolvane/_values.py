"""Values of Python as the arguments of an operation."""

from __future__ import annotations

import datetime
import enum
import math
import operator
from typing import Type, TypeVar, Union

Day = Union[datetime.date, str]
Member = TypeVar("Member", bound=enum.IntEnum)


def whole(value: int) -> int:
    return operator.index(value)


def flag(value: bool) -> bool:
    """True and False, also those of other packages; a text such as "no" would be True."""
    if value is None or isinstance(value, (str, bytes)):
        raise TypeError(f"a flag is True or False, not {value!r}")
    return bool(value)


def number(value: float) -> float:
    if isinstance(value, (str, bytes)):
        raise TypeError(f"a number is wanted, not {value!r}")
    if not math.isfinite(value):
        raise ValueError(f"a finite number is wanted, not {value!r}")
    return float(value)


def day(value: Day | None) -> str | None:
    """A date, or its ISO text as it stands; None is left out of the call."""
    if value is None or isinstance(value, str):
        return value
    if not isinstance(value, datetime.date):
        raise TypeError(f"a date is a datetime.date, or a text as 2004-03-31, not {value!r}")
    return value.isoformat()


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
