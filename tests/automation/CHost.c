/* A host in C: connects, asks for a report by name, and reads it. */
#include "CHost.h"

#include <stdio.h>
#include <string.h>

#include "automation/pstolvane1_c.h"

int list_ledgers(const char* books, char* names, size_t size) {
  const char* const arguments[] = {"bytYearno", "sCode", "blnReport"};
  const char* const values[] = {"1", "", "true"};
  pst_session* session = pst_session_new();
  pst_rowset* ledgers = NULL;
  int32_t row;
  int failed = pst_session_connect(session, books) != pst_ok ||
               pst_call(session, "LedgersByCode", arguments, values, 3, &ledgers) != pst_ok;
  names[0] = '\0';
  for (row = 0; !failed && row < pst_rowset_rows(ledgers); ++row) {
    char* name = NULL;
    failed = pst_rowset_text(ledgers, row, 1, &name) != pst_ok;
    if (!failed && strlen(names) + strlen(name) + 2 <= size) {
      strcat(names, name);
      strcat(names, ";");
    }
    pst_text_free(name);
  }
  if (failed) snprintf(names, size, "%s", pst_error_text());
  pst_rowset_free(ledgers);
  pst_session_free(session);
  return failed;
}
