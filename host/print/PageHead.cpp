#include "host/print/PageHead.h"

#include <initializer_list>

namespace pstolvane1::print {
namespace {

constexpr Font kCompany{14, true}, kTitle{11, true}, kText{8.5};
constexpr Font kRunningTitle{9, true}, kRunningText{8};
constexpr double kRoomBelow = 8;

// The parts that are not empty.
std::string Joined(std::initializer_list<std::string> parts) {
  std::string joined;
  for (const std::string& part : parts) {
    if (!part.empty()) joined += (joined.empty() ? "" : " · ") + part;
  }
  return joined;
}

std::string Labelled(const std::string& label, const std::string& text) {
  return text.empty() ? text : label + " " + text;
}

// What the look says below its title, without the company's name.
std::vector<std::string> LinesOf(const ReportLook& look, const typCompanyInfoInv& company) {
  std::vector<std::string> lines;
  for (const std::string& line : look.lines) {
    if (line != company.CompanyName) lines.push_back(line);
  }
  return lines;
}

}  // namespace

PageHead PageHead::OfFirstPage(const ReportLook& look, const typCompanyInfoInv& company) {
  PageHead head;
  head.side_ = Side::kCentre;
  head.Add(company.CompanyName, kCompany);
  head.Add(company.CompanyAddress1, kText);
  head.Add(company.CompanyAddress2, kText);
  head.Add(Joined({Labelled("PAN", company.CompanyPanNo),
                   Labelled("Sales tax no.", company.CompanySalesTaxNo),
                   Labelled("Sales tax no.", company.CompanySalesTaxNo2)}),
           kText);
  head.Add(look.title, kTitle);
  for (const std::string& line : LinesOf(look, company)) head.Add(line, kText);
  return head;
}

PageHead PageHead::OfOtherPages(const ReportLook& look, const typCompanyInfoInv& company) {
  PageHead head;
  head.Add(Joined({company.CompanyName, look.title}), kRunningTitle);
  std::string text;
  for (const std::string& line : LinesOf(look, company)) text = Joined({text, line});
  head.Add(text, kRunningText);
  return head;
}

void PageHead::Add(const std::string& text, const Font& font) {
  if (!text.empty()) rows_.push_back({text, font});
}

double PageHead::Height(Pen& pen, double width) const {
  double height = 0;
  for (const Row& row : rows_) height += pen.Height(row.text, row.font, width);
  return rows_.empty() ? 0 : height + kRoomBelow;
}

void PageHead::Draw(Pen& pen, double x, double y, double width) const {
  for (const Row& row : rows_) {
    pen.Text(row.text, row.font, x, y, width, side_);
    y += pen.Height(row.text, row.font, width);
  }
}

}  // namespace pstolvane1::print
