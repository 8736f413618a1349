// One query text of tests/queries, with the call that sends it.
//
//   -- FIFO under a filter of documents
//   --
//   -- set filter strVouchertypeFilter = Vouchertype1.Vouchertype_id in (7,10,12)
//   -- call StockDetails_Itemwise as year
//   -- ValuationMethod = FifoRate
//   --
//   -- query 2
//   select ...
//
// The call stands as in a case, books included. A call that sends several texts numbers them, and
// each has its file unless another call sends the same; 1 is left out. "-- refused: column 7: why"
// says that the front end must not take the text. A text without a call is a form of the dialect
// that no report sends. The text is the last line; a ".shape" file holds a shape command.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "tests/SourcePath.h"

namespace pstolvane1::golden {

struct QueryFile {
  std::string path;
  std::vector<std::string> head;  // the lines above the text, without "--"
  std::string text;
  std::optional<CaseFile> sender;  // with one call
  std::size_t number = 1;          // of the sender's texts
  std::string refused;             // why; empty for a text that is read
};

inline const std::string kQueries = SourcePath("tests/queries");

// All of them, by their path. A std::runtime_error names the file that cannot be read.
[[nodiscard]] std::vector<QueryFile> AllQueries();
// Writes the file again, with the ending that its text asks for.
void WriteQuery(const QueryFile& file);

}  // namespace pstolvane1::golden
