"""What happens while a report is made: other threads, events, Ctrl-C, the end of a program."""
import errno
import os
import pathlib
import signal
import subprocess
import sys
import threading
import time
import unittest

import arrow_reader
import stolvane
from small_books import ENDLESS, SALES, SmallBooks

# Runs in a process of its own; its books are the first argument.
BEGIN = """
import sys, threading
import small_books, stolvane, test_waiting
books = stolvane.open(sys.argv[1])
"""


def when_in_a_call(then):
    """Starts a thread that does it as soon as this one waits in a call of the books."""
    waits = threading.get_ident()

    def look():
        while sys._current_frames()[waits].f_code.co_name != "_call_in_turn":
            time.sleep(0.001)
        then()

    thread = threading.Thread(target=look)
    thread.start()
    return thread


class Waiting(SmallBooks):
    def run_program(self, program, interrupt=False):
        """Runs it, with Ctrl-C once it has told that it has begun. Gives its status and output."""
        folder = os.path.dirname(__file__)
        with subprocess.Popen([sys.executable, "-c", BEGIN + program, self.file], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              env={**os.environ, "PYTHONPATH": f"{os.environ['PYTHONPATH']}:{folder}"}) as run:
            told = ""
            if interrupt:
                told = run.stdout.readline()
                run.send_signal(signal.SIGINT)
            told += run.communicate(timeout=300)[0]
        return run.returncode, told

    def test_other_threads_run_while_a_report_is_made(self):
        ended = threading.Event()

        def abandon():
            while not ended.wait(0.01):  # the report may not have begun yet
                self.books.abandon()

        other = when_in_a_call(abandon)
        with self.fails(-2147217900) as failure:
            self.books.p_order_text_query(filter=ENDLESS)
        ended.set()
        other.join()
        self.assertEqual(failure.text, "the report was abandoned")
        self.assertEqual(len(self.books.doc_initial(**SALES)), 4)

    def test_ctrl_c_abandons_a_report(self):
        status, told = self.run_program("""
test_waiting.when_in_a_call(lambda: print("begun", flush=True))
try:
    books.p_order_text_query(filter=small_books.ENDLESS)
except KeyboardInterrupt:
    print("interrupted", len(books.doc_initial(**small_books.SALES)))
""", interrupt=True)
        self.assertEqual((status, told), (0, "begun\ninterrupted 4\n"))

    def test_ctrl_c_ends_the_wait_for_a_report_in_the_background(self):
        status, told = self.run_program("""
books.doc_initial(**small_books.SALES, bill_filter=small_books.ENDLESS, report=False)
books.on_progress = lambda percent, message: print("begun", flush=True)
try:
    books.wait()
except KeyboardInterrupt:
    books.on_progress = None
    print("interrupted", books.wait(), len(books.doc_initial(**small_books.SALES)))
""", interrupt=True)
        self.assertEqual((status, told.splitlines()[-1]), (0, "interrupted None 4"), told)

    def test_ctrl_c_ends_the_wait_for_a_server_that_does_not_answer(self):
        status, told = self.run_program("""
import socket, time
silent = socket.create_server(("127.0.0.1", 0))
called = []

def answer():
    called.append((silent.accept(), time.monotonic()))
    print("begun", flush=True)

threading.Thread(target=answer, daemon=True).start()
try:
    stolvane.open(f"postgresql://127.0.0.1:{silent.getsockname()[1]}/books?sslmode=disable")
except KeyboardInterrupt:
    waited = time.monotonic() - called[0][1]
    print("interrupted", "at once" if waited < 20 else waited)
""", interrupt=True)
        self.assertEqual((status, told), (0, "begun\ninterrupted at once\n"))

    def test_a_program_may_end_while_reports_are_made(self):
        status, told = self.run_program("""
stream = books.doc_initial(**small_books.SALES).__arrow_c_stream__()
books.doc_initial(**small_books.SALES, bill_filter=small_books.ENDLESS, report=False)
others = stolvane.open(sys.argv[1])

def ask():
    try:
        others.p_order_text_query(filter=small_books.ENDLESS)
    except stolvane.Error as error:
        print(error, flush=True)

threading.Thread(target=ask, daemon=True).start()
print("end", flush=True)
""")
        self.assertEqual((status, told.splitlines()[0]), (0, "end"), told)

    def test_an_exception_of_a_handler_abandons_the_report(self):
        def refuse(percent, message):
            raise LookupError(message)

        self.books.on_progress = refuse
        self.books.doc_initial(**SALES, bill_filter=ENDLESS, report=False)
        with self.assertRaisesRegex(LookupError, "FetchingData"):
            self.books.wait()
        self.assertIsNone(self.books.wait())
        with self.assertRaisesRegex(LookupError, "FetchingData"):
            self.books.doc_initial(**SALES)
        self.books.on_progress = None
        self.assertEqual(len(self.books.doc_initial(**SALES)), 4)

    def test_events_come_in_the_thread_that_waits(self):
        heard = []
        books = self.open(on_connect=lambda error: heard.append(("connect", error)),
                          on_progress=lambda percent, message: heard.append(message.lower()),
                          on_complete=lambda report, count: heard.append((report, count)))
        self.assertEqual(heard, [("connect", "")])
        self.assertEqual(books.doc_initial(**SALES)[3].Amount, "₹1,750.50")
        self.assertEqual((heard[1], heard[-1]), ("fetchingdata", "manipulating"))
        heard.clear()
        self.assertIsNone(books.doc_initial(**SALES, report=False))
        report = books.wait()
        self.assertEqual(report[3].Amount, "₹1,750.50")
        self.assertEqual(heard[0], "fetchingdata")
        self.assertEqual(heard[-1], (report, 0))
        self.assertIsNone(books.wait())

    def test_progress_is_told_while_a_query_works(self):
        self.books.on_progress = lambda percent, message: self.books.abandon()
        with self.fails(-2147217900) as failure:
            self.books.doc_initial(**SALES, bill_filter=ENDLESS)
        self.assertEqual(failure.text, "the report was abandoned")

    def test_a_report_that_gives_nothing_is_not_waited_for(self):
        asked = {"year": 1, "from_date": "2003-04-01", "to_date": "2004-03-31",
                 "valuation_method": "CurrentRate"}
        for handler in (None, lambda percent, message: None):
            self.books.on_progress = handler
            self.assertIsNone(self.books.stock_details_itemwise(**asked))
        self.assertIsNone(self.books.stock_details_itemwise(**asked, report=False))
        self.assertIsNone(self.books.wait())

    def test_a_report_that_is_complete_within_its_call_waits(self):
        asked = {"report_type": "rtMovement_LedgerAnalysis", "id": -1, "from_date": "2003-04-01",
                 "to_date": "2004-03-31"}
        self.assertIsNone(self.books.customer_itemwise_analysis(**asked, report=False))
        self.assertEqual(self.books.wait().to_dicts(),
                         self.books.customer_itemwise_analysis(**asked).to_dicts())

    def test_a_wait_has_an_end(self):
        self.books.doc_initial(**SALES, bill_filter=ENDLESS, report=False)
        self.assertIsNone(self.books.wait(0.01))
        self.books.abandon()
        self.assertIsNone(self.books.wait())

    def test_a_report_in_the_background_fails_in_the_wait(self):
        self.books.doc_initial(**SALES, bill_filter="Desr1.Desr_id / 0 = 1", report=False)
        with self.fails(11):
            self.books.wait()
        self.assertIsNone(self.books.wait())

    def test_several_threads_share_books(self):
        totals = []
        threads = [threading.Thread(target=lambda: totals.append(self.books.doc_initial(**SALES)[3].Amount))
                   for _ in range(8)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(totals, ["₹1,750.50"] * 8)

    def test_each_thread_gets_its_own_report_while_progress_is_told(self):
        self.books.on_progress = lambda percent, message: None
        got = []

        def ask(place):
            if place % 2 == 0:
                report = self.books.doc_initial(**SALES)
            else:
                report = self.books.ledgers_by_code(year=1, code="1")
            got.append((report.operation, len(report)))

        threads = [threading.Thread(target=ask, args=(place,)) for place in range(8)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(sorted(got), [("Doc_Initial", 4)] * 4 + [("LedgersByCode", 2)] * 4)

    def test_a_handler_may_close_the_books(self):
        books = self.open()
        books.on_progress = lambda percent, message: books.close()
        with self.fails(-2147217900) as failure:
            books.doc_initial(**SALES)
        self.assertEqual(failure.text, "the report was abandoned")
        with self.fails(91):
            books.doc_initial(**SALES)

    def test_a_process_may_be_forked_off_while_a_thread_has_a_report(self):
        def ask():
            with self.assertRaises(stolvane.Error):
                self.books.p_order_text_query(filter=ENDLESS)

        other = threading.Thread(target=ask)
        other.start()
        while sys._current_frames()[other.ident].f_code.co_name != "_call_in_turn":
            time.sleep(0.001)
        child = os.fork()
        if child == 0:
            signal.alarm(60)
            try:
                self.books.doc_initial(**SALES)
            except stolvane.Error as error:
                os._exit(error.number)
            os._exit(0)
        self.assertEqual(os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]), 91)
        while other.is_alive():
            self.books.abandon()
            other.join(0.01)

    def test_a_process_that_was_forked_off_is_told(self):
        report = self.books.doc_initial(**SALES)
        stream = arrow_reader.stream_of(report.__arrow_c_stream__())
        child = os.fork()
        if child == 0:
            status = 0
            for ask in (lambda: self.books.doc_initial(**SALES), report.to_csv, report.__len__,
                        report.__arrow_c_stream__, self.books.wait):
                try:
                    ask()
                except stolvane.Error as error:
                    status += error.number == 91 and "forked" in error.text
            status += 10 * (stream.get_next(stream, arrow_reader.Array()) == errno.EIO)
            self.books.abandon()
            self.books.close()
            stream.release(stream)
            del report
            os._exit(status)
        stream.release(stream)
        # Each but the wait, for which no report is on its way, is told so.
        self.assertEqual(os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]), 14)
        self.assertEqual(len(report), 4)


class Opening(SmallBooks):
    def test_a_path_in_any_form(self):
        for path in (pathlib.Path(self.file), os.fsencode(self.file)):
            with stolvane.open(path) as books:
                self.assertEqual(repr(books), "<Books asha>")

    def test_books_that_are_not_there(self):
        heard = []
        with self.fails(501) as failure:
            stolvane.open("/nowhere/books.db", on_connect=heard.append)
        self.assertIn("/nowhere/books.db", failure.text)
        self.assertEqual(len(heard), 1)
        self.assertIn("/nowhere/books.db", heard[0])

    def test_an_unknown_locale(self):
        with self.fails(3001):
            stolvane.open(self.file, locale="xx_YY")

    def test_an_error_has_a_number_and_a_text(self):
        error = stolvane.Error(3001, "no")
        self.assertEqual((error.number, error.text, str(error)), (3001, "no", "no (3001)"))

    def test_closed_books(self):
        with stolvane.open(self.file) as books:
            self.assertEqual(repr(books), "<Books asha>")
        with self.fails(91) as failure:
            books.doc_initial(**SALES)
        self.assertEqual(failure.text, "the books are closed")
        books.close()
        with self.fails(91):
            books._session.call("Doc_Initial", "{}", None)
        with self.fails(91):
            books._session.is_whole()

    def test_the_module_refuses_what_is_of_another_type(self):
        session = self.books._session
        rowset = self.books.doc_initial(**SALES)._rowset
        for wrong in (lambda: session.connect(1, None), lambda: session.call("Doc_Initial"),
                      lambda: session.pump("1", None), lambda: session.html("", "", "", "", ""),
                      lambda: rowset.sort(1), lambda: stolvane.native.sort_text("Doc_Initial"),
                      lambda: type(rowset)()):
            with self.assertRaises(TypeError):
                wrong()


if __name__ == "__main__":
    unittest.main()
