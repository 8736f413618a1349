"""Opened books."""

from __future__ import annotations

import atexit
import json
import os
import threading
import time
import weakref
from typing import Any, Callable

from . import native
from ._error import Error
from ._operations import Operations
from ._report import Report

OnConnect = Callable[[str], object]
OnProgress = Callable[[int, str], object]
OnComplete = Callable[[Report, int], object]

_NOT_OPEN = 91
_ABANDONED = -2147217900
_REPORT = "blnReport"  # False fetches a report in the background
_SLICE = 50  # milliseconds that a wait for events lasts at most
_opened: weakref.WeakSet[Books] = weakref.WeakSet()


class Books(Operations):
    """A company's books, opened for reports; open() makes them.

    Every operation of the library is a method. It may be called from any thread; calls from several
    wait for each other, so threads that shall not wait open the books once each. While a report is
    made other threads run, and Ctrl-C abandons it.

    Handlers are called in the thread that waits for the report, as long as it waits; an exception
    of theirs abandons the report and comes out of the call.
    """

    def __init__(self, connection: str | bytes | os.PathLike[str], *, locale: str = "",
                 on_connect: OnConnect | None = None, on_progress: OnProgress | None = None,
                 on_complete: OnComplete | None = None) -> None:
        #: on_connect(error_text): the books are open, or why they are not.
        self.on_connect = on_connect
        #: on_progress(percent, message): a report goes on; the percentage is at most 60.
        self.on_progress = on_progress
        #: on_complete(report, any_count): a report that was asked for with report=False.
        self.on_complete = on_complete
        self._session: native.Session = native.Session()
        self._is_open = True
        self._connection = os.fsdecode(connection)
        self._locale = ""
        self._awaited: dict[str, Any] | None = None  # how the Report of it is made
        self._arrived: Report | None = None
        self._announces = False  # on_complete is told of it
        self._was_abandoned = False
        # Held for a call or a wait, so that what is known of the report in hand is one thread's.
        self._turn = threading.RLock()
        _opened.add(self)
        try:
            self._session.connect(self._connection, self._hear)
            if locale:
                self.set_locale(name=locale)
        except BaseException:
            self.close()
            raise

    def __enter__(self) -> Books:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def __repr__(self) -> str:
        return f"<Books {self._company()}>"

    def close(self) -> None:
        """Lets the books go; what runs is abandoned. Reports stay."""
        _opened.discard(self)
        self._is_open = False
        self._awaited, self._was_abandoned = None, True
        self._session.close()

    def abandon(self) -> None:
        """Drops the report in hand; the call that waits for it ends with an Error. Any thread."""
        self._awaited, self._was_abandoned = None, True
        self._session.abandon()

    def wait(self, seconds: float | None = None) -> Report | None:
        """The report that was last asked for with report=False, when it is finished.

        Handlers are called meanwhile. None after so many seconds, and when none is on its way.
        """
        with self._turn:
            return self._wait(seconds)

    def _wait(self, seconds: float | None = None) -> Report | None:
        end = None if seconds is None else time.monotonic() + seconds
        try:
            while self._awaited is not None:
                left = _SLICE if end is None else min(_SLICE, int(1000 * (end - time.monotonic())))
                if left < 0:
                    return None
                if not self._session.pump(left, self._hear):
                    break
        except BaseException:
            self.abandon()
            raise
        self._awaited = None
        report, self._arrived = self._arrived, None
        return report

    def _check_open(self) -> None:
        if not self._is_open:
            raise Error(_NOT_OPEN, "the books are closed")

    def _call(self, operation: str, arguments: dict[str, Any], decided_by: str = "",
              gives_report: bool = False) -> Any:
        with self._turn:
            return self._call_in_turn(operation, arguments, decided_by, gives_report)

    def _call_in_turn(self, operation: str, arguments: dict[str, Any], decided_by: str,
                      gives_report: bool) -> Any:
        self._check_open()
        changed: dict[str, Any] = {}
        made = {"operation": operation, "arguments": arguments, "changed": changed,
                "asked": arguments.get(decided_by, 0)}
        waits = arguments.get(_REPORT, True)
        # What is fetched in the background tells its progress from the beginning.
        sent = arguments
        if _REPORT in arguments and self.on_progress is not None:
            sent = {**arguments, _REPORT: False}
        if gives_report:
            # Some reports are complete before the call returns, whatever was asked for.
            self._awaited, self._arrived = made, None
            self._announces, self._was_abandoned = not waits, False
        try:
            rowset, told = self._session.call(operation, json.dumps(sent), self._hear)
        except BaseException:
            self._awaited = None
            raise
        result = json.loads(told)
        changed.update(result["changed"])
        if operation == "SetLocale":
            self._locale = arguments["name"]
        if rowset is not None:
            self._awaited = None
            return self._report(rowset, made)
        if not gives_report or not waits:
            return result["value"]
        report = self._wait()
        if report is None and self._was_abandoned:
            raise Error(_ABANDONED, "the report was abandoned")
        return report

    def _report(self, rowset: native.Rowset, made: dict[str, Any]) -> Report:
        report = Report(self, rowset, **made)
        report.is_whole = self._session.is_whole()
        return report

    def _hear(self, event: str, number: int, text: str, rowset: native.Rowset | None) -> None:
        if event == "connect":
            if self.on_connect is not None:
                self.on_connect(text)
        elif event == "progress":
            if self.on_progress is not None:
                self.on_progress(number, text)
        elif rowset is not None and self._awaited is not None:
            self._arrived, self._awaited = self._report(rowset, self._awaited), None
            if self._announces and self.on_complete is not None:
                self.on_complete(self._arrived, number)

    def _company(self) -> str:
        if "=" in self._connection or "://" in self._connection:
            return ""
        return os.path.splitext(os.path.basename(self._connection))[0]

    def _page(self, rowset: native.Rowset, operation: str, arguments: dict[str, Any]) -> str:
        return self._session.html(rowset, operation, json.dumps(arguments), self._company(),
                                  self._locale)


@atexit.register
def _close_all() -> None:
    for books in list(_opened):
        try:
            books.close()
        except Error:
            pass


def _begin_anew() -> None:
    """In a process that was forked off, where the thread that had the turn is not."""
    for books in _opened:
        books._turn = threading.RLock()


os.register_at_fork(after_in_child=_begin_anew)
