// Comma-separated text, read record by record, with the place of every field.
#pragma once

#include <array>
#include <cstddef>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace pstolvane1::books {

// The place is that of the field's first character, its quote if it has one: lines count from 1,
// and columns count characters, not bytes, from 1.
struct CsvField {
  std::string text;
  bool quoted = false;
  std::size_t line = 1;
  std::size_t column = 1;
};

// Fields are parted by commas and records by line feeds, with or without a carriage return. A field
// in quotes may hold commas, line breaks and doubled quotes. A byte order mark at the start and
// lines with nothing on them are passed over. Reads the stream once, in pieces; the caller keeps
// it.
class CsvReader {
 public:
  static constexpr std::size_t kLongestField = 1'000'000;  // bytes

  // name stands for the text in errors.
  CsvReader(std::istream& text, std::string name);

  // The next record, or false at the end. Error 13, "NAME:LINE:COLUMN: REASON", for a quote out of
  // place, text behind a closing quote, a quote never closed, a lone carriage return, a zero byte,
  // text that is not UTF-8 and a field beyond kLongestField.
  [[nodiscard]] bool Read(std::vector<CsvField>& fields);

  [[noreturn]] void Fail(std::size_t line, std::size_t column, const std::string& reason) const;
  [[noreturn]] void Fail(const CsvField& field, const std::string& reason) const {
    Fail(field.line, field.column, reason);
  }

 private:
  static constexpr int kEnd = -1;

  [[nodiscard]] int Peek();
  // Takes one character, up to four bytes, into text, and moves the place on.
  void Take(std::string& text);
  void Skip();  // one character of one byte
  [[noreturn]] void FailHere(const std::string& reason) const { Fail(line_, column_, reason); }

  [[nodiscard]] bool SkipLineBreak();
  void ReadField(CsvField& field);
  void ReadQuoted(CsvField& field);

  std::istream& stream_;
  std::string name_;
  std::array<char, 65536> buffer_{};
  std::size_t next_ = 0;
  std::size_t filled_ = 0;
  std::size_t line_ = 1;
  std::size_t column_ = 1;
};

}  // namespace pstolvane1::books
