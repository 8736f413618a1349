#include "viewer/Guard.h"

#include <array>
#include <fmt/format.h>
#include <sys/random.h>

#include "session/data/Error.h"

namespace pstolvane1::viewer {
namespace {

constexpr std::string_view kLetters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
constexpr std::size_t kTokenLength = 32;

std::string_view Trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  return text;
}

}  // namespace

std::string Guard::NewToken() {
  std::array<unsigned char, kTokenLength> bytes{};
  if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
    throw Error(ErrorNumber::kConnection, "the machine gives no random numbers");
  }
  std::string token;
  for (const unsigned char byte : bytes) token += kLetters[byte % kLetters.size()];
  return token;
}

bool Guard::IsHere(const Asker& asker) const {
  return asker.host == fmt::format("127.0.0.1:{}", port_) ||
         asker.host == fmt::format("localhost:{}", port_);
}

bool Guard::IsOwnPage(const Asker& asker) const {
  if (!asker.origin.empty() && asker.origin != fmt::format("http://{}", asker.host)) return false;
  return asker.site.empty() || asker.site == "same-origin" || asker.site == "none";
}

bool Guard::HasToken(const Asker& asker) const {
  const std::string start = CookieName() + "=";
  for (std::string_view rest = asker.cookie; !rest.empty();) {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    const std::string_view one = Trimmed(rest.substr(0, end));
    if (one.starts_with(start)) return IsToken(one.substr(start.size()));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return false;
}

// In a time that does not tell how many letters were right.
bool Guard::IsToken(std::string_view text) const {
  if (text.size() != token_.size()) return false;
  unsigned differ = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    differ |= static_cast<unsigned char>(text[at] ^ token_[at]);
  }
  return differ == 0;
}

std::string Guard::CookieName() const { return fmt::format("stolvane-{}", port_); }

std::string Guard::CookieToSet() const {
  return fmt::format("{}={}; Path=/; HttpOnly; SameSite=Strict", CookieName(), token_);
}

}  // namespace pstolvane1::viewer
