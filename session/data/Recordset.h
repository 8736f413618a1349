// Rowsets: what a query gives, what a report is, and what a host hands to a report.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Connection.h"
#include "session/data/DataType.h"
#include "session/data/Error.h"
#include "session/data/Variant.h"

namespace pstolvane1 {

class Recordset;
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
    Property(Recordset& rowset, int column, int which)
        : rowset_(&rowset), column_(column), which_(which) {}
    Recordset* rowset_;
    int column_;
    int which_;
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
  // Converted to the column's type; Empty is stored as Null. Only on a fabricated rowset.
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
  // Before a fabricated rowset is opened. A name that is there already is error 3001.
  void Append(std::string_view name, DataType type, int defined_size = 0,
              int attributes = adFldDefault);

 private:
  friend class Recordset;
  explicit Fields(Recordset& rowset) : rowset_(&rowset) {}
  Recordset* rowset_;
};

// A column's place, looked up once by name, for loops that read many rows.
enum class ColumnHandle : int {};

// A position that can be returned to, on the rowset or on a clone of it. Adding and deleting other
// rows leaves it valid.
enum class Bookmark : std::uint32_t {};

// A navigable table in memory: a static snapshot of a query's rows, or a table that its maker fills
// ("fabricated"). Clones and chapters share the rows and have a position, a filter and an order of
// their own. Belongs to the thread that made it, which is also the one that gets its events.
//
// Positions: BOF, the visible rows, EOF. An empty rowset is at both. A member that needs a current
// row raises error 3021 where there is none, one that needs an open rowset error 3704.
class Recordset : public std::enable_shared_from_this<Recordset> {
 public:
  [[nodiscard]] static RecordsetPtr New();
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  // --- Open and close -----------------------------------------------------------------------------
  // Before Open. nullptr on an open rowset disconnects it; its rows stay.
  void ActiveConnection(std::shared_ptr<Connection> connection);
  [[nodiscard]] std::shared_ptr<Connection> ActiveConnection() const;
  [[nodiscard]] pstolvane1::Properties Properties();

  // Opens a fabricated rowset with the columns that were appended.
  void Open();
  // Opens a query: one SELECT, or a shape command. A null connection leaves the one set before
  // (error 3709 when there is none). options -1 fetches all rows before it returns; 48
  // (adAsyncExecute + adAsyncFetch) returns at once and fetches beside this thread. What is wrong with
  // the text is raised here in both cases; what goes wrong while rows are fetched is raised here in
  // the first and told by FetchComplete in the second.
  void Open(std::string_view source, std::shared_ptr<Connection> connection = nullptr,
            int cursor_type = adOpenUnspecified, int lock_type = adLockUnspecified,
            int options = adOptionUnspecified);
  // adStateClosed, adStateOpen, or adStateOpen + adStateFetching.
  [[nodiscard]] int State() const;
  // Frees the rows unless a clone has them. A fetch that runs is cancelled; no event follows.
  void Close();

  // Events of an asynchronous open, on this thread while it pumps its messages (DoEvents). An
  // exception that a handler lets out goes to whoever pumps. Progress and MaxProgress count rows;
  // MaxProgress is what is known so far, at least 1 once there is a row.
  std::function<void(std::int32_t progress, std::int32_t max_progress, int status, Recordset&)>
      FetchProgress;
  // Once, at the end; error is nullptr and status 1 (adStatusOK) on success. The rowset then is open
  // with all rows, or with those that came before the error.
  std::function<void(const Error* error, int status, Recordset&)> FetchComplete;

  // --- Columns and values -------------------------------------------------------------------------
  [[nodiscard]] pstolvane1::Fields Fields();
  [[nodiscard]] Field Fields(std::string_view name);
  // Value of the current row by column name, without a Field object.
  [[nodiscard]] Variant Collect(std::string_view name) const;
  void Collect(std::string_view name, const Variant& value);

  [[nodiscard]] ColumnHandle Column(std::string_view name) const;  // error 3265
  [[nodiscard]] bool HasColumn(std::string_view name) const;
  // Typed reads of the current row. Numbers convert from any number column; Null is error 94.
  [[nodiscard]] bool IsNull(ColumnHandle column) const;
  [[nodiscard]] std::int32_t Int32(ColumnHandle column) const;
  [[nodiscard]] std::int64_t Int64(ColumnHandle column) const;
  [[nodiscard]] float Single(ColumnHandle column) const;
  [[nodiscard]] double Double(ColumnHandle column) const;
  [[nodiscard]] Currency Money(ColumnHandle column) const;
  [[nodiscard]] Date DateOf(ColumnHandle column) const;
  [[nodiscard]] bool Flag(ColumnHandle column) const;  // is not 0
  // Of a text column; valid while the rowset or a clone of it is open. Null reads as "".
  [[nodiscard]] std::string_view Text(ColumnHandle column) const;
  [[nodiscard]] RecordsetPtr Chapter(ColumnHandle column) const;
  [[nodiscard]] Variant Value(ColumnHandle column) const;

  // --- Rows of a fabricated rowset ----------------------------------------------------------------
  // Adds a row of Nulls and makes it current; visible to clones after Update, or when the position
  // moves on, which updates as well. Error 3001 on a query's rowset, as for every write.
  void AddNew();
  void Update();
  // Deletes the current row; the position then is on the row behind it.
  void Delete();
  // Typed writes of the current row, converted to the column's type.
  void Set(ColumnHandle column, const Variant& value);
  void SetText(ColumnHandle column, std::string_view text);

  // --- Position -----------------------------------------------------------------------------------
  void MoveFirst();
  void MoveLast();
  void MoveNext();      // error 3021 when at EOF already
  void MovePrevious();  // error 3021 when at BOF already
  // BOF and EOF; the second name is a macro of <stdio.h>, hence the small letters.
  [[nodiscard]] bool Bof() const;
  [[nodiscard]] bool Eof() const;
  [[nodiscard]] pstolvane1::Bookmark Bookmark() const;
  void Bookmark(pstolvane1::Bookmark position);  // error 3021 when that row is gone
  [[nodiscard]] std::int32_t RecordCount() const;  // of the visible rows; error 6 beyond 32 bits

  // --- View ---------------------------------------------------------------------------------------
  // Criteria: comparisons "column op value" with = <> < > <= >= LIKE, joined with And and Or, and
  // parentheses. Values: numbers, 'text' with '' for a quote, #dates#, True, False, Null. Names may
  // stand in brackets. Text ignores case; LIKE takes * and %. "" clears. The position moves to the
  // first visible row. An unreadable text is error 3001 that says where. Stays until replaced.
  void Filter(std::string_view criteria);
  void Filter(int zero);  // 0 clears
  [[nodiscard]] const std::string& Filter() const;
  // From the current row on, forward, to the first row that meets one comparison, else to EOF.
  void Find(std::string_view criterion);
  // "Column [ASC|DESC], ..."; stable, Null first, text ignores case. "" is the rows' own order.
  // The position moves to the first row.
  void Sort(std::string_view columns);
  [[nodiscard]] const std::string& Sort() const;
  // A second rowset on the same rows, unfiltered, in their own order, at the first row. What one
  // writes, adds or deletes the others see.
  [[nodiscard]] RecordsetPtr Clone(int lock_type = adLockUnspecified);

  // --- Iteration ----------------------------------------------------------------------------------
  // The visible rows in order, leaving the position where it is:
  //   for (Recordset::Row row : rowset->Rows()) total += row["Amount"].ToCurrency();
  class Row {
   public:
    [[nodiscard]] Variant operator[](std::string_view name) const;
    [[nodiscard]] Variant operator[](ColumnHandle column) const;
    [[nodiscard]] bool IsNull(ColumnHandle column) const;
    [[nodiscard]] std::string_view Text(ColumnHandle column) const;

   private:
    friend class Recordset;
    Row(const Recordset& rowset, std::uint32_t row) : rowset_(&rowset), row_(row) {}
    const Recordset* rowset_;
    std::uint32_t row_;
  };
  class RowIterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Row;
    using difference_type = std::ptrdiff_t;
    [[nodiscard]] Row operator*() const;
    RowIterator& operator++() { return ++place_, *this; }
    RowIterator operator++(int) { return {*rowset_, place_++}; }
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
  [[nodiscard]] RowRange Rows() const;

  // What the rows hold in memory, in bytes, text and indexes included.
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
