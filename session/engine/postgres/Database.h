// One session with the server: read-only, one statement at a time.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "session/data/Error.h"
#include "session/engine/Watch.h"
#include "session/engine/postgres/Native.h"
#include "session/engine/postgres/Settings.h"
#include "session/sql/Catalog.h"

namespace pstolvane1::postgres {

// Used by one thread at a time; who owns it keeps threads apart. Every wait for the server ends
// with the watch. Errors are those of Errors.h, or -2147217900 "the connection to the server was
// lost (...)". A session that goes while a statement runs ends the statement.
class Database {
 public:
  // Connects within the watch's limit and that of the settings. Error 501 whose text continues "the
  // books NAME cannot be opened: ...", with the server's own words.
  Database(const Settings& settings, Watch& watch);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // Runs statements that are parted by semicolons and gives the rows of the last that has some, as
  // text; null when none has.
  NativeResult Run(const std::string& statements, Watch& watch);
  // Sends statements one of which copies rows out, and does not wait for the server.
  void SendCopy(const std::string& statements);
  // Waits until the server has begun to copy, which it tells with the first rows.
  void AwaitCopy(Watch& watch);
  // The next piece of what is copied, one row or more; false at the end, when all statements that
  // stand behind are done as well.
  [[nodiscard]] bool NextPiece(NativeBuffer& piece, std::size_t& size, Watch& watch);
  // Ends the transaction without waiting for it. False when the session cannot be used any more.
  [[nodiscard]] bool LetGo() noexcept;
  // Waits a few seconds for what LetGo left behind, and after a rest asks whether the server still
  // answers. False when the session cannot be used any more, for example after the server was
  // stopped.
  [[nodiscard]] bool TakeUp(Watch& watch) noexcept;
  [[nodiscard]] bool IsLost() const noexcept;
  // A statement of the open transaction was refused, and nothing runs.
  [[nodiscard]] bool Failed() const noexcept;
  // Whether the texts of the database may hold every character.
  [[nodiscard]] sql::Characters TextCharacters() const;
  // Error -2147217900 when the watch has ended.
  static void CheckWatch(const Watch& watch);

 private:
  void Connect(const Settings& settings, Watch& watch);
  void CheckServer(Watch& watch);
  void Send(const std::string& statements);
  // Waits until something can be read or written, and throws what ends the watch.
  void WaitFor(short events, const Watch& watch);
  [[nodiscard]] NativeResult NextResult(const Watch& watch);
  void Drain(const Watch& watch);
  [[nodiscard]] Error Lost() const;

  NativeConnection native_;
  Watch::Clock::time_point rests_since_{};  // since LetGo
};

}  // namespace pstolvane1::postgres
