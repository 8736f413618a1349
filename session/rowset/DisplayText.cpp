#include "session/rowset/DisplayText.h"

#include "session/data/Error.h"

namespace pstolvane1 {

std::string FormatQuantityText(const Locale& locale, const Variant& value) {
  return locale.FormatNumber(value.ToDouble());
}

std::string FormatCurrencyText(const Locale& locale, const Variant& value) {
  if (value.Type() == adCurrency) return locale.FormatCurrency(value.ToCurrency());
  return locale.FormatCurrency(value.ToDouble());
}

std::string FormatCurrencyOrBlank(const Locale& locale, const Variant& value) {
  try {
    return value.ToDouble() == 0 ? std::string() : FormatCurrencyText(locale, value);
  } catch (const Error&) {
    return {};
  }
}

std::string FormatDateText(const Locale& locale, Date date, bool long_date) {
  return long_date ? locale.FormatLongDate(date) : locale.FormatGeneralDate(date);
}

std::string JoinDocumentNumber(std::string_view prefix, std::string_view number,
                               std::string_view suffix, std::string_view separator) {
  std::string joined;
  for (const std::string_view part : {prefix, number, suffix}) {
    if (part.empty()) continue;
    if (!joined.empty()) joined += separator;
    joined += part;
  }
  return joined;
}

}  // namespace pstolvane1
