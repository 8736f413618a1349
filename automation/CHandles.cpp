#include "automation/CHandles.h"

#include <mutex>
#include <string>
#include <unordered_map>

#include "session/data/Error.h"

namespace pstolvane1::automation {
namespace {

using Kinds = std::unordered_map<const void*, HandleKind>;

// Those of one thread, which it looks up without a lock.
Kinds& HeldByThisThread() {
  thread_local Kinds kinds;
  return kinds;
}

struct Everyones {
  std::mutex mutex;
  Kinds kinds;
};
Everyones& All() {
  static Everyones all;
  return all;
}

bool Has(const Kinds& kinds, const void* handle, HandleKind kind) {
  const auto found = kinds.find(handle);
  return found != kinds.end() && found->second == kind;
}

[[noreturn]] void Refuse(const void* handle, HandleKind kind, const char* why) {
  const std::string what = kind == HandleKind::kSession ? "session" : "rowset";
  throw Error(ErrorNumber::kObjectNotSet,
              handle == nullptr ? "no " + what + " was given" : "the " + what + " " + why);
}

constexpr const char* kNotThere = "was released, or is none";

}  // namespace

void Handles::Add(const void* handle, HandleKind kind) {
  HeldByThisThread().emplace(handle, kind);
  Everyones& all = All();
  try {
    const std::lock_guard lock(all.mutex);
    all.kinds.emplace(handle, kind);
  } catch (...) {
    HeldByThisThread().erase(handle);
    throw;
  }
}

void Handles::Remove(const void* handle) noexcept {
  HeldByThisThread().erase(handle);
  Everyones& all = All();
  const std::lock_guard lock(all.mutex);
  all.kinds.erase(handle);
}

void Handles::CheckMine(const void* handle, HandleKind kind) {
  if (Has(HeldByThisThread(), handle, kind)) return;
  Everyones& all = All();
  const std::lock_guard lock(all.mutex);
  Refuse(handle, kind, Has(all.kinds, handle, kind) ? "belongs to another thread" : kNotThere);
}

void Handles::UseAnyones(const void* handle, HandleKind kind, const std::function<void()>& use) {
  Everyones& all = All();
  const std::lock_guard lock(all.mutex);
  if (!Has(all.kinds, handle, kind)) Refuse(handle, kind, kNotThere);
  use();
}

}  // namespace pstolvane1::automation
