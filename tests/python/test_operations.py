"""The methods are those of the catalogue, and their arguments what Python has for them."""
import datetime
import decimal
import importlib.util
import inspect
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

import stolvane
from small_books import ROOT, SALES, SmallBooks
from stolvane import ReportType, ValuationMethod


def made_from(catalogue):
    """The module that is made from another catalogue."""
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder, "catalogue.json")
        file.write_text(json.dumps(catalogue), encoding="utf-8")
        subprocess.run([sys.executable, ROOT / "python/generate.py", file, folder], check=True)
        stub = pathlib.Path(folder, "_operations.pyi").read_text(encoding="utf-8")
        compile(stub, "_operations.pyi", "exec")
        spec = importlib.util.spec_from_file_location("stolvane._made",
                                                      pathlib.Path(folder, "_operations.py"))
        module = importlib.util.module_from_spec(spec)
        spec.loader.exec_module(module)
        return module.Operations, stub


class Catalogue(unittest.TestCase):
    def test_every_operation_is_a_method_with_all_that_it_reads(self):
        left_out = {"SetConnection", "GetConnectionObject"}
        methods = {name for name in vars(stolvane._operations.Operations) if not name.startswith("_")}
        operations = [one for one in stolvane.catalogue()["operations"] if one["name"] not in left_out]
        self.assertEqual(len(methods), len(operations))
        for operation in operations:
            name = "".join(sorted(operation["name"].lower().replace("_", "")))
            fitting = [one for one in methods if "".join(sorted(one.replace("_", ""))) == name]
            self.assertEqual(len(fitting), 1, operation["name"])
            method = getattr(stolvane.Books, fitting[0])
            read = [member for one in operation["arguments"] if one["read"]
                    for member in one.get("members", [one["name"]])]
            self.assertEqual(len(inspect.signature(method).parameters), len(read) + 1, operation["name"])
            self.assertTrue(method.__doc__.startswith(operation["help"]), operation["name"])

    def test_a_signature(self):
        signature = inspect.signature(stolvane.Books.multiple_price_list)
        self.assertEqual(str(signature),
                         "(self, *, category_id: 'int' = -1, class_id: 'int' = -1, "
                         "report: 'bool' = True, itemstate: 'str' = '', "
                         "consider_for_sih: 'str' = '') -> 'Report | None'")
        self.assertIn("category_id: The item category; -1 leaves it out of the query.",
                      stolvane.Books.multiple_price_list.__doc__)

    def test_a_report_that_is_added_appears(self):
        catalogue = stolvane.catalogue()
        catalogue["operations"].append({
            "name": "RTOBikeLoans_Daily", "family": "vehicle", "launch": "fetch", "returns": "rowset",
            "help": "The loans of a day.", "decidedBy": "reptype",
            "arguments": [
                {"name": "reptype", "type": "enumeration", "enumeration": "ReportType",
                 "optional": False, "default": None, "read": True, "help": "By bank or by day."},
                {"name": "bytYearno", "type": "byte", "optional": False, "default": None, "read": True,
                 "help": "The number of the accounting year."},
                {"name": "lngId", "type": "int32", "optional": False, "default": None, "read": False,
                 "help": "Accepted and not used."},
                {"name": "lngBank_id", "type": "int32", "optional": True, "default": -1, "read": True,
                 "help": "The bank; -1 is all."},
                {"name": "strLambda", "type": "text", "optional": True, "default": "", "read": True,
                 "help": "A condition, or nothing."},
                {"name": "dtLambda", "type": "date", "optional": True, "default": "1899-12-30",
                 "read": True, "help": "A day, or none."}]})
        operations, stub = made_from(catalogue)
        sent = []

        class Books(operations):
            def _call(self, *arguments, **how):
                sent.append((arguments, how))

        Books().rto_bike_loans_daily(report_type="Doc_Initial", year=2,
                                     dt_lambda=datetime.date(2004, 3, 31))
        self.assertEqual(sent, [(("RTOBikeLoans_Daily",
                                  {"reptype": 8, "bytYearno": 2, "lngBank_id": -1, "strLambda": "",
                                   "dtLambda": "2004-03-31", "lngId": 0}),
                                 {"decided_by": "reptype", "gives_report": True})])
        self.assertTrue("bank_id: int = -1, str_lambda: str = '', dt_lambda: Day | None = None"
                        in " ".join(stub.split()))

    def test_the_stub_tells_when_a_report_is_given(self):
        _, stub = made_from(stolvane.catalogue())
        self.assertTrue("report: Literal[True] = True" in stub)
        self.assertTrue("report: Literal[False]) -> None: ..." in stub)


    def test_what_may_be_left_out(self):
        parameters = inspect.signature(stolvane.Books.category_wise_initial).parameters
        self.assertEqual([(name, parameters[name].default) for name in ("isclass", "report", "scale")],
                         [("isclass", False), ("report", True), ("scale", 1.0)])
        self.assertIs(parameters["from_date"].default, inspect.Parameter.empty)


class Values(SmallBooks):
    def test_dates_as_dates_and_as_texts(self):
        days = {"from_date": datetime.date(2003, 7, 1), "to_date": datetime.date(2003, 7, 1)}
        self.assertEqual([row.Ledger for row in self.books.doc_initial(vouchertype_id=10, **days)],
                         ["Asha & Söhne", None, "Total"])
        with self.fails(13) as failure:
            self.books.doc_initial(**{**SALES, "from_date": "July"})
        self.assertIn("dtFromDate takes a date as 2004-03-31", failure.text)

    def test_names_of_an_enumeration(self):
        from stolvane._values import member
        for fifo in (ValuationMethod.FifoRate, ValuationMethod.FifoRate.value, "FifoRate", "fifo", "FIFO"):
            self.assertEqual(member(ValuationMethod, fifo), ValuationMethod.FifoRate)
        self.assertEqual(member(ValuationMethod, "standardr"), ValuationMethod.standardrate)
        self.assertEqual(member(ReportType, "autosearch"), ReportType.rtAutoSearch)
        self.assertEqual(member(ReportType, 12345), 12345)
        for wrong in ("stan", "", "guess"):
            with self.assertRaisesRegex(ValueError, "is no ValuationMethod: one of .*StandardPrice"):
                member(ValuationMethod, wrong)

    def test_what_is_no_number_is_refused_at_once(self):
        with self.assertRaises(TypeError):
            self.books.doc_initial(**{**SALES, "vouchertype_id": "10"})
        with self.assertRaises(TypeError):
            self.books.doc_initial(**SALES, amount=1)

    def test_what_looks_like_a_flag_a_number_or_a_date_is_refused_too(self):
        for wrong in ({"no_rel": "no"}, {"no_rel": None}, {"scale": "1000"}, {"to_date": 20040331}):
            with self.assertRaises(TypeError, msg=wrong):
                self.books.doc_initial(**{**SALES, **wrong})
        for wrong in (float("nan"), float("inf")):
            with self.assertRaisesRegex(ValueError, "finite"):
                self.books.doc_initial(**SALES, scale=wrong)
        self.assertEqual(len(self.books.doc_initial(**SALES, no_rel=0, scale=decimal.Decimal(2))), 4)

    def test_a_rowset_argument_is_one_select(self):
        report = self.books.service_report_regno(
            filter="", items="select Item_id as Itemnew_id, ItemName, '' as UOMNAME from Items1")
        self.assertEqual(report.operation, "ServiceReportRegno")
        with self.fails(-2147217900):
            self.books.service_report_regno(filter="", items="delete from Items1")

    def test_what_an_operation_does_not_return(self):
        self.assertIsNone(self.books.set_filter(vouchertype_filter="", subgroup_filter="",
                                                type_ofentry=1, opt_no=1))
        self.assertIsNone(self.books.user_pressed_cancel())

    def test_aliases_by_name(self):
        self.books.set_aliases(ledger="LedgerNames1.Pin")
        self.assertEqual(self.books.doc_initial(**SALES)[0].Ledger, "411001")


if __name__ == "__main__":
    unittest.main()
