#include "host/SqlCommand.h"

#include "session/engine/Engines.h"
#include "session/rowset/Export.h"

namespace pstolvane1::host {

void Sql(const SqlOptions& options) {
  const std::shared_ptr<Connection> books = NewConnection();
  books->Open(options.books);
  if (options.translate) {
    WriteText(books->Translate(options.text) + "\n", options.output);
    return;
  }
  const RecordsetPtr rowset = Recordset::New();
  rowset->Open(options.text, books);
  Write(*rowset, "Query", options.output, [&rowset] { return ExportJson(*rowset); });
}

}  // namespace pstolvane1::host
