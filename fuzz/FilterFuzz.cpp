// Any bytes are refused as a filter with an error that has a place, or show the same rows with and
// without indexes, and other rows than their Not. As a criterion of Find they lead to a row of that
// filter, and as a sort order they are refused likewise or keep all rows.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Recordset.h"

namespace {

using namespace pstolvane1;  // NOLINT: a program of its own

constexpr int kRows = 70;  // more than the bits of a word

// Columns a to h of every type, each value now and then Null.
RecordsetPtr MakeRows(bool optimize) {
  static constexpr DataType kTypes[] = {adInteger, adSingle,  adDouble, adCurrency,
                                        adDate,    adBoolean, adBigInt, adBSTR};
  static constexpr const char* kTexts[] = {"", "a", "A", "1", "bolt", "\xC3\xA9t\xC3\xA9", "it's"};
  RecordsetPtr rowset = Recordset::New();
  for (int i = 0; i < 8; ++i) rowset->Fields().Append(std::string(1, "abcdefgh"[i]), kTypes[i]);
  rowset->Open();
  for (int row = 0; row < kRows; ++row) {
    rowset->AddNew();
    for (int i = 0; i < 8; ++i) {
      if ((row + i) % 9 == 0) continue;
      const int number = (row * 7 + i) % 13 - 3;
      const Variant value = kTypes[i] == adBSTR ? Variant(kTexts[(row + i) % 7]) : Variant(number);
      rowset->Fields()(i).Value(value);
    }
  }
  rowset->MoveFirst();
  for (int i = 0; optimize && i < 8; ++i) rowset->Fields()(i).Properties()("Optimize") = true;
  return rowset;
}

std::vector<Bookmark> Shown(const Recordset& rowset) {
  std::vector<Bookmark> shown;
  for (const Recordset::Row row : rowset.Rows()) shown.push_back(row.Bookmark());
  return shown;
}

void Require(bool holds) {
  if (!holds) std::abort();
}

void CheckRefusal(const Error& error) {
  Require(error.Number() == ErrorNumber::kArgumentOutOfRange ||
          error.Number() == ErrorNumber::kNoSuchColumn);
  Require(error.Description().find("cannot be read at position ") != std::string::npos);
}

// True when the text was read.
template <typename Call>
bool Reads(Call call) {
  try {
    call();
    return true;
  } catch (const Error& error) {
    CheckRefusal(error);
    return false;
  }
}

void CheckFilter(Recordset& plain, Recordset& optimized, std::string_view text) {
  plain.Filter("");
  if (!Reads([&] { plain.Filter(text); })) {
    Require(!Reads([&] { optimized.Filter(text); }));
    return;
  }
  const std::vector<Bookmark> shown = Shown(plain);
  optimized.Filter(text);
  Require(Shown(optimized) == shown);
  if (plain.Filter().empty()) return;
  if (!Reads([&] { plain.Filter("Not (" + std::string(text) + ")"); })) return;  // too deep now
  for (const Bookmark row : Shown(plain)) {
    Require(!std::binary_search(shown.begin(), shown.end(), row));
  }
  optimized.Filter("");
  plain.Filter("");
  if (!Reads([&] { plain.Find(text); })) return;
  optimized.Find(text);
  Require(plain.Eof() == shown.empty() && optimized.Eof() == shown.empty());
  if (shown.empty()) return;
  Require(plain.Bookmark() == shown.front() && optimized.Bookmark() == shown.front());
}

void CheckSort(Recordset& rowset, std::string_view text) {
  rowset.Filter("");
  if (!Reads([&] { rowset.Sort(text); })) return;
  std::vector<Bookmark> shown = Shown(rowset);
  std::sort(shown.begin(), shown.end());
  Require(shown.size() == kRows && std::adjacent_find(shown.begin(), shown.end()) == shown.end());
  rowset.Sort("");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const RecordsetPtr plain = MakeRows(false);
  static const RecordsetPtr optimized = MakeRows(true);
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CheckFilter(*plain, *optimized, text);
  CheckSort(*plain, text);
  return 0;
}
