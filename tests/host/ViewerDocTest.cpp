// docs/viewer.md: each of its commands serves the books as the page says, and leaves nothing.
#include <algorithm>
#include <gmock/gmock.h>
#include <httplib.h>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "DocPage.h"

namespace pstolvane1::host::test {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;

class ViewerDoc : public DocHost {
 protected:
  ViewerDoc() : DocHost("mine.db") { folder.Write("asha.txt", "CompanyName=Asha Motors\n"); }
};

// What a browser gets at the address that the program has printed.
class Browser {
 public:
  explicit Browser(const std::string& printed) {
    const std::size_t start = printed.find("http://"), end = printed.find('\n', start);
    const std::size_t path = printed.find("/?", start);
    if (path == std::string::npos) return;
    http_ = std::make_unique<httplib::Client>(printed.substr(start, path - start));
    http_->set_read_timeout(60);
    const httplib::Result first = http_->Get(printed.substr(path, end - path));
    if (!first) return;
    const std::string cookie = first->get_header_value("Set-Cookie");
    cookie_ = {{"Cookie", cookie.substr(0, cookie.find(';'))}};
  }

  std::string Get(const std::string& path) {
    if (!http_) return {};
    const httplib::Result answer = http_->Get(path, cookie_);
    return answer ? answer->body : std::string();
  }
  // The first lines of the sales of a month by party.
  std::string Sales() {
    if (!http_) return {};
    const nlohmann::json asked = {
        {"operation", "Doc_Initial"},
        {"arguments",
         {{"lngVouchertype_id", "10"}, {"dtFromDate", "2004-04-01"}, {"dtToDate", "2004-04-30"}}}};
    static_cast<void>(http_->Post("/api/reports", cookie_, asked.dump(), "application/json"));
    std::string events;
    static_cast<void>(
        http_->Get("/api/reports/1/events", cookie_, [&](const char* text, std::size_t length) {
          events.append(text, length);
          return events.find("\"done\"") == std::string::npos;
        }));
    return Get("/api/reports/1/lines?from=0&count=10");
  }

 private:
  std::unique_ptr<httplib::Client> http_;
  httplib::Headers cookie_;
};

std::string PortIn(const std::string& printed) {
  constexpr std::string_view kBefore = "http://127.0.0.1:";
  const std::size_t at = printed.find(kBefore);
  if (at == std::string::npos) return {};
  const std::size_t start = at + kBefore.size();
  return printed.substr(start, printed.find('/', start) - start);
}

TEST_F(ViewerDoc, CommandsServeUntilCtrlCAndLeaveNothing) {
  const std::vector<Words> commands = CommandsOf(DocPage("docs/viewer.md"));
  ASSERT_EQ(commands.size(), 3U);
  std::string port = "8000";
  for (Words words : commands) {
    // The page's own port may be taken here; the one of the command before is free again.
    std::ranges::replace(words, "8000", port);
    const bool fixed = std::ranges::find(words, "--port") != words.end();
    const bool german = std::ranges::find(words, "de_DE") != words.end();
    std::string address;
    const Finished finished = StolvaneOnceItSays("Ctrl-C", words, [&](const std::string& out) {
      Browser browser(out);
      EXPECT_THAT(browser.Get("/"), HasSubstr("/page/page.js"));
      EXPECT_THAT(browser.Get("/api/forms"), HasSubstr("\"name\":\"2004-05\""));
      if (fixed) {
        EXPECT_EQ(PortIn(out), port);
      }
      port = PortIn(out);
      if (german) {
        EXPECT_THAT(browser.Sales(), ContainsRegex("[0-9]{2}\\.[0-9]{3},[0-9]{2}"));
      }
      address = out;
    });
    EXPECT_EQ(finished.status, 128 + SIGINT);
    EXPECT_EQ(finished.err, "");
    EXPECT_EQ(Browser(address).Get("/"), "") << "still answers";
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"asha.txt", "mine.db"}));
  }
}

TEST_F(ViewerDoc, APortThatIsTakenIsToldInASentence) {
  Finished second;
  std::string port;
  static_cast<void>(
      StolvaneOnceItSays("Ctrl-C", {"serve", "--books", "mine.db"}, [&](const std::string& out) {
        port = PortIn(out);
        second = Stolvane({"serve", "--books", "mine.db", "--port", port});
      }));
  EXPECT_EQ(second.status, 1);
  EXPECT_THAT(second.err, HasSubstr("port " + port + " is not free"));
  EXPECT_EQ(second.out, "");
}

}  // namespace
}  // namespace pstolvane1::host::test
