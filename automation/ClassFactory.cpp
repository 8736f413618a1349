#include <atomic>
#include <cstring>
#include <memory>

#include "automation/CGuard.h"
#include "automation/CLiving.h"
#include "automation/CSession.h"
#include "automation/pstolvane1_c.h"

const pst_guid pst_class_clsStolvane1 = {
    0x361b9c31, 0xad2e, 0x48be, {0x9a, 0x87, 0x90, 0xbb, 0x34, 0x1a, 0x28, 0xb3}};
const pst_guid pst_interface_class_factory = {
    0x25690e08, 0x08a7, 0x4b1b, {0x94, 0x9f, 0x4e, 0xa6, 0xe4, 0x69, 0xc9, 0xb7}};

namespace pstolvane1::automation {
namespace {

bool Same(const pst_guid& a, const pst_guid& b) {
  return a.part1 == b.part1 && a.part2 == b.part2 && a.part3 == b.part3 &&
         std::memcmp(a.part4, b.part4, sizeof a.part4) == 0;
}

struct Factory : pst_class_factory {
  Factory();

  Living living;
  std::atomic<std::uint32_t> references{1};
};

std::uint32_t AddReference(pst_class_factory* factory) {
  if (!factory) return 0;
  return ++static_cast<Factory*>(factory)->references;
}

std::uint32_t Release(pst_class_factory* factory) {
  if (!factory) return 0;
  auto* const released = static_cast<Factory*>(factory);
  const std::uint32_t left = --released->references;
  if (left == 0) const std::unique_ptr<Factory> gone(released);
  return left;
}

std::int32_t CreateInstance(pst_class_factory* /*factory*/, pst_session** session) {
  if (!session) return pst_e_pointer;
  *session = pst_session_new();
  return *session ? pst_s_ok : pst_e_out_of_memory;
}

std::int32_t LockServer(pst_class_factory* /*factory*/, int lock) {
  Living::Count() += lock ? 1 : -1;
  return pst_s_ok;
}

Factory::Factory() : pst_class_factory{&AddReference, &Release, &CreateInstance, &LockServer} {}

}  // namespace
}  // namespace pstolvane1::automation

namespace automation = pstolvane1::automation;

int32_t DllGetClassObject(const pst_guid* class_id, const pst_guid* interface_id, void** object) {
  if (!object) return pst_e_pointer;
  *object = nullptr;
  if (!class_id || !interface_id) return pst_e_pointer;
  if (!automation::Same(*class_id, pst_class_clsStolvane1)) return pst_e_no_class;
  if (!automation::Same(*interface_id, pst_interface_class_factory)) return pst_e_no_interface;
  std::unique_ptr<automation::Factory> made;
  if (automation::Guarded([&] { made = std::make_unique<automation::Factory>(); }) != 0) {
    return pst_e_out_of_memory;
  }
  *object = static_cast<pst_class_factory*>(made.release());
  return pst_s_ok;
}

int32_t DllRegisterServer() { return pst_s_false; }

int32_t DllUnregisterServer() { return pst_s_false; }

int32_t DllCanUnloadNow() { return automation::Living::Count() == 0 ? pst_s_ok : pst_s_false; }
