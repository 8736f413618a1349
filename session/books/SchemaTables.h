// The reference schema as constants; Schema.h is how it is read.
#pragma once

#include <span>

#include "session/books/Schema.h"

namespace pstolvane1::books {

[[nodiscard]] std::span<const Table> MasterTables();
[[nodiscard]] std::span<const Table> AccountTables();
[[nodiscard]] std::span<const Table> DocumentTables();

}  // namespace pstolvane1::books
