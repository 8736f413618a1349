#include "session/rowset/WorkbookRoom.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void CannotWrite(const std::string& path, int number) {
  throw Error(ErrorNumber::kArgumentOutOfRange,
              "cannot write \"" + path + "\": " + std::generic_category().message(number));
}

// Where files can be made: the writer of workbooks would tell on standard error that they cannot.
std::string FolderForParts() {
  std::error_code none;
  const fs::path named = fs::temp_directory_path(none);
  const fs::path folder = none ? fs::path("/tmp") : named;
  std::string probe = (folder / "workbook.XXXXXX").string();
  const int made = mkstemp(probe.data());
  if (made < 0) CannotWrite(folder.string(), errno);
  close(made);
  std::error_code ignored;
  fs::remove(probe, ignored);
  return folder.string();
}

}  // namespace

WorkbookRoom::WorkbookRoom() : parts_folder_(FolderForParts()) {
  file_ = memfd_create("workbook", MFD_CLOEXEC);
  if (file_ < 0) throw std::bad_alloc();
  try {
    path_ = "/proc/self/fd/" + std::to_string(file_);
  } catch (...) {
    close(file_);
    throw;
  }
}

WorkbookRoom::~WorkbookRoom() {
  LetGo();
  close(file_);
}

void WorkbookRoom::LetGo() {
  if (bytes_ != nullptr) munmap(bytes_, size_);
  bytes_ = nullptr;
}

std::string_view WorkbookRoom::Bytes() {
  LetGo();
  struct stat now {};
  if (fstat(file_, &now) != 0) throw std::bad_alloc();
  size_ = static_cast<std::size_t>(now.st_size);
  if (size_ == 0) return {};
  void* const bytes = mmap(nullptr, size_, PROT_READ, MAP_SHARED, file_, 0);
  if (bytes == MAP_FAILED) throw std::bad_alloc();
  bytes_ = bytes;
  return {static_cast<const char*>(bytes_), size_};
}

void WorkbookRoom::CopyTo(const std::string& path) {
  errno = 0;
  std::ofstream out(path, std::ios::binary);
  if (!out) CannotWrite(path, errno);
  const std::string_view bytes = Bytes();
  if ((out << bytes).flush()) return;
  const int failure = errno;
  std::error_code ignored;
  if (fs::is_regular_file(path, ignored)) fs::remove(path, ignored);
  CannotWrite(path, failure);
}

}  // namespace pstolvane1
