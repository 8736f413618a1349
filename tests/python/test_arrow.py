"""Columns by __arrow_c_stream__, as a data frame takes them."""
import gc
import threading
import unittest

import arrow_reader
from small_books import SALES, SmallBooks


class Arrow(SmallBooks):
    def assert_same(self, report, table):
        self.assertEqual(list(table), [column.name for column in report.columns])
        for name, (form, cells) in table.items():
            self.assertEqual(cells, [row[name] for row in report], name)

    def test_cells_are_those_of_the_rows(self):
        forms = {}
        for report in (self.books.doc_initial(**SALES), self.books.p_order_text_query(filter=""),
                       self.books.stock_details_itemwise(year=1, from_date="2003-04-01",
                                                         to_date="2004-03-31", valuation_method="fifo")):
            table = arrow_reader.read(arrow_reader.stream_of(report.__arrow_c_stream__()))
            self.assert_same(report, table)
            forms |= {form: name for name, (form, _) in table.items()}
        self.assertEqual(set(forms), {"i", "l", "f", "d:19,4", "tdD", "u"})

    def test_a_report_without_rows(self):
        report = self.books.p_order_text_query(filter="Desr1.Desr_id = 99")
        table = arrow_reader.read(arrow_reader.stream_of(report.__arrow_c_stream__(None)))
        self.assertEqual(table["qty"], ("f", []))

    def test_a_sorted_report_comes_sorted(self):
        report = self.books.doc_initial(**SALES)
        report.sort_by("LedgerSort", descending=True)
        self.assert_same(report, arrow_reader.read(arrow_reader.stream_of(report.__arrow_c_stream__())))

    def test_a_stream_is_read_on_another_thread_when_all_else_is_gone(self):
        stream = arrow_reader.stream_of(self.books.doc_initial(**SALES).__arrow_c_stream__())
        self.books.close()
        del self.books
        gc.collect()
        tables = []
        reader = threading.Thread(target=lambda: tables.append(arrow_reader.read(stream)))
        reader.start()
        reader.join()
        self.assertEqual(tables[0]["Amount"], ("u", ["₹250.00", "₹1,500.50", None, "₹1,750.50"]))

    def test_a_capsule_that_nobody_takes_lets_go(self):
        report = self.books.doc_initial(**SALES)
        for _ in range(3):
            self.assertIn("arrow_array_stream", repr(report.__arrow_c_stream__()))
        self.assertEqual(len(report), 4)

    def test_an_error_of_the_stream_is_told(self):
        stream = arrow_reader.stream_of(self.books.doc_initial(**SALES).__arrow_c_stream__())
        self.assertEqual(stream.get_last_error(stream), None)
        self.assertNotEqual(stream.get_next(stream, None), 0)
        self.assertEqual(stream.get_last_error(stream), b"no place for the batch was given")
        stream.release(stream)


if __name__ == "__main__":
    unittest.main()
