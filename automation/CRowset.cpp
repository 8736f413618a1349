#include "automation/CRowset.h"

#include <memory>
#include <sstream>
#include <utility>

#include "automation/CGuard.h"
#include "automation/CHandles.h"
#include "automation/SortText.h"
#include "automation/pstolvane1_c.h"
#include "session/rowset/Export.h"

using pstolvane1::ErrorNumber;
using pstolvane1::Variant;
using pstolvane1::automation::CopyText;
using pstolvane1::automation::Given;
using pstolvane1::automation::Guarded;
using pstolvane1::automation::HandleKind;
using pstolvane1::automation::Handles;

pst_rowset::pst_rowset(pstolvane1::RecordsetPtr rowset) : rows(std::move(rowset)) {
  const pstolvane1::Fields fields = rows->Fields();
  for (int i = 0; i < fields.Count(); ++i) names.push_back(fields(i).Name());
  Handles::Add(this, HandleKind::kRowset);
}

pst_rowset::~pst_rowset() { Handles::Remove(this); }

namespace pstolvane1::automation {

pst_rowset* HandOver(RecordsetPtr rowset) {
  return rowset ? std::make_unique<pst_rowset>(std::move(rowset)).release() : nullptr;
}

namespace {

void GoTo(pst_rowset& rowset, std::int32_t row) {
  if (row < 0 || row >= rowset.rows->RecordCount()) {
    throw Error(ErrorNumber::kNoCurrentRecord, "there is no row " + std::to_string(row) +
                                                   " among " +
                                                   std::to_string(rowset.rows->RecordCount()));
  }
  if (rowset.row < 0 || row < rowset.row) {
    rowset.rows->MoveFirst();
    rowset.row = 0;
  }
  for (; rowset.row < row; ++rowset.row) rowset.rows->MoveNext();
}

Variant CellOf(pst_rowset& rowset, std::int32_t row, std::int32_t column) {
  GoTo(rowset, row);
  return rowset.rows->Fields()(column).Value();
}

// The rowset behind a handle of this thread.
template <typename Rowset>
Rowset& Mine(Rowset* rowset) {
  Handles::CheckMine(rowset, HandleKind::kRowset);
  return *rowset;
}

std::string TextOf(const Variant& value) {
  if (value.Type() == adCurrency) return value.ToCurrency().ToText();
  if (value.Type() == adBoolean) return value.ToBoolean().IsSet() ? "true" : "false";
  return value.ToText();
}

}  // namespace
}  // namespace pstolvane1::automation

using pstolvane1::automation::CellOf;
using pstolvane1::automation::Mine;
using pstolvane1::automation::TextOf;

void pst_rowset_free(pst_rowset* rowset) {
  Guarded([&] {
    if (rowset) const std::unique_ptr<pst_rowset> gone(&Mine(rowset));
  });
}

int32_t pst_rowset_rows(const pst_rowset* rowset) {
  int32_t count = -1;
  Guarded([&] { count = Mine(rowset).rows->RecordCount(); });
  return count;
}

int32_t pst_rowset_columns(const pst_rowset* rowset) {
  int32_t count = -1;
  Guarded([&] { count = static_cast<int32_t>(Mine(rowset).names.size()); });
  return count;
}

const char* pst_rowset_name(const pst_rowset* rowset, int32_t column) {
  const char* name = nullptr;
  Guarded([&] {
    const auto& names = Mine(rowset).names;
    if (column < 0 || static_cast<std::size_t>(column) >= names.size()) {
      throw pstolvane1::Error(ErrorNumber::kNoSuchColumn,
                              "there is no column " + std::to_string(column));
    }
    name = names[static_cast<std::size_t>(column)].c_str();
  });
  return name;
}

int32_t pst_rowset_type(const pst_rowset* rowset, int32_t column) {
  int32_t type = 0;
  Guarded([&] { type = Mine(rowset).rows->Fields()(column).Type(); });
  return type;
}

int32_t pst_rowset_text(pst_rowset* rowset, int32_t row, int32_t column, char** text) {
  return Guarded([&] {
    char*& result = Given(text, "place for the text");
    result = nullptr;
    const Variant value = CellOf(Mine(rowset), row, column);
    if (!value.IsNull()) result = CopyText(TextOf(value));
  });
}

int32_t pst_rowset_number(pst_rowset* rowset, int32_t row, int32_t column, double* number,
                          int* is_null) {
  return Guarded([&] {
    double& result = Given(number, "place for the number");
    int& null = Given(is_null, "place for Null");
    const Variant value = CellOf(Mine(rowset), row, column);
    null = value.IsNull() ? 1 : 0;
    result = value.IsNull()                       ? 0.0
             : value.Type() == pstolvane1::adDate ? value.ToDate().Serial()
                                                  : value.ToDouble();
  });
}

int32_t pst_rowset_sort(pst_rowset* rowset, const char* columns) {
  return Guarded([&] {
    pst_rowset& sorted = Mine(rowset);
    sorted.rows->Sort(&Given(columns, "order"));
    sorted.row = -1;
  });
}

int32_t pst_sort_text(const char* operation, int32_t asked, int32_t flags, const char* twin,
                      char** text) {
  return Guarded([&] {
    char*& result = Given(text, "place for the text");
    result = nullptr;
    const auto has = [flags](int32_t flag) { return (flags & flag) != 0; };
    const pstolvane1::automation::SortedReport report{.operation = &Given(operation, "operation"),
                                                      .detailed = has(pst_sort_detailed),
                                                      .asked = asked};
    result = CopyText(
        pstolvane1::automation::SortText(report, &Given(twin, "twin"), has(pst_sort_descending)));
  });
}

int32_t pst_rowset_json(const pst_rowset* rowset, char** json) {
  return Guarded([&] {
    char*& result = Given(json, "place for the JSON");
    result = CopyText(pstolvane1::ExportJson(*Mine(rowset).rows));
  });
}

int32_t pst_rowset_csv(const pst_rowset* rowset, char** csv) {
  return Guarded([&] {
    char*& result = Given(csv, "place for the CSV");
    std::ostringstream out;
    out.exceptions(std::ios::badbit);  // else a text for which there is no room would be cut
    pstolvane1::ExportCsv(*Mine(rowset).rows, out);
    result = CopyText(out.str());
  });
}
