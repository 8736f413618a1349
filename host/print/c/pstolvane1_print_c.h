/* A report as a PDF file, for hosts in other languages. It stands in a library of its own,
 * pStolvane1Print, so that a host that prints nothing needs no library that draws. Threads, errors
 * and texts are those of pstolvane1_c.h. */
#ifndef PSTOLVANE1_PRINT_C_H
#define PSTOLVANE1_PRINT_C_H

#include <stddef.h>
#include <stdint.h>

#include "automation/pstolvane1_c.h"

#ifdef __cplusplus
extern "C" {
#endif

/* What pst_report_html shows, on pages: the bytes of a PDF file, which go back by pst_text_free,
 * and their number. paper is "A4", "Letter" or another of its kind, NULL for A4. Error 3001 for
 * unknown paper and on a machine without fonts. */
int32_t pst_report_pdf(pst_session* session, const pst_rowset* rowset, const char* operation,
                       const char* arguments, const char* company, const char* locale,
                       const char* paper, char** pdf, size_t* size);

#ifdef __cplusplus
}
#endif

#endif
