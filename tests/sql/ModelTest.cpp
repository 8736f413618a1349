// Random SELECTs through a real connection, against the plain evaluator: the same columns, the same
// rows in the order that was asked for, or the same error. PST_MODEL_QUERIES sets how many (3000),
// PST_MODEL_SEED where the seeds begin (1); a failure names its seed.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "session/data/Chunk.h"
#include "session/data/ConnectionAccess.h"
#include "session/data/Error.h"
#include "session/engine/Engines.h"
#include "session/sql/Parser.h"
#include "tests/server/Server.h"
#include "tests/sql/model/Evaluator.h"
#include "tests/sql/model/Generator.h"
#include "tests/sql/model/Show.h"

namespace pstolvane1::sql::model {
namespace {

struct Outcome {
  Relation rows;
  std::vector<DataType> types;
  std::optional<Error> error;
};

enum class Engine { kSqlite, kPostgres };

class Model : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    std::filesystem::remove(path_);
    connection_ = NewConnection();
    if (GetParam() == Engine::kSqlite) {
      WriteSqliteFile(path_, SmallTables());
      connection_->Open(path_.string());
    } else {
      scratch_.emplace(PostgresScript(SmallTables()));
      connection_->Open(scratch_->ConnectionString());
    }
  }
  void TearDown() override {
    if (connection_->State() == adStateOpen) connection_->Close();
    std::filesystem::remove(path_);
  }

  const std::filesystem::path path_ =
      std::filesystem::temp_directory_path() / ("sql_model_" + std::to_string(::getpid()) + ".db");
  std::optional<Scratch> scratch_;
  std::shared_ptr<Connection> connection_;
};

int Setting(const char* name, int otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::atoi(text);
}

bool IsType(DataType type, const Kind& kind) {
  switch (kind.type) {
    case Type::kFlag:
      return type == adBoolean;
    case Type::kWhole:
      return type == adInteger;
    case Type::kBigWhole:
      return type == adBigInt;
    case Type::kMoney:
      return type == adCurrency;
    case Type::kSingle:
      return type == adSingle;
    case Type::kDecimal:
    case Type::kReal:
      return type == adDouble;
    case Type::kDate:
      return type == adDate;
    default:
      return type == adVarChar || type == adBSTR;
  }
}

// A decimal comes as a double.
Value ReadValue(const Chunk& chunk, std::size_t column, std::size_t row, DataType type) {
  if (chunk.IsNull(column, row)) return {};
  switch (type) {
    case adBoolean:
      return Value::Exact(chunk.Get<std::int16_t>(column, row) != 0 ? 1 : 0);
    case adInteger:
      return Value::Exact(chunk.Get<std::int32_t>(column, row));
    case adBigInt:
    case adCurrency:
      return Value::Exact(chunk.Get<std::int64_t>(column, row));
    case adSingle:
      return Value::Real(static_cast<double>(chunk.Get<float>(column, row)));
    case adDouble:
      return Value::Real(chunk.Get<double>(column, row));
    case adDate:
      return DateFromText(Date(chunk.Get<double>(column, row)).ToIso());
    default:
      return Value::Text(std::string(chunk.Text(column, row)));
  }
}

Kind KindRead(const Kind& kind) { return kind.type == Type::kDecimal ? Kind{Type::kReal} : kind; }

Outcome Fetched(Connection& connection, const std::string& text,
                const std::vector<Column>& columns) {
  Outcome outcome;
  try {
    const std::shared_ptr<Cursor> cursor = ConnectionAccess::StateToRead(connection)
                                               ->Take(FetchStop())
                                               ->Run(text, ConnectionAccess::TimeLimit(connection));
    for (const ColumnInfo& info : cursor->Columns()) outcome.types.push_back(info.type);
    for (const Column& column : columns) {
      outcome.rows.columns.push_back({"", column.name, KindRead(column.kind)});
    }
    for (bool more = true; more;) {
      Chunk chunk(cursor->Columns());
      more = cursor->Read(chunk) == chunk.Capacity();
      for (std::size_t r = 0; r < chunk.RowCount(); ++r) {
        Row row;
        for (std::size_t c = 0; c < outcome.types.size(); ++c) {
          row.push_back(ReadValue(chunk, c, r, outcome.types[c]));
        }
        outcome.rows.rows.push_back(std::move(row));
      }
    }
  } catch (const Error& error) {
    outcome.error = error;
  }
  return outcome;
}

Outcome Reckoned(const Statement& statement) {
  Outcome outcome;
  try {
    outcome.rows = Evaluator(statement, SmallTables()).Run();
  } catch (const Error& error) {
    outcome.error = error;
  }
  return outcome;
}

bool IsNear(double a, double b, double share) {
  return std::abs(a - b) <= share * std::max({1.0, std::abs(a), std::abs(b)});
}

// Which of several equal texts stands for them is left open.
bool SameCell(const Value& expected, const Value& actual, const Kind& kind, bool exact_text) {
  if (expected.null || actual.null) return expected.null == actual.null;
  switch (kind.type) {
    case Type::kText:
      return exact_text ? expected.text == actual.text
                        : Folded(expected.text) == Folded(actual.text);
    case Type::kSingle:
      return IsNear(expected.real, actual.real, 1e-6);
    case Type::kReal:
    case Type::kDecimal:
      return IsNear(ToDouble(expected, kind), actual.real, 1e-10);
    default:
      return expected.exact == actual.exact;
  }
}

bool PicksOneOfEqualTexts(const std::string& text) {
  static const std::array<std::string_view, 6> kWords = {"DISTINCT", "UNION", "GROUP BY",
                                                         "MIN(",     "MAX(",  "TOP "};
  return std::any_of(kWords.begin(), kWords.end(),
                     [&text](std::string_view word) { return text.find(word) != text.npos; });
}

// The first expected row that no actual one answers, or -1. Both have as many rows.
int Unanswered(const Relation& expected, const Relation& actual, bool exact_text) {
  std::vector<bool> used(actual.rows.size(), false);
  for (std::size_t e = 0; e < expected.rows.size(); ++e) {
    bool found = false;
    for (std::size_t a = 0; a < actual.rows.size() && !found; ++a) {
      found = !used[a];
      for (std::size_t c = 0; c < expected.columns.size() && found; ++c) {
        found =
            SameCell(expected.rows[e][c], actual.rows[a][c], expected.columns[c].kind, exact_text);
      }
      if (found) used[a] = true;
    }
    if (!found) return static_cast<int>(e);
  }
  return -1;
}

// The generator orders by positions only.
bool IsInOrder(const Relation& rows, const std::vector<OrderItem>& order) {
  for (std::size_t r = 1; r < rows.rows.size(); ++r) {
    for (const OrderItem& key : order) {
      const auto c =
          static_cast<std::size_t>(std::stoi(key.value->As<NumberLiteral>()->digits) - 1);
      const Value& before = rows.rows[r - 1][c];
      const Value& after = rows.rows[r][c];
      const int way = Order(before, after, rows.columns[c].kind);
      const bool inexact =
          rows.columns[c].kind.type == Type::kReal || rows.columns[c].kind.type == Type::kSingle;
      // Singles are ordered before they are rounded.
      const bool near = IsNear(before.real, after.real, 1e-6) && before.null == after.null;
      if (inexact && near) break;
      if (way == 0) continue;
      if ((way > 0) != key.descending) return false;
      break;
    }
  }
  return true;
}

std::string Difference(const Outcome& expected, const Outcome& actual, const Statement& statement) {
  if (expected.error || actual.error) {
    const bool same =
        expected.error && actual.error && expected.error->Number() == actual.error->Number();
    if (same) return {};
    return "expected " + (expected.error ? expected.error->Description() : Show(expected.rows)) +
           "\nfound " + (actual.error ? actual.error->Description() : "rows");
  }
  if (actual.types.size() != expected.rows.columns.size()) return "another number of columns";
  for (std::size_t i = 0; i < actual.types.size(); ++i) {
    if (!IsType(actual.types[i], expected.rows.columns[i].kind)) {
      return "column " + std::to_string(i + 1) + " has type " + std::to_string(actual.types[i]) +
             " for " + Show(expected.rows).substr(0, 100);
    }
  }
  const bool exact_text = !PicksOneOfEqualTexts(statement.text);
  const bool same_count = expected.rows.rows.size() == actual.rows.rows.size();
  if (!same_count || Unanswered(expected.rows, actual.rows, exact_text) >= 0) {
    return "expected " + Show(expected.rows) + "\nfound " + Show(actual.rows);
  }
  if (!IsInOrder(actual.rows, statement.query.order_by)) {
    return "not in order: " + Show(actual.rows);
  }
  return {};
}

TEST_P(Model, RandomSelectsMeanWhatTheEvaluatorSays) {
  constexpr int kMostFailures = 10;
  const int count = Setting("PST_MODEL_QUERIES", 3000);
  const int first = Setting("PST_MODEL_SEED", 1);
  int failures = 0;
  for (int seed = first; seed < first + count && failures < kMostFailures; ++seed) {
    const std::string text = Generator(static_cast<std::uint64_t>(seed)).Select();
    const Statement statement = Parse(text);
    const Outcome expected = Reckoned(statement);
    const Relation shape = Evaluator(statement, SmallTables()).Columns();
    const std::string difference =
        Difference(expected, Fetched(*connection_, text, shape.columns), statement);
    if (difference.empty()) continue;
    ++failures;
    std::string translation;
    try {
      translation = connection_->Translate(text);
    } catch (const Error& error) {
      translation = error.Description();
    }
    ADD_FAILURE() << "seed " << seed << ": " << text << "\n" << difference << "\n" << translation;
  }
}

INSTANTIATE_TEST_SUITE_P(Engines, Model, testing::Values(Engine::kSqlite, Engine::kPostgres),
                         [](const auto& engine) {
                           return engine.param == Engine::kSqlite ? "Sqlite" : "Postgres";
                         });

}  // namespace
}  // namespace pstolvane1::sql::model
