// The values of a call as texts, and the lists of names that its keys are from.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "automation/Arguments.h"

namespace pstolvane1::automation {

// By the name of the argument, as ValueFromText reads them; rowsets and what is Null or Empty are
// left out.
using CallTexts = std::map<std::string, std::string, std::less<>>;
// A value of the argument's type as such a text.
[[nodiscard]] std::string TextOf(const Argument& argument, const Variant& value);
// One value for each slot of the operation, as Bind gives them.
[[nodiscard]] CallTexts TextsOf(const Operation& operation, const BoundValues& values);

// The list that the argument's key is from in such a call; nullptr for what is no key.
[[nodiscard]] const Master* ListOf(const Argument& argument, const CallTexts& call);

}  // namespace pstolvane1::automation
