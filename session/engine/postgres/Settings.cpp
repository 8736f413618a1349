#include "session/engine/postgres/Settings.h"

#include <algorithm>
#include <charconv>
#include <libpq-fe.h>
#include <memory>

#include "session/data/Error.h"
#include "session/engine/postgres/Errors.h"

namespace pstolvane1::postgres {
namespace {

struct FreeOptions {
  void operator()(PQconninfoOption* options) const noexcept { PQconninfoFree(options); }
};
using Options = std::unique_ptr<PQconninfoOption, FreeOptions>;

// A server that does not answer is given up, and one that is gone without a word is noticed within
// a minute.
constexpr std::pair<const char*, const char*> kDefaults[] = {
    {"fallback_application_name", "pStolvane1"},
    {"connect_timeout", "30"},
    {"tcp_user_timeout", "60000"},
    {"keepalives_idle", "30"},
    {"keepalives_interval", "10"},
    {"keepalives_count", "3"},
};

bool MayHoldPassword(std::string_view text) {
  return text.find("password") != std::string_view::npos ||
         text.find('@') != std::string_view::npos;
}

}  // namespace

Settings::Settings(std::string_view connection_string) {
  const std::string text(connection_string);
  if (text.find('\0') != std::string::npos) {
    throw Error(ErrorNumber::kConnection, "The connection string of PostgreSQL has a zero byte.");
  }
  char* words = nullptr;
  const Options options(PQconninfoParse(text.c_str(), &words));
  const std::string why = words != nullptr ? OneLine(words) : "";
  PQfreemem(words);
  if (!options) {
    throw Error(ErrorNumber::kConnection,
                "The connection string of PostgreSQL cannot be read" +
                    (MayHoldPassword(text) || why.empty() ? "." : ": " + why + "."));
  }
  for (const PQconninfoOption* option = options.get(); option->keyword != nullptr; ++option) {
    if (option->val != nullptr) keywords_.emplace_back(option->keyword, option->val);
  }
  for (const auto& [keyword, value] : kDefaults) {
    if (Value(keyword).empty()) keywords_.emplace_back(keyword, value);
  }
  std::erase_if(keywords_, [](const auto& one) { return one.first == "client_encoding"; });
  keywords_.emplace_back("client_encoding", "UTF8");

  const std::string database = Value("dbname");
  // It would be taken for a name, and told with the password that it may hold.
  if (database.find("://") != std::string::npos) {
    throw Error(ErrorNumber::kConnection,
                "The dbname of the connection string is a connection string itself: write that one "
                "alone.");
  }
  const std::string host = Value("host").empty() ? Value("hostaddr") : Value("host");
  const std::string service = Value("service");
  name_ = database.empty() ? "the user's own database" : "\"" + database + "\"";
  if (!service.empty()) name_ += " of the service \"" + service + "\"";
  if (!host.empty()) {
    name_ += " on \"" + host + (Value("port").empty() ? "" : ":" + Value("port")) + "\"";
  }
}

std::chrono::milliseconds Settings::ConnectLimit() const {
  const std::string text = Value("connect_timeout");
  int seconds = 0;
  std::from_chars(text.data(), text.data() + text.size(), seconds);
  return std::chrono::seconds(std::max(seconds, 0));
}

std::string Settings::Value(std::string_view keyword) const {
  const auto found =
      std::ranges::find_if(keywords_, [&](const auto& one) { return one.first == keyword; });
  return found == keywords_.end() ? "" : found->second;
}

}  // namespace pstolvane1::postgres
