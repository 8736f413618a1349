// The server over HTTP, as a page and as somebody else asks it.
#include <gtest/gtest.h>
#include <httplib.h>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>
#include <thread>

#include "host/ServeCommand.h"
#include "session/data/Error.h"
#include "tests/CommandOutput.h"
#include "tests/books/BooksOnDisk.h"
#include "tests/viewer/ViewerBooks.h"
#include "viewer/PageFiles.h"
#include "viewer/Server.h"

namespace pstolvane1::viewer {
namespace {

using Json = nlohmann::json;

class ServedBooks : public testing::Test {
 protected:
  explicit ServedBooks(const Limits& limits = {}, const host::OutputOptions& look = {})
      : server_({host::BooksFor(books::test::SampleFile(), look), 0, "en_IN", limits}),
        thread_([this] { server_.Run(); }),
        http_("127.0.0.1", server_.Port()) {
    http_.set_keep_alive(true);
    http_.set_read_timeout(60);
    const httplib::Result first = http_.Get("/?token=" + Token());
    EXPECT_EQ(first->status, 303);
    const std::string cookie = first->get_header_value("Set-Cookie");
    headers_ = {{"Cookie", cookie.substr(0, cookie.find(';'))}};
  }
  ~ServedBooks() override {
    server_.Stop();
    thread_.join();
  }

  std::string Token() const {
    const std::string address = server_.Address();
    return address.substr(address.find('=') + 1);
  }
  int StatusOf(const std::string& path, const httplib::Headers& headers) {
    return http_.Get(path, headers)->status;
  }
  Json Asked(const std::string& path) { return Json::parse(http_.Get(path, headers_)->body); }
  httplib::Result Posted(const std::string& path, const Json& body) {
    return http_.Post(path, headers_, body.dump(), "application/json");
  }
  std::string Opened(const std::string& operation, const Json& arguments) {
    const httplib::Result answer =
        Posted("/api/reports", {{"operation", operation}, {"arguments", arguments}});
    EXPECT_EQ(answer->status, 200) << answer->body;
    return Json::parse(answer->body).value("report", "");
  }
  std::string OpenedSales() {
    return Opened(
        "Doc_Initial",
        {{"lngVouchertype_id", "10"}, {"dtFromDate", "2004-04-01"}, {"dtToDate", "2004-04-30"}});
  }
  // The last event of the report.
  Json End(const std::string& report) {
    httplib::Client listener("127.0.0.1", server_.Port());
    listener.set_read_timeout(60);
    std::string text;
    Json last;
    static_cast<void>(listener.Get(
        "/api/reports/" + report + "/events", headers_, [&](const char* data, std::size_t length) {
          text.append(data, length);
          for (std::size_t end; (end = text.find("\n\n")) != text.npos; text.erase(0, end + 2)) {
            if (!text.starts_with("data: ")) continue;
            last = Json::parse(text.substr(6, end - 6));
          }
          return last.is_null() || last["stage"] == "running";
        }));
    return last;
  }

  Server server_;
  std::thread thread_;
  httplib::Client http_;
  httplib::Headers headers_;
};

TEST_F(ServedBooks, ShowTheirPageToEverybodyOnTheMachine) {
  const httplib::Result page = http_.Get("/");
  EXPECT_EQ(page->status, 200);
  EXPECT_NE(page->body.find("/page/page.js"), std::string::npos);
  EXPECT_NE(page->get_header_value("Content-Security-Policy").find("default-src 'none'"),
            std::string::npos);
  EXPECT_EQ(StatusOf("/report/Doc_Initial", {}), 200);
  for (const PageFile& file : PageFiles()) {
    EXPECT_FALSE(file.text.empty()) << file.name;
    EXPECT_EQ(StatusOf("/page/" + std::string(file.name), {}), 200) << file.name;
  }
  EXPECT_EQ(StatusOf("/page/nothing.js", {}), 404);
  EXPECT_EQ(StatusOf("/page/..%2f..%2fetc%2fpasswd", {}), 404);
}

TEST_F(ServedBooks, AnswerNobodyElse) {
  const std::string here = "127.0.0.1:" + std::to_string(server_.Port());
  EXPECT_EQ(StatusOf("/api/forms", headers_), 200);
  EXPECT_EQ(StatusOf("/api/forms", {}), 401);
  EXPECT_EQ(StatusOf("/api/forms", {{"Cookie", "stolvane-1=x"}}), 401);
  EXPECT_EQ(StatusOf("/?token=wrong", {}), 401);
  httplib::Headers other = headers_;
  other.emplace("Host", "books.example");
  EXPECT_EQ(StatusOf("/", other), 421);
  EXPECT_EQ(StatusOf("/api/forms", other), 421);
  other = headers_;
  other.emplace("Origin", "http://books.example");
  EXPECT_EQ(StatusOf("/api/forms", other), 403);
  other = headers_;
  other.emplace("Sec-Fetch-Site", "cross-site");
  EXPECT_EQ(StatusOf("/api/forms", other), 403);
  other = headers_;
  other.emplace("Origin", "http://" + here);
  EXPECT_EQ(StatusOf("/api/forms", other), 200);
}

TEST_F(ServedBooks, AreOnTheLoopbackAddressAlone) {
  for (const char* elsewhere : {"127.0.0.2"}) {
    httplib::Client http(elsewhere, server_.Port());
    EXPECT_FALSE(http.Get("/")) << elsewhere;
  }
  EXPECT_TRUE(server_.Address().starts_with("http://127.0.0.1:"));
}

TEST_F(ServedBooks, GiveAReportFromItsQuestionToItsEnd) {
  const std::string report = OpenedSales();
  const Json end = End(report);
  EXPECT_EQ(end["stage"], "done") << end;
  EXPECT_EQ(end["report"]["lines"], 4);
  const std::string path = "/api/reports/" + report;
  EXPECT_EQ(Asked(path + "/lines?from=0&count=1")["lines"],
            Json::parse(R"([["line", 1, 0, 0, "Jayant Hegde", "₹44,489.25"]])"));
  EXPECT_EQ(Asked(path + "/lines?sort=Amount&down=1&count=1&f.Ledger=das")["lines"][0][4],
            "Sanjay Das");
  EXPECT_EQ(Asked(path + "/roads?place=0").size(), 2U);
  EXPECT_EQ(Asked(path + "/picture?number=0")["names"].size(), 4U);
  EXPECT_EQ(Posted(path + "/close", Json::object())->status, 200);
  EXPECT_EQ(server_.Reports(), 0U);
  EXPECT_EQ(StatusOf(path + "/lines", headers_), 404);
  EXPECT_EQ(StatusOf(path + "/events", headers_), 404);
}

TEST_F(ServedBooks, HandOverFiles) {
  const std::string report = OpenedSales();
  EXPECT_EQ(End(report)["stage"], "done");
  const std::string path = "/api/reports/" + report + "/report.";
  const httplib::Result csv = http_.Get(path + "csv?f.Ledger=das", headers_);
  EXPECT_EQ(csv->body, "\xEF\xBB\xBFParty,Amount\r\nSanjay Das,43599.38\r\n");
  EXPECT_EQ(csv->get_header_value("Content-Disposition"),
            "attachment; filename=\"Doc_Initial.csv\"");
  EXPECT_TRUE(http_.Get(path + "xlsx", headers_)->body.starts_with("PK"));
  EXPECT_EQ(http_.Get(path + "html", headers_)->get_header_value("Content-Type"),
            "text/html; charset=utf-8");
}

class ServedUnderALetterhead : public ServedBooks {
 protected:
  ServedUnderALetterhead() : ServedBooks({}, Look()) {}

  static host::OutputOptions Look() {
    static const books::test::Folder folder;
    folder.Write("asha.txt", "CompanyName=Asha Motors\nCompanyAddress2=Nizamabad 503001\n");
    host::OutputOptions look;
    look.letterhead = folder.File("asha.txt");
    look.paper = "A3";
    return look;
  }
};

TEST_F(ServedUnderALetterhead, PrintIt) {
  const std::string report = OpenedSales();
  const Json end = End(report);
  EXPECT_EQ(end["report"]["below"][0], "Asha Motors");
  const books::test::Folder folder;
  folder.Write("report.pdf", http_.Get("/api/reports/" + report + "/report.pdf", headers_)->body);
  const std::string page = CommandOutput("pdftotext -layout " + folder.File("report.pdf") + " -");
  EXPECT_LT(page.find("Asha Motors"), page.find("Nizamabad 503001"));
  EXPECT_LT(page.find("Nizamabad 503001"), page.find("Sanjay Das"));
  EXPECT_NE(CommandOutput("pdfinfo " + folder.File("report.pdf")).find("(A3)"), std::string::npos);
}

TEST_F(ServedBooks, AbandonAReport) {
  const std::string report = OpenedSales();
  EXPECT_EQ(Posted("/api/reports/" + report + "/abandon", Json::object())->status, 200);
  const Json end = End(report);
  EXPECT_TRUE(end["stage"] == "abandoned" || end["stage"] == "done") << end;
  EXPECT_EQ(Posted("/api/reports/77/abandon", Json::object())->status, 404);
}

TEST_F(ServedBooks, SayWhatIsWrongWithAQuestion) {
  const auto problem = [this](const Json& question) {
    const httplib::Result answer = Posted("/api/reports", question);
    EXPECT_EQ(answer->status, 400);
    return Json::parse(answer->body)["problem"].get<std::string>();
  };
  EXPECT_TRUE(problem({{"operation", "Nothing"}}).starts_with("there is no operation"));
  EXPECT_NE(problem({{"operation", "ItemWise_DlyBkup"}}).find("missing"), std::string::npos);
  EXPECT_EQ(http_.Post("/api/reports", headers_, "{}", "text/plain")->status, 400);
  EXPECT_EQ(
      http_.Post("/api/reports", headers_, std::string(100'000, ' '), "application/json")->status,
      413);
  const std::string report = OpenedSales();
  EXPECT_EQ(End(report)["stage"], "done");
  const std::string path = "/api/reports/" + report;
  EXPECT_EQ(StatusOf(path + "/lines?from=x", headers_), 400);
  EXPECT_EQ(StatusOf(path + "/lines?sort=Nobody", headers_), 400);
  EXPECT_EQ(StatusOf(path + "/picture?number=9", headers_), 400);
  EXPECT_EQ(StatusOf("/api/names/nobody", headers_), 400);
}

TEST_F(ServedBooks, FindNamesWhileOneTypes) {
  const Json found = Asked("/api/names/parties?text=das");
  ASSERT_FALSE(found.empty());
  const std::string key = std::to_string(found[0]["key"].get<int>());
  EXPECT_EQ(Asked("/api/names/parties?key=" + key)["name"], found[0]["name"]);
}

// The arguments of a form as it stands, in detail; what needs a key gets the first of the books.
class FilledForm : public ServedBooks {
 protected:
  Json Arguments(const Json& report, const Json& year) {
    Json arguments = Json::object();
    for (const Json& argument : report["arguments"]) {
      arguments[argument["name"].get<std::string>()] = Value(argument, arguments, year);
    }
    return arguments;
  }

 private:
  std::string Value(const Json& argument, const Json& given, const Json& year) {
    const std::string name = argument["name"], text = argument["preset"];
    if (name == "bytYearno") return std::to_string(year["number"].get<int>());
    if (name == "dtFromDate") return year["from"];
    if (name == "dtToDate") return year["to"];
    if (name == "ValuationMethod") return "AverageRate";
    if (name == "blnDetailed") return "true";
    if (name == "lngColor_Id") return "2";
    if (name == "lngItem_id") return "1";  // which has batches of that colour
    if (!text.empty()) return text;
    for (const Json& list : argument["lists"]) {
      const std::string decides = list["argument"];
      if (!decides.empty() && given.value(decides, "") != list["value"]) continue;
      const std::string names = list["names"];
      return std::to_string(Asked("/api/names/" + names)[0]["key"].get<int>());
    }
    return argument["type"] == "int32" || argument["type"] == "byte" ? "1" : "";
  }
};

TEST_F(FilledForm, GivesEveryReportAndLeadsOn) {
  const Json forms = Asked("/api/forms");
  std::set<std::string> titles;
  std::map<std::string, Json> roads;  // one of each way between two reports
  for (const Json& family : forms["families"]) {
    for (const Json& report : family["reports"]) {
      const std::string name = report["operation"];
      EXPECT_TRUE(titles.insert(report["words"]).second) << report["words"];
      const std::string opened = Opened(name, Arguments(report, forms["years"][1]));
      const Json end = End(opened);
      EXPECT_EQ(end["stage"], "done") << name << ' ' << end;
      const std::string path = "/api/reports/" + opened;
      const Json lines = end["stage"] == "done" ? Asked(path + "/lines?count=60") : Json();
      for (const Json& line : lines.is_null() ? Json::array() : lines["lines"]) {
        if (line[1] == 0) continue;
        for (Json& road : Asked(path + "/roads?place=" + std::to_string(line[2].get<int>()))) {
          roads.emplace(name + " " + road["words"].get<std::string>(), std::move(road));
        }
      }
      Posted(path + "/close", Json::object());
    }
  }
  EXPECT_GE(roads.size(), 20U);
  for (const auto& [words, road] : roads) {
    const std::string opened = Opened(road["operation"], road["arguments"]);
    const Json end = End(opened);
    EXPECT_EQ(end["stage"], "done") << words << ' ' << road << ' ' << end;
    Posted("/api/reports/" + opened + "/close", Json::object());
  }
  EXPECT_EQ(server_.Reports(), 0U);
}

TEST_F(ServedBooks, ServeTenPagesAtOnceAndNoMore) {
  constexpr std::size_t kPages = 10;
  std::vector<std::string> lines(kPages);
  std::vector<std::thread> pages;
  for (std::string& seen : lines) {
    pages.emplace_back([this, &seen] {
      httplib::Client page("127.0.0.1", server_.Port());
      page.set_read_timeout(60);
      const Json question{{"operation", "Doc_Initial"},
                          {"arguments",
                           {{"lngVouchertype_id", "10"},
                            {"dtFromDate", "2004-04-01"},
                            {"dtToDate", "2004-04-30"}}}};
      const httplib::Result opened =
          page.Post("/api/reports", headers_, question.dump(), "application/json");
      const std::string report = Json::parse(opened->body).value("report", "");
      EXPECT_EQ(End(report)["stage"], "done");
      seen = page.Get("/api/reports/" + report + "/lines", headers_)->body;
    });
  }
  for (std::thread& page : pages) page.join();
  EXPECT_EQ(server_.Reports(), kPages);
  EXPECT_EQ(Json::parse(lines[0])["count"], 6);
  for (const std::string& seen : lines) EXPECT_EQ(seen, lines[0]);
  const httplib::Result refused =
      Posted("/api/reports",
             {{"operation", "LedgersByCode"}, {"arguments", {{"bytYearno", "2"}, {"sCode", ""}}}});
  EXPECT_EQ(refused->status, 400);
  EXPECT_NE(refused->body.find("10 reports are open"), std::string::npos) << refused->body;
}

class LonelyBooks : public ServedBooks {
 protected:
  LonelyBooks() : ServedBooks(Short()) {}
  static Limits Short() {
    Limits limits;
    limits.alone = std::chrono::milliseconds(200);
    return limits;
  }
};

TEST_F(LonelyBooks, CloseTheReportOfAPageThatHasGone) {
  static_cast<void>(End(OpenedSales()));  // listens, and goes
  while (server_.Reports() > 0) std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

TEST(Server, RefusesAPortThatIsTaken) {
  const Server first({host::BooksFor(books::test::SampleFile()), 0, "", {}});
  EXPECT_THROW(Server({host::BooksFor(books::test::SampleFile()), first.Port(), "", {}}), Error);
}

}  // namespace
}  // namespace pstolvane1::viewer
