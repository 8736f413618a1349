#include "host/BooksLookup.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

#include "automation/CallInWords.h"
#include "automation/Nearest.h"
#include "session/engine/Engines.h"

namespace pstolvane1::host {
namespace {

using automation::Master;

constexpr std::size_t kNamesShown = 5;
// The months in which years begin, the likely ones first.
constexpr std::array kStarts = {4, 1, 7, 10, 2, 3, 5, 6, 8, 9, 11, 12};

std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) {
    quoted += c;
    if (c == '\'') quoted += c;
  }
  return quoted += '\'';
}

// A pattern that means the text itself wherever it stands.
std::string Holding(std::string_view text) {
  std::string pattern;
  for (const char c : text) {
    if (c == '%' || c == '_' || c == '[') {
      pattern += {'[', c, ']'};
    } else {
      pattern += c;
    }
  }
  return Quoted("%" + pattern + "%");
}

std::string NotDeleted(const Master& names) {
  return names.marks_deleted ? "(Deleted is null or Deleted = 0)" : "1 = 1";
}

// The number of the accounting year that begins in 2004: 0 for 2004.
int CalendarYear(Date day, int start) {
  const Date::Parts parts = day.ToParts();
  return parts.month >= start ? parts.year : parts.year - 1;
}

// Whether every year lies within twelve months from this month on, with numbers that follow.
bool Agree(const std::vector<AccountingYear>& years, int start) {
  const int offset = CalendarYear(years.front().first, start) - years.front().number;
  return std::ranges::all_of(years, [&](const AccountingYear& year) {
    return CalendarYear(year.first, start) == year.number + offset &&
           CalendarYear(year.last, start) == year.number + offset;
  });
}

void BeginIn(int start, std::vector<AccountingYear>& years) {
  for (AccountingYear& year : years) {
    const int begins = CalendarYear(year.first, start);
    year.first = Date::FromYmd(begins, start, 1);
    year.last = Date(Date::FromYmd(begins + 1, start, 1).Serial() - 1);
  }
}

}  // namespace

RecordsetPtr BooksLookup::Open(const std::string& select) {
  if (!books_) {
    const std::shared_ptr<Connection> opened = NewConnection();
    opened->Open(connection_);
    books_ = opened;
  }
  RecordsetPtr rowset = Recordset::New();
  rowset->Open(select, books_, adOpenStatic, adLockReadOnly);
  return rowset;
}

RecordsetPtr BooksLookup::List(const Master& names, const std::string& text) {
  const std::string other =
      names.other_key.empty() ? std::string() : fmt::format(", {}", names.other_key);
  return Open(fmt::format("select {}, {}{} from {} where {} and {} like {} order by {}", names.key,
                          names.name, other, names.table, NotDeleted(names), names.name,
                          Holding(text), names.name));
}

std::int32_t BooksLookup::KeyOf(const Master& names, const std::string& name) {
  const RecordsetPtr found = Open(fmt::format("select distinct {} from {} where {} = {}", names.key,
                                              names.table, names.name, Quoted(name)));
  if (found->RecordCount() == 1) return found->Collect(names.key).ToInt32();
  std::string told = fmt::format("there is no {} \"{}\"", names.one, name);
  const RecordsetPtr like = found->RecordCount() == 0 ? List(names, name) : found;
  if (found->RecordCount() > 1) {
    told = fmt::format("{} of the books' {} are called \"{}\"; give the key", found->RecordCount(),
                       names.word, name);
  }
  const ColumnHandle key = like->Column(names.key);
  const bool keys = like == found;
  const ColumnHandle shown = keys ? key : like->Column(names.name);
  std::size_t count = 0;
  for (const Recordset::Row row : like->Rows()) {
    if (++count > kNamesShown) break;
    told += fmt::format(
        "{}{}", count == 1 ? (keys ? ": " : "; there is ") : ", ",
        keys ? std::to_string(row[key].ToInt32()) : "\"" + std::string(row.Text(shown)) + "\"");
  }
  throw automation::WrongCall(told + fmt::format("; \"stolvane list {}\" lists them", names.word));
}

std::string BooksLookup::NameOf(const Master& names, std::int32_t key) {
  return automation::NameOfKey(Reader(), names, key);
}

automation::KeysOfBooks BooksLookup::Keys() { return automation::KeysReadBy(Reader()); }

bool BooksLookup::HasKey(const Master& names, std::int32_t key) {
  if (std::ranges::find(names.without_row, key) != names.without_row.end()) return true;
  const std::string other =
      names.other_key.empty() ? std::string() : fmt::format(" or {} = {}", names.other_key, key);
  return Open(fmt::format("select top 1 {} from {} where {} = {}{}", names.key, names.table,
                          names.key, key, other))
             ->RecordCount() > 0;
}

const std::vector<AccountingYear>& BooksLookup::Years() {
  if (years_) return *years_;
  std::vector<AccountingYear> years;
  const auto one = [this](const std::string& select) {
    const RecordsetPtr rowset = Open(select);
    return rowset->RecordCount() == 0 ? Variant() : rowset->Collect("v");
  };
  // Each is one look into the index of years and days.
  const Variant lowest = one("select min(YearNo) as v from GodownItem1");
  const Variant highest = one("select max(YearNo) as v from GodownItem1");
  if (!lowest.IsNull() && !lowest.IsEmpty()) {
    for (std::int32_t number = lowest.ToInt32(); number <= std::min(highest.ToInt32(), 255);
         ++number) {
      const std::string of = fmt::format(
          "(Date) as v from GodownItem1 where YearNo = {} and Date is not null", number);
      const Variant first = one("select min" + of);
      if (first.IsNull() || first.IsEmpty()) continue;
      years.push_back({number, first.ToDate(), one("select max" + of).ToDate()});
    }
  }
  if (!years.empty()) {
    const auto start =
        std::ranges::find_if(kStarts, [&](int month) { return Agree(years, month); });
    if (start != kStarts.end()) BeginIn(*start, years);
  }
  years_ = std::move(years);
  return *years_;
}

}  // namespace pstolvane1::host
