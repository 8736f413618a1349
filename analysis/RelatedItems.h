// Items that are told as so many units of another, their base item.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "analysis/MovementWriter.h"
#include "session/data/RowGroups.h"

namespace pstolvane1 {

// Belongs to one row builder. Reads the relations from Rs1 and the host's items from rsItems.
class RelatedItems {
 public:
  RelatedItems(ReportFrame& frame, const MovementArguments& arguments, MovementWriter& writer);

  // Writes the lines of one party, in their order, and gives the figures that its sums take. A
  // related item is added to its base item's line where that stands already, held over for it where
  // that is yet to come, and else shown as the base item. Error 3021 for a base item that the
  // host's items lack.
  std::vector<MovementFigures> WriteGroup(const MovementGroup& group,
                                          std::vector<MovementLine> lines);

 private:
  struct Relation {
    std::int64_t base_id;
    double quantity;
  };
  [[nodiscard]] std::optional<Relation> RelationOf(std::int64_t item_id) const;
  [[nodiscard]] std::string BaseName(std::int64_t item_id) const;
  void AddToLine(Bookmark line, const MovementFigures& figures);
  void WriteLine(const MovementGroup& group, const MovementLine& line);
  // Of the line in hand; an empty cell is 0.
  [[nodiscard]] double ShownNumber(ColumnHandle column) const;
  [[nodiscard]] double ShownMoney(ColumnHandle column) const;
  [[nodiscard]] std::string ShownText(ColumnHandle column) const;

  const MovementArguments& arguments_;
  MovementWriter& writer_;
  RecordsetPtr relations_, items_;
  RowGroups relation_of_, item_of_;
  ColumnHandle base_id_, quantity_, name_, description_, part_number_;
  const Locale& locale_;
};

// A related item's figures as those of its base item. The value follows the quantity, and so is
// multiplied as well; that is meant.
[[nodiscard]] MovementFigures AsBase(const MovementFigures& figures, double quantity);

}  // namespace pstolvane1
