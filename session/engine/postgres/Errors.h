// What the server's messages and codes mean for somebody who reads the books.
#pragma once

#include <string>
#include <string_view>

#include "session/data/Error.h"

struct pg_conn;
struct pg_result;

namespace pstolvane1::postgres {

// The words on one line, without the full stop and the blanks at their end. A line that begins with
// a capital letter begins a sentence, and another that is not indented is parted by a semicolon.
[[nodiscard]] std::string OneLine(std::string_view words);
// Such words with a full stop, unless they are a question.
[[nodiscard]] std::string Sentence(std::string words);

// What is said of a scalar subquery with two rows.
inline constexpr std::string_view kMoreThanOneRow =
    "a subquery that stands for a value gave more than one row";

// The error for a failed result: by its SQLSTATE 6, 11, 13 or else -2147217900, with the dialect's
// words where it has some and the server's words otherwise.
[[nodiscard]] Error ErrorOf(const pg_result* result);

// The same of its parts, for a result that is told in full: state, message and what the server adds
// to it.
[[nodiscard]] Error ErrorOf(std::string_view state, std::string_view message,
                            std::string_view detail);

// What libpq says of a connection that failed.
[[nodiscard]] std::string WordsOf(const pg_conn* connection);
// As an error: 7 where it had no memory, else -2147217900.
[[nodiscard]] Error FailureOf(const pg_conn* connection);
[[nodiscard]] Error FailureIn(std::string_view words);

}  // namespace pstolvane1::postgres
