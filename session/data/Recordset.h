// Rowsets: what a query gives, what a report is, and what a host hands to a report.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/ColumnInfo.h"
#include "session/data/Connection.h"
#include "session/data/DataType.h"
#include "session/data/Error.h"
#include "session/data/Variant.h"

namespace pstolvane1 {

class Recordset;
class RowGroups;
class RowStore;
using RecordsetPtr = std::shared_ptr<Recordset>;

// Named settings of a rowset or of one of its columns. Names ignore case; an unknown one is error
// 3265. A rowset has "Initial Fetch Size" (rows that an asynchronous fetch hands over first); a
// column has "Optimize" (True builds an index that makes filters with "column = value" a look-up).
class Properties {
 public:
  class Property {
   public:
    [[nodiscard]] Variant Value() const;
    void Value(const Variant& value);
    Property& operator=(const Variant& value);

   private:
    friend class Properties;
    Property(Recordset& rowset, int column) : rowset_(&rowset), column_(column) {}
    Recordset* rowset_;
    int column_;  // -1: the rowset's own
  };
  [[nodiscard]] Property operator()(std::string_view name) const;

 private:
  friend class Recordset;
  friend class Field;
  Properties(Recordset& rowset, int column) : rowset_(&rowset), column_(column) {}
  Recordset* rowset_;
  int column_;  // -1: the rowset's own
};

// One column of a rowset and its value in the current row. A light handle: valid while the rowset
// lives and is not closed; it follows the rowset's position.
class Field {
 public:
  [[nodiscard]] const std::string& Name() const;
  [[nodiscard]] DataType Type() const;
  [[nodiscard]] int DefinedSize() const;
  [[nodiscard]] int Attributes() const;
  // A chapter column gives its child rowset. Error 3021 when there is no current row.
  [[nodiscard]] Variant Value() const;
  // As Recordset::Set. Only on a fabricated rowset.
  void Value(const Variant& value);
  [[nodiscard]] pstolvane1::Properties Properties() const;

 private:
  friend class Fields;
  Field(Recordset& rowset, int column) : rowset_(&rowset), column_(column) {}
  Recordset* rowset_;
  int column_;
};

// The columns of a rowset, in order. A light handle like Field.
class Fields {
 public:
  [[nodiscard]] int Count() const;
  [[nodiscard]] Field operator()(std::string_view name) const;  // any case; error 3265
  [[nodiscard]] Field operator()(int index) const;              // from 0; error 3265
  // Before a fabricated rowset is opened. A name that is there already is error 3001, and so is a
  // type that no column can have. defined_size is the most characters that an adVarChar takes, 0
  // for any number; other types pass over it.
  void Append(std::string_view name, DataType type, int defined_size = 0,
              int attributes = adFldDefault);

 private:
  friend class Recordset;
  explicit Fields(Recordset& rowset) : rowset_(&rowset) {}
  Recordset* rowset_;
};

// A column's place, looked up once by name, for loops that read many rows. Good for the rowset, its
// clones, and all chapters of one chapter column.
enum class ColumnHandle : int {};

// A position that can be returned to, on the rowset or on a clone of it. Adding and deleting other
// rows leaves it valid.
enum class Bookmark : std::uint32_t {};

// A navigable table in memory: a static snapshot of a query's rows, or a table that its maker fills
// ("fabricated"). Clones and chapters share the rows and have a position, a filter and an order of
// their own. Belongs to the thread that made it, which is also the one that gets its events.
//
// Positions: BOF, the visible rows, EOF. An empty rowset is at both. Where a row is deleted,
// through this rowset or a clone, every rowset that stood on it stands in the gap: it has no
// current row, is at neither end, and the next move goes to the row behind or before the gap. A row
// that no longer meets the filter once it is updated stays the current row until the next move.
//
// A member that needs a current row raises error 3021 where there is none, one that needs an open
// rowset error 3704.
class Recordset : public std::enable_shared_from_this<Recordset> {
 public:
  [[nodiscard]] static RecordsetPtr New();
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  // --- Open and close

  // Before Open. nullptr on an open rowset disconnects it; its rows stay.
  void ActiveConnection(std::shared_ptr<Connection> connection);
  [[nodiscard]] std::shared_ptr<Connection> ActiveConnection() const;
  [[nodiscard]] pstolvane1::Properties Properties();

  // Opens a fabricated rowset with the columns that were appended.
  void Open();
  // Opens a query: one SELECT, or a shape command. A null connection leaves the one set before
  // (error 3709 when there is none, or it is not open). options -1 fetches all rows before it
  // returns; 48 (adAsyncExecute + adAsyncFetch) returns at once and fetches beside this thread,
  // which waits for no lock either. What is wrong with the text is raised here in both cases,
  // before anything runs; what goes wrong later is raised here in the first and told by
  // FetchComplete in the second. The columns are there when it returns.
  void Open(std::string_view source, std::shared_ptr<Connection> connection = nullptr,
            int cursor_type = adOpenUnspecified, int lock_type = adLockUnspecified,
            int options = adOptionUnspecified);
  // While it fetches: waits for the rows that are still to come, and raises the error that ends
  // them. The events come afterwards, while this thread pumps, as they would have.
  void WaitForRows();
  // adStateClosed, adStateOpen, or adStateOpen + adStateFetching.
  [[nodiscard]] int State() const;
  // Frees the rows unless a clone has them. A fetch that runs is cancelled; no event follows.
  void Close();

  // Events of an asynchronous open, on this thread while it pumps its messages (DoEvents). The
  // rowset lives until a handler returns, which may close or drop it; an exception that a handler
  // lets out goes to whoever pumps.
  //
  // Once for each hand-over of rows: the first has as many as "Initial Fetch Size", each further
  // one a whole chunk; a shape command's come when all of it is joined. Progress and MaxProgress
  // are both the rows handed over so far, because nobody knows before the end how many there will
  // be. So 1 divided by MaxProgress is the whole at the first row of a fetch with the size 1, and
  // little more after it. Without rows there is no FetchProgress.
  std::function<void(std::int32_t progress, std::int32_t max_progress, int status, Recordset&)>
      FetchProgress;
  // Once, at the end; error is nullptr and status 1 (adStatusOK) on success, else the status is 2.
  // The rowset then is open with all rows, or with those that were handed over before the error.
  std::function<void(const Error* error, int status, Recordset&)> FetchComplete;

  // --- Columns and values

  // In order; the handle of a column is its place. Valid until the rowset is opened or closed.
  [[nodiscard]] const std::vector<ColumnInfo>& Columns() const;
  [[nodiscard]] pstolvane1::Fields Fields();
  [[nodiscard]] Field Fields(std::string_view name);
  // Value of the current row by column name, without a Field object.
  [[nodiscard]] Variant Collect(std::string_view name) const;
  void Collect(std::string_view name, const Variant& value);

  [[nodiscard]] ColumnHandle Column(std::string_view name) const;  // error 3265
  [[nodiscard]] bool HasColumn(std::string_view name) const;
  // Typed reads of the current row, as those of Row.
  [[nodiscard]] bool IsNull(ColumnHandle column) const;
  [[nodiscard]] std::int32_t Int32(ColumnHandle column) const;
  [[nodiscard]] std::int64_t Int64(ColumnHandle column) const;
  [[nodiscard]] float Single(ColumnHandle column) const;
  [[nodiscard]] double Double(ColumnHandle column) const;
  [[nodiscard]] Currency Money(ColumnHandle column) const;
  [[nodiscard]] Date DateOf(ColumnHandle column) const;
  [[nodiscard]] bool Flag(ColumnHandle column) const;
  [[nodiscard]] std::string_view Text(ColumnHandle column) const;
  [[nodiscard]] RecordsetPtr Chapter(ColumnHandle column) const;
  [[nodiscard]] Variant Value(ColumnHandle column) const;

  // --- Rows of a fabricated rowset

  // Adds a row of Nulls and makes it current; visible, to clones too, after Update, or when the
  // position moves on, which updates as well. Error 3001 on a query's rowset, as for every write.
  void AddNew();
  // Values that are written are seen by clones at once; whether and where a filter and a sort show
  // the row is settled here.
  void Update();
  // Deletes the current row, or takes back an AddNew. The position is then in the gap.
  void Delete();
  // Writes of the current row, converted to the column's type: error 13 where the value has none of
  // that type, error 6 where it lies outside its range. Null and Empty are stored as Null. A text
  // with more characters than the adVarChar's defined size is error 3001; nothing is cut off.
  void Set(ColumnHandle column, const Variant& value);
  void SetText(ColumnHandle column, std::string_view text);
  class Row;
  // The value of a cell of any row, of this rowset or another.
  void SetFrom(ColumnHandle column, const Row& row, ColumnHandle from);

  // --- Position

  void MoveFirst();  // an empty rowset stays at both ends
  void MoveLast();
  void MoveNext();      // error 3021 when at EOF already
  void MovePrevious();  // error 3021 when at BOF already
  // BOF and EOF; the second name is a macro of <stdio.h>, hence the small letters.
  [[nodiscard]] bool Bof() const;
  [[nodiscard]] bool Eof() const;
  [[nodiscard]] pstolvane1::Bookmark Bookmark() const;
  // Also to a row that the filter hides: the next move then goes on from where the row would stand.
  // Error 3021 when that row is gone.
  void Bookmark(pstolvane1::Bookmark position);
  [[nodiscard]] std::int32_t RecordCount() const;  // of the visible rows; error 6 beyond 32 bits

  // --- View

  // Criteria: comparisons "column op value" with = <> < > <= >= LIKE, joined with And, Or and Not,
  // and parentheses; And binds closer than Or. Values: numbers, 'text' with '' for a quote,
  // #MM/dd/yyyy# or #yyyy-MM-dd# with or without a time, True, False, Null. Names may stand in
  // brackets. Text ignores case; LIKE takes * and % for any run of characters. True is any number
  // but 0; Null is met by "= Null" alone. A number column takes a number in quotes as well, a date
  // column a date. "" clears. The position moves to the first visible row. An unreadable text, or a
  // value that the column cannot be compared with, is error 3001 that says where, an unknown column
  // error 3265; the old filter then stays. It is in force until replaced: rows that are added,
  // updated or deleted through any clone come and go.
  void Filter(std::string_view criteria);
  void Filter(int zero);  // 0 clears
  [[nodiscard]] const std::string& Filter() const;
  // From the current row on, forward, to the first row that meets one comparison, else to EOF. From
  // BOF it begins at the first row; at EOF it stays there.
  void Find(std::string_view criterion);
  // "Column [ASC|DESC], ..."; stable, Null first, text ignores case. "" is the rows' own order.
  // The position moves to the first row. In force until replaced, as Filter; errors alike.
  void Sort(std::string_view columns);
  [[nodiscard]] const std::string& Sort() const;
  // A second rowset on the same rows, unfiltered, in their own order, at the first row. What one
  // writes, adds or deletes the others see.
  [[nodiscard]] RecordsetPtr Clone(int lock_type = adLockUnspecified);

  // --- Iteration

  // A row of a rowset, whether it is the current one or not. Valid while the rowset or a clone of
  // it is open.
  class Row {
   public:
    [[nodiscard]] Variant operator[](std::string_view name) const;  // error 3265
    [[nodiscard]] Variant operator[](ColumnHandle column) const;
    [[nodiscard]] bool IsNull(ColumnHandle column) const;
    // Numbers convert from any number column, a flag, a date's serial and a text that is a number;
    // error 13 where a column's value has none, error 6 beyond the range. Null is error 94.
    [[nodiscard]] std::int32_t Int32(ColumnHandle column) const;
    [[nodiscard]] std::int64_t Int64(ColumnHandle column) const;
    [[nodiscard]] float Single(ColumnHandle column) const;
    [[nodiscard]] double Double(ColumnHandle column) const;
    [[nodiscard]] Currency Money(ColumnHandle column) const;
    [[nodiscard]] Date DateOf(ColumnHandle column) const;  // also of ISO text
    [[nodiscard]] bool Flag(ColumnHandle column) const;    // is not 0
    // Of a text column, else error 13; valid as long as the row. Null reads as "".
    [[nodiscard]] std::string_view Text(ColumnHandle column) const;
    // Of a chapter column, else error 13. A new rowset each time, at its first row.
    [[nodiscard]] RecordsetPtr Chapter(ColumnHandle column) const;
    [[nodiscard]] pstolvane1::Bookmark Bookmark() const {
      return static_cast<pstolvane1::Bookmark>(row_);
    }

   private:
    friend class Recordset;
    friend class RowGroups;
    Row(const RowStore& store, std::uint32_t row) : store_(&store), row_(row) {}
    const RowStore* store_;
    std::uint32_t row_;
  };
  class RowIterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Row;
    using difference_type = std::ptrdiff_t;
    [[nodiscard]] Row operator*() const;
    RowIterator& operator++();
    RowIterator operator++(int) {
      const RowIterator before = *this;
      ++*this;
      return before;
    }
    friend bool operator==(const RowIterator& a, const RowIterator& b) {
      return a.place_ == b.place_;
    }

   private:
    friend class Recordset;
    RowIterator(const Recordset& rowset, std::size_t place) : rowset_(&rowset), place_(place) {}
    const Recordset* rowset_;
    std::size_t place_;
  };
  struct RowRange {
    RowIterator first, last;
    [[nodiscard]] RowIterator begin() const { return first; }
    [[nodiscard]] RowIterator end() const { return last; }
  };
  // The visible rows in order, leaving the position where it is:
  //   for (Recordset::Row row : rowset->Rows()) total += row["Amount"].ToCurrency();
  // Values may be written meanwhile; no rows added or deleted, no filter or sort set.
  [[nodiscard]] RowRange Rows() const;
  // The row of a bookmark, also one that AddNew gave and Update has not shown yet. Error 3021 when
  // that row is gone.
  [[nodiscard]] Row RowAt(pstolvane1::Bookmark position) const;
  // The visible rows by their values in some columns; see RowGroups.h.
  [[nodiscard]] RowGroups GroupBy(std::initializer_list<std::string_view> columns) const;

  // What the rows hold in memory, in bytes, text and indexes included; clones share it.
  [[nodiscard]] std::size_t MemoryUsed() const;

 private:
  friend class Field;
  friend class Fields;
  friend class Properties;
  friend class Properties::Property;
  friend struct RecordsetAccess;  // the joiner and the fetch, inside the library
  Recordset();
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace pstolvane1
