#include "session/engine/sqlite/ColumnCheck.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <sqlite3.h>

#include "session/engine/sqlite/Cells.h"
#include "session/engine/sqlite/Database.h"
#include "session/engine/sqlite/IsoText.h"
#include "session/sql/EngineText.h"

namespace pstolvane1::sqlite {
namespace {

// Fewer than the engine's limit on the arguments of a function.
constexpr std::ptrdiff_t kColumnsAtOnce = 60;

enum Kind : char { kIsWhole = 'w', kIsNumber = 'n', kIsDate = 'd', kIsText = 't' };

Kind KindOf(sql::Type type) {
  switch (type) {
    case sql::Type::kFlag:
    case sql::Type::kWhole:
    case sql::Type::kBigWhole:
      return kIsWhole;
    case sql::Type::kDate:
      return kIsDate;
    case sql::Type::kNull:
    case sql::Type::kText:
      return kIsText;
    default:
      return kIsNumber;
  }
}

std::string_view TextOf(sqlite3_value* value) {
  const unsigned char* text = sqlite3_value_text(value);
  if (text == nullptr) throw std::bad_alloc();
  return {static_cast<const char*>(static_cast<const void*>(text)),
          static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool Fits(sqlite3_value* value, char kind) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return true;
    case SQLITE_INTEGER:
      return kind != kIsDate;
    case SQLITE_FLOAT: {
      const double number = sqlite3_value_double(value);
      if (kind == kIsWhole) return number == std::trunc(number) && std::isfinite(number);
      return kind == kIsText || (kind == kIsNumber && std::isfinite(number));
    }
    case SQLITE_TEXT:
      return kind == kIsText || (kind == kIsDate && ReadIsoText(TextOf(value)).has_value());
    default:
      return false;
  }
}

void Misfit(sqlite3_context* context, int count, sqlite3_value** values) {
  Guarded(context, [&] {
    const std::string_view kinds = TextOf(values[0]);
    int misfit = 0;
    for (int i = 1; i < count && misfit == 0; ++i) {
      misfit = Fits(values[i], kinds[static_cast<std::size_t>(i - 1)]) ? 0 : 1;
    }
    sqlite3_result_int(context, misfit);
  });
}

std::string Shown(sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_FLOAT && std::isinf(sqlite3_value_double(value))) {
    return sqlite3_value_double(value) > 0 ? "\"Infinity\"" : "\"-Infinity\"";
  }
  return ShownCell(value);
}

constexpr std::array kFunctions{ScalarFunction{"pst_misfit", -1, &Misfit}};

}  // namespace

void ColumnCheck::BeginState(std::int64_t data_version) {
  if (data_version == data_version_) return;
  known_ = std::make_shared<Known>();
  data_version_ = data_version;
}

void ColumnCheck::BeginState(std::int64_t data_version, const ColumnCheck& other) {
  known_ = other.known_;
  data_version_ = data_version;
}

std::unique_lock<std::mutex> ColumnCheck::Turn() const { return std::unique_lock(known_->turn); }

void ColumnCheck::Check(Database& database, std::span<const TableColumn> columns) {
  std::vector<TableColumn> unknown;
  for (const TableColumn& column : columns) {
    if (!known_->columns.contains(column.table + "." + column.column)) unknown.push_back(column);
  }
  std::ranges::stable_sort(unknown, {}, &TableColumn::table);
  for (auto first = unknown.begin(); first != unknown.end();) {
    auto last = std::find_if(first, unknown.end(),
                             [&](const TableColumn& one) { return one.table != first->table; });
    last = first + std::min(kColumnsAtOnce, last - first);
    CheckTable(database, {first, last});
    for (; first != last; ++first) {
      known_->columns.insert(first->table + "." + first->column);
    }
  }
}

void ColumnCheck::CheckTable(Database& database, std::span<const TableColumn> columns) {
  constexpr std::string_view kDoing = "reading the rows";
  std::string kinds;
  std::string names;
  for (const TableColumn& column : columns) {
    kinds.push_back(KindOf(column.type));
    names += (names.empty() ? "" : ", ") + sql::QuotedName(column.column);
  }
  const NativeStatement statement =
      database.Prepare("SELECT " + names + " FROM " + sql::QuotedName(columns[0].table) +
                       " WHERE pst_misfit('" + kinds + "', " + names + ") LIMIT 1");
  if (!database.Step(statement.get(), kDoing)) return;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    sqlite3_value* value = sqlite3_column_value(statement.get(), static_cast<int>(i));
    if (!Fits(value, kinds[i])) throw WrongValue(columns[i], Shown(value));
  }
}

std::span<const ScalarFunction> ColumnCheckFunctions() { return kFunctions; }

}  // namespace pstolvane1::sqlite
