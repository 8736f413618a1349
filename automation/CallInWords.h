// A call in words, as a command line has it: read, checked and bound at once, then carried out.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Calls.h"

namespace pstolvane1::automation {

struct CallWords {
  std::string operation;
  std::vector<std::string> arguments;  // "NAME=VALUE"
  std::vector<std::string> rowsets;    // "NAME=SELECT", on the same books
  std::vector<std::string> aliases;    // "taItem=EXPR"
  std::vector<std::string> filters;    // "OptNo=1"
  std::string books;
  std::string books_from, books_to;  // "" is no date
  std::string locale;                // "" is the user's own
  bool asynchronous = false;         // what blnReport says where no argument does
  bool cancel = false;               // CancelFetching before the call
};

// Words that cannot be carried out. The text says what is wrong with them, and below it how the
// operation or setting is called.
class WrongCall : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A call whose words are right; whether the books have what it asks for is seen when it runs.
class CallInWords {
 public:
  // WrongCall for an unknown operation, argument, alias or filter, and for a value of
  // another kind than its place.
  explicit CallInWords(const CallWords& words);

  [[nodiscard]] const Operation& Called() const { return call_.operation; }
  // As ReportTypeOf.
  [[nodiscard]] std::optional<std::int32_t> ReportType() const {
    return ReportTypeOf(call_.operation, call_.values);
  }
  // Connects a new session and makes the settings, then calls the operation. Errors are the
  // session's.
  Outcome Run(clsStolvane1& session) const;

 private:
  struct Bound {
    const Operation& operation;
    BoundValues values;
  };
  struct Select {
    RecordsetPtr rowset;  // what the call is bound to; opened when it runs
    std::string text;
  };

  static Bound BoundTo(const Operation& operation, const std::vector<NamedValue>& values);
  Bound BindCall(const CallWords& words);

  std::vector<Select> selects_;
  Bound call_;
  std::vector<Bound> settings_;
  bool cancel_;
};

// The operation with its arguments, over several lines.
[[nodiscard]] std::string Describe(const Operation& operation);
// How the operation is called in words; "" for an unknown one.
[[nodiscard]] std::string UsageInWords(std::string_view operation);

}  // namespace pstolvane1::automation
