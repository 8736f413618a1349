// Which requests the viewer answers.
#pragma once

#include <string>
#include <string_view>

namespace pstolvane1::viewer {

// A web page of another site may make the browser send requests here, and any program of the
// machine can. So what tells of the books is answered only to who names this address, comes from
// the viewer's own pages, and has the token that the program printed.
class Guard {
 public:
  Guard(int port, std::string token) : port_(port), token_(std::move(token)) {}

  // 32 random letters and figures. Error 501 where the machine has no random numbers.
  [[nodiscard]] static std::string NewToken();

  // What the browser says of a request; "" for a header that is not there.
  struct Asker {
    std::string_view host, origin, site, cookie;
  };
  // The address is that of the loopback, in one of its names.
  [[nodiscard]] bool IsHere(const Asker& asker) const;
  // No page of another origin has made the request.
  [[nodiscard]] bool IsOwnPage(const Asker& asker) const;
  [[nodiscard]] bool HasToken(const Asker& asker) const;
  [[nodiscard]] bool IsToken(std::string_view text) const;

  // The header's value that hands the token to the browser: sent back to this server alone, and not
  // shown to the page.
  [[nodiscard]] std::string CookieToSet() const;
  [[nodiscard]] const std::string& Token() const { return token_; }

 private:
  [[nodiscard]] std::string CookieName() const;

  int port_;
  std::string token_;
};

}  // namespace pstolvane1::viewer
