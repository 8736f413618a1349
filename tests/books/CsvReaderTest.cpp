#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

#include "session/books/CsvReader.h"
#include "session/data/Error.h"

namespace pstolvane1::books {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Record = std::vector<std::string>;

std::vector<Record> Read(const std::string& text) {
  std::istringstream stream(text);
  CsvReader reader(stream, "a.csv");
  std::vector<CsvField> fields;
  std::vector<Record> records;
  while (reader.Read(fields)) {
    Record& record = records.emplace_back();
    for (const CsvField& field : fields) record.push_back(field.text);
  }
  return records;
}

// "LINE:COLUMN TEXT" of every field, with quotes about the text where the field had them.
std::vector<std::string> Places(const std::string& text) {
  std::istringstream stream(text);
  CsvReader reader(stream, "a.csv");
  std::vector<CsvField> fields;
  std::vector<std::string> places;
  while (reader.Read(fields)) {
    for (const CsvField& field : fields) {
      const std::string quote = field.quoted ? "\"" : "";
      places.push_back(std::to_string(field.line) + ":" + std::to_string(field.column) + " " +
                       quote + field.text + quote);
    }
  }
  return places;
}

std::string Refusal(const std::string& text) {
  try {
    (void)Read(text);
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kTypeMismatch);
    return error.Description();
  }
  return "no error";
}

TEST(CsvReader, PartsRecordsAndFields) {
  EXPECT_THAT(Read("a,b\n1,2\n"), ElementsAre(Record{"a", "b"}, Record{"1", "2"}));
}

TEST(CsvReader, NeedsNoLineBreakAtTheEnd) {
  EXPECT_THAT(Read("a,b"), ElementsAre(Record{"a", "b"}));
  EXPECT_THAT(Read("a,"), ElementsAre(Record{"a", ""}));
}

TEST(CsvReader, TakesCarriageReturnsBeforeLineFeeds) {
  EXPECT_THAT(Read("a,b\r\n1,\"2\"\r\n"), ElementsAre(Record{"a", "b"}, Record{"1", "2"}));
}

TEST(CsvReader, PassesOverAByteOrderMarkAndEmptyLines) {
  EXPECT_THAT(Read("\xEF\xBB\xBF"
                   "a\n\n\r\n1\n\n"),
              ElementsAre(Record{"a"}, Record{"1"}));
  EXPECT_THAT(Read(""), IsEmpty());
  EXPECT_THAT(Read("\n"), IsEmpty());
}

TEST(CsvReader, KeepsCommasLineBreaksAndDoubledQuotesInQuotes) {
  EXPECT_THAT(Read("\"a,b\",\"c\r\nd\",\"say \"\"x\"\"\"\n"),
              ElementsAre(Record{"a,b", "c\r\nd", "say \"x\""}));
}

TEST(CsvReader, KeepsBlanksAsTheyStand) {
  EXPECT_THAT(Read(" a , b\n"), ElementsAre(Record{" a ", " b"}));
}

TEST(CsvReader, TellsAnEmptyTextFromNothing) {
  EXPECT_THAT(Places(",\"\"\n"), ElementsAre("1:1 ", "1:2 \"\""));
}

TEST(CsvReader, CountsColumnsInCharacters) {
  // Two, three and four bytes a character.
  EXPECT_THAT(Places("\xC3\xA9,\xE2\x82\xB9,\xF0\x9F\x98\x80,x"),
              ElementsAre("1:1 \xC3\xA9", "1:3 \xE2\x82\xB9", "1:5 \xF0\x9F\x98\x80", "1:7 x"));
}

TEST(CsvReader, CountsLinesInsideQuotes) {
  EXPECT_THAT(Places("\"a\nb\",c\nd"), ElementsAre("1:1 \"a\nb\"", "2:4 c", "3:1 d"));
}

TEST(CsvReader, CountsColumnsBehindAByteOrderMark) {
  EXPECT_THAT(Places("\xEF\xBB\xBF"
                     "a,b"),
              ElementsAre("1:1 a", "1:3 b"));
}

TEST(CsvReader, RefusesAQuoteInsideAnUnquotedField) {
  EXPECT_EQ(Refusal("a\nb,c\"d\n"),
            "a.csv:2:4: a quote inside a field that does not begin with one");
}

TEST(CsvReader, RefusesTextBehindAClosingQuote) {
  EXPECT_EQ(Refusal("\"a\" ,b"),
            "a.csv:1:4: only a comma or the end of the line may follow a closing quote");
}

TEST(CsvReader, RefusesAQuoteThatIsNeverClosedWhereItIsOpened) {
  EXPECT_EQ(Refusal("a,\"b\nc"), "a.csv:1:3: a quote is opened and never closed");
  EXPECT_EQ(Refusal("\"\"\""), "a.csv:1:1: a quote is opened and never closed");
}

TEST(CsvReader, RefusesALoneCarriageReturn) {
  EXPECT_EQ(Refusal("ab\rc"), "a.csv:1:3: a carriage return without a line feed");
}

TEST(CsvReader, RefusesAZeroByte) {
  EXPECT_EQ(Refusal(std::string("a\0b", 3)), "a.csv:1:2: a zero byte");
}

TEST(CsvReader, RefusesWhatIsNotUtf8) {
  const std::string reason = "a.csv:2:2: not valid UTF-8";
  for (const char* bad : {"\x80",              // a following byte alone
                          "\xC0\xAF",          // overlong
                          "\xC3",              // cut off
                          "\xE0\x9F\xBF",      // overlong
                          "\xED\xA0\x80",      // a surrogate
                          "\xE2\x82",          // cut off
                          "\xF0\x8F\xBF\xBF",  // overlong
                          "\xF4\x90\x80\x80",  // beyond the last character
                          "\xFF"}) {
    EXPECT_EQ(Refusal(std::string("a\nb") + bad), reason) << bad;
    EXPECT_EQ(Refusal(std::string("a\nb") + bad + ",c"), reason) << bad;
  }
}

TEST(CsvReader, RefusesAFieldBeyondItsLimit) {
  const std::string longest(CsvReader::kLongestField, 'x');
  EXPECT_EQ(Read(longest).front().front().size(), CsvReader::kLongestField);
  EXPECT_EQ(Refusal(longest + "y"), "a.csv:1:1000002: a field is longer than a million bytes");
}

// Characters and line breaks that lie across the pieces in which the stream is read.
TEST(CsvReader, JoinsWhatLiesAcrossPieces) {
  for (std::size_t before : {65'533U, 65'534U, 65'535U, 65'536U}) {
    const std::string text = std::string(before, 'x');
    EXPECT_THAT(Read(text + "\xE2\x82\xB9,\"\"\"\"\r\n1,2"),
                ElementsAre(Record{text + "\xE2\x82\xB9", "\""}, Record{"1", "2"}));
  }
}

}  // namespace
}  // namespace pstolvane1::books
