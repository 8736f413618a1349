"""Books of a few rows, made for one test."""
import contextlib
import functools
import os
import pathlib
import sqlite3
import subprocess
import tempfile
import unittest

import stolvane

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent

# Two parties with a sale each, and one that is never listed.
ROWS = """
insert into SubgroupName1 (Subgroup_id, SubgroupName, Code) values
  (1, 'Customers', 1), (33, 'Hidden', 1);
insert into LedgerNames1 (Ledger_id, LedgerName, Subgroup_id, Pin, YearOfCreation) values
  (1, 'Asha & Söhne', 1, '411001', 1), (2, 'Bharat Traders', 1, '411002', 1),
  (3, 'Never listed', 33, '411003', 1);
insert into Vouchertype1 (Vouchertype_id, Vouchertype, RelatedTo, SubRelatedTo) values
  (10, 'Sale', 10, 10);
insert into Desr1 (Desr_id, Date, Vouchertype_id, Ledger_id, TotalAmount, Optional, Deleted, YearNo)
  values (1, '2003-06-01', 10, 2, 1500.50, 0, 0, 1), (2, '2003-07-01', 10, 1, 250, 0, 0, 1);
insert into Items1 (Item_id, ItemName, ItemCategory_id, ItemClass_id, ConsiderForSih) values
  (5, 'Clutch plate', 1, 1, 1), (6, 'Seat', 1, 1, 1);
insert into ItemCategory1 (ItemCategory_id, CategoryName, Deleted) values (1, 'Parts', 0);
insert into ItemClass1 (ItemClass_id, ClassName, Deleted) values (1, 'Fast', 0);
insert into DesrDetails1 (DesrDetails_id, Desr_id, Item_id, QtyDespIn, QtyDespOut) values
  (1, 1, 5, 0, 1.25), (2, 1, 6, null, 1);
"""
# The two sales: 250.00 of one party, 1,500.50 of the other.
SALES = {"vouchertype_id": 10, "from_date": "2003-04-01", "to_date": "2004-03-31"}
# A condition for which a file of books counts 3 to the 30th rows: practically without an end.
ENDLESS = ("Desr1.Desr_id = (select count(*) from "
           + ", ".join(f"LedgerNames1 as L{i}" for i in range(30)) + ")")


def run_program(*words):
    """Runs the command line program, without what this interpreter alone was to load first."""
    others = {name: value for name, value in os.environ.items() if name != "LD_PRELOAD"}
    subprocess.run([os.environ["STOLVANE"], *words], check=True, capture_output=True, env=others)


@functools.cache
def content():
    """The books as a file's bytes, made once."""
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder, "made.db")
        run_program("books", "create", file)
        with contextlib.closing(sqlite3.connect(file)) as database:
            database.executescript(ROWS)
        return file.read_bytes()


class SmallBooks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = os.path.join(folder.name, "asha.db")
        pathlib.Path(self.file).write_bytes(content())
        self.books = self.open()

    def open(self, **options):
        books = stolvane.open(self.file, locale="en_IN", **options)
        self.addCleanup(books.close)
        return books

    def fails(self, number):
        """A context that takes one Error of that number."""
        return _Fails(self, number)


class _Fails(contextlib.AbstractContextManager):
    def __init__(self, test, number):
        self.test, self.number, self.text = test, number, ""

    def __exit__(self, kind, error, traceback):
        self.test.assertIsInstance(error, stolvane.Error)
        self.test.assertEqual(error.number, self.number, error.text)
        self.text = error.text
        return True
