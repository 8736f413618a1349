"""Reports as rows, dictionaries, CSV and pages."""
import datetime
import pickle
import unittest
from decimal import Decimal

import stolvane
from small_books import SALES, SmallBooks
from stolvane import _report


class Reports(SmallBooks):
    def test_rows_are_tuples_with_names(self):
        sales = self.books.doc_initial(**SALES)
        self.assertEqual(len(sales), 4)
        self.assertEqual([column.name for column in sales.columns],
                         ["Ledger", "Amount", "Ledger_Id", "TotalLine", "LedgerSort", "AmountSort",
                          "DummySort"])
        first = sales[0]
        self.assertEqual((first.Ledger, first["Amount"], first[2]), ("Asha & Söhne", "₹250.00", 1))
        self.assertEqual([row.Amount for row in sales], ["₹250.00", "₹1,500.50", None, "₹1,750.50"])
        self.assertEqual([row.Ledger_Id for row in sales[:2]], [1, 2])
        with self.assertRaises(AttributeError):
            first.Nothing
        with self.assertRaises(KeyError):
            first["Nothing"]
        self.assertIn("Ledger='Asha & Söhne', Amount='₹250.00'", repr(first))
        self.assertEqual(repr(sales), "<Report Doc_Initial: 4 rows>")
        self.assertEqual(pickle.loads(pickle.dumps(first))["Ledger"], "Asha & Söhne")

    def test_cells_have_pythons_types(self):
        lines = self.books.p_order_text_query(filter="")
        self.assertEqual([(one.date, one.qty) for one in lines],
                         [(datetime.date(2003, 6, 1), -1.25), (datetime.date(2003, 6, 1), None)])
        self.assertIsInstance(lines[0].qty, float)

    def test_money_a_time_a_flag_and_rows_within_a_row(self):
        table = {"columns": [{"name": "M", "type": 6}, {"name": "D", "type": 7},
                             {"name": "F", "type": 11}, {"name": "R", "type": 136}],
                 "rows": [["12.5000", "2004-03-31 12:30:00", True,
                           {"columns": [{"name": "Q", "type": 4}], "rows": [[2]]}],
                          [None, "12004-03-31", None, None]]}
        first, second = _report._rows_of(table)
        self.assertEqual((first.M, str(first.M)), (Decimal("12.5"), "12.5000"))
        self.assertEqual(first.D, datetime.datetime(2004, 3, 31, 12, 30))
        self.assertIs(first.F, True)
        self.assertEqual(first.R[0].Q, 2.0)
        self.assertEqual(first._asdict()["R"], [{"Q": 2.0}])
        self.assertEqual(tuple(second), (None, "12004-03-31", None, None))

    def test_dictionaries_and_csv(self):
        ledgers = self.books.ledgers_by_code(year=1, code="")
        self.assertEqual(ledgers.to_dicts(),
                         [{"id": 1, "name": "Asha & Söhne"}, {"id": 2, "name": "Bharat Traders"}])
        self.assertEqual(ledgers.to_csv(), "id,name\r\n1,Asha & Söhne\r\n2,Bharat Traders\r\n")

    def test_an_argument_that_comes_back_changed(self):
        ledgers = self.books.ledgers_by_code(year=1, code="1")
        self.assertEqual(ledgers.changed["sCode"].split(), "SUBGROUPNAME1.CODE IN (1) AND".split())

    def test_a_column_by_its_name(self):
        sales = self.books.doc_initial(**SALES)
        self.assertEqual(sales["Amount"], [row.Amount for row in sales])
        with self.assertRaisesRegex(KeyError, "no column 'Sum'"):
            sales["Sum"]
        with self.assertRaisesRegex(KeyError, "no column 'Sum'"):
            self.books.doc_initial(**{**SALES, "vouchertype_id": 99})["Sum"]

    def test_the_columns_of_a_row_are_told_to_who_completes_names(self):
        row = self.books.doc_initial(**SALES)[0]
        self.assertIn("AmountSort", dir(row))
        with self.assertRaises(AttributeError) as failure:
            row.Legder
        self.assertEqual((failure.exception.name, failure.exception.obj), ("Legder", row))

    def test_sorted_by_a_twin_the_total_stays_last(self):
        sales = self.books.doc_initial(**SALES)
        sales.sort_by("LedgerSort", descending=True)
        self.assertEqual([row.Ledger for row in sales],
                         ["Bharat Traders", "Asha & Söhne", None, "Total"])
        sales.sort("")
        self.assertEqual(sales[0].Ledger, "Asha & Söhne")
        with self.fails(3265):
            sales.sort("Nothing")
        with self.fails(3001):
            self.books.ledgers_by_code(year=1, code="").sort_by("name")

    def test_a_page_as_people_read_it(self):
        page = self.books.doc_initial(**SALES).to_html()
        self.assertTrue(page.startswith("<!doctype html>"))
        self.assertIn("<h1>Documents by party</h1>\n<p>asha</p>\n<p>voucher type: Sale · "
                      "01/04/2003 to 31/03/2004 · printed ", page)
        self.assertIn('<tr class="line"><td>Asha &amp; Söhne</td><td class="n">₹250.00</td></tr>', page)
        self.assertIn('<tr class="total"><td>Total</td><td class="n">₹1,750.50</td></tr>', page)

    def test_a_notebook_shows_the_table_of_the_page(self):
        shown = self.books.doc_initial(**SALES)._repr_html_()
        self.assertTrue(shown.startswith('<div class="stolvane"><style scoped>'))
        self.assertNotIn("<html", shown)
        self.assertIn("<strong>Documents by party</strong>", shown)
        self.assertIn('<tr class="total"><td>Total</td><td class="n">₹1,750.50</td></tr>', shown)

    def test_a_notebook_shows_the_beginning_and_the_end_of_a_long_report(self):
        lines = "".join(f'<tr class="line"><td>{i}</td></tr>\n' for i in range(1000))
        shown = _report._in_a_notebook("<body><table>\n<thead><tr><th scope=\"col\">A</th></tr></thead>\n"
                                       f"<tbody>\n{lines}</tbody>\n</table></body>")
        self.assertIn("<td>59</td></tr>\n<tr class=\"line\"><td colspan=\"1\">… 930 lines …</td></tr>\n"
                      "<tr class=\"line\"><td>990</td>", shown)
        self.assertTrue(shown.endswith("<td>999</td></tr>\n</tbody>\n</table></div>"))

    def test_the_locale_is_that_of_the_texts(self):
        self.books.set_locale(name="de_DE@currency=INR")
        sales = self.books.doc_initial(**SALES)
        self.assertEqual(sales[3].Amount, "1.750,50\xa0₹")
        self.assertIn("01.04.2003 to 31.03.2004", sales.to_html())

    def test_a_report_outlives_its_books(self):
        sales = self.books.doc_initial(**SALES)
        self.books.close()
        self.assertEqual(sales[3].Amount, "₹1,750.50")
        self.assertIn("<h1>Documents by party</h1>\n<p>asha</p>\n<p>01/04/2003 to 31/03/2004 · ",
                      sales.to_html())

    def test_a_report_that_was_cut_says_so(self):
        self.assertTrue(self.books.doc_initial(**SALES).is_whole)
        self.books.cancel_fetching(cancel_fetching=True)
        self.assertFalse(self.books.doc_initial(**SALES).is_whole)


if __name__ == "__main__":
    unittest.main()
