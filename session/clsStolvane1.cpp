#include "session/clsStolvane1.h"

#include <utility>

#include "session/OnFrame.h"
#include "session/POrderTextQuery.h"
#include "session/ReportFrame.h"
#include "session/ReportTable.h"
#include "session/engine/Engines.h"

namespace pstolvane1 {
clsStolvane1::clsStolvane1() : clsStolvane1(&NewBooksConnection) {}

clsStolvane1::clsStolvane1(ConnectionMaker make_connection) {
  if (!make_connection) {
    throw Error(ErrorNumber::kObjectNotSet, "no maker of connections was given");
  }
  frame_ = std::make_shared<ReportFrame>(AllReports(), std::move(make_connection), *this);
}

clsStolvane1::~clsStolvane1() { frame_->Class_Terminate(); }

bool clsStolvane1::SetConnection(std::string_view /*strProvider*/,
                                 std::string_view strConnectionString,
                                 std::string_view strConnectionString1, Boolean AsyncConnect,
                                 Date dtFromDate, Date dtToDate, std::string_view strCurrencyPrefix,
                                 std::string_view strCurrencySuffix) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    frame.SetConnection(strConnectionString, strConnectionString1, AsyncConnect, dtFromDate,
                        dtToDate, strCurrencyPrefix, strCurrencySuffix);
    return true;
  });
}

std::shared_ptr<Connection> clsStolvane1::GetConnectionObject() const { return frame_->MainCn; }

void clsStolvane1::SetLocale(std::string_view name) {
  OnFrame(frame_, [&](ReportFrame& frame) { frame.SetLocale(name); });
}

void clsStolvane1::SetAliases(const typAliases& pAlias) {
  OnFrame(frame_, [&](ReportFrame& frame) { frame.Aliases = typAliases(pAlias); });
}

Variant clsStolvane1::SetFilter(std::string_view strVouchertypeFilter,
                                std::string_view strSubgroupFilter, std::uint8_t btTypeOfentry,
                                std::uint8_t OptNo) {
  return OnFrame(frame_, [&](ReportFrame& frame) {
    frame.module.filter = {std::string(strVouchertypeFilter), std::string(strSubgroupFilter),
                           btTypeOfentry, OptNo};
    return Variant();
  });
}

void clsStolvane1::CancelFetching(Boolean cancel) { frame_->blnCancelFetching = cancel; }

bool clsStolvane1::ReportIsWhole() const { return !frame_->cut_short; }

void clsStolvane1::Abandon() {
  OnFrame(frame_, [](ReportFrame& frame) { frame.Abandon(); });
}

bool clsStolvane1::Fetching() const { return frame_->Fetching(); }

Variant clsStolvane1::UserPressedCancel() {
  frame_->blnUserPressedCancel = true;
  return {};
}

RecordsetPtr clsStolvane1::POrderTextQuery(std::string_view strFilter) {
  return OnFrame(frame_,
                 [&](ReportFrame& frame) { return pstolvane1::POrderTextQuery(frame, strFilter); });
}

}  // namespace pstolvane1
