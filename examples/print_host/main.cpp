#include <fstream>
#include <iostream>

#include "automation/ColumnLooks.h"
#include "host/print/ExportPdf.h"
#include "session/clsStolvane1.h"

int main(int argc, char** argv) try {
  using namespace pstolvane1;
  clsStolvane1 session;
  session.SetConnection("", "", argc > 1 ? argv[1] : "books/sample.db", False);
  const RecordsetPtr sales =
      session.Doc_Initial(2, 10, Date::FromYmd(2004, 4, 1), Date::FromYmd(2005, 3, 31));
  const ReportLook look{.title = "Sales of 2004-05", .column = [](std::string_view column) {
                          return automation::LookOfColumn("Doc_Initial", column);
                        }};
  print::PrintStyle style;
  style.company.CompanyName = "Asha Motors";
  std::ofstream file(argc > 2 ? argv[2] : "sales.pdf", std::ios::binary);
  print::ExportPdf(*sales, look, Locale::Get("en_IN"), style, file);
} catch (const pstolvane1::Error& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
