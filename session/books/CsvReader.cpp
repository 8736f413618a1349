#include "session/books/CsvReader.h"

#include <utility>

#include "session/data/Error.h"

namespace pstolvane1::books {
namespace {

// How many bytes follow a first byte of UTF-8, and what the second may be; a length of 0 is no
// first byte. Overlong forms, surrogates and what lies beyond the last character are shut out by
// the second byte's bounds.
struct Sequence {
  int length;
  unsigned char second_low, second_high;
};

constexpr Sequence SequenceOf(unsigned char first) {
  if (first < 0x80) return {1, 0, 0};
  if (first < 0xC2) return {0, 0, 0};
  if (first < 0xE0) return {2, 0x80, 0xBF};
  if (first == 0xE0) return {3, 0xA0, 0xBF};
  if (first == 0xED) return {3, 0x80, 0x9F};
  if (first < 0xF0) return {3, 0x80, 0xBF};
  if (first == 0xF0) return {4, 0x90, 0xBF};
  if (first < 0xF4) return {4, 0x80, 0xBF};
  if (first == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

constexpr std::string_view kMark = "\xEF\xBB\xBF";

}  // namespace

CsvReader::CsvReader(std::istream& text, std::string name) : stream_(text), name_(std::move(name)) {
  if (Peek() != kEnd && std::string_view(buffer_.data(), filled_).starts_with(kMark)) {
    next_ = kMark.size();
  }
}

void CsvReader::Fail(std::size_t line, std::size_t column, const std::string& reason) const {
  throw Error(ErrorNumber::kTypeMismatch,
              name_ + ":" + std::to_string(line) + ":" + std::to_string(column) + ": " + reason);
}

int CsvReader::Peek() {
  if (next_ == filled_) {
    next_ = 0;
    stream_.read(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    filled_ = static_cast<std::size_t>(stream_.gcount());
    if (stream_.bad()) FailHere("the file cannot be read");
    if (filled_ == 0) return kEnd;
  }
  return static_cast<unsigned char>(buffer_[next_]);
}

void CsvReader::Skip() {
  ++next_;
  ++column_;
}

void CsvReader::Take(std::string& text) {
  const int first = Peek();
  if (first == 0) FailHere("a zero byte");
  const Sequence sequence = SequenceOf(static_cast<unsigned char>(first));
  if (sequence.length == 0) FailHere("not valid UTF-8");
  text += static_cast<char>(first);
  ++next_;
  for (int i = 1; i < sequence.length; ++i) {
    const int byte = Peek();
    const int low = i == 1 ? sequence.second_low : 0x80;
    const int high = i == 1 ? sequence.second_high : 0xBF;
    if (byte < low || byte > high) FailHere("not valid UTF-8");
    text += static_cast<char>(byte);
    ++next_;
  }
  ++column_;
  if (text.size() > kLongestField) FailHere("a field is longer than a million bytes");
}

bool CsvReader::SkipLineBreak() {
  if (Peek() == '\r') {
    const std::size_t column = column_;
    Skip();
    if (Peek() != '\n') Fail(line_, column, "a carriage return without a line feed");
  }
  if (Peek() != '\n') return false;
  Skip();
  ++line_;
  column_ = 1;
  return true;
}

void CsvReader::ReadQuoted(CsvField& field) {
  field.quoted = true;
  Skip();
  for (;;) {
    const int next = Peek();
    if (next == kEnd) Fail(field, "a quote is opened and never closed");
    if (next == '"') {
      Skip();
      if (Peek() != '"') break;
      field.text += '"';
      Skip();
      continue;
    }
    Take(field.text);
    if (next == '\n') {
      ++line_;
      column_ = 1;
    }
  }
  const int behind = Peek();
  if (behind != kEnd && behind != ',' && behind != '\n' && behind != '\r') {
    FailHere("only a comma or the end of the line may follow a closing quote");
  }
}

void CsvReader::ReadField(CsvField& field) {
  field.line = line_;
  field.column = column_;
  if (Peek() == '"') return ReadQuoted(field);
  for (int next = Peek(); next != kEnd && next != ',' && next != '\n' && next != '\r';
       next = Peek()) {
    if (next == '"') FailHere("a quote inside a field that does not begin with one");
    Take(field.text);
  }
}

bool CsvReader::Read(std::vector<CsvField>& fields) {
  fields.clear();
  while (SkipLineBreak()) {
  }
  if (Peek() == kEnd) return false;
  for (;;) {
    ReadField(fields.emplace_back());
    if (Peek() == ',') {
      Skip();
      continue;
    }
    if (!SkipLineBreak() && Peek() != kEnd) FailHere("a field does not end here");
    return true;
  }
}

}  // namespace pstolvane1::books
