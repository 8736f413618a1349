#include "automation/ColumnLooks.h"

#include "session/data/TextFold.h"

namespace pstolvane1::automation {
namespace {

bool Begins(std::string_view name, std::string_view beginning) {
  return EqualFolded(name.substr(0, beginning.size()), beginning);
}

}  // namespace

const ColumnWords* FindWords(std::string_view operation, std::string_view column) {
  for (const ReportWords& part : EnglishWords()) {
    if (!Begins(operation, part.reports)) continue;
    for (const ColumnWords& one : part.columns) {
      if (EqualFolded(one.column, column)) return &one;
    }
  }
  return nullptr;
}

ColumnLook LookOfColumn(std::string_view operation, std::string_view column) {
  ColumnLook look;
  const ColumnWords* const summed = FindWords(operation, SummedColumn(column));
  if (summed != nullptr) {
    look.label = std::string(summed->label) + (Begins(column, "Grp") ? ", group" : ", in all");
  }
  if (const ColumnWords* words = FindWords(operation, column)) {
    look.label = words->label;
    look.shown = words->shown;
    look.leads = words->leads;
    look.stands_in = words->stands_in;
    look.level = words->level;
    look.depth_mark = words->depth_mark;
    look.nameless = words->nameless;
    look.unit_of = words->unit_of;
    look.telling = words->telling;
  }
  return look;
}

}  // namespace pstolvane1::automation
