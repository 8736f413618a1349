#include "session/engine/sqlite/Guard.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <sqlite3.h>
#include <utility>

#include "session/sql/SqliteFunctions.h"

namespace pstolvane1::sqlite {
namespace {

// The engine's own functions that depend on nothing but their arguments.
constexpr std::string_view kAllowedFunctions[] = {
    "abs",      "avg",   "ceil",      "ceiling", "char",     "coalesce",     "count",     "date",
    "datetime", "exp",   "floor",     "format",  "glob",     "group_concat", "hex",       "ifnull",
    "iif",      "instr", "julianday", "length",  "like",     "ln",           "lower",     "ltrim",
    "max",      "min",   "mod",       "nullif",  "pow",      "power",        "printf",    "replace",
    "round",    "rtrim", "sign",      "sqrt",    "strftime", "substr",       "substring", "sum",
    "time",     "total", "trim",      "trunc",   "typeof",   "unicode",      "upper"};

// What a view may not call either: it reaches beyond the books.
constexpr std::array<std::string_view, 5> kNeverFunctions{"load_extension", "fts3_tokenizer",
                                                          "readfile", "writefile", "edit"};

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

bool Has(std::span<const std::string_view> names, std::string_view name) {
  return std::any_of(names.begin(), names.end(),
                     [&](std::string_view each) { return SameName(each, name); });
}

std::string_view View(const char* text) { return text != nullptr ? text : std::string_view{}; }

}  // namespace

bool IsAllowedFunction(std::string_view name) {
  return Has(kAllowedFunctions, name) ||
         std::any_of(std::begin(sql::kSqliteFunctions), std::end(sql::kSqliteFunctions),
                     [&](const auto& function) { return SameName(function.name, name); });
}

void Guard::StandAt(sqlite3* database) { sqlite3_set_authorizer(database, &Guard::Ask, this); }

Guard::Permission::Permission(Guard& guard, const sql::Catalog* catalog) : guard_(guard) {
  guard_.catalog_ = catalog;
  guard_.own_ = catalog == nullptr;
  guard_.refusal_.clear();
  guard_.ran_out_ = false;
}

Guard::Permission::~Permission() {
  guard_.catalog_ = nullptr;
  guard_.own_ = false;
}

int Guard::Ask(void* guard, int action, const char* first, const char* second,
               const char* /*schema*/, const char* view) noexcept {
  try {
    const bool allowed =
        static_cast<Guard*>(guard)->Allows(action, View(first), View(second), View(view));
    return allowed ? SQLITE_OK : SQLITE_DENY;
  } catch (...) {  // nothing but memory
    static_cast<Guard*>(guard)->ran_out_ = true;
    return SQLITE_DENY;
  }
}

void Guard::Note(const sql::CatalogTable& table, std::string_view column) {
  const sql::CatalogColumn* found = table.is_view ? nullptr : table.Find(column);
  if (found == nullptr) return;
  TableColumn touched{table.name, found->name, found->type};
  if (std::ranges::find(touched_, touched) == touched_.end())
    touched_.push_back(std::move(touched));
}

bool Guard::Allows(int action, std::string_view first, std::string_view second,
                   std::string_view place) {
  if (own_) return true;
  if (catalog_ == nullptr) return false;
  // The engine names a common table expression as well as a view.
  const bool in_view = !place.empty() && catalog_->Find(place) != nullptr;
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_RECURSIVE:
      return true;
    case SQLITE_READ:
      // An engine's own table has no place in the catalog. An empty name is a derived table.
      if (first.empty()) return true;
      if (const sql::CatalogTable* table = catalog_->Find(first)) {
        Note(*table, second);
        return true;
      }
      refusal_ = "the statement reads " + std::string(first) + ", which is no table of the books";
      return false;
    case SQLITE_FUNCTION:
      if (in_view ? !Has(kNeverFunctions, second) : IsAllowedFunction(second)) return true;
      refusal_ = "the statement calls " + std::string(second) + ", which is not allowed";
      return false;
    default:
      refusal_ = "the statement does something other than selecting";
      return false;
  }
}

}  // namespace pstolvane1::sqlite
