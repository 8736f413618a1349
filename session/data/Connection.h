// A connection to one company's books.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "session/data/DataType.h"
#include "session/data/Error.h"
#include "session/data/Provider.h"

namespace pstolvane1 {

// Belongs to the thread that made it: call it, and receive its event, on that thread only. It only
// reads. Rowsets that are open on it keep it alive. When it goes while it connects, or while
// rowsets that were disconnected from it still fetch, no event of its own follows.
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
  // Seconds that opening, waiting for a lock and each statement may take; 0 is no limit, less than
  // 0 is error 3001. 30 at first.
  void CommandTimeout(int seconds);
  [[nodiscard]] int CommandTimeout() const;

  // An empty connection_string leaves the one set before. A user and a password belong into it:
  // error 3001 when they are given apart, for other options, and when it is open or connecting.
  //   -1: opens at once. Error 501 on failure, and when the work of this thread is abandoned.
  //       ConnectComplete is called once, before Open returns or raises.
  //   16 (adAsyncConnect): opens in the background. ConnectComplete is called once, while this
  //       thread pumps its messages.
  // What a handler throws goes to whoever called Open or pumps.
  void Open(std::string_view connection_string = {}, std::string_view user = {},
            std::string_view password = {}, int options = adOptionUnspecified);
  // adStateClosed, adStateConnecting or adStateOpen.
  [[nodiscard]] int State() const;
  // Ends what runs on the connection: rowsets complete with an error, an attempt to connect fails.
  // Both are told by their events as always. Nothing when nothing runs.
  void Cancel();
  // Ends the statements that run on the connection, and waits for a lock, with error -2147217900.
  // May be called from any thread while the connection lives.
  void StopReading() noexcept;
  // Error 3704 when it is not open. Fetches that run are cancelled and complete with their error.
  void Close();

  // (pError or null, adStatus, connection)
  std::function<void(const Error*, int, Connection&)> ConnectComplete;

  // The engine's own text for one SELECT of the reports' dialect, without running it.
  [[nodiscard]] std::string Translate(std::string_view select) const;

  // While the object lives, every rowset that is opened on the connection reads the same state of
  // the books: the one in which they are when the first of them reads. Scopes nest; the inner one
  // joins the outer. A fetch holds the state until it ends, also beyond the scope. Error 3709 when
  // the connection is not open.
  class OneState {
   public:
    explicit OneState(std::shared_ptr<Connection> connection);
    ~OneState();
    OneState(const OneState&) = delete;
    OneState& operator=(const OneState&) = delete;

   private:
    std::shared_ptr<Connection> connection_;
  };

 private:
  friend struct ConnectionAccess;  // rowsets, inside the library
  explicit Connection(ProviderFactory factory);
  void RaiseConnectComplete(const Error* error);
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

// Makes a connection that is not open yet.
using ConnectionMaker = std::function<std::shared_ptr<Connection>()>;

}  // namespace pstolvane1
