// What the analyses of movements and sales cost: bench_analysis [DOCUMENTS [ROUNDS [REPORT]]].
#include <fmt/format.h>

#include "../Contest.h"
#include "../trade/Trade.h"

namespace {

using namespace pstolvane1;
using namespace pstolvane1::bench;

const Date kFrom = Date::FromYmd(2003, 4, 1), kTo = Date::FromYmd(2004, 3, 31);

constexpr const char* kOfTheYear = " BETWEEN '2003-04-01' AND '2004-03-31' ";
constexpr const char* kSold = "v.RelatedTo IN (10, 11) AND v.SubRelatedTo <> 43";
constexpr const char* kBought = "v.RelatedTo IN (7, 8)";

// The value of a line for a quantity, in its own unit and at the price of that unit.
std::string ValueOf(const std::string& quantity) {
  return fmt::format(
      "CASE WHEN l.IsAltRate = 0 THEN CASE WHEN l.IsAltUnit = 0 THEN {0} * l.Price ELSE {0} * "
      "i.RelationFormula * l.Price END ELSE CASE WHEN l.IsAltUnit THEN {0} * l.AltRate ELSE {0} / "
      "i.RelationFormula * l.AltRate END END",
      quantity);
}

// In and out of the lines of a kind of document, by a key; the names are joined to the sums.
std::string Movements(const char* kind, const std::string& key, const std::string& names,
                      const std::string& joins, const std::string& order) {
  const std::string value = ValueOf("l.BilledQty");
  return fmt::format(
      "SELECT j.ItemName, u.UomName, q.*{2} FROM (SELECT l.Item_id{1}, "
      "sum(l.QtyDespIn + l.QtyReturned), sum(CASE WHEN l.QtyDespIn <> 0 THEN {0} ELSE 0 END), "
      "sum(l.QtyDespIn), sum(CASE WHEN l.QtyReturned <> 0 THEN {5} ELSE 0 END), "
      "sum(l.QtyDespOut), sum(CASE WHEN l.QtyDespOut <> 0 THEN {0} ELSE 0 END) "
      "FROM Desr1 d JOIN DesrDetails1 l ON l.Desr_id = d.Desr_id JOIN Items1 i ON i.Item_id = "
      "l.Item_id JOIN Vouchertype1 v ON v.Vouchertype_id = d.Vouchertype_id "
      "JOIN LedgerNames1 g ON g.Ledger_id = d.Ledger_id "
      "WHERE {6} AND d.Deleted = 0 AND d.Date{7}AND (l.Optional = 0 OR v.RelatedTo <> 20) "
      "GROUP BY l.Item_id{1}) q "
      "JOIN Items1 j ON j.Item_id = q.Item_id JOIN Uom1 u ON u.Uom_id = j.Uom_id {3}ORDER BY {4}",
      value, key, names, joins, order, ValueOf("l.QtyReturned"), kind, kOfTheYear);
}

std::string ByParty(const char* kind, const std::string& order) {
  return Movements(kind, ", d.Ledger_id", ", g.LedgerName, g.Pin",
                   "JOIN LedgerNames1 g ON g.Ledger_id = q.Ledger_id ", order);
}

std::string Days(const char* kind, const std::string& condition, const std::string& order) {
  return fmt::format(
      "SELECT q.*, j.ItemName, h.LedgerName FROM (SELECT d.Date, l.Item_id, d.Ledger_id, "
      "sum(l.QtyDespOut), sum(l.QtyDespIn + l.QtyReturned), sum({}) FROM Desr1 d JOIN DesrDetails1 "
      "l ON l.Desr_id = d.Desr_id JOIN Items1 i ON i.Item_id = l.Item_id JOIN Vouchertype1 v ON "
      "v.Vouchertype_id = d.Vouchertype_id WHERE {} AND d.Deleted = 0 AND d.Date{}AND {} GROUP BY "
      "l.Item_id, d.Ledger_id, d.Date) q JOIN Items1 j ON j.Item_id = q.Item_id JOIN LedgerNames1 "
      "h ON h.Ledger_id = q.Ledger_id ORDER BY {}",
      ValueOf("(l.BilledQty - l.QtyReturned)"), kind, kOfTheYear, condition, order);
}

// Each line of a sale with the slab that it reaches.
std::string SoldLines(const std::string& columns, const std::string& condition) {
  return fmt::format(
      "SELECT {}, (SELECT c.CPercent FROM EmployeeCommision c WHERE c.Employee_id = d.Employee_id "
      "AND c.Item_id = l.Item_id AND c.DateFrom <= d.Date AND c.QtyTo <= l.QtyDespOut ORDER BY "
      "c.EmployeeCommision_id DESC LIMIT 1) AS percent FROM Desr1 d JOIN DesrDetails1 l ON "
      "l.Desr_id = d.Desr_id JOIN Vouchertype1 v ON v.Vouchertype_id = d.Vouchertype_id JOIN "
      "LedgerNames1 g ON g.Ledger_id = d.Ledger_id WHERE v.RelatedTo = 10 AND d.Deleted = 0 AND "
      "d.Date{}{}",
      columns, kOfTheYear, condition);
}

std::string Commission(const std::string& order) {
  return fmt::format(
      "SELECT e.EmployeeName, q.* FROM (SELECT Employee_id, Item_id, percent, sum(value) FROM ({}) "
      "GROUP BY Employee_id, Item_id, percent) q JOIN Employee1 e ON e.Employee_id = q.Employee_id "
      "ORDER BY {}",
      SoldLines("d.Employee_id, l.Item_id, l.QtyDespOut * l.Price AS value", ""), order);
}

std::string Categories(const std::string& table, const std::string& key, const std::string& name) {
  return fmt::format(
      "SELECT c.{2}, c.{1}, c.RelatedTo, i.ItemName, q.* FROM {0} c JOIN Items1 i ON i.{1} = c.{1} "
      "JOIN (SELECT l.Item_id, sum(l.QtyDespOut), sum(l.Price * l.BilledQty) FROM Desr1 d JOIN "
      "DesrDetails1 l ON l.Desr_id = d.Desr_id JOIN Vouchertype1 v ON v.Vouchertype_id = "
      "d.Vouchertype_id WHERE v.RelatedTo = 10 AND d.Deleted = 0 AND d.Date{3}GROUP BY l.Item_id) "
      "q ON q.Item_id = i.Item_id ORDER BY 1, 2, 4",
      table, key, name, kOfTheYear);
}

std::string DaysOfItems(const std::string& condition) {
  return fmt::format(
      "SELECT i.ItemName, q.* FROM (SELECT Item_id, Date, sum(CASE WHEN IsAdded THEN Qty ELSE 0 "
      "END), sum(CASE WHEN IsAdded THEN 0 ELSE Qty END) FROM GodownItem1 WHERE Optional = 0 AND "
      "Date <= '2004-03-31' AND YearNo <= 1{} GROUP BY Item_id, Date) q JOIN Items1 i ON i.Item_id "
      "= q.Item_id ORDER BY 1, 2, 3",
      condition);
}

// A colour's part of the movements that count.
constexpr const char* kColored =
    "g.Optional = 0 AND g.YearNo <= 1 AND g.GOriginalVouchertype_id NOT IN (18, 25)";
// What came in and what went out.
constexpr const char* kInOut =
    "sum(CASE WHEN g.IsAdded THEN g.Qty ELSE 0 END), sum(CASE WHEN g.IsAdded THEN 0 ELSE g.Qty "
    "END)";

constexpr const char* kBalance = "sum(CASE WHEN g.IsAdded THEN g.Qty ELSE -g.Qty END)";

std::string Colors() {
  return fmt::format(
      "SELECT i.ItemName, u.UomName, c.Color, q.* FROM (SELECT g.Item_id, g.Color_id, sum(CASE "
      "WHEN g.Date >= '2003-04-01' THEN 0 WHEN g.IsAdded THEN g.Qty ELSE -g.Qty END), sum(CASE "
      "WHEN g.IsAdded AND g.Date >= '2003-04-01' THEN g.Qty ELSE 0 END), sum(CASE WHEN NOT "
      "g.IsAdded AND g.Date >= '2003-04-01' THEN g.Qty ELSE 0 END) FROM GodownItem1 g WHERE {} AND "
      "(g.Date IS NULL OR g.Date <= '2004-03-31') GROUP BY g.Item_id, g.Color_id) q JOIN Items1 i "
      "ON i.Item_id = q.Item_id JOIN Uom1 u ON u.Uom_id = i.Uom_id JOIN Color1 c ON c.Color_id = "
      "q.Color_id WHERE i.Deleted = 0 ORDER BY i.ItemName, i.Item_id, c.Color_id",
      kColored);
}

// The months of the first item's colour, and what it had before the first of them.
std::string MonthsOfAColor() {
  return fmt::format(
      "SELECT CASE WHEN g.Date < '2003-04-01' THEN NULL ELSE substr(g.Date, 1, 7) END, {} FROM "
      "GodownItem1 g WHERE {} AND (g.Date IS NULL OR g.Date <= '2004-03-31') AND g.Item_id = 1 AND "
      "g.Color_id = 2 GROUP BY 1",
      kInOut, kColored);
}

std::string VouchersOfAColor() {
  return fmt::format(
      "SELECT d.Date, p.LedgerName, v.Vouchertype, d.Prefix, d.DesrRefno, d.Suffix, g.IsAdded, "
      "g.Qty, d.Desr_id, d.Related_id, (SELECT {0} FROM GodownItem1 g WHERE {1} AND (g.Date IS "
      "NULL OR g.Date < '2003-04-01') AND g.Item_id = 1 AND g.Color_id = 2) FROM GodownItem1 g "
      "JOIN Desr1 d ON d.Desr_id = g.GDesr_id JOIN LedgerNames1 p ON p.Ledger_id = d.Ledger_id "
      "JOIN Vouchertype1 v ON v.Vouchertype_id = d.Vouchertype_id WHERE {1} AND g.Date{2}AND "
      "g.Item_id = 1 AND g.Color_id = 2 ORDER BY d.Date, d.Desr_id, g.GodownItem_id",
      kBalance, kColored, kOfTheYear);
}

Contest Sales(const char* name, ReportType type, bool detailed, std::string by_hand) {
  return {name,
          [=](clsStolvane1& session) {
            ReportType asked = type;
            return session.CustomerItemwise_Analysis(asked, 1, -1, kFrom, Variant(kTo), detailed);
          },
          std::move(by_hand)};
}

std::vector<Contest> MovementReports() {
  const std::string by_party = "g.LedgerName, q.Ledger_id, j.ItemName, q.Item_id";
  const std::string of_group = "JOIN SubgroupName1 s ON s.Subgroup_id = q.Subgroup_id ";
  const std::string of_category = "JOIN ItemCategory1 c ON c.ItemCategory_id = j.ItemCategory_id ";
  const std::string of_class = "JOIN ItemClass1 c ON c.ItemClass_id = j.ItemClass_id ";
  return {
      Sales("CustomerItemwise_Analysis, by party", rtMovement_LedgerAnalysis, true,
            ByParty(kSold, by_party)),
      Sales("CustomerItemwise_Analysis, parties in summary", rtMovement_LedgerAnalysis, false,
            ByParty(kSold, by_party)),
      Sales("CustomerItemwise_Analysis, by item", rtMovement_ItemAnalysis, true,
            ByParty(kSold, "j.ItemName, q.Item_id, g.LedgerName, q.Ledger_id")),
      Sales("CustomerItemwise_Analysis, by group", rtMovement_GroupAnalysis, true,
            Movements(kSold, ", g.Subgroup_id", ", s.SubgroupName", of_group,
                      "s.SubgroupName, q.Subgroup_id, j.ItemName, q.Item_id")),
      Sales("CustomerItemwise_Analysis, by category", rtMovement_CategoryAnalysis, true,
            Movements(kSold, "", ", c.CategoryName, c.ItemCategory_id", of_category,
                      "c.CategoryName, c.ItemCategory_id, j.ItemName, q.Item_id")),
      Sales("CustomerItemwise_Analysis, by class", rtMovement_ClassAnalysis, true,
            Movements(kSold, "", ", c.ClassName, c.ItemClass_id", of_class,
                      "c.ClassName, c.ItemClass_id, j.ItemName, q.Item_id")),
      Sales("CustomerItemwise_Analysis, by area", rtMovement_AreaLedgerAnalysis, true,
            ByParty(kSold, "g.Pin, " + by_party)),
      {"CustomerItemwise_Analysis, related items",
       [](clsStolvane1& session) {
         ReportType asked = rtMovement_SalesReturns_ItemRelationAnalysis;
         const RecordsetPtr related = Recordset::New();
         related->Open("select item_id, itemname, itemdesc, itempartno from items1",
                       session.GetConnectionObject());
         return session.CustomerItemwise_Analysis(asked, 1, -1, kFrom, Variant(kTo), True, True, 1,
                                                  {}, {}, related);
       },
       ByParty(kSold, by_party)},
      {"Movement_PurchaseReturns_Analysis, by party",
       [](clsStolvane1& session) {
         ReportType asked = rtMovement_LedgerAnalysis;
         return session.Movement_PurchaseReturns_Analysis(asked, 1, -1, kFrom, Variant(kTo), True);
       },
       ByParty(kBought, by_party)},
      {"CustomerItemDaily_Analysis, of a party",
       [](clsStolvane1& session) {
         ReportType asked = rtMovement_LedgerDailyAnalysis;
         return session.CustomerItemDaily_Analysis(asked, 1, 1, 0, kFrom, kTo);
       },
       Days(kSold, "d.Ledger_id = 1", "j.ItemName, q.Item_id, q.Date")},
      {"CustomerItemDaily_Analysis, of an item",
       [](clsStolvane1& session) {
         ReportType asked = rtMovement_ItemDailyAnalysis;
         return session.CustomerItemDaily_Analysis(asked, 1, 1, 0, kFrom, kTo);
       },
       Days(kSold, "l.Item_id = 1", "h.LedgerName, q.Ledger_id, q.Date")},
      {"Movement_PurchaseReturns_DailyAnalysis, of a party",
       [](clsStolvane1& session) {
         ReportType asked = rtMovement_LedgerDailyAnalysis;
         return session.Movement_PurchaseReturns_DailyAnalysis(asked, 1, 1, 0, kFrom, kTo);
       },
       Days(kBought, "d.Ledger_id = 1", "j.ItemName, q.Item_id, q.Date")},
  };
}

std::vector<Contest> SalesReports(const RecordsetPtr& items) {
  const auto commission = [=](ReportType type) {
    return [=](clsStolvane1& session) {
      ReportType asked = type;
      return session.Commission_Initial(asked, 1, kFrom, kTo, True, -1, True, 1, items);
    };
  };
  const auto categories = [](bool is_class) {
    return [=](clsStolvane1& session) {
      return session.CategoryWise_Initial(is_class, 1, kFrom, kTo, 0, 10, True, True, 1);
    };
  };
  const auto days = [](std::int32_t item) {
    return [=](clsStolvane1& session) {
      return session.ItemWise_DlyBkup(1, kFrom, kTo, item, 0, "", True, 1);
    };
  };
  return {
      {"Commission_Initial, by employee", commission(rtCommission_Initial_Employeewise),
       Commission("1, 3, 4")},
      {"Commission_Initial, by item", commission(rtCommission_Initial_Itemwise),
       Commission("3, 1, 4")},
      {"Commission_Daily",
       [](clsStolvane1& session) { return session.Commission_Daily(1, kFrom, kTo, 1, 1); },
       SoldLines("d.Date, g.LedgerName, d.Prefix, d.DesrRefno, d.Suffix, v.Vouchertype, d.Desr_id, "
                 "d.Related_id, l.QtyDespOut, l.QtyDespOut * l.Price",
                 " AND d.Employee_id = 1 AND l.Item_id = 1 ORDER BY d.Date, d.Desr_id, "
                 "l.DesrDetails_id")},
      {"CategoryWise_Initial, by category", categories(false),
       Categories("ItemCategory1", "ItemCategory_id", "CategoryName")},
      {"CategoryWise_Initial, by class", categories(true),
       Categories("ItemClass1", "ItemClass_id", "ClassName")},
      {"ItemWise_DlyBkup, of an item", days(1), DaysOfItems(" AND Item_id = 1")},
      {"ItemWise_DlyBkup, of all items", days(-1), DaysOfItems("")},
      // What a shape command costs that groups lines itself, beside the engine's own grouping.
      {"COMPUTE of all lines",
       [](clsStolvane1& session) {
         RecordsetPtr groups = Recordset::New();
         groups->Open(
             "SHAPE { select item_id, qtydespout, price from desrdetails1 order by item_id } "
             "AS lines COMPUTE lines, SUM(lines.qtydespout) AS quantity, SUM(lines.price) AS "
             "prices "
             "BY item_id",
             session.GetConnectionObject());
         return groups;
       },
       "SELECT item_id, sum(qtydespout), sum(price) FROM DesrDetails1 GROUP BY item_id"},
  };
}

std::vector<Contest> ColorReports() {
  return {
      {"Colorwise_Initial",
       [](clsStolvane1& session) { return session.Colorwise_Initial(1, kFrom, kTo); }, Colors()},
      {"Colorwise_Monthly",
       [](clsStolvane1& session) { return session.Colorwise_Monthly(1, kFrom, kTo, 1, "2"); },
       MonthsOfAColor()},
      {"Colorwise_Daily",
       [](clsStolvane1& session) { return session.Colorwise_Daily(1, kFrom, kTo, 1, "2"); },
       VouchersOfAColor()},
  };
}

std::vector<Contest> Reports(const RecordsetPtr& items) {
  std::vector<Contest> reports = MovementReports();
  for (Contest& contest : SalesReports(items)) reports.push_back(std::move(contest));
  for (Contest& contest : ColorReports()) reports.push_back(std::move(contest));
  return reports;
}

}  // namespace

int main(int count, char** arguments) {
  return RunContests({.program = "bench_analysis",
                      .unit = "documents of five lines",
                      .size = 100'000,
                      .make_books = &MakeTrade,
                      .all = &Reports},
                     count, arguments);
}
