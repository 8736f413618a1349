// The books' lists of names, which the keys among the arguments lead to.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace pstolvane1::automation {

struct Master {
  std::string_view word;   // what a list of them is called: "items"
  std::string_view one;    // "item"
  std::string_view table;  // "Items1"
  std::string_view key;    // the column that the arguments hold
  std::string_view name;
  bool marks_deleted = false;  // the table has a column Deleted
  // A column that some arguments hold instead.
  std::string_view other_key = {};
  // Values that mean something without being anybody's key.
  std::span<const std::int32_t> without_row = {};
  // The column with the key of the group above, of those that are a tree.
  std::string_view above = {};
};

extern const Master kItems;
extern const Master kCategories;
extern const Master kClasses;
extern const Master kGodowns;
extern const Master kParties;
extern const Master kEmployees;
extern const Master kVouchertypes;  // the kind of document, which is a type's SubRelatedTo
extern const Master kMechanics;
extern const Master kFinanciers;
extern const Master kPartyGroups;
extern const Master kColours;
extern const Master kBatches;

[[nodiscard]] std::span<const Master* const> Masters();
// By its word in any case; nullptr for an unknown one.
[[nodiscard]] const Master* FindMaster(std::string_view word);

}  // namespace pstolvane1::automation
