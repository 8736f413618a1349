// Short commands for people: which operation a word stands for, and how its arguments are filled.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Masters.h"
#include "automation/Operation.h"
#include "session/data/Date.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1::automation {

// What a word stands for with one value of --by; the first row of a word is what it is without.
struct ShortForm {
  std::string_view word;  // "stock"
  std::string_view by;    // "item"
  std::string_view operation;
  std::string_view fixed;          // "NAME=VALUE; NAME=VALUE"
  std::string_view rowset = {};    // the argument that takes the items of the books
  const Master* only = nullptr;    // whose name --only takes; none where there is no --only
  std::string_view only_one = {};  // "NAME=VALUE" with "{}" for the key that --only leads to
  std::string_view all = {};       // "NAME=VALUE" without --only; "" and only_one: it is needed
};

// Words in the order of the help, the forms of one word together.
[[nodiscard]] std::span<const ShortForm> ShortForms();
// One line about a word.
[[nodiscard]] std::string_view HelpOf(const ShortForm& form);
// The form of a word; the first one for "". nullptr when there is none.
[[nodiscard]] const ShortForm* FindShortForm(std::string_view word, std::string_view by);

// What a person chose for a short form.
struct ShortChoice {
  std::int32_t year = 1;
  Date from, to;
  std::string method;  // a name of a valuation or its beginning; "" is the weighted average
  bool detailed = false;
  bool alternate_units = false;
  float scale = 1;
  std::optional<std::int32_t> only;  // a key
};

// The arguments of the form's operation, "NAME=VALUE" in the operation's order. What the operation
// does not look at is left out. Error 3001 when the form needs a name and none is chosen.
[[nodiscard]] std::vector<std::string> ArgumentsOf(const ShortForm& form,
                                                   const ShortChoice& choice);

// "NAME=SELECT" of the rowset that the form hands over; "" for none.
[[nodiscard]] std::string RowsetOf(const ShortForm& form);

// What of a choice a form looks at.
enum class Choice : std::uint8_t {
  kYearNumber,
  kFirstDay,
  kLastDay,
  kMethod,
  kDetailed,
  kAlternateUnits,
  kMoneyScale
};
[[nodiscard]] bool Takes(const ShortForm& form, Choice choice);

}  // namespace pstolvane1::automation
