#include "session/rowset/Locale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <mutex>
#include <unicode/calendar.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/smpdtfmt.h>
#include <unicode/ucurr.h>
#include <utility>

#include "session/data/Error.h"
#include "session/rowset/DatePattern.h"
#include "session/rowset/NumberStyle.h"

namespace pstolvane1 {

struct Locale::Rules {
  std::string name;
  NumberStyle number;
  NumberStyle money;
  DatePattern short_date;
  DatePattern long_date;
  DatePattern time;
  DateNames names;
};

namespace {

constexpr const char* kCurrencyKeyword = "currency";
// A currency that somebody names is that of the books, and the books keep hundredths.
constexpr int kPlacesOfBooks = 2;

std::string Utf8(const icu::UnicodeString& text) {
  std::string utf8;
  text.toUTF8String(utf8);
  return utf8;
}

void Check(UErrorCode status, const std::string& locale) {
  if (U_FAILURE(status)) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "no number and date formats are known for the locale \"" + locale +
                    "\": " + u_errorName(status));
  }
}

// The older formatters do not know the locale's minimum, so it is read off what the newer one
// writes.
int MinimumBeforeGroup(const icu::Locale& locale, const NumberStyle& style) {
  const auto formatter = icu::number::NumberFormatter::withLocale(locale);
  double number = std::pow(10.0, style.first_group);
  for (int digits = 1; digits < 4; ++digits, number *= 10) {
    UErrorCode status = U_ZERO_ERROR;
    const std::string text = Utf8(formatter.formatDouble(number, status).toString(status));
    Check(status, locale.getName());
    if (text.find(style.group_separator) != std::string::npos) return digits;
  }
  return 1;
}

bool NamesCurrency(const icu::Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  return !locale.getKeywordValue<std::string>(kCurrencyKeyword, status).empty();
}

NumberStyle ReadNumberStyle(const icu::Locale& locale, UNumberFormatStyle kind) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::NumberFormat> format(
      icu::NumberFormat::createInstance(locale, kind, status));
  Check(status, locale.getName());
  const auto* decimal = dynamic_cast<const icu::DecimalFormat*>(format.get());
  if (decimal == nullptr) Check(U_UNSUPPORTED_ERROR, locale.getName());
  const icu::DecimalFormatSymbols& symbols = *decimal->getDecimalFormatSymbols();
  const bool money = kind == UNUM_CURRENCY;
  const auto symbol = [&symbols](icu::DecimalFormatSymbols::ENumberFormatSymbol which) {
    return Utf8(symbols.getConstSymbol(which));
  };

  NumberStyle style;
  icu::UnicodeString affix;
  style.prefix = Utf8(decimal->getPositivePrefix(affix));
  style.suffix = Utf8(decimal->getPositiveSuffix(affix));
  style.negative_prefix = Utf8(decimal->getNegativePrefix(affix));
  style.negative_suffix = Utf8(decimal->getNegativeSuffix(affix));
  style.decimal_separator = symbol(money ? icu::DecimalFormatSymbols::kMonetarySeparatorSymbol
                                         : icu::DecimalFormatSymbols::kDecimalSeparatorSymbol);
  style.group_separator = symbol(money ? icu::DecimalFormatSymbols::kMonetaryGroupingSeparatorSymbol
                                       : icu::DecimalFormatSymbols::kGroupingSeparatorSymbol);
  style.decimals = money ? decimal->getMinimumFractionDigits() : 2;
  if (money && NamesCurrency(locale)) style.decimals = std::max(style.decimals, kPlacesOfBooks);
  if (decimal->isGroupingUsed()) {
    style.first_group = decimal->getGroupingSize();
    style.further_groups = decimal->getSecondaryGroupingSize() > 0
                               ? decimal->getSecondaryGroupingSize()
                               : style.first_group;
    style.minimum_before_group = MinimumBeforeGroup(locale, style);
  } else {
    style.first_group = 0;
  }
  for (int digit = 0; digit < 10; ++digit) {
    style.digits[digit] = Utf8(symbols.getConstDigitSymbol(digit));
  }
  return style;
}

template <std::size_t N>
void CopyNames(const icu::UnicodeString* names, int32_t count, int32_t first,
               std::array<std::string, N>& to) {
  for (std::size_t i = 0; i < N && static_cast<int32_t>(i) + first < count; ++i) {
    to[i] = Utf8(names[static_cast<int32_t>(i) + first]);
  }
}

DateNames ReadDateNames(const icu::Locale& locale, const NumberStyle& number) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::DateFormatSymbols symbols(locale, status);
  Check(status, locale.getName());
  using Symbols = icu::DateFormatSymbols;
  DateNames names;
  int32_t count = 0;
  const auto copy_months = [&](Symbols::DtContextType context, Symbols::DtWidthType width,
                               std::array<std::string, 12>& to) {
    const icu::UnicodeString* months = symbols.getMonths(count, context, width);
    CopyNames(months, count, 0, to);
  };
  copy_months(Symbols::FORMAT, Symbols::WIDE, names.months);
  copy_months(Symbols::FORMAT, Symbols::ABBREVIATED, names.short_months);
  copy_months(Symbols::STANDALONE, Symbols::WIDE, names.standalone_months);
  copy_months(Symbols::STANDALONE, Symbols::ABBREVIATED, names.short_standalone_months);
  // The first weekday stands at index 1.
  const icu::UnicodeString* days = symbols.getWeekdays(count, Symbols::FORMAT, Symbols::WIDE);
  CopyNames(days, count, 1, names.days);
  days = symbols.getWeekdays(count, Symbols::FORMAT, Symbols::ABBREVIATED);
  CopyNames(days, count, 1, names.short_days);
  const icu::UnicodeString* halves = symbols.getAmPmStrings(count);
  CopyNames(halves, count, 0, names.halves);
  const icu::UnicodeString* eras = symbols.getEras(count);
  if (count > 1) names.era = Utf8(eras[1]);
  std::copy(std::begin(number.digits), std::end(number.digits), std::begin(names.digits));
  return names;
}

DatePattern ReadPattern(icu::DateFormat* made, const icu::Locale& locale) {
  const std::unique_ptr<icu::DateFormat> format(made);
  const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get());
  if (simple == nullptr) Check(U_UNSUPPORTED_ERROR, locale.getName());
  icu::UnicodeString pattern;
  return DatePattern(Utf8(simple->toPattern(pattern)));
}

// "INR" of "de_DE@currency=inr"; "" where no currency is named. Error 3001 for what is none.
std::string CurrencyIn(const icu::Locale& locale, const std::string& asked) {
  UErrorCode status = U_ZERO_ERROR;
  auto code = locale.getKeywordValue<std::string>(kCurrencyKeyword, status);
  if (U_FAILURE(status) || code.empty()) return {};
  icu::UnicodeString letters = icu::UnicodeString::fromUTF8(code).toUpper("");
  code = Utf8(letters);
  status = U_ZERO_ERROR;
  const bool known =
      letters.length() == 3 && ucurr_isAvailable(icu::toUCharPtr(letters.getTerminatedBuffer()),
                                                 U_DATE_MIN, U_DATE_MAX, &status) != 0;
  if (known && U_SUCCESS(status)) return code;
  throw Error(ErrorNumber::kArgumentOutOfRange, "there is no currency \"" + code +
                                                    "\" as in the locale \"" + asked +
                                                    "\"; write a code such as INR or EUR");
}

// What a host or the platform calls a locale; a name without one ("@currency=INR") is the user's.
icu::Locale Named(const std::string& asked) {
  const std::size_t keywords = std::min(asked.find('@'), asked.size());
  if (keywords > 0) return icu::Locale::createCanonical(asked.c_str());
  const std::string own = icu::Locale::getDefault().getBaseName();
  return icu::Locale::createCanonical((own + asked).c_str());
}

// The locale data's own name for it.
icu::Locale Resolve(std::string_view name) {
  const std::string asked(name);
  const icu::Locale locale = asked.empty() ? icu::Locale::getDefault() : Named(asked);
  const std::string currency = CurrencyIn(locale, asked);
  const std::string language = locale.getLanguage();
  const bool plain = asked == "C" || asked == "POSIX" || asked.starts_with("C.") ||
                     std::string_view(locale.getVariant()) == "POSIX" || language == "c";
  UErrorCode status = U_ZERO_ERROR;
  const std::string base = plain ? "en_IN" : locale.getBaseName();
  int32_t count = 0;
  const icu::Locale* known = icu::Locale::getAvailableLocales(count);
  for (int32_t i = 0; i < count; ++i) {
    if (plain || language == known[i].getLanguage()) {
      icu::Locale gregorian(base.c_str());
      gregorian.setKeywordValue("calendar", "gregorian", status);
      if (!currency.empty()) {
        gregorian.setKeywordValue(kCurrencyKeyword, currency.c_str(), status);
      }
      Check(status, asked);
      return gregorian;
    }
  }
  throw Error(ErrorNumber::kArgumentOutOfRange,
              "no number and date formats are known for the locale \"" + asked + "\"");
}

std::unique_ptr<const Locale::Rules> ReadRules(const icu::Locale& locale) {
  auto rules = std::make_unique<Locale::Rules>();
  rules->name = icu::Locale(locale.getBaseName()).getName();
  rules->number = ReadNumberStyle(locale, UNUM_DECIMAL);
  rules->money = ReadNumberStyle(locale, UNUM_CURRENCY);
  rules->names = ReadDateNames(locale, rules->number);
  using icu::DateFormat;
  rules->short_date =
      ReadPattern(DateFormat::createDateInstance(DateFormat::kShort, locale), locale);
  rules->long_date = ReadPattern(DateFormat::createDateInstance(DateFormat::kFull, locale), locale);
  rules->time = ReadPattern(DateFormat::createTimeInstance(DateFormat::kMedium, locale), locale);
  return rules;
}

}  // namespace

Locale::Locale(std::unique_ptr<const Rules> rules) : rules_(std::move(rules)) {}
Locale::~Locale() = default;

std::shared_ptr<const Locale> Locale::Get(std::string_view name) {
  static std::mutex mutex;
  static std::map<std::string, std::shared_ptr<const Locale>, std::less<>> known;
  const std::lock_guard lock(mutex);
  if (const auto found = known.find(name); found != known.end()) return found->second;
  auto locale = std::make_shared<const Locale>(ReadRules(Resolve(name)));
  known.emplace(name, locale);
  return locale;
}

const std::string& Locale::Name() const { return rules_->name; }

std::string Locale::FormatNumber(double value) const {
  return FormatDecimal(value, rules_->number);
}

std::string Locale::FormatCurrency(double value) const {
  return FormatDecimal(value, rules_->money);
}

std::string Locale::FormatCurrency(Currency value) const {
  return FormatCurrency(value.ToDouble());
}

void Locale::AppendNumber(double value, std::string& text) const {
  AppendDecimal(value, rules_->number, text);
}

void Locale::AppendCurrency(double value, std::string& text) const {
  AppendDecimal(value, rules_->money, text);
}

std::string Locale::FormatGeneralDate(Date date) const {
  const Date::Parts parts = date.ToParts();
  std::string text = rules_->short_date.Format(parts, rules_->names);
  if (date.HasTime()) text += " " + rules_->time.Format(parts, rules_->names);
  return text;
}

std::string Locale::FormatLongDate(Date date) const {
  return rules_->long_date.Format(date.ToParts(), rules_->names);
}

std::string Locale::MonthName(int month) const {
  if (month < 1 || month > 12) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "there is no month " + std::to_string(month) + "; months are 1 to 12");
  }
  return rules_->names.standalone_months[static_cast<std::size_t>(month - 1)];
}

const std::string& Locale::DateSeparator() const { return rules_->short_date.FirstSeparator(); }

Date Locale::ParseShortDate(std::string_view text) const {
  return rules_->short_date.Parse(text, rules_->names);
}

std::optional<double> Locale::ReadNumber(std::string_view text) const {
  return ReadDecimal(text, rules_->number);
}

std::optional<double> Locale::ReadCurrency(std::string_view text) const {
  return ReadDecimal(text, rules_->money);
}

Locale::CurrencyAffixes Locale::Affixes() const {
  return {rules_->money.prefix, rules_->money.suffix, rules_->money.decimals};
}

}  // namespace pstolvane1
