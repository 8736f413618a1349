/* The library for hosts in other languages: sessions, operations by name, rowsets and events in C.
 *
 * Threads. A session, its rowsets and its events belong to the thread that made the session; only
 * pst_session_abandon may be called from another. Sessions on one thread share the filter and the
 * arguments of the report in hand, and the one that asks last overwrites what another still
 * fetches for: use one session at a time on a thread.
 * Errors. A function that can fail returns pst_ok or the number of the error; pst_error_text then
 * says what was wrong, for this thread, until the next call that fails on it. docs/hosts.md lists
 * the numbers. 7 is memory that has run out; while books are opened it is 501, and the text ends in
 * "out of memory". Nothing is thrown out of these functions. A null handle is error 91; so are a
 * released one, one that is none, and one of another thread, unless a new handle has taken the
 * place of a released one. Zero bytes in error texts are written as "\0".
 * Texts. UTF-8. What is returned as char* belongs to the caller and goes back by pst_text_free;
 * what is returned as const char* belongs to the library and lives as long as is said with it. */
#ifndef PSTOLVANE1_C_H
#define PSTOLVANE1_C_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* NOLINTBEGIN(modernize-use-using): C reads this as well. */
typedef struct pst_session pst_session;
typedef struct pst_rowset pst_rowset;

enum { pst_ok = 0 };

/* The last error of this thread: its sentence with the cause, and its number; "" and 0 before the
 * first. The text is valid until the next error on this thread. */
const char* pst_error_text(void);
int32_t pst_error_number(void);

/* --- Session ------------------------------------------------------------------------------- */
/* NULL when it cannot be made. */
pst_session* pst_session_new(void);
/* Ends what runs; no event follows. Its rowsets stay valid. Also inside one of its events. Nothing
 * for NULL. */
void pst_session_free(pst_session* session);
/* Opens the books and waits until they are open. When they cannot be opened, the session keeps the
 * connection that it had. */
int32_t pst_session_connect(pst_session* session, const char* books);
/* Drops the report in hand, from any thread: its statements are interrupted, no fetch_complete
 * comes of it, and a call at work on it, an export or a connect that waits ends with an error. The
 * session takes the next report at once. Nothing when no report is in hand. */
int32_t pst_session_abandon(pst_session* session);

/* *whole is 1 when the report that came last went on to its end, and 0 when CancelFetching stopped
 * it: lines may be missing then, and its totals are the sums of those that it has. */
int32_t pst_session_report_is_whole(pst_session* session, int* whole);
/* *fetching is 1 while a report is fetched in the background: its fetch_complete is yet to come.
 * Once it is 0, nothing more comes from a report that has none. */
int32_t pst_session_is_fetching(pst_session* session, int* fetching);

/* --- Operations ------------------------------------------------------------------------------ */
/* Every operation with its arguments, types and defaults, as JSON. */
char* pst_catalogue(void);

/* Calls an operation, with `count` arguments by name, values as texts: whole numbers, decimals,
 * true and false, ISO dates, names of enumerations. Conditions are joined with And as they stand:
 * an Or belongs into brackets, and a comment sign is refused. A rowset argument is one SELECT on
 * the session's books. *rowset is the rowset that it returns, or NULL; rowset may be NULL when it
 * is not wanted. */
int32_t pst_call(pst_session* session, const char* operation, const char* const* names,
                 const char* const* values, size_t count, pst_rowset** rowset);

/* The same with the arguments as a JSON object ("{}" or NULL for none). *result, unless result is
 * NULL, is {"value": ..., "changed": {...}}: what was returned unless it is a rowset, and the
 * arguments by reference as they are after the call. */
int32_t pst_call_json(pst_session* session, const char* operation, const char* arguments,
                      pst_rowset** rowset, char** result);

/* --- Events ---------------------------------------------------------------------------------- */
/* Each may be NULL. Texts are valid during the call; the rowset of fetch_complete is the host's and
 * is freed by it. */
typedef struct pst_events {
  void* context; /* handed to each of them */
  void (*on_connect)(void* context, const char* error_text);
  void (*fetch_progress)(void* context, uint8_t percent, const char* message);
  void (*fetch_complete)(void* context, pst_rowset* rowset, int32_t any_count);
} pst_events;

/* Copies the handlers in place of those before; NULL for none. */
int32_t pst_session_events(pst_session* session, const pst_events* events);

/* Delivers the events that wait for this thread; waits up to at_most milliseconds for the first. */
int32_t pst_pump(int32_t at_most);
/* Readable while events wait for this thread; poll it, do not read or close it. -1 on failure. */
int pst_event_descriptor(void);

/* --- Rowsets --------------------------------------------------------------------------------- */
void pst_rowset_free(pst_rowset* rowset);
/* Visible rows, and columns; -1 on failure. */
int32_t pst_rowset_rows(const pst_rowset* rowset);
int32_t pst_rowset_columns(const pst_rowset* rowset);
/* Valid as long as the rowset; NULL for a column that it does not have. Columns count from 0. */
const char* pst_rowset_name(const pst_rowset* rowset, int32_t column);
/* 3 int32, 4 single, 5 double, 6 money, 7 date, 8 and 200 text, 11 flag, 20 int64, 136 rowset; 0 on
 * failure. */
int32_t pst_rowset_type(const pst_rowset* rowset, int32_t column);
/* One cell as text: numbers with ".", money with four decimals, ISO dates, flags as true and false.
 * *text is NULL for Null. Rows count from 0. Reading row after row is cheap, any other order is
 * not. */
int32_t pst_rowset_text(pst_rowset* rowset, int32_t row, int32_t column, char** text);
/* The same as a number; a date is days since 30 December 1899. *is_null is 1 for Null, else 0. */
int32_t pst_rowset_number(pst_rowset* rowset, int32_t row, int32_t column, double* number,
                          int* is_null);
/* Puts the rows in an order: "DummySort, AmountSort DESC". Null stands first, and last in a column
 * in descending order; "" is the rows' own order. */
int32_t pst_rowset_sort(pst_rowset* rowset, const char* columns);
/* What pst_rowset_sort takes to put a report of the operation in the order of a twin, so that
 * totals stay last and lines with their heads, as docs/reports.md says. asked is the
 * ValuationMethod or reptype that the report was asked with, 0 where it takes none; flags are
 * pst_sort_detailed for a report in detail, or of one party, item or group, and
 * pst_sort_descending. Error 3001 for a report that cannot be sorted. */
enum { pst_sort_detailed = 1, pst_sort_descending = 2 };
int32_t pst_sort_text(const char* operation, int32_t asked, int32_t flags, const char* twin,
                      char** text);
/* All columns and rows. */
int32_t pst_rowset_json(const pst_rowset* rowset, char** json);
int32_t pst_rowset_csv(const pst_rowset* rowset, char** csv);
/* A whole page with one table, as people read the report: titles, words over the columns, groups
 * and totals. operation and arguments are those of the call that gave the rowset, as pst_call_json
 * takes them. Names of keys and the tree of groups are read from the session's books; with a NULL
 * session the page has none. company stands above, NULL for none; locale is the one that the report
 * was written in, as SetLocale takes it, NULL for the user's own. */
int32_t pst_report_html(pst_session* session, const pst_rowset* rowset, const char* operation,
                        const char* arguments, const char* company, const char* locale,
                        char** html);

void pst_text_free(char* text);

/* --- The class by its identifier ------------------------------------------------------------- */
/* For hosts that load the library at run time. The results are those of the automation runtime:
 * 0 yes or done, 1 no or nothing to do, below 0 a failure. */
typedef struct pst_guid {
  uint32_t part1;
  uint16_t part2;
  uint16_t part3;
  uint8_t part4[8];
} pst_guid;

/* The class clsStolvane1, and the interface of its factory. */
extern const pst_guid pst_class_clsStolvane1;
extern const pst_guid pst_interface_class_factory;

enum {
  pst_s_ok = 0,
  pst_s_false = 1,
  pst_e_pointer = -2147467261,      /* a result has no place to go */
  pst_e_no_interface = -2147467262, /* the factory has no such interface */
  pst_e_no_class = -2147221231,     /* the library has no such class */
  pst_e_out_of_memory = -2147024882
};

/* A factory of sessions; released when its count falls to 0. */
typedef struct pst_class_factory pst_class_factory;
struct pst_class_factory {
  uint32_t (*add_reference)(pst_class_factory* factory);
  uint32_t (*release)(pst_class_factory* factory);
  int32_t (*create_instance)(pst_class_factory* factory, pst_session** session);
  /* While it is locked (nonzero adds a lock, 0 takes one away) the library says that it is in use.
   */
  int32_t (*lock_server)(pst_class_factory* factory, int lock);
};

/* *object becomes a pst_class_factory with a count of 1. */
int32_t DllGetClassObject(const pst_guid* class_id, const pst_guid* interface_id, void** object);
/* There is no registry to write to: a host finds the library by its name, and it keeps nothing
 * between runs. Both do nothing and say so with pst_s_false. */
int32_t DllRegisterServer(void);
int32_t DllUnregisterServer(void);
/* pst_s_ok when no session, rowset, factory, lock or Arrow structure of these functions is left, on
 * any thread. */
int32_t DllCanUnloadNow(void);

/* NOLINTEND(modernize-use-using) */
#ifdef __cplusplus
}
#endif

#endif
