#include "session/engine/postgres/Errors.h"

#include <charconv>
#include <libpq-fe.h>
#include <optional>
#include <utility>

#include "session/data/OutOfMemory.h"
#include "session/sql/PostgresEmitter.h"

namespace pstolvane1::postgres {
namespace {

std::string_view Field(const pg_result* result, int field) {
  const char* text = PQresultErrorField(result, field);
  return text == nullptr ? std::string_view{} : text;
}

// A failure that the emitted text has put into words itself.
std::optional<Error> Spoken(std::string_view message) {
  const std::size_t first = message.find(sql::kPostgresFailure);
  const std::size_t last = message.rfind(sql::kPostgresFailureEnd);
  if (first == std::string_view::npos || last == std::string_view::npos) return std::nullopt;
  const std::size_t begin = first + sql::kPostgresFailure.size();
  if (last <= begin) return std::nullopt;
  const std::string_view text = message.substr(begin, last - begin);
  int number = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
  if (end.ec != std::errc() || (number != 6 && number != 13)) return std::nullopt;
  const auto words = static_cast<std::size_t>(end.ptr - text.data()) + 1;
  if (words > text.size()) return std::nullopt;
  return Error(static_cast<ErrorNumber>(number), std::string(text.substr(words)));
}

// "A field with precision 3, scale 1 must round to an absolute value less than 10^2."
std::string DecimalWords(std::string_view detail) {
  const std::size_t power = detail.rfind("10^");
  if (power == std::string_view::npos) return "";
  std::string_view digits = detail.substr(power + 3);
  digits = digits.substr(0, std::min(digits.find_first_not_of("0123456789"), digits.size()));
  return "a number is out of range for a decimal of " + std::string(digits) +
         " digits before the point";
}

std::string OverflowWords(std::string_view message, std::string_view detail) {
  if (message.starts_with("integer out of range")) {
    return "a whole number is out of range for a 32-bit whole number";
  }
  if (message.starts_with("bigint out of range")) {
    return "a number is out of range for a 64-bit whole number";
  }
  const std::string decimal = DecimalWords(detail);
  return decimal.empty() ? OneLine(message) : decimal;
}

bool IsStop(char c) { return c == '.' || c == '?' || c == '!' || c == ':' || c == ';'; }

}  // namespace

std::string OneLine(std::string_view words) {
  std::string line;
  bool begins = false;  // a line
  char before = ' ';
  for (const char c : words) {
    const bool blank = c == ' ' || c == '\n' || c == '\t' || c == '\r';
    if (blank && !line.empty() && line.back() != ' ') line += ' ';
    if (c == '\n') begins = true;
    const bool indented = before != '\n';
    before = c;
    if (blank) continue;
    const bool capital = c >= 'A' && c <= 'Z';
    if (std::exchange(begins, false) && (capital || !indented) && line.size() > 1 &&
        !IsStop(line[line.size() - 2])) {
      line.insert(line.size() - 1, capital ? "." : ";");
    }
    line += c;
  }
  while (!line.empty() && (line.back() == ' ' || line.back() == '.')) line.pop_back();
  return line;
}

std::string Sentence(std::string words) {
  if (words.empty() || !IsStop(words.back())) words += '.';
  return words;
}

Error ErrorOf(const pg_result* result) {
  if (result != nullptr && Field(result, PG_DIAG_MESSAGE_PRIMARY).empty()) {
    return FailureIn(PQresultErrorMessage(result));  // the client library's own
  }
  return ErrorOf(Field(result, PG_DIAG_SQLSTATE), Field(result, PG_DIAG_MESSAGE_PRIMARY),
                 Field(result, PG_DIAG_MESSAGE_DETAIL));
}

Error ErrorOf(std::string_view state, std::string_view message, std::string_view detail) {
  if (auto spoken = Spoken(message)) return *spoken;
  if (state == "22012") return Error(ErrorNumber::kDivisionByZero, "division by zero");
  if (state == "22003") return Error(ErrorNumber::kOverflow, OverflowWords(message, detail));
  if (state == "22P02" || state == "22007" || state == "22008") {
    return Error(ErrorNumber::kTypeMismatch, OneLine(message));
  }
  if (state == "53200") return Error(ErrorNumber::kOutOfMemory, "the server is out of memory");
  if (state == "21000") {
    return Error(ErrorNumber::kQueryRefused, std::string(kMoreThanOneRow));
  }
  std::string words = OneLine(message);
  if (!detail.empty()) words += " (" + OneLine(detail) + ")";
  return Error(ErrorNumber::kQueryRefused, words);
}

std::string WordsOf(const pg_conn* connection) { return OneLine(PQerrorMessage(connection)); }

Error FailureIn(std::string_view words) {
  if (words.starts_with("out of memory")) return OutOfMemory();
  return Error(ErrorNumber::kQueryRefused, OneLine(words));
}

Error FailureOf(const pg_conn* connection) { return FailureIn(PQerrorMessage(connection)); }

}  // namespace pstolvane1::postgres
