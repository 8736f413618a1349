// Memory that runs out when a test wants it.
#pragma once

#include <cstdint>

namespace pstolvane1 {

// While it lives, one allocation fails, of operator new in any thread or of SQLite: the n-th,
// counted from 0. One object at a time.
class FailingMemory {
 public:
  enum class From : std::uint8_t {
    kOnce,  // what is asked for afterwards is there again
    kOn,    // nothing is there until the object goes
  };

  explicit FailingMemory(long n, From from = From::kOnce);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  // Whether it has come to that since the last object was made.
  [[nodiscard]] static bool Failed();
};

}  // namespace pstolvane1
