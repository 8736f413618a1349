/* A rowset as an Arrow C stream, for programs that take whole columns: data frames, query engines,
 * notebooks. The structures are those of the Arrow C data and C stream interfaces, whose layout is
 * published and does not change; where another header has them already, they are not defined anew.
 * Errors and threads are those of pstolvane1_c.h. */
#ifndef PSTOLVANE1_ARROW_H
#define PSTOLVANE1_ARROW_H

#include "automation/pstolvane1_c.h"

#ifdef __cplusplus
extern "C" {
#endif

/* NOLINTBEGIN(modernize-use-using,readability-identifier-naming): C reads this as well. */
#ifndef ARROW_C_DATA_INTERFACE
#define ARROW_C_DATA_INTERFACE

#define ARROW_FLAG_DICTIONARY_ORDERED 1
#define ARROW_FLAG_NULLABLE 2
#define ARROW_FLAG_MAP_KEYS_SORTED 4

/* The type and name of a column, or of all columns together. */
struct ArrowSchema {
  const char* format;
  const char* name;
  const char* metadata;
  int64_t flags;
  int64_t n_children;
  struct ArrowSchema** children;
  struct ArrowSchema* dictionary;
  void (*release)(struct ArrowSchema* schema);
  void* private_data;
};

/* The cells of a column, or of all columns together. */
struct ArrowArray {
  int64_t length;
  int64_t null_count;
  int64_t offset;
  int64_t n_buffers;
  int64_t n_children;
  const void** buffers;
  struct ArrowArray** children;
  struct ArrowArray* dictionary;
  void (*release)(struct ArrowArray* array);
  void* private_data;
};
#endif

#ifndef ARROW_C_STREAM_INTERFACE
#define ARROW_C_STREAM_INTERFACE

/* Batches of rows, one after another. */
struct ArrowArrayStream {
  int (*get_schema)(struct ArrowArrayStream* stream, struct ArrowSchema* schema);
  int (*get_next)(struct ArrowArrayStream* stream, struct ArrowArray* array);
  const char* (*get_last_error)(struct ArrowArrayStream* stream);
  void (*release)(struct ArrowArrayStream* stream);
  void* private_data;
};
#endif

/* Makes *stream a stream of the visible rows in their order; every call makes a new one, which goes
 * by its own release. Each batch is a struct of all columns:
 *
 *   3 int32 "i", 20 int64 "l", 4 single "f", 5 double "g", 6 money decimal128 "d:19,4",
 *   7 date "tdD", whose time of day is cut off, 11 flag "b", 8 and 200 text "u",
 *   136 rowset a list "+l" of structs
 *
 * All columns can hold Null. The stream stays good when the rowset is freed. It belongs to the
 * rowset's thread: on another one get_schema and get_next are EINVAL, and release must not be
 * called. Schemas and arrays that it gave may be read and released on any thread. A stream that is
 * none or was released, and a place that is none, are EINVAL. */
int32_t pst_rowset_arrow(const pst_rowset* rowset, struct ArrowArrayStream* stream);

/* NOLINTEND(modernize-use-using,readability-identifier-naming) */
#ifdef __cplusplus
}
#endif

#endif
