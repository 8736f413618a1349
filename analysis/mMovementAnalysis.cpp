#include "analysis/MovementAnalysis.h"
#include "analysis/MovementWriter.h"
#include "analysis/RelatedItems.h"
#include "session/RowLoop.h"
#include "session/data/RowGroups.h"

namespace pstolvane1 {
namespace {

struct SourceColumns {
  SourceColumns(const Recordset& source, const MovementGrouping& grouping)
      : item_name(source.Column("itemname")),
        unit(source.Column("uom")),
        in(source.Column("qtyin")),
        rate_in(source.Column("ratein")),
        value_in(source.Column("valuein")),
        out(source.Column("qtyout")),
        rate_out(source.Column("rateout")),
        value_out(source.Column("valueout")),
        item_id(source.Column("item_id")),
        group_name(source.Column(grouping.name)),
        group_id(source.Column(grouping.id)) {
    if (grouping.member == MovementMember::kParty) {
      party_name = source.Column("PartyName");
      party_id = source.Column("Ledger_id");
    }
    if (IsByArea(grouping)) area = source.Column("Pin");
  }

  ColumnHandle item_name, unit, in, rate_in, value_in, out, rate_out, value_out, item_id;
  ColumnHandle group_name, group_id;
  std::optional<ColumnHandle> party_name, party_id, area;
};

double NumberIn(const Recordset::Row& row, ColumnHandle column) {
  return row.IsNull(column) ? 0 : row.Double(column);
}

class Movements {
 public:
  Movements(ReportFrame& frame, const MovementArguments& arguments,
            const MovementGrouping& grouping, const MovementLayout& layout, const Recordset& source)
      : arguments_(arguments),
        from_(source, grouping),
        by_area_(IsByArea(grouping)),
        writer_(frame, arguments_, grouping, layout) {
    if (layout.at.item_row != Target::kNone) related_.emplace(frame, arguments_, writer_);
  }

  void WriteGroup(const RowGroups::Group& rows) {
    const MovementGroup group = GroupOf(rows.First());
    if (by_area_) TakeArea(group.area);
    sums_ = {};
    if (!arguments_.IsOne()) writer_.AddGroup(group);
    if (related_) {
      WriteRelated(group, rows);
    } else {
      for (const Recordset::Row row : rows) WriteMember(group, LineOf(row));
    }
    if (!arguments_.IsOne()) writer_.CloseGroup(sums_);
  }

  RecordsetPtr Finish() {
    writer_.AddTotals(report_);
    if (by_area_ && area_) CloseArea();
    return writer_.Lines().Finish();
  }

 private:
  [[nodiscard]] MovementGroup GroupOf(const Recordset::Row& row) const {
    MovementGroup group{.name = row[from_.group_name], .id = row.Int64(from_.group_id), .area = {}};
    if (from_.area && !row.IsNull(*from_.area)) group.area = row.Text(*from_.area);
    return group;
  }

  [[nodiscard]] MovementLine LineOf(const Recordset::Row& row) const {
    MovementLine line{.item_name = row[from_.item_name],
                      .party_name = Null,
                      .item_id = row.Int64(from_.item_id),
                      .unit = row[from_.unit],
                      .rate_in = NumberIn(row, from_.rate_in),
                      .rate_out = NumberIn(row, from_.rate_out),
                      .figures = {.in = NumberIn(row, from_.in),
                                  .out = NumberIn(row, from_.out),
                                  .value_in = NumberIn(row, from_.value_in),
                                  .value_out = NumberIn(row, from_.value_out)}};
    line.own_in = line.figures.in;
    line.own_out = line.figures.out;
    if (from_.party_name) line.party_name = row[*from_.party_name];
    if (from_.party_id) line.party_id = row.Int64(*from_.party_id);
    return line;
  }

  void WriteMember(const MovementGroup& group, const MovementLine& line) {
    if (arguments_.blnDetailed) writer_.AddLine(group, line);
    Add(line.figures);
  }

  void WriteRelated(const MovementGroup& group, const RowGroups::Group& rows) {
    std::vector<MovementLine> lines;
    for (const Recordset::Row row : rows) lines.push_back(LineOf(row));
    for (const MovementFigures& figures : related_->WriteGroup(group, std::move(lines))) {
      Add(figures);
    }
  }

  void Add(const MovementFigures& figures) {
    sums_.Add(figures);
    report_.Add(figures);
  }

  // The sums of a group join its area's once the next group comes.
  void TakeArea(const std::string& area) {
    area_sums_.Add(sums_);
    if (area_ == area) return;
    if (area_) writer_.CloseArea(area_sums_);
    area_sums_ = {};
    area_ = area;
    writer_.AddArea(area);
  }

  void CloseArea() {
    area_sums_.Add(sums_);
    writer_.CloseArea(area_sums_);
  }

  const MovementArguments arguments_;
  SourceColumns from_;
  bool by_area_;
  MovementWriter writer_;
  std::optional<RelatedItems> related_;
  std::optional<std::string> area_;
  MovementSums sums_, area_sums_, report_;
};

RecordsetPtr Write(ReportFrame& frame, const MovementLayout& layout) {
  const auto arguments = frame.module.Kept<MovementArguments>();
  const MovementGrouping& grouping = *FindMovementGrouping(arguments.side, arguments.reptype);
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  const RowGroups groups = source->GroupBy({grouping.id});
  Movements movements(frame, arguments, grouping, layout, *source);
  ForEachGroup(frame, groups, [&](const RowGroups::Group& rows) { movements.WriteGroup(rows); });
  return movements.Finish();
}

}  // namespace

RecordsetPtr mCustomerItemwise_Analysis(ReportFrame& frame) { return Write(frame, kSalesLayout); }

RecordsetPtr mMovement_PurchaseReturns_Analysis(ReportFrame& frame) {
  return Write(frame, kPurchasesLayout);
}

RecordsetPtr mItemRelation_Analysis(ReportFrame& frame) {
  return Write(frame, kItemRelationLayout);
}

}  // namespace pstolvane1
