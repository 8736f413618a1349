// The viewer's server: pages for one company's books, on the loopback address alone.
#pragma once

#include <memory>
#include <string>

#include "viewer/Books.h"
#include "viewer/ReportRun.h"

namespace pstolvane1::viewer {

struct ServeOptions {
  Books books;
  int port = 0;        // 0 is any free one
  std::string locale;  // of the reports' texts; "" is the user's own
  Limits limits;
};

class Server {
 public:
  // Takes the port. Error 501 when it is not free.
  explicit Server(ServeOptions options);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  [[nodiscard]] int Port() const;
  // What the browser is opened with; holds the token, so it is told to the user alone.
  [[nodiscard]] std::string Address() const;

  // Answers until Stop, which any thread may call; then all reports are closed.
  void Run();
  void Stop();
  // The reports that are open.
  [[nodiscard]] std::size_t Reports() const;

 private:
  class Routes;
  std::unique_ptr<Routes> routes_;
};

}  // namespace pstolvane1::viewer
