// Rows of one key, grouped once instead of filtered for every key.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "session/data/Recordset.h"

namespace pstolvane1 {

class KeyTable;
class RowStore;

// The visible rows of a rowset as they stand when this is made, by their values in some columns:
//   const RowGroups movements = rs->GroupBy({"Item_Id", "Godown_Id"});
//   for (const RowGroups::Group& group : movements) {
//     const Recordset::Row first = group.First();
//     for (const Recordset::Row row : group) ...
//   }
//   for (const Recordset::Row row : movements.Find({item_id, godown_id})) ...
// Groups come in the order of their first rows, the rows of a group in the rowset's order. Text
// ignores case, numbers are equal by value whatever their type, and Null is a key like any other.
// Costs 12 bytes a row, and nothing is copied. It keeps the rows, also when the rowset is closed;
// the values of the columns must stay as they are while it is used.
class RowGroups {
 public:
  class RowIterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Recordset::Row;
    using difference_type = std::ptrdiff_t;
    [[nodiscard]] Recordset::Row operator*() const { return RowGroups::RowOf(*store_, *row_); }
    RowIterator& operator++() { return ++row_, *this; }
    RowIterator operator++(int) { return {*store_, row_++}; }
    friend bool operator==(const RowIterator& a, const RowIterator& b) { return a.row_ == b.row_; }

   private:
    friend class RowGroups;
    RowIterator(const RowStore& store, const std::uint32_t* row) : store_(&store), row_(row) {}
    const RowStore* store_;
    const std::uint32_t* row_;
  };

  // The rows of one key. Empty for a key that no row has.
  class Group {
   public:
    [[nodiscard]] std::size_t Count() const { return rows_.size(); }
    [[nodiscard]] bool Empty() const { return rows_.empty(); }
    [[nodiscard]] Recordset::Row operator[](std::size_t number) const {
      return RowGroups::RowOf(*store_, rows_[number]);
    }
    [[nodiscard]] Recordset::Row First() const { return (*this)[0]; }
    [[nodiscard]] Recordset::Row Last() const { return (*this)[rows_.size() - 1]; }
    [[nodiscard]] RowIterator begin() const { return {*store_, rows_.data()}; }
    [[nodiscard]] RowIterator end() const { return {*store_, rows_.data() + rows_.size()}; }

   private:
    friend class RowGroups;
    Group(const RowStore& store, std::span<const std::uint32_t> rows)
        : store_(&store), rows_(rows) {}
    const RowStore* store_;
    std::span<const std::uint32_t> rows_;
  };

  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Group;
    using difference_type = std::ptrdiff_t;
    [[nodiscard]] Group operator*() const { return (*groups_)[number_]; }
    Iterator& operator++() { return ++number_, *this; }
    Iterator operator++(int) { return {*groups_, number_++}; }
    friend bool operator==(const Iterator& a, const Iterator& b) { return a.number_ == b.number_; }

   private:
    friend class RowGroups;
    Iterator(const RowGroups& groups, std::size_t number) : groups_(&groups), number_(number) {}
    const RowGroups* groups_;
    std::size_t number_;
  };

  // Error 3265 for an unknown column, 3001 for none and for a chapter.
  RowGroups(const Recordset& rowset, std::initializer_list<std::string_view> columns);
  ~RowGroups();
  RowGroups(RowGroups&&) noexcept;
  RowGroups& operator=(RowGroups&&) noexcept;

  [[nodiscard]] std::size_t Count() const { return starts_.size() - 1; }
  [[nodiscard]] Group operator[](std::size_t number) const {
    return {*store_,
            std::span(rows_).subspan(starts_[number], starts_[number + 1] - starts_[number])};
  }
  [[nodiscard]] Iterator begin() const { return {*this, 0}; }
  [[nodiscard]] Iterator end() const { return {*this, Count()}; }

  // A look-up: the rows whose columns have these values, one for each column. Error 3001 for
  // another number of values.
  [[nodiscard]] Group Find(std::initializer_list<Variant> key) const;
  // The rows that match a row, of this or another rowset, in the columns given there.
  [[nodiscard]] Group Find(const Recordset::Row& row,
                           std::initializer_list<ColumnHandle> columns) const;

 private:
  [[nodiscard]] static Recordset::Row RowOf(const RowStore& store, std::uint32_t row) {
    return {store, row};
  }
  [[nodiscard]] Group GroupOf(std::uint32_t number) const;
  void CheckParts(std::size_t count) const;

  // Kept because the rows must outlive the rowset they were grouped from.
  std::shared_ptr<RowStore> store_;
  std::size_t columns_ = 0;
  std::unique_ptr<KeyTable> keys_;
  std::vector<std::uint32_t> starts_;
  std::vector<std::uint32_t> rows_;
};

}  // namespace pstolvane1
