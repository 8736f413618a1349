// Which sessions and rowsets hosts in C hold, so that a call on anything else is an error.
#pragma once

#include <cstdint>
#include <functional>

namespace pstolvane1::automation {

enum class HandleKind : std::uint8_t { kSession, kRowset };

// A handle for as long as it is not released, on the thread that made it. Any thread.
class Handles {
 public:
  static void Add(const void* handle, HandleKind kind);
  static void Remove(const void* handle) noexcept;

  // Error 91 unless it is a handle of that kind that this thread holds: for none at all, for a
  // released or foreign one, and for one of another thread. Takes the same time for any number of
  // handles. A new handle may stand where a released one stood, and then cannot be told from it.
  static void CheckMine(const void* handle, HandleKind kind);
  // The same without regard to the thread; the handle is not released before `use` ends.
  static void UseAnyones(const void* handle, HandleKind kind, const std::function<void()>& use);
};

}  // namespace pstolvane1::automation
