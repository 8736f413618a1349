#include "movements/QueryFilter.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace pstolvane1 {

QueryFilter& QueryFilter::Add(std::string_view condition) {
  if (!condition.empty()) conditions_.emplace_back(condition);
  return *this;
}

QueryFilter& QueryFilter::AddVouchertype(std::string_view condition) {
  if (condition.empty()) return *this;
  if (vouchertype_ == Vouchertype::kToBeJoined) joins_ = JoinsOfVouchertype(table_);
  return Add(condition);
}

QueryFilter& QueryFilter::AddOptional(const DocumentFilter& filter) {
  return Add(OptionalCondition(filter, table_));
}

QueryFilter& QueryFilter::AddParties(const DocumentFilter& filter) {
  return Add(PartyCondition(filter, table_));
}

QueryFilter& QueryFilter::AddSetFilter(const DocumentFilter& filter) {
  return AddVouchertype(filter.strVouchertypeFilter).AddOptional(filter).AddParties(filter);
}

std::string QueryFilter::Joins() const {
  std::string text;
  for (const std::string& join : joins_) {
    text += fmt::format(" {} join {}", undated_ == Undated::kKept ? "left" : "inner", join);
  }
  return text.empty() ? text : text + " ";
}

std::string QueryFilter::Joined() const {
  return joins_.empty() ? std::string() : " and vouchertype1.vouchertype_id is not null";
}

std::string QueryFilter::Conditions() const {
  if (conditions_.empty()) return {};
  const std::string all = fmt::format("{}", fmt::join(conditions_, " and "));
  if (undated_ == Undated::kDropped) return all + " and ";
  return fmt::format("(({}) or {}.date is null) and ", all, NameOf(table_));
}

QueryFilter FilterOfMovements(const DocumentFilter& filter, Undated undated) {
  QueryFilter of_movements({FilterTable::kMovements}, undated);
  return of_movements.AddSetFilter(filter);
}

QueryFilter FilterOfDocuments(const DocumentFilter& filter, Vouchertype vouchertype) {
  QueryFilter of_documents({FilterTable::kDocuments}, Undated::kDropped, vouchertype);
  return of_documents.AddSetFilter(filter);
}

}  // namespace pstolvane1
