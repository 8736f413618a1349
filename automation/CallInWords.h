// A call in words, as a command line has it: read, checked and bound at once, then carried out.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/Calls.h"

namespace pstolvane1::automation {

struct Master;

// The key of a name in the books; WrongCall when it names nobody, or several.
using KeyOfName = std::function<std::int32_t(const Master& names, const std::string& name)>;

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
  KeyOfName key_of;                  // asked for a name in a key's place; empty: it is refused
};

// Words that cannot be carried out. what() says what is wrong with them.
class WrongCall : public std::runtime_error {
 public:
  explicit WrongCall(const std::string& problem, std::string usage = {})
      : std::runtime_error(problem), usage_(std::move(usage)) {}
  // How the operation or setting is called; "" where there is none.
  [[nodiscard]] const std::string& Usage() const { return usage_; }

 private:
  std::string usage_;
};

// A call whose words are right; whether the books have what it asks for is seen when it runs.
class CallInWords {
 public:
  // Values may be written as ValueFromWords takes them, and names in the place of keys. What the
  // operation takes and does not look at may be left out. WrongCall for an unknown operation,
  // argument, alias or filter, and for a value of another kind than its place.
  explicit CallInWords(const CallWords& words);

  [[nodiscard]] const Operation& Called() const { return call_.operation; }
  // One for each of its slots.
  [[nodiscard]] const BoundValues& Values() const { return call_.values; }
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

// By name in any case. WrongCall for an unknown one, with the name that is most like it.
[[nodiscard]] const Operation& OperationNamed(const std::string& name);
// The operation with its arguments, over several lines.
[[nodiscard]] std::string Describe(const Operation& operation);
// How the operation is called in words, with the arguments that it looks at; "" for an unknown one.
[[nodiscard]] std::string UsageInWords(std::string_view operation);

}  // namespace pstolvane1::automation
