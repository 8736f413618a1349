#include "session/rowset/DisplayText.h"

#include <cmath>

#include "session/data/Error.h"

namespace pstolvane1 {

std::string FormatQuantityText(const Locale& locale, const Variant& value) {
  return locale.FormatNumber(value.ToDouble());
}

std::string FormatCurrencyText(const Locale& locale, const Variant& value) {
  if (value.Type() == adCurrency) return locale.FormatCurrency(value.ToCurrency());
  return locale.FormatCurrency(value.ToDouble());
}

bool IsBlankAmount(const Variant& value) {
  if (value.IsNull()) return true;
  try {
    const double number = value.ToDouble();
    return number == 0 || !std::isfinite(number);
  } catch (const Error&) {
    return true;
  }
}

std::string FormatCurrencyOrBlank(const Locale& locale, const Variant& value) {
  return IsBlankAmount(value) ? std::string() : FormatCurrencyText(locale, value);
}

std::string FormatDateText(const Locale& locale, Date date, bool long_date) {
  return long_date ? locale.FormatLongDate(date) : locale.FormatGeneralDate(date);
}

std::string JoinDocumentNumber(std::string_view prefix, std::string_view number,
                               std::string_view suffix, std::string_view separator) {
  std::string joined;
  JoinDocumentNumber(prefix, number, suffix, separator, joined);
  return joined;
}

void JoinDocumentNumber(std::string_view prefix, std::string_view number, std::string_view suffix,
                        std::string_view separator, std::string& joined) {
  joined.clear();
  for (const std::string_view part : {prefix, number, suffix}) {
    if (part.empty()) continue;
    if (!joined.empty()) joined += separator;
    joined += part;
  }
}

}  // namespace pstolvane1
