"""Finished stock and sales reports from the books of a company.

    import stolvane

    with stolvane.open("books.db") as books:
        for row in books.doc_initial(vouchertype_id=10, from_date="2004-04-01", to_date="2005-03-31"):
            print(row.Ledger, row.Amount)

help(stolvane.Books) lists every report with its arguments.
"""

from __future__ import annotations

import json
import os
from typing import Any

from . import native
from ._books import Books, OnComplete, OnConnect, OnProgress
from ._error import Error
from ._operations import *  # noqa: F403: the enumerations, whose names it lists
from ._operations import __all__ as _enumerations
from ._report import Column, Report, Row

__all__ = ["Books", "Column", "Error", "Report", "Row", "catalogue", "open", *_enumerations]


def open(connection: str | bytes | os.PathLike[str], *, locale: str = "",
         on_connect: OnConnect | None = None, on_progress: OnProgress | None = None,
         on_complete: OnComplete | None = None) -> Books:
    """Opens books: a file, or what the engine takes ("postgresql://...").

    locale is that of the texts in reports, "en_IN" or "de_DE@currency=INR"; "" is the user's own.
    The handlers are attributes of the books as well. Error 501 when the books cannot be opened.
    """
    return Books(connection, locale=locale, on_connect=on_connect, on_progress=on_progress,
                 on_complete=on_complete)


def catalogue() -> dict[str, Any]:
    """Every operation with its arguments, types and defaults, every event and enumeration."""
    all_of_it: dict[str, Any] = json.loads(native.catalogue())
    return all_of_it
