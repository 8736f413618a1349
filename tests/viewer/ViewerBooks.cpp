#include "tests/viewer/ViewerBooks.h"

#include "tests/books/BooksOnDisk.h"

namespace pstolvane1::viewer::test {

automation::CallWords Asked(const std::string& operation, std::vector<std::string> arguments) {
  automation::CallWords words;
  words.operation = operation;
  words.arguments = std::move(arguments);
  words.books = books::test::SampleFile();
  words.locale = "en_IN";
  words.asynchronous = true;
  return words;
}

automation::CallWords SalesByParty() {
  return Asked("Doc_Initial",
               {"lngVouchertype_id=10", "dtFromDate=2004-04-01", "dtToDate=2004-04-30"});
}

ReportRun::State Ended(const ReportRun& run) {
  ReportRun::State state = run.After(0, std::chrono::milliseconds(0));
  while (state.stage == ReportRun::Stage::kRunning) {
    state = run.After(state.version, std::chrono::milliseconds(100));
  }
  return state;
}

}  // namespace pstolvane1::viewer::test
