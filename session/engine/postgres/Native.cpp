#include "session/engine/postgres/Native.h"

#include <libpq-fe.h>

namespace pstolvane1::postgres {

void FinishConnection::operator()(pg_conn* connection) const noexcept { PQfinish(connection); }

void ClearResult::operator()(pg_result* result) const noexcept { PQclear(result); }

void FreeMemory::operator()(char* memory) const noexcept { PQfreemem(memory); }

}  // namespace pstolvane1::postgres
