// What is missing or odd in a file of books.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pstolvane1::books {

enum class Severity {
  kError,    // reports fail, or their figures are wrong
  kWarning,  // figures may surprise
  kHint,     // reports are slower than they need be
};

[[nodiscard]] std::string_view NameOf(Severity severity);  // "error", "warning", "hint"

struct Finding {
  Severity severity;
  std::string sentence;  // what, how often, and the first key
  std::string remedy;    // a statement that mends it, "" where there is none
};

// Called before each part of the check: what is looked at, and how far it is, from 0 to 1.
using CheckProgress = std::function<void(std::string_view part, double done)>;

// Looks through books in a file or on a server: tables and columns that the
// reports read and that are missing or of another type, indexes that would serve them, and data
// that they do not expect. Errors first, then warnings, then hints; no findings when all is well.
// Everything is read from one state of the books, and nothing is written. Error 501 for what cannot
// be opened or holds none of the books' tables.
[[nodiscard]] std::vector<Finding> CheckBooks(const std::string& connection,
                                              const CheckProgress& progress = {});

// Of books with the reference schema only what no report reads, such as a movement without a batch,
// each sentence with the keys of the rows.
[[nodiscard]] std::vector<Finding> CheckUnread(const std::string& connection);

}  // namespace pstolvane1::books
