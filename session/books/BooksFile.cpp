#include "session/books/BooksFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "session/books/Schema.h"
#include "session/books/ServerWriter.h"
#include "session/books/Writer.h"
#include "session/data/Error.h"
#include "session/engine/ConnectionString.h"

namespace pstolvane1::books {
namespace {

[[noreturn]] void Refuse(const std::string& path, const std::string& cause) {
  throw Error(ErrorNumber::kConnection, "cannot make the books \"" + path + "\": " + cause);
}

void RefuseExisting(const std::string& path) {
  std::error_code ignored;
  if (std::filesystem::exists(std::filesystem::symlink_status(path, ignored))) {
    Refuse(path, "the file exists already; choose another name or remove it first");
  }
}

// A new file beside the one to be made; it goes away unless it is given its name.
class Unfinished {
 public:
  explicit Unfinished(const std::string& path) : target_(path), path_(path + ".XXXXXX") {
    const int file = mkstemp(path_.data());
    if (file < 0) Refuse(path, std::strerror(errno));
    // mkstemp shuts others out; books are to have the rights that the user's mask gives.
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(file, 0666 & ~mask);
    close(file);
  }
  ~Unfinished() {
    if (!path_.empty()) unlink(path_.c_str());
  }
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;

  [[nodiscard]] const std::string& Path() const { return path_; }

  void TakeName() {
    const int file = open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    const bool on_disk = file >= 0 && fsync(file) == 0;
    const int failure = errno;
    if (file >= 0) close(file);
    if (!on_disk) Refuse(target_, std::strerror(failure));
    if (renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) != 0) {
      if (errno != EINVAL && errno != ENOSYS) {
        if (errno == EEXIST) RefuseExisting(target_);
        Refuse(target_, std::strerror(errno));
      }
      // The file system cannot rename without replacing.
      RefuseExisting(target_);
      if (std::rename(path_.c_str(), target_.c_str()) != 0) Refuse(target_, std::strerror(errno));
    }
    path_.clear();
  }

 private:
  std::string target_;
  std::string path_;
};

}  // namespace

void MakeBooks(const std::string& path, const std::function<void(Writer&)>& fill,
               const std::function<void(std::string_view table)>& indexing) {
  RefuseExisting(path);
  Unfinished file(path);
  Writer writer(file.Path(), path);
  writer.CreateTables();
  fill(writer);
  for (const Table& table : Tables()) {
    if (table.indexes.empty()) continue;
    if (indexing) indexing(table.name);
    writer.CreateIndexes(table);
  }
  writer.Finish();
  file.TakeName();
}

void MakeServerBooks(ServerWriter& writer, const std::function<void()>& fill,
                     const std::function<void(std::string_view table)>& indexing) {
  if (writer.CountTables() > 0) {
    throw Error(ErrorNumber::kConnection,
                "cannot make the books " + writer.Name() +
                    ": the schema holds books already; name another schema or remove them first");
  }
  writer.CreateTables();
  fill();
  for (const Table& table : Tables()) {
    if (table.indexes.empty()) continue;
    if (indexing) indexing(table.name);
    writer.CreateIndexes(table);
  }
  writer.Finish();
}

void CreateBooks(const std::string& connection) {
  const ConnectionTarget target = TargetOf(connection);
  if (target.engine == EngineKind::kPostgresql) {
    ServerWriter writer(connection);
    MakeServerBooks(writer, [] {});
  } else {
    MakeBooks(target.path, [](Writer&) {});
  }
}

PassingBooks::PassingBooks() {
  folder_ = (std::filesystem::temp_directory_path() / "passing_books_XXXXXX").string();
  if (mkdtemp(folder_.data()) == nullptr) Refuse(folder_, std::strerror(errno));
  path_ = folder_ + "/books.db";
}

PassingBooks::~PassingBooks() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

}  // namespace pstolvane1::books
