#include "host/OutputFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "host/OutputStream.h"
#include "session/data/Error.h"
#include "session/engine/ConnectionString.h"

namespace pstolvane1::host {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kOfANewFile = 0666;  // without what the user's mask takes away
constexpr mode_t kPermissions = 07777;
// What the engine keeps beside the books.
constexpr const char* kBeside[] = {"", "-journal", "-wal", "-shm"};

std::string Quoted(const std::string& path) { return '"' + path + '"'; }

bool Same(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

// Also of files that are not there: then by their folder and their name.
bool SameFile(const fs::path& a, const fs::path& b) {
  struct stat of_a {
  }, of_b{};
  const bool a_is = ::stat(a.c_str(), &of_a) == 0;
  const bool b_is = ::stat(b.c_str(), &of_b) == 0;
  if (a_is || b_is) return a_is && b_is && Same(of_a, of_b);
  const auto folder = [](const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
  };
  return a.filename() == b.filename() && ::stat(folder(a).c_str(), &of_a) == 0 &&
         ::stat(folder(b).c_str(), &of_b) == 0 && Same(of_a, of_b);
}

// A name of one of the process's own descriptors leads to what is open there.
bool NamesADescriptor(const fs::path& path) {
  std::error_code ignored;
  fs::path at = path;
  for (int links = 0; links < 40; ++links) {
    const std::string folder = fs::weakly_canonical(at.parent_path(), ignored).string();
    if (folder.starts_with("/proc/")) return true;
    const fs::path next = fs::read_symlink(at, ignored);
    if (ignored) return false;
    at = next.is_absolute() ? next : at.parent_path() / next;
  }
  return false;
}

}  // namespace

void RefuseBooks(const std::string& path, const std::string& books) {
  if (books.empty()) return;
  const ConnectionTarget target = ReadConnectionString(books);
  if (target.engine != EngineKind::kSqlite) return;
  std::error_code ignored;
  const fs::path file = fs::weakly_canonical(FileOf(target), ignored);
  for (const char* const beside : kBeside) {
    const fs::path of_books = file.string() + beside;
    if (path.empty()) {
      struct stat out {
      }, its{};
      if (::fstat(STDOUT_FILENO, &out) != 0 || ::stat(of_books.c_str(), &its) != 0) continue;
      if (!Same(out, its)) continue;
    } else if (!SameFile(path, of_books)) {
      continue;
    }
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "cannot write " + (path.empty() ? "to the standard output" : Quoted(path)) +
                    ": it belongs to the books");
  }
}

OutputFile::OutputFile(std::string path) : path_(std::move(path)), target_(path_) {
  struct stat there {};
  const bool exists = ::stat(path_.c_str(), &there) == 0;
  if (!exists && errno != ENOENT) throw CannotWrite(Quoted(path_), errno);
  if (exists && S_ISDIR(there.st_mode)) throw CannotWrite(Quoted(path_), EISDIR);
  if (exists && (!S_ISREG(there.st_mode) || NamesADescriptor(path_))) {
    Open();
    return;
  }
  struct stat link {};
  if (!exists && ::lstat(path_.c_str(), &link) == 0) Refuse("it is a link that leads nowhere");
  if (exists) {
    std::error_code error;
    target_ = fs::canonical(path_, error).string();
    if (error) throw CannotWrite(Quoted(path_), error.value());
    if (there.st_nlink > 1) Refuse("the file has a second name");
    if (::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) {
      throw CannotWrite(Quoted(path_), errno);
    }
  }
  making_ = target_ + "." + std::to_string(getpid()) + ".tmp";
  Open();
  if (exists) TakeOver(target_);
}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
  if (!making_.empty()) std::remove(making_.c_str());
}

void OutputFile::Refuse(const std::string& why) const {
  throw Error(ErrorNumber::kArgumentOutOfRange, "cannot write " + Quoted(path_) + ": " + why);
}

void OutputFile::Open() {
  descriptor_ = making_.empty()
                    ? ::open(target_.c_str(), O_WRONLY | O_CLOEXEC)
                    : ::open(making_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOfANewFile);
  if (descriptor_ >= 0) return;
  const int failure = errno;
  making_.clear();  // it is somebody else's, or not there
  throw CannotWrite(Quoted(path_), failure);
}

// The constructor has not ended, so that the file in the making is removed here.
void OutputFile::TakeOver(const std::string& existing) {
  struct stat before {
  }, now{};
  const bool known = ::stat(existing.c_str(), &before) == 0 && ::fstat(descriptor_, &now) == 0;
  const bool owned = known && ((before.st_uid == now.st_uid && before.st_gid == now.st_gid) ||
                               ::fchown(descriptor_, before.st_uid, before.st_gid) == 0);
  if (owned && ::fchmod(descriptor_, before.st_mode & kPermissions) == 0) return;
  ::close(descriptor_);
  std::remove(making_.c_str());
  Refuse("the file belongs to another user");
}

void OutputFile::Write(const std::function<void(std::ostream&)>& write) {
  WriteInto(descriptor_, Quoted(path_), write);
  Done();
}

void OutputFile::Done() {
  const int closed = ::close(std::exchange(descriptor_, -1));
  if (closed != 0) throw CannotWrite(Quoted(path_), errno);
  if (making_.empty()) return;
  if (std::rename(making_.c_str(), target_.c_str()) != 0) throw CannotWrite(Quoted(path_), errno);
  making_.clear();
}

}  // namespace pstolvane1::host
