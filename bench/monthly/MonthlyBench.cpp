// What a month ledger costs, beside the cheapest statements that one would write by hand for its
// figures.
//
//   bench_monthly [MOVEMENTS [ROUNDS]]      1000000 movements and 5 rounds if not given
//   bench_monthly BOOKS [ROUNDS]            on a copy of sample books that are there
//   bench_monthly walk                      one stock key with more and more lines and months
//
// All contenders run in turns in one call on the same sample books, with a category of a thousand
// items. Times are the processor's. The floor steps the report's own SELECTs and touches every
// column. A statement by hand has the bare engine's own operators, and nothing is reckoned from its
// rows.

#include <algorithm>
#include <array>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <fmt/format.h>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "../BareEngine.h"
#include "session/books/BooksFile.h"
#include "session/books/SampleBooks.h"
#include "session/clsStolvane1.h"
#include "session/modStolvane1.h"

namespace {

using namespace pstolvane1;
using namespace pstolvane1::bench;

constexpr std::uint8_t kYear = 3;
const Date kFrom = Date::FromYmd(2005, 4, 1), kTo = Date::FromYmd(2006, 3, 31);
constexpr std::int32_t kCategory = 9999;

struct Method {
  const char* name;
  enmValuationMethod method;
};
constexpr Method kMethods[] = {
    {"FifoRate", FifoRate},           {"LifoRate", LifoRate},
    {"AverageRate", AverageRate},     {"LastPurchaseRate", LastPurchaseRate},
    {"LastSaleRate", LastSaleRate},   {"standardrate", standardrate},
    {"StandardPrice", StandardPrice}, {"SimpleAvg", SimpleAvg},
};

struct Subject {
  const char* name;
  decltype(&clsStolvane1::Monthly_Itemwise) entry;
  std::int32_t id;
  const char* lines;      // of the movements m up to the year, in a statement by hand
  const char* item;       // the item's id in it, by which nothing need be sorted
  const char* documents;  // of the document lines m
};
constexpr Subject kSubjects[] = {
    {"item", &clsStolvane1::Monthly_Itemwise, 5,
     "GodownItem1 m WHERE m.Item_id = 5 AND m.YearNo <= 3", "m.Item_id",
     "DesrDetails1 m JOIN Desr1 d USING (Desr_id) WHERE m.Item_id = 5"},
    {"category", &clsStolvane1::Monthly_Categorywise, kCategory,
     "Items1 i CROSS JOIN GodownItem1 m ON m.Item_id = i.Item_id WHERE i.ItemCategory_id = 9999 "
     "AND NOT i.Deleted AND m.YearNo <= 3",
     "i.Item_id",
     "Items1 i JOIN DesrDetails1 m USING (Item_id) JOIN Desr1 d USING (Desr_id) WHERE "
     "i.ItemCategory_id = 9999 AND NOT i.Deleted"},
    {"godown", &clsStolvane1::Monthly_Godownwise, 2,
     "Items1 i CROSS JOIN GodownItem1 m ON m.Item_id = i.Item_id WHERE m.Godown_id = 2 AND NOT "
     "i.Deleted AND +m.YearNo <= 3",
     "i.Item_id", ""},
};

// The movements of each key in their order.
std::string Layers(const Subject& of) {
  return fmt::format(
      "SELECT {0}, m.Godown_id, m.Batch_id, m.YearNo, m.Date, m.Qty, m.Rate, m.IsAdded, "
      "m.IsOpeningBal FROM {1} AND (m.Date <= '2006-03-31' OR m.IsOpeningBal) AND "
      "NOT m.Optional ORDER BY {0}, m.Godown_id, m.Batch_id, m.YearNo, m.Date, "
      "m.DesrDetails_id",
      of.item, of.lines);
}

// What moved by key and month, and what was there before.
std::string Sums(const Subject& of, const std::string& years) {
  return fmt::format(
      "SELECT {0}, m.Godown_id, m.Batch_id, {1} CASE WHEN m.Date >= '2005-04-01' AND NOT "
      "m.IsOpeningBal THEN substr(m.Date, 1, 7) END AS Month, sum(m.Qty * m.IsAdded), sum(m.Qty * "
      "m.Rate * m.IsAdded), sum(m.Qty * (NOT m.IsAdded)), sum(m.Qty * m.Rate * (NOT m.IsAdded)), "
      "sum(m.Qty * (NOT m.IsAdded) * m.IsOpeningBal) FROM {2} AND (m.Date <= "
      "'2006-03-31' OR m.IsOpeningBal) AND NOT m.Optional GROUP BY {0}, m.Godown_id, "
      "m.Batch_id, {1} Month",
      of.item, years, of.lines);
}

std::string Rates(const Subject& of, enmValuationMethod method) {
  const bool of_purchases = method == LastPurchaseRate || method == standardrate;
  const char* const types = method == StandardPrice ? "7, 14, 10, 15, 0"
                            : of_purchases          ? "7, 14, 0"
                                                    : "10, 15, 0";
  return fmt::format(
      "SELECT {3}, m.Godown_id, m.Batch_id, m.Rate, m.IsOpeningBal, m.IsAdded, m.Date FROM "
      "{0} AND (m.Date <= '2006-03-31' OR m.IsOpeningBal) AND NOT m.Optional AND "
      "m.GOriginalVouchertype_id IN ({1}) {2} ORDER BY {3}, m.YearNo, m.Date, m.GodownItem_id",
      of.lines, types, of_purchases ? "AND (m.IsAdded OR m.IsOpeningBal)" : "", of.item);
}

std::string Documents(const Subject& of) {
  return fmt::format(
      "SELECT m.Item_id, CASE WHEN m.DesrDetDate >= '2005-04-01' THEN substr(m.DesrDetDate, 1, 7) "
      "END AS Month, sum(m.QtyDespIn), sum(m.QtyDespIn * m.Price), sum(m.QtyDespOut), "
      "sum(m.QtyDespOut * m.Price) FROM {} AND m.YearNo = 3 AND m.DesrDetDate BETWEEN '2005-04-01' "
      "AND '2006-03-31' AND m.AffectStock AND NOT d.Deleted GROUP BY m.Item_id, Month",
      of.documents);
}

std::vector<std::string> ByHand(const Subject& of, enmValuationMethod method) {
  switch (method) {
    case FifoRate:
    case LifoRate:
      return {Layers(of)};
    case AverageRate:
      return {Sums(of, "m.YearNo,")};
    case SimpleAvg:
      return {Documents(of)};
    default:
      return {Sums(of, ""), Rates(of, method)};
  }
}

template <typename Work>
double ProcessorSecondsOf(Work&& work) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
  };
  const double begin = now();
  work();
  return now() - begin;
}

void Write(const std::string& books, const std::string& statements) {
  sqlite3* database = nullptr;
  const bool done =
      sqlite3_open(books.c_str(), &database) == SQLITE_OK &&
      sqlite3_exec(database, statements.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
  const std::string failure = done ? "" : sqlite3_errmsg(database);
  sqlite3_close(database);
  if (!done) throw std::runtime_error(failure);
}

// What is a number or a file of sample books.
void MakeBooks(const std::string& path, const std::string& what) {
  if (std::filesystem::exists(what)) {
    std::filesystem::copy_file(what, path);
  } else {
    books::SampleBooks(path, std::stoll(what));
  }
  Write(path,
        fmt::format(
            "INSERT INTO ItemCategory1 (ItemCategory_id, CategoryName, RelatedTo, Deleted) VALUES "
            "({0}, 'A thousand items', 0, 0); UPDATE Items1 SET ItemCategory_id = {0} WHERE "
            "Item_id <= 1000",
            kCategory));
}

// One item in one godown and batch, with that many lines over ten years: two come, one goes.
void MakeOneKey(const std::string& path, std::int64_t lines) {
  books::CreateBooks(path);
  Write(path, fmt::format(
                  "INSERT INTO Uom1 (Uom_id, UomName) VALUES (1, 'Nos'); INSERT INTO Items1 "
                  "(Item_id, Uom_id, AlternateUom_id, RelationFormula, Deleted, YearOfCreation) "
                  "VALUES (5, 1, 1, 1, 0, 1); WITH RECURSIVE n (i) AS (SELECT 0 UNION ALL SELECT i "
                  "+ 1 FROM n WHERE i + 1 < {0}) INSERT INTO GodownItem1 (GodownItem_id, Date, "
                  "YearNo, Item_id, Godown_id, Batch_id, Qty, Rate, IsAdded, IsOpeningBal, "
                  "Optional, DesrDetails_id, GOriginalVouchertype_id) SELECT i + 1, "
                  "date('1996-04-01', '+' || (i * 3650 / {0}) || ' days'), 3, 5, 1, 1, 2, 100 + i "
                  "% 50, i % 3 < 2, 0, 0, i + 1, CASE WHEN i % 3 < 2 THEN 7 ELSE 10 END FROM n",
                  lines));
}

// The least time of some rounds, in milliseconds.
template <typename Work>
double BestOf(int rounds, Work&& work) {
  double best = 1e9;
  for (int round = 0; round < rounds; ++round) best = std::min(best, ProcessorSecondsOf(work));
  return best * 1000;
}

// A walk over one stock key is linear in its lines, and months cost no walk.
void Walk() {
  fmt::print("one stock key, best of 3 rounds, in milliseconds of the processor\n");
  fmt::print("{:>10}{:>10}{:>10}{:>10}\n", "lines", "months", "fifo", "lifo");
  for (const std::int64_t lines : {100'000, 1'000'000}) {
    const books::PassingBooks passing;
    MakeOneKey(passing.Path(), lines);
    for (const int months : {1, 12, 120}) {
      const Date from = Date::FromYmd(2006 - months / 12, months < 12 ? 3 : 4, 1);
      clsStolvane1 session;
      session.SetConnection("", "", passing.Path(), False, from, kTo);
      const auto time_of = [&](enmValuationMethod method) {
        return BestOf(3, [&] {
          (void)session.Monthly_Itemwise(kYear, from, kTo, method, 5, 0, True, False, False, 1,
                                         True, True, True, True);
        });
      };
      const double fifo = time_of(FifoRate);
      fmt::print("{:>10}{:>10}{:>10.1f}{:>10.1f}\n", lines, months, fifo, time_of(LifoRate));
    }
  }
}

void Run(const std::string& what, int rounds) {
  const books::PassingBooks passing;
  const std::string& path = passing.Path();
  MakeBooks(path, what);

  clsStolvane1 session;
  session.SetConnection("", "", path, False, kFrom, kTo);
  session.SetLocale("en_IN");
  BareEngine bare(path);
  fmt::print("{} movements, best of {} rounds, in milliseconds of the processor\n", what, rounds);
  fmt::print("{:<10}{:<18}{:>10}{:>10}{:>10}{:>7}\n", "ledger of", "method", "rows", "by hand",
             "report", "ratio");
  for (const Subject& subject : kSubjects) {
    for (const Method& one : kMethods) {
      if (one.method == SimpleAvg && *subject.documents == '\0') continue;
      double by_hand = 1e9, report = 1e9;
      std::int64_t rows = 0;
      for (int round = 0; round < rounds; ++round) {
        by_hand = std::min(by_hand, BestOf(1, [&] {
                             rows = 0;
                             for (const std::string& text : ByHand(subject, one.method)) {
                               rows += bare.Step(text);
                             }
                           }));
        report = std::min(report, BestOf(1, [&] {
                            (void)(session.*subject.entry)(kYear, kFrom, kTo, one.method,
                                                           subject.id, 0, True, False, False, 1,
                                                           True, True, True, True);
                          }));
      }
      fmt::print("{:<10}{:<18}{:>10}{:>10.2f}{:>10.2f}{:>7.2f}\n", subject.name, one.name, rows,
                 by_hand, report, report / by_hand);
    }
  }
}

}  // namespace

int main(int count, char** arguments) {
  try {
    const std::string what = count > 1 ? arguments[1] : "1000000";
    if (what == "walk") {
      Walk();
    } else {
      Run(what, count > 2 ? std::atoi(arguments[2]) : 5);
    }
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "bench_monthly: {}\n", error.what());
    return 1;
  }
}
