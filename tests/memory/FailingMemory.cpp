#include "FailingMemory.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <sqlite3.h>

namespace {

constexpr long kNever = -1;

// How many allocations there are before the one that fails; below 0 none does.
std::atomic<long> to_failure{kNever};
std::atomic<bool> goes_on{false};
std::atomic<bool> failed{false};

bool Fails() {
  if (to_failure.load(std::memory_order_relaxed) == kNever) return false;
  long left = to_failure.load();
  while (left > 0 && !to_failure.compare_exchange_weak(left, left - 1)) {
  }
  if (left != 0) return false;
  if (!goes_on) to_failure = kNever;
  failed = true;
  return true;
}

// nullptr when it fails.
void* TryToAllocate(std::size_t size) noexcept {
  return Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* Allocate(std::size_t size) {
  void* const memory = TryToAllocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

sqlite3_mem_methods plain;

void* SqliteAllocate(int size) { return Fails() ? nullptr : plain.xMalloc(size); }
void* SqliteReallocate(void* memory, int size) {
  return Fails() ? nullptr : plain.xRealloc(memory, size);
}

// SQLite takes another allocator only before it is used.
const bool kReplaced = [] {
  if (sqlite3_config(SQLITE_CONFIG_GETMALLOC, &plain) != SQLITE_OK) std::abort();
  sqlite3_mem_methods failing = plain;
  failing.xMalloc = SqliteAllocate;
  failing.xRealloc = SqliteReallocate;
  if (sqlite3_config(SQLITE_CONFIG_MALLOC, &failing) != SQLITE_OK) std::abort();
  return true;
}();

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return TryToAllocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return TryToAllocate(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }

namespace pstolvane1 {

FailingMemory::FailingMemory(long n, From from) {
  failed = !kReplaced;
  goes_on = from == From::kOn;
  to_failure = n;
}

FailingMemory::~FailingMemory() { to_failure = kNever; }

bool FailingMemory::Failed() { return failed; }

}  // namespace pstolvane1
