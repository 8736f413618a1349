// Files of books for a test, and plain SQL on them.
#pragma once

#include <filesystem>
#include <sqlite3.h>
#include <string>
#include <string_view>
#include <vector>

namespace pstolvane1::books::test {

// A folder of its own, gone with the object.
class Folder {
 public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  [[nodiscard]] std::string File(std::string_view name) const { return (path_ / name).string(); }
  [[nodiscard]] std::string Path() const { return path_.string(); }
  void Write(std::string_view name, std::string_view content) const;
  [[nodiscard]] std::vector<std::string> Names() const;  // of what lies in it, sorted

 private:
  std::filesystem::path path_;
};

[[nodiscard]] std::string Content(const std::string& file);

// A file of sample books, made once for all tests of the program.
[[nodiscard]] const std::string& SampleFile();

// Plain SQL, past the library. Failures throw std::runtime_error with the engine's words.
class Database {
 public:
  explicit Database(const std::string& path);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  void Execute(const std::string& statements);
  // All rows, each with its values joined by "|", Null as "(null)".
  [[nodiscard]] std::vector<std::string> Rows(const std::string& select);
  // The first value of the first row.
  [[nodiscard]] std::string Text(const std::string& select);
  [[nodiscard]] long long Whole(const std::string& select);

 private:
  sqlite3* database_ = nullptr;
};

}  // namespace pstolvane1::books::test
