// Any bytes are refused with an error that names its place, or read into records that survive being
// written with quotes and read again.
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "session/books/CsvReader.h"
#include "session/data/Error.h"

namespace {

using namespace pstolvane1;
using books::CsvField;
using Records = std::vector<std::vector<std::string>>;

Records Read(const std::string& text) {
  std::istringstream stream(text);
  books::CsvReader reader(stream, "a.csv");
  std::vector<CsvField> fields;
  Records records;
  while (reader.Read(fields)) {
    auto& record = records.emplace_back();
    for (const CsvField& field : fields) {
      if (field.line == 0 || field.column == 0) std::abort();
      record.push_back(field.text);
    }
  }
  return records;
}

std::string Written(const Records& records) {
  std::string text;
  for (const auto& record : records) {
    char before = '"';
    for (const auto& field : record) {
      if (before == ',') text += before;
      text += '"';
      for (const char c : field) text.append(c == '"' ? 2 : 1, c);
      text += '"';
      before = ',';
    }
    text += '\n';
  }
  return text;
}

void CheckText(const std::string& text) {
  Records records;
  try {
    records = Read(text);
  } catch (const Error& error) {
    if (error.Number() != ErrorNumber::kTypeMismatch) std::abort();
    if (!error.Description().starts_with("a.csv:")) std::abort();
    return;
  }
  if (Read(Written(records)) != records) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckText({reinterpret_cast<const char*>(data), size});
  return 0;
}
