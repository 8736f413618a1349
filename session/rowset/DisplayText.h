// The text of one cell of a report.
#pragma once

#include <string>
#include <string_view>

#include "session/data/Date.h"
#include "session/data/Variant.h"
#include "session/rowset/Locale.h"

namespace pstolvane1 {

// A quantity or a rate. Error 94 for Null, 13 for a value that is not a number.
[[nodiscard]] std::string FormatQuantityText(const Locale& locale, const Variant& value);
// Money, zero included. Error 94 for Null, 13 for a value that is not a number.
[[nodiscard]] std::string FormatCurrencyText(const Locale& locale, const Variant& value);
// True for zero, Null, and any value that is not a finite number.
[[nodiscard]] bool IsBlankAmount(const Variant& value);
// Money; "" for a blank amount.
[[nodiscard]] std::string FormatCurrencyOrBlank(const Locale& locale, const Variant& value);
// The long date or the general date.
[[nodiscard]] std::string FormatDateText(const Locale& locale, Date date, bool long_date);

// The parts that are not empty, joined by the separator: "A", "12", "" and "/" give "A/12".
[[nodiscard]] std::string JoinDocumentNumber(std::string_view prefix, std::string_view number,
                                             std::string_view suffix, std::string_view separator);
// The same into a text, whose old content goes.
void JoinDocumentNumber(std::string_view prefix, std::string_view number, std::string_view suffix,
                        std::string_view separator, std::string& joined);

}  // namespace pstolvane1
