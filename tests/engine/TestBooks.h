// Small books for the tests of the engine, and short ways to read them.
#pragma once

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "session/engine/sqlite/SqliteProvider.h"
#include "tests/engine/Reading.h"

namespace pstolvane1::sqlite {

// A folder of its own that goes with the object.
class TestFolder {
 public:
  TestFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "pst_engine_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~TestFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  [[nodiscard]] std::string File(std::string_view name) const { return path_ / name; }
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// A connection of another program: it writes.
class Writer {
 public:
  explicit Writer(const std::string& path) {
    sqlite3* native = nullptr;
    if (sqlite3_open(path.c_str(), &native) != SQLITE_OK) throw std::runtime_error("cannot open");
    native_.reset(native);
    sqlite3_busy_timeout(native, 20000);
  }
  void Run(const std::string& text) {
    char* words = nullptr;
    if (sqlite3_exec(native_.get(), text.c_str(), nullptr, nullptr, &words) != SQLITE_OK) {
      const std::string why = text + ": " + (words != nullptr ? words : "?");
      sqlite3_free(words);
      throw std::runtime_error(why);
    }
  }
  // The result code, without waiting for a lock.
  int Try(const std::string& text) {
    sqlite3_busy_timeout(native_.get(), 0);
    const int code = sqlite3_exec(native_.get(), text.c_str(), nullptr, nullptr, nullptr);
    sqlite3_busy_timeout(native_.get(), 20000);
    return code;
  }

 private:
  NativeDatabase native_;
};

inline std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void WriteBytes(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// Books made by the statements, in a folder of their own. The bytes must be compared only while no
// connection is open: closing the file lets this process's locks on it go.
class TestBooks {
 public:
  explicit TestBooks(const std::string& statements) { Write(statements); }
  void Write(const std::string& statements) { Writer(Path()).Run(statements); }
  [[nodiscard]] std::string Path() const { return folder_.File("books.db"); }
  [[nodiscard]] std::string Bytes() const { return BytesOf(Path()); }
  [[nodiscard]] const TestFolder& Folder() const { return folder_; }

 private:
  TestFolder folder_;
};

inline std::shared_ptr<SqliteProvider> OpenPlain(const std::string& path,
                                                 milliseconds limit = milliseconds(5000)) {
  return std::make_shared<SqliteProvider>(path, limit, PlainText);
}

// What the call gives in a process of its own that is nobody special, so that file permissions bind
// it even where the tests are run by root. Call it while no thread and no connection lives.
inline std::string AsNobody(const std::function<std::string()>& call) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child == 0) {
    constexpr unsigned kNobody = 65534;
    if (geteuid() == 0 && (setegid(kNobody) != 0 || seteuid(kNobody) != 0)) _exit(1);
    std::string answer;
    try {
      answer = call();
    } catch (const std::exception& error) {
      answer = std::string("exception: ") + error.what();
    }
    const ssize_t written = write(ends[1], answer.data(), answer.size());
    _exit(written == static_cast<ssize_t>(answer.size()) ? 0 : 1);
  }
  close(ends[1]);
  std::string answer;
  char piece[512];
  for (ssize_t size = 0; (size = read(ends[0], piece, sizeof piece)) > 0;) {
    answer.append(piece, static_cast<std::size_t>(size));
  }
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return answer;
}

}  // namespace pstolvane1::sqlite
