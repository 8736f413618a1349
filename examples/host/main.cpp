#include <iostream>

#include "session/clsStolvane1.h"

int main(int argc, char** argv) try {
  using namespace pstolvane1;
  clsStolvane1 session;
  session.SetConnection("", "", argc > 1 ? argv[1] : "books/sample.db", False);
  const RecordsetPtr sales =
      session.Doc_Initial(2, 10, Date::FromYmd(2004, 4, 1), Date::FromYmd(2005, 3, 31));
  const ColumnHandle ledger = sales->Column("Ledger"), amount = sales->Column("Amount");
  for (const Recordset::Row row : sales->Rows()) {
    std::cout << row.Text(ledger) << '\t' << row.Text(amount) << '\n';
  }
} catch (const pstolvane1::Error& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
