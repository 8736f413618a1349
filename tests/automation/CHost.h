#ifndef PST_TESTS_C_HOST_H
#define PST_TESTS_C_HOST_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The names of the ledgers, a ";" behind each; or the error, and not 0. */
int list_ledgers(const char* books, char* names, size_t size);

#ifdef __cplusplus
}
#endif

#endif
