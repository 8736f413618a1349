#include "Contenders.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>
#include <utility>

#include "../BareEngine.h"

namespace pstolvane1::bench {
namespace {

// A method's query, and what differs between the methods that share one.
struct WindowQuery {
  const char* method;
  const char* file;
  const char* direction = "";  // of a walk through the layers
  const char* bound = "";      // of a standard rate's last day to the end of the period
  const char* latest = "";     // which actual rate is the last
  const char* wanted = "";     // which lines give one
  const char* chain = "";      // which rate goes before which: actual, opening, cost, price
};

constexpr const char* kByYear = "YearNo DESC, Date DESC";
constexpr const char* kByDate = "Date DESC";
constexpr const char* kPurchase = "IsAdded AND Type IN (7, 14, 0)";
constexpr const char* kSale = "NOT IsAdded AND Type IN (10, 15, 0)";
constexpr WindowQuery kQueries[] = {
    {"FifoRate", "layers", "ASC"},
    {"LifoRate", "layers", "DESC"},
    {"AverageRate", "average"},
    {"LastPurchaseRate", "rates", "", "<=", kByYear, kPurchase,
     "nullif(a.Rate, 0), nullif(o.Rate, 0), c.Rate"},
    {"LastSaleRate", "rates", "", "<", kByYear, kSale,
     "nullif(a.Rate, 0), nullif(o.Rate, 0), p.Rate, c.Rate"},
    {"standardrate", "rates", "", "<=", kByDate, kPurchase, "c.Rate, a.Rate, o.Rate"},
    {"StandardPrice", "rates", "", "<=", kByDate, kSale, "p.Rate, a.Rate, o.Rate, c.Rate"},
    {"SimpleAvg", "simple"},
};

std::string TextOf(const std::string& file) {
  std::ifstream in(fmt::format("{}/{}", PST_STOCK_CONTENDERS, file));
  if (!in) throw std::runtime_error("cannot read " + file);
  return {std::istreambuf_iterator<char>(in), {}};
}

// The windows name a column by a shorter name.
std::string WantedOf(const WindowQuery& query) {
  std::string wanted = query.wanted;
  for (const auto& [windows, table] :
       {std::pair("IsAdded", R"("IsAdded")"), std::pair("Type", R"("GOriginalVouchertype_id")")}) {
    if (const auto at = wanted.find(windows); at != std::string::npos) {
      wanted.replace(at, std::string_view(windows).size(), table);
    }
  }
  return wanted;
}

std::string ComposeWindows(const std::string& method) {
  const auto* const query = std::ranges::find(kQueries, method, &WindowQuery::method);
  const std::string text = TextOf(fmt::format("{}.sql", query->file));
  const std::string own =
      fmt::format(fmt::runtime(text), fmt::arg("direction", query->direction),
                  fmt::arg("bound", query->bound), fmt::arg("latest", query->latest),
                  fmt::arg("wanted", query->wanted), fmt::arg("chain", query->chain));
  return (method == "SimpleAvg" ? "" : TextOf("lines.sql")) + own;
}

}  // namespace

std::vector<std::string> FloorOf(const std::string& method, Engine engine) {
  const auto* const query = std::ranges::find(kQueries, method, &WindowQuery::method);
  const std::string text = TextOf(
      fmt::format("floor/{}{}.sql", engine == Engine::kServer ? "server/" : "", query->file));
  std::string all =
      fmt::format(fmt::runtime(text), fmt::arg("direction", query->direction),
                  fmt::arg("nulls", std::string_view(query->direction) == "ASC" ? "FIRST" : "LAST"),
                  fmt::arg("wanted", WantedOf(*query)), fmt::arg("year", kYear),
                  fmt::arg("from", kFrom), fmt::arg("to", kTo));
  std::vector<std::string> statements;
  for (std::size_t end = all.find(';'); end != std::string::npos; end = all.find(';')) {
    statements.push_back(all.substr(0, end));
    all.erase(0, end + 1);
  }
  return statements;
}

void Check(int code, sqlite3* database) {
  if (code != SQLITE_OK && code != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database));
}

Answer InSql(sqlite3* database, const std::string& method) {
  const std::string text = ComposeWindows(method);
  const double begin = ProcessorSeconds();
  sqlite3_stmt* statement = nullptr;
  Check(sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr), database);
  const auto place = [&](const char* name) {
    return sqlite3_bind_parameter_index(statement, name);
  };
  sqlite3_bind_int(statement, place(":year"), kYear);
  if (place(":begin") > 0) sqlite3_bind_text(statement, place(":begin"), kFrom, -1, SQLITE_STATIC);
  sqlite3_bind_text(statement, place(":to"), kTo, -1, SQLITE_STATIC);
  if (sqlite3_step(statement) != SQLITE_ROW) throw std::runtime_error(sqlite3_errmsg(database));
  Answer answer{.value = sqlite3_column_double(statement, 0)};
  Check(sqlite3_finalize(statement), database);
  answer.seconds = ProcessorSeconds() - begin;
  return answer;
}

Answer InPython(const std::string& path, const std::string& method) {
  Answer answer;
  ReadFrom(fmt::format("python3 '{}/walk.py' '{}' {} {} {} {}", PST_STOCK_CONTENDERS, path, method,
                       kYear, kFrom, kTo),
           "%lf %lf", &answer.seconds, &answer.value);
  return answer;
}

}  // namespace pstolvane1::bench
