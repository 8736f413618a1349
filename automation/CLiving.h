// Counts what hosts in C hold of the library.
#pragma once

#include <atomic>
#include <cstdint>

namespace pstolvane1::automation {

// Every object that a host in C holds counts for as long as it lives, and so does every lock. Any
// thread.
class Living {
 public:
  Living() { ++Count(); }
  ~Living() { --Count(); }
  Living(const Living&) = delete;
  Living& operator=(const Living&) = delete;

  [[nodiscard]] static std::atomic<std::int64_t>& Count() {
    static std::atomic<std::int64_t> count{0};
    return count;
  }
};

}  // namespace pstolvane1::automation
