#include "Ledgers.h"

#include <cstdlib>
#include <string_view>

namespace pstolvane1 {
namespace {

// Money is shown with two places; divided by this it shows all four, and nothing is rounded.
constexpr float kScale = 1.0F / 16384;

double NumberOf(const Recordset::Row& row, ColumnHandle column) {
  if (row.IsNull(column)) return 0;
  std::string digits;
  for (const char c : row.Text(column)) {
    if ((c >= '0' && c <= '9') || c == '.' || c == '-') digits += c;
  }
  return std::strtod(digits.c_str(), nullptr);
}

class LedgerReader {
 public:
  explicit LedgerReader(const Recordset& report) : report_(report) {}

  [[nodiscard]] Ledger Read() const {
    Ledger ledger;
    bool is_opening = true;
    for (const Recordset::Row row : report_.Rows()) {
      if (is_opening) {
        ledger.opening = Side(row, "Closing");
      } else {
        ledger.months.push_back({.month = std::string(row.Text(report_.Column("Month"))),
                                 .inwards = Side(row, "In"),
                                 .outwards = Side(row, "Out"),
                                 .closing = Side(row, "Closing"),
                                 .opening = row.Money(report_.Column("ValueOpening"))});
        ledger.totals = {.inwards = Side(row, "In", "Total"),
                         .outwards = Side(row, "Out", "Total"),
                         .closing = Side(row, "Closing", "Total")};
        ledger.profit = Money(row, "TotalGrossProfit");
      }
      is_opening = false;
    }
    return ledger;
  }

 private:
  [[nodiscard]] StockFigure Side(const Recordset::Row& row, const std::string& side,
                                 const std::string& of = "") const {
    const std::string quantity = of + "Qty" + side;
    return {ToSingle(NumberOf(row, report_.Column(quantity))), Money(row, quantity + "Value")};
  }
  [[nodiscard]] Currency Money(const Recordset::Row& row, const std::string& column) const {
    return Currency::FromDouble(NumberOf(row, report_.Column(column)) *
                                static_cast<double>(kScale));
  }

  const Recordset& report_;
};

}  // namespace

StockPeriod YearOf(int year) {
  return {Date::FromYmd(2002 + year, 4, 1), Date::FromYmd(2003 + year, 3, 31)};
}

LedgerSession::LedgerSession(const golden::SmallBooks& books, int year)
    : year_(static_cast<std::uint8_t>(year)) {
  session_.SetLocale("en_US");
  session_.SetConnection("", "", books.ConnectionString(), False, YearOf(year).from,
                         YearOf(year).to);
}

Ledger LedgerSession::Of(Entry entry, enmValuationMethod method, const StockPeriod& period,
                         int id) {
  return LedgerReader(*(session_.*entry)(year_, period.from, period.to, method, id, 0, True, False,
                                         False, kScale, True, True, True, True))
      .Read();
}

Ledger LedgerSession::InGodown(enmValuationMethod method, const StockPeriod& period, int item,
                               int godown) {
  return LedgerReader(*session_.Monthly_GodownItemwise(year_, period.from, period.to, method, item,
                                                       godown, True, False, False, kScale, True,
                                                       True, True, True))
      .Read();
}

StockFigures LedgerSession::Statement(enmValuationMethod method, const StockPeriod& period,
                                      int item) {
  const RecordsetPtr report =
      session_.StockDetails_Itemwise(year_, period.from, period.to, method, -1, 0, True, False,
                                     False, 1, False, True, True, True, "", "");
  const auto side = [&](const Recordset::Row& row, const std::string& name) {
    return StockFigure{row.Single(report->Column("Qty" + name + "Sort")),
                       row.Money(report->Column("Value" + name + "Sort"))};
  };
  for (const Recordset::Row row : report->Rows()) {
    if (row.IsNull(report->Column("Item_Id")) || row.Int64(report->Column("Item_Id")) != item) {
      continue;
    }
    return {side(row, "Op"), side(row, "In"), side(row, "Out"), side(row, "Cl")};
  }
  return {};
}

}  // namespace pstolvane1
