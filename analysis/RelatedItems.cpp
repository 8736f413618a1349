#include "analysis/RelatedItems.h"

#include <algorithm>

#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kItemName = "Items1.ItemName";

double ValueAsBase(double value, double converted, double quantity) {
  return converted == 0 ? 0 : Currency::FromDouble(value * quantity).ToDouble();
}

std::string TextIn(const Recordset::Row& row, ColumnHandle column) {
  return row.IsNull(column) ? std::string() : row[column].ToText();
}

}  // namespace

MovementFigures AsBase(const MovementFigures& figures, double quantity) {
  MovementFigures base{.in = figures.in * quantity, .out = figures.out * quantity};
  base.value_in = ValueAsBase(figures.value_in, base.in, quantity);
  base.value_out = ValueAsBase(figures.value_out, base.out, quantity);
  return base;
}

RelatedItems::RelatedItems(ReportFrame& frame, const MovementArguments& arguments,
                           MovementWriter& writer)
    : arguments_(arguments),
      writer_(writer),
      relations_(frame.Rowset(Source::Rs1)),
      items_(frame.Rowset(Source::rsItems)->Clone(adLockUnspecified)),
      relation_of_(relations_->GroupBy({"Item_id"})),
      item_of_(items_->GroupBy({"Item_id"})),
      base_id_(relations_->Column("itemrelated_id")),
      quantity_(relations_->Column("RelatedQty")),
      name_(items_->Column("itemname")),
      description_(items_->Column("ITemDesc")),
      part_number_(items_->Column("ITemPartno")),
      locale_(frame.Texts()) {}

std::optional<RelatedItems::Relation> RelatedItems::RelationOf(std::int64_t item_id) const {
  const RowGroups::Group rows = relation_of_.Find({item_id});
  if (rows.Empty()) return std::nullopt;
  return Relation{rows.First().Int64(base_id_), rows.First().Double(quantity_)};
}

// An alias of the item's name is an expression; its columns are put in as text.
std::string RelatedItems::BaseName(std::int64_t item_id) const {
  const RowGroups::Group rows = item_of_.Find({item_id});
  if (rows.Empty()) {
    throw Error(ErrorNumber::kNoCurrentRecord, "rsItems has no item " + std::to_string(item_id) +
                                                   ", as which a related item is shown");
  }
  const Recordset::Row item = rows.First();
  if (arguments_.item_text.empty() || arguments_.item_text == kItemName) {
    return TextIn(item, name_);
  }
  std::string text = arguments_.item_text;
  for (const std::string_view sign : {"' ('", "+", "'", ")"}) text = ReplaceAll(text, sign, "");
  text = ReplaceAll(text, kItemName, TextIn(item, name_));
  text = ReplaceAll(text, "Items1.ItemDesc", "(" + TextIn(item, description_) + ")");
  return ReplaceAll(text, "Items1.ItemPartNo", "(" + TextIn(item, part_number_) + ")");
}

std::vector<MovementFigures> RelatedItems::WriteGroup(const MovementGroup& group,
                                                      std::vector<MovementLine> lines) {
  std::vector<MovementFigures> summed;
  std::map<std::int64_t, Bookmark> written;
  std::map<std::int64_t, MovementFigures> held;
  for (std::size_t place = 0; place < lines.size(); ++place) {
    MovementLine& line = lines[place];
    const std::int64_t own_id = line.item_id;
    if (const auto relation = RelationOf(own_id)) {
      const MovementFigures figures = AsBase(line.figures, relation->quantity);
      if (const auto base = written.find(relation->base_id); base != written.end()) {
        AddToLine(base->second, figures);
        summed.push_back(figures);
        continue;
      }
      const auto is_base = [&](const MovementLine& one) {
        return one.item_id == relation->base_id;
      };
      if (std::any_of(lines.begin() + static_cast<std::ptrdiff_t>(place) + 1, lines.end(),
                      is_base)) {
        MovementFigures& kept = held[relation->base_id];
        kept = {kept.in + figures.in, kept.out + figures.out, kept.value_in + figures.value_in,
                kept.value_out + figures.value_out};
        continue;
      }
      line.item_id = relation->base_id;
      line.item_name = BaseName(relation->base_id);
      line.figures = figures;
      line.own_in = figures.in;
      line.own_out = figures.out;
    }
    if (const auto kept = held.find(own_id); kept != held.end()) {
      const MovementFigures& more = kept->second;
      line.figures = {line.figures.in + more.in, line.figures.out + more.out,
                      line.figures.value_in + more.value_in,
                      line.figures.value_out + more.value_out};
      if (arguments_.item_lines) {
        line.own_in = line.figures.in;
        line.own_out = line.figures.out;
      }
    }
    WriteLine(group, line);
    written.emplace(line.item_id, writer_.Lines().Line());
    summed.push_back(line.figures);
  }
  return summed;
}

void RelatedItems::WriteLine(const MovementGroup& group, const MovementLine& line) {
  writer_.AddLine(group, line);
  const MovementColumns& to = writer_.Columns();
  writer_.Lines().Value(to.item_row, 1);
  writer_.Lines().Value(to.group_id, group.id);
  if (!arguments_.item_lines) writer_.WriteLineTwins(line.figures);
}

// The line's cells are read as they are shown, and written again; its other cells stay.
void RelatedItems::AddToLine(Bookmark line, const MovementFigures& figures) {
  const MovementFigureColumns& to = writer_.Columns().line;
  ReportWriter& lines = writer_.Lines();
  const Bookmark last = lines.Line();
  lines.ReturnTo(line);
  lines.Number(to.qty_in, ShownNumber(to.qty_in) + figures.in);
  lines.Number(to.qty_out, ShownNumber(to.qty_out) + figures.out);
  if (figures.in != 0) {
    lines.Money(to.value_in, ShownMoney(to.value_in) + lines.Scaled(figures.value_in));
  }
  if (figures.out != 0) {
    lines.Money(to.value_out, ShownMoney(to.value_out) + lines.Scaled(figures.value_out));
  }
  lines.Money(to.value, ShownMoney(to.value_out) - ShownMoney(to.value_in));
  lines.ReturnTo(last);
}

double RelatedItems::ShownNumber(ColumnHandle column) const {
  return locale_.ReadNumber(ShownText(column)).value_or(0);
}

double RelatedItems::ShownMoney(ColumnHandle column) const {
  return locale_.ReadCurrency(ShownText(column)).value_or(0);
}

std::string RelatedItems::ShownText(ColumnHandle column) const {
  const Recordset::Row cells = writer_.Lines().Cells(writer_.Lines().Line());
  return cells.IsNull(column) ? std::string() : std::string(cells.Text(column));
}

}  // namespace pstolvane1
