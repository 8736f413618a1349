// Any text is a connection string that names a database, or is refused with error 501.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "session/data/Error.h"
#include "session/engine/ConnectionString.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using pstolvane1::EngineKind;
  const std::string_view text(static_cast<const char*>(static_cast<const void*>(data)), size);
  try {
    const pstolvane1::ConnectionTarget target = pstolvane1::ReadConnectionString(text);
    const bool sqlite = target.engine == EngineKind::kSqlite;
    if (sqlite == target.path.empty()) std::abort();
    if (target.path.find('\0') != std::string::npos) std::abort();
    if (!target.other_path.empty() && target.other_path != "/" + target.path) std::abort();
  } catch (const pstolvane1::Error& error) {
    if (error.Number() != pstolvane1::ErrorNumber::kConnection) std::abort();
    if (error.Description().empty() || error.Description().back() != '.') std::abort();
  }
  return 0;
}
