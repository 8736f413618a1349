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

// The calls of a case on these books, one after the other; the outcome is the last one's. A
// std::runtime_error where another one delivers nothing.
[[nodiscard]] Outcome Play(const CaseFile& file, Path path, const std::string& connection);

// As a case has it, without the events: the whole rowset, or these columns. Error 3265 names a
// column that is not there.
[[nodiscard]] std::string Expectation(const Outcome& outcome,
                                      const std::optional<std::int32_t>& any_count,
                                      const Cells& columns = {});
// What there is to compare with what the case expects: its columns, the count that a synchronous
// call does not tell, and the description of an error where the case has one.
[[nodiscard]] std::string ExpectationLike(const CaseFile& file, const Outcome& outcome, Path path);
[[nodiscard]] std::string EventBlock(const std::vector<std::string>& events);

}  // namespace pstolvane1::golden
