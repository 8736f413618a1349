// The checks of the books' data: each is a query that gives how many rows break a rule and the
// first one's key, and the words for it.
#include <algorithm>

#include "session/books/Checks.h"
#include "session/books/Schema.h"
#include "session/data/Error.h"

namespace pstolvane1::books {
namespace {

// "12 WORDS, the first with Item_id 5 (Items1.Uom_id)." Nothing when there is none. count and first
// as a query gives them; the columns may be told in the words already.
void Tell(Severity severity, const std::optional<std::string>& count,
          const std::optional<std::string>& first, std::string_view key, std::string_view one,
          std::string_view many, std::string_view columns, Findings& findings) {
  const long long rows = std::stoll(count.value_or("0"));
  if (rows == 0) return;
  findings.push_back({severity,
                      Counted(rows, one, many) + ", the first with " + std::string(key) + " " +
                          first.value_or("Null") +
                          (columns.empty() ? "." : " (" + std::string(columns) + ")."),
                      ""});
}

// A column that names the key of another table; 0 and Null name nothing.
struct Reference {
  Severity severity;
  std::string_view table, column, target;
};

constexpr Reference kReferences[] = {
    {Severity::kError, "GodownItem1", "Item_id", "Items1"},
    {Severity::kError, "GodownItem1", "Godown_id", "Godown1"},
    {Severity::kError, "GodownItem1", "Batch_id", "Batches1"},
    {Severity::kWarning, "GodownItem1", "Color_id", "Color1"},
    {Severity::kWarning, "GodownItem1", "GDesr_id", "Desr1"},
    {Severity::kWarning, "GodownItem1", "DesrDetails_id", "DesrDetails1"},
    {Severity::kWarning, "GodownItem1", "GRelatedDesr_id", "Desr1"},
    {Severity::kWarning, "GodownItem1", "GLedger_id", "LedgerNames1"},
    {Severity::kError, "DesrDetails1", "Desr_id", "Desr1"},
    {Severity::kError, "DesrDetails1", "Item_id", "Items1"},
    {Severity::kWarning, "DesrDetails1", "DefectCode", "Defect"},
    {Severity::kWarning, "DesrDetails1", "VendorCode", "Vendor"},
    {Severity::kWarning, "DesrDetails1", "PerformanceCode", "Perfomance"},
    {Severity::kError, "Desr1", "Vouchertype_id", "Vouchertype1"},
    {Severity::kError, "Desr1", "Ledger_id", "LedgerNames1"},
    {Severity::kWarning, "Desr1", "Employee_id", "Employee1"},
    {Severity::kWarning, "Desr1", "Related_id", "Voucher1"},
    {Severity::kWarning, "Terms1", "Desr_id", "Desr1"},
    {Severity::kWarning, "Terms1", "Vehicle_id", "Items1"},
    {Severity::kWarning, "Terms1", "Mechanic_id", "MechanicName"},
    {Severity::kWarning, "Terms1", "Hypo_id", "Hypo"},
    {Severity::kWarning, "Terms1", "ServiceType_id", "JobcardType"},
    {Severity::kError, "Items1", "Uom_id", "Uom1"},
    {Severity::kError, "Items1", "AlternateUom_id", "Uom1"},
    {Severity::kWarning, "Items1", "ItemCategory_id", "ItemCategory1"},
    {Severity::kWarning, "Items1", "ItemClass_id", "ItemClass1"},
    {Severity::kWarning, "ItemCategory1", "RelatedTo", "ItemCategory1"},
    {Severity::kWarning, "ItemClass1", "RelatedTo", "ItemClass1"},
    {Severity::kWarning, "Godown1", "RelatedTo", "Godown1"},
    {Severity::kError, "Batches1", "Item_id", "Items1"},
    {Severity::kWarning, "Batches1", "Color_id", "Color1"},
    {Severity::kWarning, "LedgerNames1", "Subgroup_id", "SubgroupName1"},
    {Severity::kWarning, "VoucherDetails1", "Voucher_id", "Voucher1"},
    {Severity::kWarning, "VoucherDetails1", "Ledger_id", "LedgerNames1"},
    {Severity::kWarning, "Voucher1", "Vouchertype_id", "Vouchertype1"},
    {Severity::kWarning, "BillByBill1", "Ledger_id", "LedgerNames1"},
    {Severity::kWarning, "BillByBillDetails1", "BillByBill_id", "BillByBill1"},
    {Severity::kWarning, "BillByBillDetails1", "Voucher_id", "Voucher1"},
};

// A rule over a table, told in its own words.
struct Rule {
  Severity severity;
  std::string_view key;
  std::string_view columns;  // that it is about
  std::string_view from;
  std::string_view one, many;
  bool unread = false;  // no report reads such a row, or none of a kind that people ask for first
};

constexpr Rule kRules[] = {
    {Severity::kError, "GodownItem_id", "GodownItem1.Item_id",
     "GodownItem1 WHERE Item_id IS NULL OR Item_id = 0", "movement has no item",
     "movements have no item", true},
    {Severity::kError, "GodownItem_id", "GodownItem1.Godown_id, Batch_id",
     "GodownItem1 WHERE Optional = 0 AND (coalesce(Godown_id, 0) = 0 OR coalesce(Batch_id, 0) = 0)",
     "movement has no godown or no batch and stays out of the stock statements",
     "movements have no godown or no batch and stay out of the stock statements", true},
    {Severity::kError, "GodownItem_id", "GodownItem1.IsAdded", "GodownItem1 WHERE IsAdded IS NULL",
     "movement does not tell whether it goes in or out",
     "movements do not tell whether they go in or out"},
    {Severity::kError, "GodownItem_id", "GodownItem1.Optional, IsOpeningBal",
     "GodownItem1 WHERE Optional IS NULL OR IsOpeningBal IS NULL",
     "movement has a Null in Optional or IsOpeningBal and stays out of the reports",
     "movements have a Null in Optional or IsOpeningBal and stay out of the reports", true},
    {Severity::kError, "GodownItem_id", "GodownItem1.Qty, Rate",
     "GodownItem1 WHERE Qty IS NULL OR Rate IS NULL", "movement has no quantity or no rate",
     "movements have no quantity or no rate"},
    {Severity::kError, "GodownItem_id", "GodownItem1.Qty", "GodownItem1 WHERE Qty < 0",
     "movement has a negative quantity, where IsAdded should tell the direction",
     "movements have a negative quantity, where IsAdded should tell the direction"},
    {Severity::kWarning, "GodownItem_id", "GodownItem1.Date",
     "GodownItem1 WHERE Date IS NULL AND IsOpeningBal = 0",
     "movement that is no opening balance has no date",
     "movements that are no opening balance have no date"},
    {Severity::kWarning, "GodownItem_id", "GodownItem1.GDesr_id, Desr1.Deleted",
     "GodownItem1 g JOIN Desr1 d ON d.Desr_id = g.GDesr_id WHERE d.Deleted <> 0 AND g.Optional = 0",
     "movement of a deleted document still counts as stock",
     "movements of deleted documents still count as stock"},
    {Severity::kWarning, "GodownItem_id", "GodownItem1.GRefNo, GLedger_id, YearNo, Date",
     "GodownItem1 g JOIN Desr1 d ON d.Desr_id = g.GDesr_id WHERE g.GRefNo <> d.DesrRefno OR "
     "g.GLedger_id <> d.Ledger_id OR g.YearNo <> d.YearNo OR g.Date <> d.Date",
     "movement differs from its document in number, party, year or date",
     "movements differ from their documents in number, party, year or date"},
    {Severity::kWarning, "DesrDetails_id",
     "DesrDetails1.QtyDespIn, QtyDespOut, QtyReturned, BilledQty",
     "DesrDetails1 WHERE QtyDespIn < 0 OR QtyDespOut < 0 OR QtyReturned < 0 OR BilledQty < 0",
     "document line has a negative quantity", "document lines have negative quantities"},
    {Severity::kWarning, "DesrDetails_id", "DesrDetails1.QtyDespIn, QtyDespOut",
     "DesrDetails1 WHERE QtyDespIn > 0 AND QtyDespOut > 0", "document line goes both in and out",
     "document lines go both in and out"},
    {Severity::kError, "DesrDetails_id", "DesrDetails1.QtyDespIn, QtyDespOut, QtyReturned, Price",
     "DesrDetails1 WHERE QtyDespIn IS NULL OR QtyDespOut IS NULL OR QtyReturned IS NULL OR Price "
     "IS "
     "NULL",
     "document line has a Null in its quantities or its price",
     "document lines have Nulls in their quantities or their price"},
    {Severity::kWarning, "Desr_id", "DesrDetails1.Desr_id",
     "Desr1 WHERE NOT EXISTS (SELECT 1 FROM DesrDetails1 WHERE DesrDetails1.Desr_id = "
     "Desr1.Desr_id)",
     "document has no lines", "documents have no lines"},
    {Severity::kError, "Desr_id", "Desr1.Deleted, Optional",
     "Desr1 WHERE Deleted IS NULL OR Optional IS NULL",
     "document has a Null in Deleted or Optional and stays out of the reports",
     "documents have a Null in Deleted or Optional and stay out of the reports", true},
    {Severity::kWarning, "Desr_id", "Desr1.Prefix, DesrRefno, Suffix",
     "(SELECT min(Desr_id) AS Desr_id FROM Desr1 WHERE Deleted = 0 GROUP BY Vouchertype_id, "
     "YearNo, "
     "Prefix, DesrRefno, Suffix HAVING count(*) > 1) AS twice",
     "document number is given twice in its type and year",
     "document numbers are given twice in their type and year"},
    {Severity::kError, "Item_id", "Items1.RelationFormula",
     "Items1 WHERE coalesce(RelationFormula, 0) = 0",
     "item has no relation between its units, by which reports in "
     "alternate units divide",
     "items have no relation between their units, by which reports "
     "in alternate units divide"},
    {Severity::kError, "Item_id", "Items1.Uom_id, AlternateUom_id",
     "Items1 WHERE coalesce(AlternateUom_id, 0) = 0 OR "
     "coalesce(Uom_id, 0) = 0",
     "item has no unit or no alternate unit and stays out of the stock statements",
     "items have no unit or no alternate unit and stay out of the stock statements", true},
    {Severity::kError, "Batch_id", "Batches1.EngineNo, GodownItem1.Batch_id",
     "(SELECT b.Batch_id FROM GodownItem1 g JOIN Batches1 b ON b.Batch_id = g.Batch_id WHERE "
     "b.EngineNo <> '' AND g.GOriginalVouchertype_id = 7 GROUP BY b.Batch_id HAVING count(*) > 1) "
     "AS twice",
     "vehicle is bought more than once, and looking it up fails",
     "vehicles are bought more than once, and looking them up fails"},
    {Severity::kWarning, "Voucher_id", "VoucherDetails1.DebitAmt, CreditAmt",
     "(SELECT Voucher_id FROM VoucherDetails1 GROUP BY Voucher_id HAVING "
     "abs(sum(coalesce(DebitAmt, 0)) - sum(coalesce(CreditAmt, 0))) > 0.00005) AS odd",
     "voucher's debits differ from its credits", "vouchers' debits differ from their credits"},
    {Severity::kWarning, "Item_id", "PriceListDiscount1.Price1 to Price6",
     "PriceListDiscount1 WHERE Price1 IS NULL OR Price2 IS NULL OR Price3 IS NULL OR Price4 IS "
     "NULL "
     "OR Price5 IS NULL OR Price6 IS NULL",
     "price list row has a Null price, which the price list cannot show",
     "price list rows have Null prices, which the price list cannot show"},
    {Severity::kWarning, "Item_id", "StandardRate1.DateFrom, DateTo, Rate",
     "StandardRate1 WHERE DateFrom > DateTo OR Rate IS NULL",
     "standard rate ends before it begins or has no rate",
     "standard rates end before they begin or have no rate"},
    {Severity::kError, "Item_id", "Items1.Deleted", "Items1 WHERE Deleted IS NULL",
     "item does not tell whether it is deleted and stays out of the reports",
     "items do not tell whether they are deleted and stay out of the reports", true},
    {Severity::kError, "Godown_id", "Godown1.Deleted",
     "Godown1 WHERE Deleted IS NULL AND EXISTS "
     "(SELECT 1 FROM GodownItem1 WHERE GodownItem1.Godown_id = Godown1.Godown_id)",
     "godown does not tell whether it is deleted and stays out of the stock statements",
     "godowns do not tell whether they are deleted and stay out of the stock statements", true},
    {Severity::kError, "GodownItem_id", "GodownItem1.YearNo", "GodownItem1 WHERE YearNo IS NULL",
     "movement has no year and stays out of the reports",
     "movements have no year and stay out of the reports", true},
    {Severity::kError, "DesrDetails_id", "DesrDetails1.Desr_id",
     "DesrDetails1 WHERE coalesce(Desr_id, 0) = 0",
     "document line has no document and stays out of the reports",
     "document lines have no document and stay out of the reports", true},
};

// The key by which a row is told: the first column of the table's key, or its first column.
std::string KeyOf(const Table& table) { return std::string(table.columns.front().name); }

// What may not stand in a column of a kind.
struct Breach {
  ColumnKind kind;
  std::string_view test;  // @ is the column
  std::string_view one, many;
};

constexpr std::string_view kNoDate =
    "typeof(@) <> 'text' OR @ NOT GLOB '[0-9][0-9][0-9][0-9]-[0-1][0-9]-[0-3][0-9]*'";
constexpr Breach kBreaches[] = {
    {ColumnKind::kFlag, "@ NOT IN (0, 1, -1)", "flag is neither 0 nor 1 nor -1",
     "flags are neither 0 nor 1 nor -1"},
    {ColumnKind::kDate, kNoDate, "value is no ISO date", "values are no ISO dates"},
    {ColumnKind::kDateTime, kNoDate, "value is no ISO date", "values are no ISO dates"},
};

struct ColumnTest {
  const Column* column;
  const Breach* breach;
};

std::string TestText(const ColumnTest& test) {
  const std::string name(test.column->name);
  std::string text(test.breach->test);
  for (auto at = text.find('@'); at != std::string::npos; at = text.find('@')) {
    text.replace(at, 1, name);
  }
  return name + " IS NOT NULL AND (" + text + ")";
}

// All columns of a table in one reading.
void CheckColumns(Reader& books, bool complete, const Table& table, Findings& findings) {
  const std::string from = " FROM " + std::string(table.name), key = KeyOf(table);
  std::vector<ColumnTest> tests;
  std::string select;
  for (const Column& column : table.columns) {
    for (const Breach& breach : kBreaches) {
      if (column.kind != breach.kind) continue;
      const std::string text = TestText({&column, &breach});
      const std::string pair =
          "total(" + text + "), min(CASE WHEN " + text + " THEN " + key + " END)";
      if (!complete && !books.Understands("SELECT " + pair + from)) continue;
      select += (select.empty() ? "SELECT " : ", ") + pair;
      tests.push_back({&column, &breach});
    }
  }
  if (tests.empty()) return;
  const auto row = books.Select(select + from).front();
  for (std::size_t i = 0; i < tests.size(); ++i) {
    const std::string of =
        " in " + std::string(table.name) + "." + std::string(tests[i].column->name);
    Tell(Severity::kError, row[2 * i], row[2 * i + 1], key, std::string(tests[i].breach->one) + of,
         std::string(tests[i].breach->many) + of, {}, findings);
  }
}

// The rows that a query's end selects.
void CheckRows(Reader& books, bool complete, Severity severity, const std::string& from,
               const std::string& key, std::string_view one, std::string_view many,
               std::string_view columns, Findings& findings) {
  const std::string select = "SELECT count(*), min(" + key + ") FROM " + from;
  if (!complete && !books.Understands(select)) return;
  const auto row = books.Select(select).front();
  Tell(severity, row[0], row[1], key.substr(key.find('.') + 1), one, many, columns, findings);
}

// "5, 7, 9 and 4 more".
std::string FirstKeys(Reader& books, const std::string& rows, long long count,
                      const std::string& first) {
  constexpr long long kNamed = 10;
  std::string keys = first;
  std::string last = first;
  for (long long named = 1; named < std::min(kNamed, count); ++named) {
    last = books.Select("SELECT min(k)" + rows + " WHERE k > " + last).front().front().value_or("");
    keys += ", " + last;
  }
  return count <= kNamed ? keys : keys + " and " + std::to_string(count - kNamed) + " more";
}

}  // namespace

void CheckReferences(Reader& books, bool complete, Findings& findings) {
  for (const Reference& reference : kReferences) {
    const Table& table = *FindTable(reference.table);
    const std::string name(reference.table), column(reference.column), target(reference.target);
    const std::string target_key(FindTable(target)->key);
    const std::string from = name + " AS r WHERE r." + column +
                             " <> 0 AND NOT EXISTS (SELECT 1 FROM " + target + " AS t WHERE t." +
                             target_key + " = r." + column + ")";
    const std::string what = " in " + column + " what " + target + " does not have";
    CheckRows(books, complete, reference.severity, from, "r." + KeyOf(table),
              "row of " + name + " names" + what, "rows of " + name + " name" + what, {}, findings);
  }
}

void CheckValues(Reader& books, bool complete, Findings& findings) {
  for (const Table& table : Tables()) CheckColumns(books, complete, table, findings);
}

void CheckRules(Reader& books, bool complete, Findings& findings) {
  for (const Rule& rule : kRules) {
    CheckRows(books, complete, rule.severity, std::string(rule.from), std::string(rule.key),
              rule.one, rule.many, rule.columns, findings);
  }
}

void CheckUnread(Reader& books, Findings& findings) {
  for (const Rule& rule : kRules) {
    const std::string rows = " FROM (SELECT " + std::string(rule.key) + " AS k FROM " +
                             std::string(rule.from) + ") AS r";
    const std::string select = "SELECT count(*), min(k)" + rows;
    if (!rule.unread || !books.Understands(select)) continue;
    const auto found = books.Select(select).front();
    const long long count = std::stoll(found[0].value_or("0"));
    if (count == 0) continue;
    findings.push_back({rule.severity,
                        Counted(count, rule.one, rule.many) + ": " + std::string(rule.key) + " " +
                            FirstKeys(books, rows, count, found[1].value_or("Null")) + " (" +
                            std::string(rule.columns) + ").",
                        ""});
  }
}

}  // namespace pstolvane1::books
