// The way between a host and a server over TCP, which a test can cut.
#pragma once

#include <atomic>
#include <string>
#include <thread>

namespace pstolvane1 {

// Passes on what comes, from the object's making to its end. Errors are std::runtime_error.
class Wire {
 public:
  // To the server whose socket lies in that folder.
  explicit Wire(std::string folder);
  ~Wire();
  Wire(const Wire&) = delete;
  Wire& operator=(const Wire&) = delete;

  [[nodiscard]] std::string ConnectionString() const;
  // Nothing more comes through on what is connected, and nobody is told, as when a firewall has
  // forgotten a connection. What connects afterwards is served.
  void CutWhatIs() { cut_ = true; }

 private:
  void Pass();

  const std::string folder_;
  int listening_ = -1;
  int port_ = 0;
  std::atomic<bool> cut_ = false;
  std::atomic<bool> ends_ = false;
  std::thread passing_;
};

// Somebody at a port who says the same to whoever connects, or nothing at all.
class Stranger {
 public:
  explicit Stranger(std::string words = {});
  ~Stranger();
  Stranger(const Stranger&) = delete;
  Stranger& operator=(const Stranger&) = delete;

  [[nodiscard]] std::string ConnectionString() const;

 private:
  const std::string words_;
  int listening_ = -1;
  int port_ = 0;
  std::atomic<bool> ends_ = false;
  std::thread talking_;
};

}  // namespace pstolvane1
