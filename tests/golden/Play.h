// Playing the calls of cases, and writing down what they came to.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "session/data/Error.h"
#include "session/data/Recordset.h"
#include "tests/SourcePath.h"

namespace pstolvane1::golden {

inline const std::string kCases = SourcePath("tests/cases");
// The files of all cases, relative to that folder, in their order.
[[nodiscard]] std::vector<std::string> AllCases();

enum class Path { kSynchronous, kAsynchronous };

// What one run of a case came to.
struct Outcome {
  RecordsetPtr rowset;
  std::optional<std::int32_t> any_count;  // told by FetchComplete only
  std::optional<Error> error;
  std::vector<std::string> events;
};

// The call of a case on these books.
[[nodiscard]] Outcome Play(const CaseFile& file, Path path, const std::string& connection);

// As a case has it, without the events.
[[nodiscard]] std::string Expectation(const Outcome& outcome,
                                      const std::optional<std::int32_t>& any_count);
[[nodiscard]] std::string EventBlock(const std::vector<std::string>& events);
// What a case expects, without the events.
[[nodiscard]] std::string RowsetPart(const std::string& expected);
// The count of the outcome. A synchronous call has none; what the case says of it is then taken
// over.
[[nodiscard]] std::optional<std::int32_t> CountOf(const CaseFile& file, const Outcome& outcome,
                                                  Path path);

}  // namespace pstolvane1::golden
