#include "host/SqlCommand.h"

#include "host/StopSignals.h"
#include "session/CheckCondition.h"
#include "session/data/ThreadWork.h"
#include "session/engine/Engines.h"
#include "session/rowset/Export.h"

namespace pstolvane1::host {

namespace {

void ReadAndWrite(const SqlOptions& options, const std::shared_ptr<Connection>& books) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Open(options.text, books);
  Write(*rowset, "Query", options.output, [&rowset] { return ExportJson(*rowset); });
}

}  // namespace

void Sql(const SqlOptions& options) {
  if (!options.condition_on.empty()) {
    const std::string wrong = CheckCondition(options.condition_on, options.text);
    if (!wrong.empty()) throw Error(ErrorNumber::kQueryRefused, wrong);
    WriteText("Nothing is wrong with the condition.\n", options.output);
    return;
  }
  const std::shared_ptr<Connection> books = NewConnection();
  books->Open(options.books);
  if (options.translate) {
    WriteText(books->Translate(options.text) + "\n", options.output);
    return;
  }
  const auto abandon = [&books, work = ThreadWork::OfThisThread()] {
    work->Abandon(nullptr);
    books->StopReading();
  };
  DoUntilSignal(abandon, [&] {
    const WorkInHand in_hand;
    ReadAndWrite(options, books);
  });
}

}  // namespace pstolvane1::host
