#include "viewer/Server.h"

#include <algorithm>
#include <fmt/format.h>
#include <functional>
#include <httplib.h>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <utility>

#include "automation/Masters.h"
#include "automation/Operations.h"
#include "session/data/Error.h"
#include "viewer/Forms.h"
#include "viewer/Guard.h"
#include "viewer/PageFiles.h"
#include "viewer/Question.h"
#include "viewer/Runs.h"

namespace pstolvane1::viewer {
namespace {

using automation::WrongCall;
using httplib::Request;
using httplib::Response;
using Json = nlohmann::ordered_json;

constexpr const char* kLoopback = "127.0.0.1";
constexpr std::size_t kMostBytesAsked = std::size_t{64} * 1024;
constexpr std::size_t kMostLinesAtOnce = 1000;
// A browser holds up to six connections, and each page listens on one of them all the time.
constexpr std::size_t kThreads = 80;
constexpr std::chrono::milliseconds kBetweenSigns{1000};

constexpr const char* kJson = "application/json";
constexpr const char* kPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self' 'unsafe-inline'; img-src 'self' "
    "data:; "
    "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-src 'self'; frame-ancestors "
    "'self'";

// The address is shared with nobody else, not even with another program of the same user.
void OwnPort(socket_t socket) {
  const int yes = 1;
  setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

std::string Header(const Request& request, const char* name) {
  return request.get_header_value(name);
}

std::size_t NumberIn(const Request& request, const char* name, std::size_t otherwise) {
  if (!request.has_param(name)) return otherwise;
  const std::string text = request.get_param_value(name);
  if (text.empty() || text.size() > 9 ||
      text.find_first_not_of("0123456789") != std::string::npos) {
    throw WrongCall(fmt::format("{} is no number", name));
  }
  return std::stoul(text);
}

// sort=COLUMN, down=1 and f.COLUMN=TEXT.
Wish WishIn(const Request& request) {
  Wish wish;
  wish.sort = request.get_param_value("sort");
  wish.descending = request.get_param_value("down") == "1";
  for (const auto& [name, value] : request.params) {
    if (name.starts_with("f.")) wish.filter[name.substr(2)] = value;
  }
  return wish;
}

// hidden=COLUMN,COLUMN besides the wish.
ShownReport::Seen SeenIn(const Request& request) {
  ShownReport::Seen seen{WishIn(request), {}};
  std::istringstream names(request.get_param_value("hidden"));
  for (std::string name; std::getline(names, name, ',');) seen.hidden.insert(name);
  return seen;
}

void Refuse(Response& response, int status, const std::string& problem) {
  response.status = status;
  response.set_content(
      Json{{"problem", problem}}.dump(-1, ' ', false, Json::error_handler_t::replace), kJson);
}

std::string_view NameOf(ReportRun::Stage stage) {
  switch (stage) {
    case ReportRun::Stage::kRunning:
      return "running";
    case ReportRun::Stage::kDone:
      return "done";
    case ReportRun::Stage::kFailed:
      return "failed";
    case ReportRun::Stage::kAbandoned:
      break;
  }
  return "abandoned";
}

std::string EventOf(const ReportRun::State& state) {
  Json told{{"stage", NameOf(state.stage)},
            {"percent", state.percent},
            {"doing", state.doing},
            {"problem", state.problem}};
  if (!state.head.empty()) told["report"] = Json::parse(state.head);
  return "data: " + told.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n\n";
}

}  // namespace

class Server::Routes {
 public:
  explicit Routes(ServeOptions options)
      : options_(std::move(options)),
        runs_(options_.limits, options_.books.present),
        port_(TakePort()),
        guard_(port_, Guard::NewToken()) {
    http_.set_pre_routing_handler(
        [this](const Request& request, Response& response) { return LetIn(request, response); });
    http_.set_exception_handler([](const Request&, Response& response, std::exception_ptr failure) {
      TellFailure(response, std::move(failure));
    });
    AddPages();
    AddQuestions();
    AddReports();
  }

  int Port() const { return port_; }
  std::string Address() const {
    return fmt::format("http://{}:{}/?token={}", kLoopback, port_, guard_.Token());
  }
  std::size_t Reports() const { return runs_.Count(); }
  void Run() { http_.listen_after_bind(); }
  void Stop() {
    stopping_ = true;
    http_.stop();
  }

 private:
  using Verdict = httplib::Server::HandlerResponse;

  int TakePort() {
    http_.new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
    http_.set_socket_options(OwnPort);
    http_.set_payload_max_length(kMostBytesAsked);
    http_.set_keep_alive_timeout(2);
    http_.set_tcp_nodelay(true);
    if (options_.port == 0) {
      const int port = http_.bind_to_any_port(kLoopback);
      if (port > 0) return port;
    } else if (http_.bind_to_port(kLoopback, options_.port)) {
      return options_.port;
    }
    throw Error(ErrorNumber::kConnection, options_.port == 0
                                              ? std::string("no port is free")
                                              : fmt::format("port {} is not free", options_.port));
  }

  // What tells nothing of the books is answered to every program of the machine.
  Verdict LetIn(const Request& request, Response& response) const {
    response.set_header("Content-Security-Policy", kPolicy);
    response.set_header("X-Content-Type-Options", "nosniff");
    response.set_header("X-Frame-Options", "SAMEORIGIN");
    response.set_header("Referrer-Policy", "no-referrer");
    response.set_header("Cross-Origin-Resource-Policy", "same-origin");
    response.set_header("Cache-Control", "no-store");
    const std::string host = Header(request, "Host"), origin = Header(request, "Origin"),
                      site = Header(request, "Sec-Fetch-Site"), cookie = Header(request, "Cookie");
    const Guard::Asker asker{host, origin, site, cookie};
    const bool on_books = request.path.starts_with("/api/");
    if (!guard_.IsHere(asker)) {
      Refuse(response, 421, "this address is not served here");
    } else if (on_books && !guard_.IsOwnPage(asker)) {
      Refuse(response, 403, "pages of other sites are not answered");
    } else if (on_books && !guard_.HasToken(asker)) {
      Refuse(response, 401, "open the address that \"stolvane serve\" has printed");
    } else {
      return Verdict::Unhandled;
    }
    return Verdict::Handled;
  }

  static void TellFailure(Response& response, std::exception_ptr failure) {
    try {
      std::rethrow_exception(std::move(failure));
    } catch (const WrongCall& wrong) {
      Refuse(response, 400, wrong.what());
    } catch (const Error& error) {
      Refuse(
          response, 500,
          error.Cause().empty() ? error.Description() : error.Description() + ": " + error.Cause());
    } catch (const std::exception& other) {
      Refuse(response, 500, other.what());
    }
  }

  void AddPages() {
    const auto page = [this](const Request& request, Response& response) {
      if (request.has_param("token")) {
        if (!guard_.IsToken(request.get_param_value("token"))) {
          ServeFile("index.html", response);  // which says what to do
          response.status = 401;
          return;
        }
        response.set_header("Set-Cookie", guard_.CookieToSet());
        response.set_redirect(request.path, 303);
        return;
      }
      ServeFile("index.html", response);
    };
    http_.Get("/", page);
    http_.Get(R"(/report/\w+)", page);
    http_.Get(R"(/page/([\w.]+))", [](const Request& request, Response& response) {
      ServeFile(request.matches[1].str(), response);
    });
  }

  static void ServeFile(const std::string& name, Response& response) {
    const PageFile* const file = FindPageFile(name);
    if (file == nullptr) {
      Refuse(response, 404, "there is no such page");
      return;
    }
    response.set_content(file->text.data(), file->text.size(), std::string(file->type));
  }

  void AddQuestions() {
    http_.Get("/api/forms", [this](const Request&, Response& response) {
      response.set_content(FormsAsJson(options_.books), kJson);
    });
    http_.Get(R"(/api/names/(\w+))", [this](const Request& request, Response& response) {
      const automation::Master* const names = automation::FindMaster(request.matches[1].str());
      if (names == nullptr) throw WrongCall("there is no such list of names");
      if (request.has_param("key")) {
        const auto key = static_cast<std::int32_t>(NumberIn(request, "key", 0));
        response.set_content(Json{{"name", options_.books.name_of(*names, key)}}.dump(
                                 -1, ' ', false, Json::error_handler_t::replace),
                             kJson);
        return;
      }
      response.set_content(NamesAsJson(options_.books, *names, request.get_param_value("text")),
                           kJson);
    });
  }

  // A handler of one open report.
  using ReportHandler = std::function<void(ReportRun& run, const Request&, Response&)>;
  httplib::Server::Handler OfReport(ReportHandler handler) {
    return [this, handler = std::move(handler)](const Request& request, Response& response) {
      const std::shared_ptr<ReportRun> run = runs_.Find(request.matches[1].str());
      if (run == nullptr) {
        Refuse(response, 404, "the report is closed");
      } else {
        handler(*run, request, response);
      }
    };
  }

  void AddReports() {
    http_.Post("/api/reports", [this](const Request& request, Response& response) {
      if (Header(request, "Content-Type") != kJson) throw WrongCall("a question is JSON");
      const std::string name =
          runs_.Open(QuestionFromJson(request.body, options_.books.connection, options_.locale));
      response.set_content(Json{{"report", name}}.dump(), kJson);
    });
    http_.Get(R"(/api/reports/(\d+)/events)", [this](const Request& request, Response& response) {
      TellEvents(runs_.Find(request.matches[1].str()), response);
    });
    http_.Post(R"(/api/reports/(\d+)/abandon)",
               OfReport([](ReportRun& run, const Request&, Response& response) {
                 run.Abandon();
                 response.set_content("{}", kJson);
               }));
    http_.Post(R"(/api/reports/(\d+)/close)", [this](const Request& request, Response& response) {
      runs_.Close(request.matches[1].str());
      response.set_content("{}", kJson);
    });
    http_.Get(R"(/api/reports/(\d+)/lines)",
              OfReport([](ReportRun& run, const Request& request, Response& response) {
                const Wish wish = WishIn(request);
                const std::size_t from = NumberIn(request, "from", 0);
                const std::size_t count =
                    std::min(NumberIn(request, "count", kMostLinesAtOnce), kMostLinesAtOnce);
                response.set_content(
                    run.Ask([&](ShownReport& shown) { return shown.Lines(wish, from, count); }),
                    kJson);
              }));
    http_.Get(R"(/api/reports/(\d+)/roads)",
              OfReport([](ReportRun& run, const Request& request, Response& response) {
                const std::size_t place = NumberIn(request, "place", 0);
                response.set_content(
                    run.Ask([&](ShownReport& shown) { return shown.RoadsOf(place); }), kJson);
              }));
    http_.Get(R"(/api/reports/(\d+)/picture)",
              OfReport([](ReportRun& run, const Request& request, Response& response) {
                const std::size_t index = NumberIn(request, "number", 0);
                response.set_content(
                    run.Ask([&](ShownReport& shown) { return shown.PictureAt(index); }), kJson);
              }));
    AddExport("csv", "text/csv; charset=utf-8", &ShownReport::Csv);
    AddExport("xlsx", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet",
              &ShownReport::Xlsx);
    AddExport("pdf", "application/pdf", [this](ShownReport& shown, const ShownReport::Seen& seen) {
      return shown.Pdf(seen, options_.books.paper());
    });
    AddExport("html", "text/html; charset=utf-8", &ShownReport::Html);
  }

  void AddExport(const std::string& suffix, const char* type,
                 const std::function<std::string(ShownReport&, const ShownReport::Seen&)>& make) {
    http_.Get(
        R"(/api/reports/(\d+)/report\.)" + suffix,
        OfReport([suffix, type, make](ReportRun& run, const Request& request, Response& response) {
          const ShownReport::Seen seen = SeenIn(request);
          std::string name;
          const std::string text = run.Ask([&](ShownReport& shown) {
            name = shown.Name();
            return make(shown, seen);
          });
          if (suffix != "html") {
            response.set_header("Content-Disposition",
                                fmt::format("attachment; filename=\"{}.{}\"", name, suffix));
          }
          response.set_content(text, type);
        }));
  }

  // Server-sent events until the report ends, and signs of life from then on: by them the server
  // sees that the page has gone.
  void TellEvents(const std::shared_ptr<ReportRun>& run, Response& response) {
    if (run == nullptr) {
      Refuse(response, 404, "the report is closed");
      return;
    }
    run->Listen();
    auto seen = std::make_shared<std::uint64_t>(0);
    auto first = std::make_shared<bool>(true);
    response.set_chunked_content_provider(
        "text/event-stream",
        [this, run, seen, first](std::size_t, httplib::DataSink& sink) {
          if (stopping_) return false;
          const ReportRun::State state =
              run->After(*seen, *first ? std::chrono::milliseconds(0) : kBetweenSigns);
          const bool news = *first || state.version > *seen;
          *first = false;
          *seen = state.version;
          const std::string text = news ? EventOf(state) : ": here\n\n";
          return sink.write(text.data(), text.size());
        },
        [run](bool) { run->Leave(); });
  }

  ServeOptions options_;
  std::atomic<bool> stopping_{false};
  httplib::Server http_;
  Runs runs_;
  int port_;
  Guard guard_;
};

Server::Server(ServeOptions options) : routes_(std::make_unique<Routes>(std::move(options))) {}
Server::~Server() = default;
int Server::Port() const { return routes_->Port(); }
std::string Server::Address() const { return routes_->Address(); }
void Server::Run() { routes_->Run(); }
void Server::Stop() { routes_->Stop(); }
std::size_t Server::Reports() const { return routes_->Reports(); }

}  // namespace pstolvane1::viewer
