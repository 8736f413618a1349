/* A host in C: the sales of a year by party. */
#include <stdio.h>

#include "automation/pstolvane1_c.h"

int main(int argc, char** argv) {
  const char* const names[] = {"bytYearno", "lngVouchertype_id", "dtFromDate", "dtToDate"};
  const char* const values[] = {"2", "10", "2004-04-01", "2005-03-31"};
  pst_session* session = pst_session_new();
  pst_rowset* sales = NULL;
  int failed = pst_session_connect(session, argc > 1 ? argv[1] : "books/sample.db") != pst_ok ||
               pst_call(session, "Doc_Initial", names, values, 4, &sales) != pst_ok;
  for (int32_t row = 0; !failed && row < pst_rowset_rows(sales); ++row) {
    char *ledger = NULL, *amount = NULL;
    failed = pst_rowset_text(sales, row, 0, &ledger) != pst_ok ||
             pst_rowset_text(sales, row, 1, &amount) != pst_ok;
    if (ledger && amount) printf("%s\t%s\n", ledger, amount);
    pst_text_free(ledger);
    pst_text_free(amount);
  }
  if (failed) fprintf(stderr, "%s\n", pst_error_text());
  pst_rowset_free(sales);
  pst_session_free(session);
  return failed;
}
