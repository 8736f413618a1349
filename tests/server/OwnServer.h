// A server that a test has for itself, to stop it, kill it, or run it in another way.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace pstolvane1 {

// Runs from the object's making to its end. Errors are std::runtime_error.
class OwnServer {
 public:
  OwnServer();
  ~OwnServer();
  OwnServer(const OwnServer&) = delete;
  OwnServer& operator=(const OwnServer&) = delete;

  // Of a user who may do all, and of nobody in particular: "user=... dbname=..." may follow.
  [[nodiscard]] std::string ConnectionString() const;
  [[nodiscard]] const std::string& Folder() const { return folder_; }
  std::string Run(const std::string& statements) const;

  // Stops it in an orderly way or at once; the sessions are told. It can go on with what it held.
  void Stop() const;
  void Halt() const;
  // All of its processes are gone from one moment to the next, and nobody is told.
  void Kill() const;
  void Resume() const;
  // Holds all of its processes in, so that it takes connections and answers nothing, and lets them
  // go again.
  void Freeze() const;
  void Thaw() const;

  // A further line of its settings, in force when it goes on the next time.
  void Configure(const std::string& line) const;
  // A rule of who is let in, before those that are there.
  void LetIn(const std::string& rule) const;
  // A file of its data's folder, empty: "standby.signal".
  void Signal(const std::string& name) const;

 private:
  [[nodiscard]] std::vector<pid_t> Processes() const;
  [[nodiscard]] std::string Data() const { return folder_ + "/data"; }

  std::string folder_;
};

}  // namespace pstolvane1
