#include "host/ReportHead.h"

#include <charconv>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string_view>

#include "session/engine/ConnectionString.h"
#include "session/engine/Engines.h"

namespace pstolvane1::host {
namespace {

constexpr int kFirstYear = 1900;

Date DayOf(const std::tm& day) {
  return Date::FromYmd(day.tm_year + kFirstYear, day.tm_mon + 1, day.tm_mday);
}

}  // namespace

bool ShowsALook(Format format) { return format != Format::kCsv && format != Format::kJson; }

std::string CompanyOf(const OutputOptions& options) {
  if (!options.company.empty()) return options.company;
  const ConnectionTarget read = ReadConnectionString(options.books);
  if (read.engine == EngineKind::kSqlite) return std::filesystem::path(FileOf(read)).stem();
  return NameOfDatabase(options.books);
}

Date Today() {
  std::tm day{};
  if (const char* fixed = std::getenv("SOURCE_DATE_EPOCH")) {
    const std::string_view text = fixed;
    std::time_t seconds = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), seconds).ec == std::errc()) {
      return DayOf(*gmtime_r(&seconds, &day));
    }
  }
  const std::time_t now = std::time(nullptr);
  return DayOf(*localtime_r(&now, &day));
}

}  // namespace pstolvane1::host
