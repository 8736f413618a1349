#include "tests/books/BooksOnDisk.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

#include "session/books/SampleBooks.h"

namespace pstolvane1::books::test {

Folder::Folder() {
  std::string name = (std::filesystem::temp_directory_path() / "pst_books_XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = name;
}

Folder::~Folder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void Folder::Write(std::string_view name, std::string_view content) const {
  std::ofstream(path_ / name, std::ios::binary) << content;
}

std::vector<std::string> Folder::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(path_)) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

std::string Content(const std::string& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

const std::string& SampleFile() {
  static const Folder folder;
  static const std::string path = [] {
    std::string file = folder.File("sample.db");
    SampleBooks(file);
    return file;
  }();
  return path;
}

Database::Database(const std::string& path) {
  if (sqlite3_open(path.c_str(), &database_) != SQLITE_OK) throw std::runtime_error(path);
  // Books of a test need not outlive a fall of the power.
  sqlite3_exec(database_, "pragma synchronous = off", nullptr, nullptr, nullptr);
}

Database::~Database() { sqlite3_close(database_); }

void Database::Execute(const std::string& statements) {
  if (sqlite3_exec(database_, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_));
  }
}

std::vector<std::string> Database::Rows(const std::string& select) {
  std::vector<std::string> rows;
  const auto add = [](void* all, int count, char** values, char**) {
    std::string row;
    for (int i = 0; i < count; ++i) {
      if (i > 0) row += '|';
      row += values[i] ? values[i] : "(null)";
    }
    static_cast<std::vector<std::string>*>(all)->push_back(row);
    return 0;
  };
  if (sqlite3_exec(database_, select.c_str(), add, &rows, nullptr) != SQLITE_OK) {
    throw std::runtime_error(std::string(sqlite3_errmsg(database_)) + " in " + select);
  }
  return rows;
}

std::string Database::Text(const std::string& select) {
  const auto rows = Rows(select);
  if (rows.empty()) throw std::runtime_error("no rows: " + select);
  return rows.front();
}

long long Database::Whole(const std::string& select) { return std::stoll(Text(select)); }

}  // namespace pstolvane1::books::test
