#include "host/ReportHead.h"

#include <filesystem>

#include "host/Letterhead.h"
#include "session/engine/ConnectionString.h"
#include "session/engine/Engines.h"

namespace pstolvane1::host {

bool ShowsALook(Format format) { return format != Format::kCsv && format != Format::kJson; }

std::string CompanyOf(const OutputOptions& options) {
  if (!options.company.empty()) return options.company;
  if (!options.letterhead.empty()) {
    std::string name = ReadLetterhead(options.letterhead).CompanyName;
    if (!name.empty()) return name;
  }
  const ConnectionTarget read = ReadConnectionString(options.books);
  if (read.engine == EngineKind::kSqlite) return std::filesystem::path(FileOf(read)).stem();
  return NameOfDatabase(options.books);
}

print::PrintStyle PrintStyleOf(const OutputOptions& options) {
  print::PrintStyle style{.paper = options.paper, .day = Today().ToIso()};
  if (!options.letterhead.empty()) style.company = ReadLetterhead(options.letterhead);
  style.company.CompanyName = CompanyOf(options);
  return style;
}

}  // namespace pstolvane1::host
