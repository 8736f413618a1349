#include "host/ReportHead.h"

#include <filesystem>

#include "session/engine/ConnectionString.h"
#include "session/engine/Engines.h"

namespace pstolvane1::host {

bool ShowsALook(Format format) { return format != Format::kCsv && format != Format::kJson; }

std::string CompanyOf(const OutputOptions& options) {
  if (!options.company.empty()) return options.company;
  const ConnectionTarget read = ReadConnectionString(options.books);
  if (read.engine == EngineKind::kSqlite) return std::filesystem::path(FileOf(read)).stem();
  return NameOfDatabase(options.books);
}

}  // namespace pstolvane1::host
