// From the fetch events of the source rowsets to the host's FetchComplete.
#include <fmt/format.h>
#include <limits>

#include "session/ReportFrame.h"
#include "session/data/MessageLoop.h"
#include "session/data/OutOfMemory.h"
#include "session/data/RecordsetAccess.h"

namespace pstolvane1 {
namespace {

constexpr float kFetchCeiling = 20;
constexpr float kBuildCeiling = 60;

}  // namespace

void ReportFrame::ConnectEvents(Source source, Recordset& rowset) {
  // A rowset that has been replaced may still be alive in a row builder; only the one in the
  // source's place counts. It is kept while its event runs, as a handler may replace it.
  const auto current = [weak = weak_from_this(), source](const Recordset& from) {
    std::shared_ptr<ReportFrame> frame = weak.lock();
    if (!frame || frame->events_ == nullptr) return std::shared_ptr<ReportFrame>();
    const Slot& slot = frame->SlotOf(source);
    if (slot.rowset.get() != &from || frame->abandoning_.Has(slot.mark)) frame.reset();
    return frame;
  };
  rowset.FetchProgress = [current, source](std::int32_t rows, std::int32_t max_rows, int,
                                           Recordset& from) {
    const RecordsetPtr keep = from.shared_from_this();
    if (const auto frame = current(from)) {
      frame->SourceFetchProgress(source, rows, max_rows);
    }
  };
  RecordsetAccess::ImplOf(rowset).fetch_waits = [current](Recordset& from) {
    if (const auto frame = current(from)) frame->SourceFetchWaits();
  };
  rowset.FetchComplete = [current, source](const Error* error, int, Recordset& from) {
    const RecordsetPtr keep = from.shared_from_this();
    if (const auto frame = current(from)) {
      if (error != nullptr) frame->SlotOf(source).failure = frame->Told(*error);
      frame->SourceFetchComplete();
    }
  };
}

void ReportFrame::SourceFetchProgress(Source source, std::int32_t rows, std::int32_t max_rows) {
  Slot& slot = SlotOf(source);
  if (!slot.seen) {
    std::int32_t total = 0;
    if (__builtin_add_overflow(lngFetchTotal, max_rows, &total)) {
      throw Error(ErrorNumber::kOverflow, "the rows that a report fetches are too many to count");
    }
    lngFetchTotal = total;
    if (source == Source::Rs1) ++lngRs1Fetches;
  }
  slot.seen = true;
  RaiseStepProgress(rows, "FetchingData", max_rows, 20);
}

void ReportFrame::SourceFetchWaits() {
  try {
    TellProgress(progress.Percent(), "FetchingData");
  } catch (...) {  // the host's own, as from any of its handlers for progress
  }
}

void ReportFrame::SourceFetchComplete() {
  if (module.bytFetchesDone == std::numeric_limits<std::uint8_t>::max()) {
    throw Error(ErrorNumber::kOverflow, "the fetches that wait for a report are too many to count");
  }
  ++module.bytFetchesDone;
  DispatchFetchComplete();
}

// An error of the row builder or of the host's handler leaves from where it is: the ceiling is then
// not brought down.
void ReportFrame::DispatchFetchComplete() {
  const std::shared_ptr<ReportFrame> keep = shared_from_this();
  const std::uint64_t mark = mark_;
  const ReportRow* const row = RowOf(lngReportType);
  if (row != nullptr && row->delivery != Delivery::kNever && module.bytFetchesDone >= row->awaits) {
    module.bytFetchesDone = 0;
    BeginManipulating();
    if (events_ == nullptr) return;  // its handler has ended the session
    if (row->resets_record_no) module.lngRecordNo = 0;
    if (row->delivery != Delivery::kNothing) {
      const RecordsetPtr delivered = BuildUnlessAbandoned(*row, mark);
      const std::int32_t any_count =
          row->any_count == kLinesCounted ? module.lngRecordNo : row->any_count;
      if (events_ != nullptr && events_->FetchComplete && !abandoning_.Has(mark)) {
        const auto handler = events_->FetchComplete;  // it may assign another or end the session
        const WorkInHand of_the_host(WorkInHand::Kind::kReport);
        handler(delivered, any_count);
      }
    }
  }
  progress.sngFetchCeiling = kFetchCeiling;
}

// The piece of work begins before the mark is looked at: whoever abandons the report meanwhile has
// set the mark before he ends the work.
RecordsetPtr ReportFrame::BuildUnlessAbandoned(const ReportRow& row, std::uint64_t mark) {
  const WorkInHand in_hand(WorkInHand::Kind::kReport);
  if (abandoning_.Has(mark)) return nullptr;
  try {
    return Build(row);
  } catch (const Error&) {
    if (!abandoning_.Has(mark)) throw;
    return nullptr;
  }
}

RecordsetPtr ReportFrame::Build(const ReportRow& row) {
  if (row.builder == nullptr) {
    throw Error(ErrorNumber::kObjectNotSet, fmt::format("{} has no row builder in this version",
                                                        ReportTypeText(lngReportType)));
  }
  cut_short = false;
  return TellingWhatRanOut("writing the lines of the report", [&] {
    const RecordsetPtr report = row.builder(*this);
    return row.delivery == Delivery::kAsBuilt ? report : report->Clone(adLockUnspecified);
  });
}

void ReportFrame::BeginManipulating() {
  lngFetchTotal = 0;
  for (Slot& slot : slots_) slot.seen = false;
  RaiseStepProgress(0, "Manipulating", 0, 20);
  progress.sngFetchCeiling = kBuildCeiling;
}

void ReportFrame::RaiseStepProgress(std::int32_t /*lngProgress*/, std::string_view strMessage,
                                    std::int32_t lngCount, std::int32_t lngRange) noexcept {
  try {
    TellProgress(progress.Step(lngCount, lngRange), strMessage);
  } catch (...) {
  }
}

void ReportFrame::TellProgress(std::uint8_t percent, std::string_view message) const {
  if (events_ == nullptr || !events_->FetchProgress) return;
  const auto handler = events_->FetchProgress;  // it may assign another or end the session
  handler(percent, message);
}

bool ReportFrame::EndPass(std::int32_t lngRange) {
  DoEvents();
  RaiseStepProgress(1, "manipulating", lngFetchTotal, lngRange);
  if (events_ == nullptr) return false;
  WorkInHand::CheckInnermost();
  if (!blnCancelFetching.IsTrue()) return true;
  cut_short = true;
  return false;
}

}  // namespace pstolvane1
