// Ways from the lines of one report to the report behind them.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Operation.h"

namespace pstolvane1::automation {

struct Road {
  std::string_view from;  // operation
  std::string_view when;  // "ARGUMENT=VALUE" of the report that it leads from; "" is always
  std::string_view to;    // operation
  std::string_view words;
  // "NAME=TEXT; NAME=TEXT". In a text stands "{Column}" for the line's cell, "{ARGUMENT}" for what
  // the report was asked with, "{Column|0}" for either or 0, "{first day}" and "{last day}" for
  // the line's month within the period. Without one of them the line has no such road. Arguments
  // that are not named keep the value that the report was asked with, where both have them.
  std::string_view arguments;
  std::string_view without = {};  // a column that has to be empty in the line
};

[[nodiscard]] std::span<const Road> Roads();

// The text of a line's cell by column, and of an argument; none where it is empty or not there.
using TextByName = std::function<std::optional<std::string>(std::string_view name)>;

// "NAME=VALUE" for each argument that the road's end looks at; nothing when the line has no such
// road.
[[nodiscard]] std::optional<std::vector<std::string>> FollowedBy(const Road& road,
                                                                 const TextByName& cell,
                                                                 const TextByName& asked);

// The names in braces that a road reads, without what stands for a lack of them.
[[nodiscard]] std::vector<std::string_view> NamesOf(const Road& road);

}  // namespace pstolvane1::automation
