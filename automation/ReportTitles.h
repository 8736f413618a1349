// What stands above a report for people: its name in words, and what was asked for.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "automation/CallInWords.h"
#include "session/data/Date.h"
#include "session/rowset/Locale.h"
#include "session/rowset/ReportLook.h"

namespace pstolvane1::automation {

// "Sales and returns by item" for the operation and the report type that it delivers.
[[nodiscard]] std::string TitleOf(const Operation& operation,
                                  std::optional<std::int32_t> report_type);

// What the books know of a key: its name, or "" where they have none; and the key of the group
// above it, 0 at the top.
struct KeysOfBooks {
  std::function<std::string(const Master& names, std::int32_t key)> name_of;
  std::function<std::int64_t(const Master& names, std::int64_t key)> above;
};

// The look of the report that a call with these values gives, in English: its title; below it whose
// books, whom it is of, the period, how stock is valued and in which unit money is; the day of
// print; its columns; and the tree of its groups.
[[nodiscard]] ReportLook LookOf(const Operation& operation, const BoundValues& values,
                                const std::string& company, const KeysOfBooks& books,
                                const Locale& locale, Date today);
[[nodiscard]] inline ReportLook LookOf(const CallInWords& call, const std::string& company,
                                       const KeysOfBooks& books, const Locale& locale, Date today) {
  return LookOf(call.Called(), call.Values(), company, books, locale, today);
}

}  // namespace pstolvane1::automation
