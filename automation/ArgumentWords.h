// What people read over the arguments of a report, and for their values.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "automation/Operation.h"

namespace pstolvane1::automation {

// "From", "Valuation", "In detail"; for a key what it leads to: "Item".
[[nodiscard]] std::string LabelOf(const Argument& argument);
// "Party group", over the field where one of a list is picked.
[[nodiscard]] std::string LabelOf(const Master& names);
// "First in, first out" of a list to choose from; its name for a value without words.
[[nodiscard]] std::string WordsOf(const Enumeration& enumeration, std::int32_t value);
// "first in, first out"; "" for what is no method.
[[nodiscard]] std::string_view MethodInWords(std::int32_t method);

// What amounts of money are divided by, the smallest first.
struct ScaleWords {
  double divisor;
  std::string_view words;  // "in thousands"
};
[[nodiscard]] std::span<const ScaleWords> Scales();
// What a number of an operation may be where it stands for a choice; its value as a text.
struct ChoiceWords {
  std::string_view operation, argument;
  std::string_view value, words;  // "1", "By vehicle model"
};
// In the order in which they are offered; none for a plain number.
[[nodiscard]] std::span<const ChoiceWords> ChoicesOf(std::string_view operation,
                                                     std::string_view argument);
// "Stock by month" for "monthly".
[[nodiscard]] std::string_view FamilyInWords(std::string_view family);

}  // namespace pstolvane1::automation
