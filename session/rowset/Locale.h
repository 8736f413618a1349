// How numbers, money and dates are shown to one user: a locale's rules, read once.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "session/data/Currency.h"
#include "session/data/Date.h"
#include "session/data/Variant.h"

namespace pstolvane1 {

// Immutable; share it between threads. Made once per locale and kept.
class Locale {
 public:
  // "en_IN", "de_DE", "fr_FR.UTF-8"; "" is the user's own as the platform tells it; C and POSIX are
  // en_IN. Money is in the locale's currency, unless one is named: "de_DE@currency=INR", or
  // "@currency=INR" for the user's own locale. Then the locale gives the separators, the grouping
  // and the place of the symbol, and two decimals at least are shown. Error 3001 for a name that no
  // locale data is known for, and for an unknown currency.
  [[nodiscard]] static std::shared_ptr<const Locale> Get(std::string_view name);

  [[nodiscard]] const std::string& Name() const;

  // The locale's decimal style with two decimals and its grouping. The value is taken to 15
  // significant digits and rounded half away from zero. Error 6 for what is not a finite number.
  [[nodiscard]] std::string FormatNumber(double value) const;
  // The locale's currency style: its symbol, decimals and negative form.
  [[nodiscard]] std::string FormatCurrency(double value) const;
  [[nodiscard]] std::string FormatCurrency(Currency value) const;
  // The same two behind what the text holds already.
  void AppendNumber(double value, std::string& text) const;
  void AppendCurrency(double value, std::string& text) const;
  // The short date with a four-digit year, and the time only if there is one.
  [[nodiscard]] std::string FormatGeneralDate(Date date) const;
  // The full date.
  [[nodiscard]] std::string FormatLongDate(Date date) const;
  // The long, stand-alone name of month 1 to 12; error 3001 outside.
  [[nodiscard]] std::string MonthName(int month) const;

  [[nodiscard]] const std::string& DateSeparator() const;  // of the short date
  // The date that a text in the locale's short format names; error 13 for what cannot be read.
  [[nodiscard]] Date ParseShortDate(std::string_view text) const;

  // The value of a text that FormatNumber or FormatCurrency could have written.
  [[nodiscard]] std::optional<double> ReadNumber(std::string_view text) const;
  [[nodiscard]] std::optional<double> ReadCurrency(std::string_view text) const;
  // The text that FormatCurrency(1) would be without its digits, and where it stands: for a
  // spreadsheet's number format, as {"₹", ""} or {"", " €"}.
  struct CurrencyAffixes {
    std::string_view prefix;
    std::string_view suffix;
    int decimals;
  };
  [[nodiscard]] CurrencyAffixes Affixes() const;

  struct Rules;
  explicit Locale(std::unique_ptr<const Rules> rules);
  ~Locale();

 private:
  std::unique_ptr<const Rules> rules_;
};

}  // namespace pstolvane1
