// What must hold between the figures of whole analyses, on random books.
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "RandomTrade.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {
namespace {

const Date kFrom = Date::FromYmd(2004, 6, 10), kTo = Date::FromYmd(2005, 1, 20);
constexpr std::uint8_t kYear = 2;

constexpr ReportType kByParty = rtMovement_LedgerAnalysis, kByArea = rtMovement_AreaLedgerAnalysis;
constexpr ReportType kGroupings[] = {kByParty,
                                     rtMovement_ItemAnalysis,
                                     rtMovement_GroupAnalysis,
                                     rtMovement_CategoryAnalysis,
                                     rtMovement_ClassAnalysis,
                                     kByArea};

using Analysis = RecordsetPtr (*)(clsStolvane1& session, ReportType type, bool detailed);
RecordsetPtr Sales(clsStolvane1& session, ReportType type, bool detailed) {
  return session.CustomerItemwise_Analysis(type, kYear, -1, kFrom, kTo, Boolean(detailed));
}
RecordsetPtr Purchases(clsStolvane1& session, ReportType type, bool detailed) {
  return session.Movement_PurchaseReturns_Analysis(type, kYear, -1, kFrom, kTo, Boolean(detailed));
}
constexpr Analysis kSides[] = {&Sales, &Purchases};

// A shown number or amount without its symbol and grouping; 0 for an empty cell.
double Shown(const RecordsetPtr& report, const Recordset::Row& row, const std::string& column) {
  std::string digits;
  for (const char c : std::string(row.Text(report->Column(column)))) {
    if (('0' <= c && c <= '9') || c == '.' || c == '-') digits += c;
    if (c == ' ') break;  // the unit
  }
  return digits.empty() ? 0 : std::stod(digits);
}

struct Traded {
  double in = 0, out = 0, value_in = 0, value_out = 0, value = 0;

  Traded& operator+=(const Traded& more) {
    in += more.in;
    out += more.out;
    value_in += more.value_in;
    value_out += more.value_out;
    value += more.value;
    return *this;
  }
  friend bool operator==(const Traded&, const Traded&) = default;
  friend void PrintTo(const Traded& traded, std::ostream* to) {
    *to << "in " << traded.in << " for " << traded.value_in << ", out " << traded.out << " for "
        << traded.value_out << ", " << traded.value;
  }
};

// The columns of one level: "" of a line, "Grp" of a group, "Total" of the report; behind "Grp"
// those of an area end in "Area".
Traded FiguresOf(const RecordsetPtr& report, const Recordset::Row& row, const std::string& before,
                 const std::string& behind = {}) {
  const auto shown = [&](const char* name) { return Shown(report, row, before + name + behind); };
  return {.in = shown("QtyIn"),
          .out = shown("QtyOut"),
          .value_in = shown("ValueIn"),
          .value_out = shown("ValueOut"),
          .value = shown("Value")};
}

bool Holds(const RecordsetPtr& report, const Recordset::Row& row, const char* column) {
  return !row.IsNull(report->Column(column));
}

// A movement analysis as it is shown.
struct Levels {
  std::map<std::string, Traded> groups;      // what stands on their lines
  std::map<std::string, Traded> from_lines;  // the sums of the lines below each
  std::map<std::string, Traded> areas, from_groups;
  Traded total;
};

Levels Detailed(const RecordsetPtr& report) {
  Levels levels;
  std::string group, area;
  for (const Recordset::Row row : report->Rows()) {
    if (Holds(report, row, "AreaName")) {
      area = row.Text(report->Column("AreaName"));
      levels.areas[area] = FiguresOf(report, row, "Grp", "Area");
    } else if (Holds(report, row, "Parent")) {
      group = row.Text(report->Column("Parent"));
      levels.groups[group] = FiguresOf(report, row, "Grp");
      levels.from_groups[area] += levels.groups[group];
    } else if (Holds(report, row, "Child")) {
      levels.from_lines[group] += FiguresOf(report, row, "");
    } else if (row.Text(report->Column("Total")) == "Total") {
      levels.total = FiguresOf(report, row, "Total");
    }
  }
  return levels;
}

Traded Sum(const std::map<std::string, Traded>& parts) {
  Traded sum;
  for (const auto& [name, part] : parts) sum += part;
  return sum;
}

// Calls check with a session on each of the books, and tells which ones failed.
template <typename Check>
void OnRandomTrade(Check&& check) {
  constexpr std::uint32_t kBooks = 8;
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    SCOPED_TRACE("books " + std::to_string(seed));
    const std::unique_ptr<golden::SmallBooks> books = RandomTrade(seed);
    clsStolvane1 session;
    session.SetLocale("en_IN");
    session.SetConnection("", "", books->ConnectionString(), False);
    check(session);
  }
}

TEST(RandomTrade, LinesAddUpToGroupsGroupsToAreasAndAreasToTheTotal) {
  OnRandomTrade([](clsStolvane1& session) {
    for (const Analysis side : kSides) {
      for (const ReportType grouping : kGroupings) {
        const Levels levels = Detailed(side(session, grouping, true));
        EXPECT_EQ(levels.from_lines, levels.groups) << grouping;
        EXPECT_EQ(Sum(levels.groups), levels.total) << grouping;
        if (grouping == kByArea) {
          EXPECT_EQ(levels.from_groups, levels.areas);
        }
        EXPECT_NE(levels.total, Traded{});
      }
    }
  });
}

TEST(RandomTrade, SummariesShowTheGroupsOfTheDetails) {
  OnRandomTrade([](clsStolvane1& session) {
    for (const Analysis side : kSides) {
      for (const ReportType grouping : kGroupings) {
        const RecordsetPtr report = side(session, grouping, false);
        std::map<std::string, Traded> groups;
        for (const Recordset::Row row : report->Rows()) {
          const std::string name(row.Text(report->Column("Particulars")));
          if (!name.empty()) groups[name] = FiguresOf(report, row, "");
        }
        EXPECT_EQ(groups, Detailed(side(session, grouping, true)).groups) << grouping;
      }
    }
  });
}

TEST(RandomTrade, EveryGroupingGivesOneTotal) {
  OnRandomTrade([](clsStolvane1& session) {
    for (const Analysis side : kSides) {
      const Traded total = Detailed(side(session, kByParty, true)).total;
      for (const ReportType grouping : kGroupings) {
        EXPECT_EQ(Detailed(side(session, grouping, true)).total, total) << grouping;
      }
    }
  });
}

// Sales along the trees of categories and classes leave out what came back.
TEST(RandomTrade, TreesOfCategoriesAndClassesSumToWhatWasSold) {
  OnRandomTrade([](clsStolvane1& session) {
    const Traded sold = Detailed(Sales(session, kByParty, true)).total;
    for (const Boolean by_class : {False, True}) {
      for (const Boolean detailed : {False, True}) {
        const RecordsetPtr report =
            session.CategoryWise_Initial(by_class, kYear, kFrom, kTo, 0, 10, True, detailed, 1);
        double quantity = 0, value = 0, categories = 0, items = 0;
        for (const Recordset::Row row : report->Rows()) {
          quantity += Shown(report, row, "AllQty");
          value += Shown(report, row, "AllTotal");
          categories += Shown(report, row, "SubTotal");
          items += Shown(report, row, "ItemTotal");
        }
        EXPECT_EQ(quantity, sold.out);
        EXPECT_EQ(value, sold.value_out);
        EXPECT_EQ(categories, value);
        if (detailed == True) {
          EXPECT_EQ(items, value);
        }
      }
    }
  });
}

// The days of a purchase take the value of what went back into account, which the analysis does
// not: their quantities alone are compared.
TEST(RandomTrade, DaysSumToThePeriod) {
  OnRandomTrade([](clsStolvane1& session) {
    for (const Analysis side : kSides) {
      const bool sales = side == &Sales;
      const std::map<std::string, Traded> parties = Detailed(side(session, kByParty, true)).groups;
      for (int party = 1; party <= kTradeParties; ++party) {
        ReportType type = rtMovement_LedgerDailyAnalysis;
        const RecordsetPtr days =
            sales
                ? session.CustomerItemDaily_Analysis(type, kYear, party, 0, kFrom, kTo)
                : session.Movement_PurchaseReturns_DailyAnalysis(type, kYear, party, 0, kFrom, kTo);
        Traded lines, groups, total;
        const auto figures = [&](const Recordset::Row& row, const std::string& level) {
          return Traded{.in = Shown(days, row, level + "QtyIn"),
                        .out = Shown(days, row, level + "QtyOut"),
                        .value = Shown(days, row, level + "Value")};
        };
        for (const Recordset::Row row : days->Rows()) {
          lines += figures(row, "");
          groups += figures(row, "Grp");
          total += figures(row, "Total");
        }
        EXPECT_EQ(lines, groups);
        EXPECT_EQ(groups, total);
        const auto found = parties.find("Party " + std::to_string(party));
        const Traded period = found == parties.end() ? Traded{} : found->second;
        EXPECT_EQ(total.in, period.in) << "party " << party;
        EXPECT_EQ(total.out, period.out) << "party " << party;
        if (sales) {
          EXPECT_EQ(total.value, period.value) << "party " << party;
        }
      }
    }
  });
}

struct Stock {
  double opening = 0, inwards = 0, outwards = 0, closing = 0;

  Stock& operator+=(const Stock& more) {
    opening += more.opening;
    inwards += more.inwards;
    outwards += more.outwards;
    closing += more.closing;
    return *this;
  }
  friend bool operator==(const Stock&, const Stock&) = default;
  friend void PrintTo(const Stock& stock, std::ostream* to) {
    *to << stock.opening << " + " << stock.inwards << " - " << stock.outwards << " = "
        << stock.closing;
  }
};

using ItemColor = std::pair<std::int64_t, std::int64_t>;

struct ColorStock {
  std::map<ItemColor, Stock> colors;
  std::map<std::int64_t, Stock> items;
  Stock total;
};

ColorStock Colors(clsStolvane1& session) {
  const RecordsetPtr report = session.Colorwise_Initial(kYear, kFrom, kTo);
  const auto figures = [&](const Recordset::Row& row, const std::string& level) {
    return Stock{.opening = Shown(report, row, level + "Opening"),
                 .inwards = Shown(report, row, level + "Inwards"),
                 .outwards = Shown(report, row, level + "Outwards"),
                 .closing = Shown(report, row, level + "Closing")};
  };
  ColorStock stock;
  for (const Recordset::Row row : report->Rows()) {
    stock.total += figures(row, "Tot");
    if (!Holds(report, row, "Parent_Id")) continue;
    const std::int64_t item = row.Int64(report->Column("Parent_Id"));
    if (Holds(report, row, "Child_Id")) {
      stock.colors[{item, row.Int64(report->Column("Child_Id"))}] = figures(row, "");
    } else {
      stock.items[item] = figures(row, "Grp");
    }
  }
  return stock;
}

TEST(RandomTrade, ColorsAddUpToItemsAndItemsToTheTotal) {
  OnRandomTrade([](clsStolvane1& session) {
    const ColorStock stock = Colors(session);
    std::map<std::int64_t, Stock> items;
    Stock total;
    for (const auto& [color, figures] : stock.colors) {
      EXPECT_EQ(figures.opening + figures.inwards - figures.outwards, figures.closing);
      items[color.first] += figures;
      total += figures;
    }
    EXPECT_EQ(items, stock.items);
    EXPECT_EQ(total, stock.total);
  });
}

TEST(RandomTrade, ColorsOfAnItemAreItsStock) {
  OnRandomTrade([](clsStolvane1& session) {
    const RecordsetPtr statement = session.StockDetails_Itemwise(
        kYear, kFrom, kTo, AverageRate, -1, 0, True, False, False, 1, False, True, True, True);
    std::map<std::int64_t, Stock> items;
    for (const Recordset::Row row : statement->Rows()) {
      if (!Holds(statement, row, "Item_Id")) continue;
      const auto quantity = [&](const char* name) {
        return static_cast<double>(row.Single(statement->Column(name)));
      };
      const Stock stock{.opening = quantity("QtyOpSort"),
                        .inwards = quantity("QtyInSort"),
                        .outwards = quantity("QtyOutSort"),
                        .closing = quantity("QtyClSort")};
      items[row.Int64(statement->Column("Item_Id"))] = stock;
    }
    // Colours that cancel each other out leave an item with a line and no stock.
    std::map<std::int64_t, Stock> colors = Colors(session).items;
    for (int item = 1; item <= kTradedItems; ++item) EXPECT_EQ(items[item], colors[item]) << item;
  });
}

TEST(RandomTrade, MonthsAndVouchersOfAColorAreItsLine) {
  OnRandomTrade([](clsStolvane1& session) {
    const ColorStock stock = Colors(session);
    for (int item = 1; item <= kTradedItems; ++item) {
      for (int color = 1; color <= kTradedColors; ++color) {
        SCOPED_TRACE("item " + std::to_string(item) + ", color " + std::to_string(color));
        const auto found = stock.colors.find({item, color});
        const Stock line = found == stock.colors.end() ? Stock{} : found->second;

        const RecordsetPtr months =
            session.Colorwise_Monthly(kYear, kFrom, kTo, item, std::to_string(color));
        Stock sum;
        double closing = 0;
        std::set<std::string> labels;
        for (const Recordset::Row row : months->Rows()) {
          if (Holds(months, row, "Particulars")) sum.opening = Shown(months, row, "TotClosing");
          if (!Holds(months, row, "Month")) {
            closing = Shown(months, row, "TotClosing");  // at last the closing line's
            continue;
          }
          labels.insert(std::string(row.Text(months->Column("Month"))));
          sum.inwards += Shown(months, row, "Inwards");
          sum.outwards += Shown(months, row, "Outwards");
          sum.closing = std::stod(std::string(row.Text(months->Column("ClosingChart"))));
        }
        EXPECT_EQ(sum, line);
        EXPECT_EQ(closing, line.closing);
        EXPECT_EQ(labels.size(), 8U);  // June to January

        const RecordsetPtr vouchers =
            session.Colorwise_Daily(kYear, kFrom, kTo, item, std::to_string(color));
        Stock told, lines;
        for (const Recordset::Row row : vouchers->Rows()) {
          const std::string head(row.Text(vouchers->Column("Head")));
          const double in = Shown(vouchers, row, "TotInwards");
          const double out = Shown(vouchers, row, "TotOutwards");
          if (head == "Opening Balance") told.opening = in - out;
          if (head == "Current Balance") told.inwards = in, told.outwards = out;
          if (head == "Closing Balance") told.closing = in - out;
          if (!Holds(vouchers, row, "Date")) continue;
          lines.inwards += Shown(vouchers, row, "Inwards");
          lines.outwards += Shown(vouchers, row, "Outwards");
        }
        EXPECT_EQ(told, line);
        EXPECT_EQ(lines.inwards, line.inwards);
        EXPECT_EQ(lines.outwards, line.outwards);
      }
    }
  });
}

}  // namespace
}  // namespace pstolvane1
