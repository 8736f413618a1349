// The catalogue of all public operations, events, enumerations and records.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Operation.h"

namespace pstolvane1::automation {

// Family by family, in the order in which a host meets them. The same for every call.
[[nodiscard]] std::span<const Operation> Operations();
[[nodiscard]] std::span<const Event> Events();
[[nodiscard]] std::span<const Enumeration* const> Enumerations();

// By name in any case; nullptr when there is none.
[[nodiscard]] const Operation* FindOperation(std::string_view name);
// The same, with error 3001 that names the unknown operation and the one most like it.
[[nodiscard]] const Operation& GetOperation(std::string_view name);

// The value of a name of the enumeration, in any case.
[[nodiscard]] std::optional<std::int32_t> ValueOf(const Enumeration& enumeration,
                                                  std::string_view name);
// "FifoRate", or the number of a value that has no name.
[[nodiscard]] std::string NameOf(const Enumeration& enumeration, std::int32_t value);

}  // namespace pstolvane1::automation
