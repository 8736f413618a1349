// A connection to one company's books.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "session/data/DataType.h"
#include "session/data/Error.h"
#include "session/data/Provider.h"

namespace pstolvane1 {

// Belongs to the thread that made it: call it, and receive its event, on that thread only. It only
// reads. Rowsets that are open on it keep it alive.
class Connection : public std::enable_shared_from_this<Connection> {
 public:
  // The factory opens the database; the engines' own is NewConnection of session/engine/Engines.h.
  [[nodiscard]] static std::shared_ptr<Connection> New(ProviderFactory factory);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // Before Open.
  void ConnectionString(std::string text);
  [[nodiscard]] const std::string& ConnectionString() const;
  // Seconds that opening, waiting for a lock and each statement may take; 0 is no limit. 30 at first.
  void CommandTimeout(int seconds);
  [[nodiscard]] int CommandTimeout() const;

  // An empty connection_string leaves the one set before. user and password are for engines that
  // want them apart. options -1 opens at once and raises error 501 on failure; 16 (adAsyncConnect)
  // opens in the background. Either way ConnectComplete is called once on this thread, in the second
  // case while it pumps its messages.
  void Open(std::string_view connection_string = {}, std::string_view user = {},
            std::string_view password = {}, int options = adOptionUnspecified);
  // adStateClosed, adStateConnecting or adStateOpen.
  [[nodiscard]] int State() const;
  // Ends what runs on the connection with an error. Nothing when nothing runs.
  void Cancel();
  // Error 3704 when it is not open. Fetches that run are cancelled and complete with their error.
  void Close();

  // (pError or null, adStatus, connection)
  std::function<void(const Error*, int, Connection&)> ConnectComplete;

  // The engine's own text for one SELECT of the reports' dialect, without running it.
  [[nodiscard]] std::string Translate(std::string_view select) const;

  // While the object lives, every rowset opened on this connection by this thread reads the same
  // state of the books. Scopes nest; the inner one joins the outer. Error 3709 when not open.
  class OneState {
   public:
    explicit OneState(std::shared_ptr<Connection> connection);
    ~OneState();
    OneState(const OneState&) = delete;
    OneState& operator=(const OneState&) = delete;

   private:
    std::shared_ptr<Connection> connection_;
  };

  // For rowsets: the state to read now, that of the innermost OneState or a fresh one.
  [[nodiscard]] std::shared_ptr<Snapshot> StateToRead();
  [[nodiscard]] std::chrono::milliseconds TimeLimit() const;

 private:
  explicit Connection(ProviderFactory factory);
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

// Makes a connection that is not open yet.
using ConnectionMaker = std::function<std::shared_ptr<Connection>()>;

}  // namespace pstolvane1
