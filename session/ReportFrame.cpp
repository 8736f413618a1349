#include "session/ReportFrame.h"

#include <algorithm>
#include <utility>

#include "session/QueryText.h"

namespace pstolvane1 {

ReportFrame::ReportFrame(std::span<const ReportRow> reports, ConnectionMaker make_connection,
                         clsStolvane1Events& events)
    : module(*modStolvane1::OfThisThread()),
      keep_module_(modStolvane1::OfThisThread()),
      reports_(reports),
      make_connection_(std::move(make_connection)),
      events_(&events) {}

void ReportFrame::SetLocale(std::string_view name) {
  locale_ = Locale::Get(name);
  module.international.strDateSeparator = LocaleInfoText(*locale_, 29);
}

const Locale& ReportFrame::Texts() {
  if (!locale_) locale_ = Locale::Get("");
  return *locale_;
}

std::string ReportFrame::Normalise(std::string_view query) const {
  return NormaliseQueryText(query, Aliases);
}

Error ReportFrame::Told(const Error& error) const {
  const auto texts = module.QueryTexts();
  const auto divides = [](const std::string* text) { return DividesByZero(*text); };
  if (error.Number() != ErrorNumber::kDivisionByZero || std::ranges::none_of(texts, divides)) {
    return error;
  }
  return {error.Number(),
          error.Description() +
              ": the scale of the report (sngScale, gScale) is 0; 1 shows money as it is",
          error.Cause()};
}

const RecordsetPtr& ReportFrame::Replace(Source source) {
  Slot& slot = SlotOf(source);
  slot.failure.reset();
  slot.mark = mark_;
  slot.rowset = Recordset::New();
  ConnectEvents(source, *slot.rowset);
  return slot.rowset;
}

void ReportFrame::UseHostItems(RecordsetPtr items) {
  Slot& slot = SlotOf(Source::rsItems);
  slot.failure.reset();
  slot.rowset = std::move(items);
}

bool ReportFrame::Fetches(const Slot& slot) const {
  return slot.rowset != nullptr && (slot.rowset->State() & adStateFetching) != 0;
}

bool ReportFrame::Fetching() const {
  return std::any_of(slots_.begin(), slots_.end(), [this](const Slot& slot) {
    return Fetches(slot) && !abandoning_.Has(slot.mark);
  });
}

void ReportFrame::BeginReport() {
  DropAbandoned();
  cut_short = false;
  mark_ = abandoning_.Begin();
}

void ReportFrame::Abandon() {
  abandoning_.Abandon([weak = weak_from_this()] {
    if (const std::shared_ptr<ReportFrame> frame = weak.lock()) frame->DropAbandoned();
  });
}

// The fetches that were done for the report in hand count for none that follows.
void ReportFrame::DropAbandoned() {
  for (Slot& slot : slots_) {
    if (!Fetches(slot) || !abandoning_.Has(slot.mark)) continue;
    slot = {};
    module.bytFetchesDone = 0;
    lngFetchTotal = 0;
  }
}

RecordsetPtr ReportFrame::Rowset(Source source) const {
  const Slot& slot = SlotOf(source);
  if (slot.failure) throw *slot.failure;
  if (!slot.rowset) {
    throw Error(ErrorNumber::kObjectNotSet, "a source rowset of the report is not set");
  }
  // A fetch that was left over from another report may have set this one off too early.
  if ((slot.rowset->State() & adStateFetching) != 0) slot.rowset->WaitForRows();
  return slot.rowset;
}

bool ReportFrame::Seen(Source source) const { return SlotOf(source).seen; }

// Each step is taken whatever the one before it met.
void ReportFrame::Class_Terminate() noexcept {
  const auto pass_over = [](auto&& step) {
    try {
      step();
    } catch (...) {
    }
  };
  events_ = nullptr;
  module.bytFetchesDone = 0;
  pass_over([this] { SlotOf(Source::rsReport).rowset.reset(); });
  if (MainCn) {
    pass_over([this] {
      if (MainCn->State() == adStateOpen) MainCn->Cancel();
    });
    pass_over([this] {
      if (MainCn->State() == adStateOpen) MainCn->Close();
    });
    pass_over([this] { MainCn.reset(); });
  }
}

}  // namespace pstolvane1
