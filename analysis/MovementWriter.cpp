#include "analysis/MovementWriter.h"

#include "session/RowLoop.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kIndent = "  ";

std::string TextOf(const Variant& name) { return name.IsNull() ? std::string() : name.ToText(); }

}  // namespace

MovementWriter::MovementWriter(ReportFrame& frame, const MovementArguments& arguments,
                               const MovementGrouping& grouping, const MovementLayout& layout)
    : arguments_(arguments),
      grouping_(grouping),
      columns_(layout.at),
      days_(DaysOf(arguments.dtFromDate, arguments.dtToDate)),
      related_(columns_.item_row != Target::kNone),
      lines_(layout.columns, StyleOf(frame)) {
  numbered_ = related_ ? arguments.item_lines : arguments.blnDetailed;
}

double MovementWriter::Scaled(double money) const { return lines_.Scaled(money); }

std::string MovementWriter::MoneyText(double unscaled) const {
  return lines_.MoneyText(Scaled(unscaled));
}

double MovementWriter::Average(const MovementFigures& figures) const {
  return BalanceOf(arguments_.side, figures) / days_;
}

std::int64_t MovementWriter::LineNumber() const {
  return numbered_ ? counter_ : ReportWriter::kNoNumber;
}

// A head takes the next number, and its lines the one behind it.
std::int64_t MovementWriter::HeadNumber() {
  if (!numbered_) return ReportWriter::kNoNumber;
  counter_ += 2;
  return counter_ - 1;
}

void MovementWriter::AddArea(const std::string& area) {
  lines_.AddLine(HeadNumber());
  area_ = lines_.Line();
  lines_.Text(columns_.area_name, "Area: " + area);
  lines_.Text(columns_.area_twin, area);
}

void MovementWriter::CloseArea(const MovementSums& sums) {
  lines_.ReturnTo(area_);
  WriteFigures(columns_.area, sums.Figures(), ZeroBalance::kLeftOut);
}

void MovementWriter::AddGroup(const MovementGroup& group) {
  const bool by_area = IsByArea(grouping_);
  const bool of_items = grouping_.member == MovementMember::kParty;
  lines_.AddLine(by_area ? LineNumber() : HeadNumber());
  group_ = lines_.Line();
  lines_.Value(of_items ? columns_.item_name : columns_.ledger_name, group.name);
  if (arguments_.blnDetailed) lines_.Value(columns_.parent, group.name);
  if (!arguments_.blnDetailed || related_) lines_.Value(columns_.particulars, group.name);
  if (!arguments_.blnDetailed) lines_.Value(columns_.twins.particulars, group.name);
  lines_.Value(of_items ? columns_.item_id : columns_.ledger_id, group.id);
  const bool by_category = grouping_.name == "Categoryname";
  const bool none = arguments_.side == MovementSide::kPurchases && by_category && group.id == 0;
  lines_.Value(columns_.id_parent, none ? std::int64_t{-1} : group.id);
  lines_.Text(columns_.par, (by_area ? std::string(kIndent) : std::string()) + TextOf(group.name));
  if (by_area) lines_.Text(columns_.area_twin, group.area);
}

void MovementWriter::CloseGroup(const MovementSums& sums) {
  const MovementFigures figures = sums.Figures();
  lines_.ReturnTo(group_);
  lines_.Text(columns_.total, "");
  if (!arguments_.blnDetailed) {
    WriteFigures(columns_.line, figures, ZeroBalance::kLeftOut);
    WriteTwins(columns_.twins, figures);
    return;
  }
  WriteFigures(columns_.group, figures, ZeroBalance::kLeftOut);
  lines_.Rule(columns_.rule);
  lines_.AddSpacer(columns_.particulars, numbered_ ? counter_ + 1 : ReportWriter::kNoNumber);
}

void MovementWriter::AddLine(const MovementGroup& group, const MovementLine& line) {
  const bool of_parties = grouping_.member == MovementMember::kParty;
  const Variant& name = of_parties ? line.party_name : line.item_name;
  const MovementFigures& figures = line.figures;
  lines_.AddLine(LineNumber());
  lines_.Value(of_parties ? columns_.ledger_name : columns_.item_name, name);
  lines_.Value(columns_.second_twins.particulars, name);
  WriteSide(line, true);
  WriteSide(line, false);
  const double net = Scaled(NetValueOf(arguments_.side, figures));
  lines_.Text(columns_.line.value, lines_.MoneyText(net));
  lines_.Value(columns_.second_twins.value, Currency::FromDouble(net));
  if (arguments_.IsOne()) {
    lines_.Text(columns_.twins.particulars, TextOf(name));
    WriteTwins(columns_.twins, figures);
  }
  WriteKeys(group, line);
  lines_.Text(columns_.line.balance, "");
  lines_.Text(columns_.line.average, "");
  if (const double balance = BalanceOf(arguments_.side, figures); balance != 0) {
    lines_.Number(TwinnedColumn{columns_.line.balance, columns_.second_twins.balance}, balance);
    lines_.Number(TwinnedColumn{columns_.line.average, columns_.second_twins.average},
                  Average(figures));
  }
  if (const auto returned = ReturnedPercent(arguments_.side, figures)) {
    lines_.Number(TwinnedColumn{columns_.line.returned, columns_.second_twins.returned}, *returned);
  }
}

void MovementWriter::WriteSide(const MovementLine& line, bool in) {
  const MovementFigures& figures = line.figures;
  if ((in ? figures.in : figures.out) == 0) return;
  const MovementFigureColumns& to = columns_.line;
  lines_.Number(in ? to.qty_in : to.qty_out, in ? figures.in : figures.out);
  lines_.Value(in ? columns_.qty_in_unit : columns_.qty_out_unit, line.unit);
  lines_.Number(in ? columns_.rate_in : columns_.rate_out, in ? line.rate_in : line.rate_out);
  lines_.Text(in ? to.value_in : to.value_out,
              MoneyText(in ? figures.value_in : figures.value_out));
  lines_.Value(in ? columns_.second_twins.qty_in : columns_.second_twins.qty_out,
               in ? line.own_in : line.own_out);
}

void MovementWriter::WriteKeys(const MovementGroup& group, const MovementLine& line) {
  const bool of_parties = grouping_.member == MovementMember::kParty;
  const std::int64_t member = of_parties ? line.party_id : line.item_id;
  lines_.Value(columns_.item_id, line.item_id);
  lines_.Value(columns_.ledger_id, of_parties ? line.party_id : group.id);
  const std::int64_t parent = arguments_.IsOne() ? member : group.id;
  lines_.Value(columns_.id_child, arguments_.IsOne() ? std::int64_t{0} : member);
  lines_.Value(columns_.id_parent, parent == 0 ? std::int64_t{-1} : parent);
  // Without item lines related items have no name of their own in a list.
  std::string child;
  if (!related_ || arguments_.item_lines) {
    const Variant& name = of_parties ? line.party_name : line.item_name;
    lines_.Value(columns_.child, name);
    child = TextOf(name);
  }
  lines_.Text(columns_.par, arguments_.IsOne() ? child : std::string(kIndent) + child);
  if (IsByArea(grouping_)) {
    lines_.Text(columns_.area_twin, group.area);
  } else {
    lines_.Value(columns_.parent_name, group.name);
  }
}

void MovementWriter::WriteFigures(const MovementFigureColumns& to, const MovementFigures& figures,
                                  ZeroBalance zero) {
  lines_.Number(to.qty_in, figures.in);
  lines_.Text(to.value_in, MoneyText(figures.value_in));
  lines_.Number(to.qty_out, figures.out);
  lines_.Text(to.value_out, MoneyText(figures.value_out));
  lines_.Text(to.value, MoneyText(NetValueOf(arguments_.side, figures)));
  const double balance = BalanceOf(arguments_.side, figures);
  if (balance != 0 || zero == ZeroBalance::kShown) {
    lines_.Number(to.balance, balance);
    lines_.Number(to.average, Average(figures));
  }
  WriteReturned(to.returned, figures);
}

void MovementWriter::WriteReturned(ColumnHandle to, const MovementFigures& figures) {
  if (const auto returned = ReturnedPercent(arguments_.side, figures)) {
    lines_.Number(to, *returned);
  }
}

void MovementWriter::WriteTwins(const MovementTwinColumns& to, const MovementFigures& figures) {
  lines_.Value(to.qty_in, figures.in);
  lines_.Value(to.qty_out, figures.out);
  lines_.Value(to.balance, BalanceOf(arguments_.side, figures));
  lines_.Value(to.average, Average(figures));
  lines_.Value(to.returned, ReturnedPercent(arguments_.side, figures).value_or(0));
  lines_.Value(to.value, Currency::FromDouble(Scaled(NetValueOf(arguments_.side, figures))));
}

void MovementWriter::WriteLineTwins(const MovementFigures& figures) {
  const MovementTwinColumns& to = columns_.twins;
  lines_.Value(to.qty_out, figures.out);
  lines_.Value(to.qty_in, figures.in);
  if (figures.out != 0) lines_.Value(to.returned, 100 / figures.out * figures.in);
  lines_.Value(to.balance, BalanceOf(arguments_.side, figures));
  lines_.Value(to.average, Average(figures));
}

void MovementWriter::AddTotals(const MovementSums& sums) {
  const bool closing_numbers = numbered_ || !related_;
  const auto number = [&](std::int64_t more) {
    return closing_numbers ? counter_ + more : ReportWriter::kNoNumber;
  };
  lines_.AddRuleLine(columns_.rule, number(1));
  lines_.AddLine(number(2));
  lines_.Text(columns_.total, "Total");
  WriteFigures(columns_.report, sums.Figures(), ZeroBalance::kShown);
  lines_.Rule(columns_.rule);
}

}  // namespace pstolvane1
