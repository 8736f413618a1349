// Small rowsets for tests, written as a table.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "session/data/Recordset.h"

namespace pstolvane1 {

using TestColumns = std::vector<std::pair<const char*, DataType>>;

inline RecordsetPtr MakeRowset(const TestColumns& columns,
                               const std::vector<std::vector<Variant>>& rows) {
  RecordsetPtr rowset = Recordset::New();
  for (const auto& [name, type] : columns) rowset->Fields().Append(name, type);
  rowset->Open();
  for (const auto& row : rows) {
    rowset->AddNew();
    for (std::size_t i = 0; i < row.size(); ++i) {
      rowset->Fields()(static_cast<int>(i)).Value(row[i]);
    }
    rowset->Update();
  }
  if (!rows.empty()) rowset->MoveFirst();
  return rowset;
}

// The texts of one column over the visible rows, "(null)" for Null: "1 2 3".
inline std::string Shown(const Recordset& rowset, const char* column) {
  std::string shown;
  for (const Recordset::Row row : rowset.Rows()) {
    const Variant value = row[column];
    if (!shown.empty()) shown += " ";
    shown += value.IsNull() ? "(null)" : value.ToText();
  }
  return shown;
}

// The same by walking, which moves the position.
inline std::string Walked(Recordset& rowset, const char* column) {
  std::string walked;
  for (rowset.MoveFirst(); !rowset.Eof(); rowset.MoveNext()) {
    const Variant value = rowset.Collect(column);
    if (!walked.empty()) walked += " ";
    walked += value.IsNull() ? "(null)" : value.ToText();
  }
  return walked;
}

}  // namespace pstolvane1
