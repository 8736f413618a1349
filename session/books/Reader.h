// Reading a file of books past the front end, for checking it.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct sqlite3;

namespace pstolvane1::books {

// One state of one file, read by one thread. It cannot write.
class Reader {
 public:
  using Row = std::vector<std::optional<std::string>>;

  // Error 501 when the file cannot be opened or is no database.
  explicit Reader(const std::string& path);
  ~Reader();
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  // Error 501 with the engine's words when the query fails.
  [[nodiscard]] std::vector<Row> Rows(const std::string& select);
  // Whether the query names only what is there.
  [[nodiscard]] bool Understands(const std::string& select);

 private:
  [[noreturn]] void Fail();

  std::string path_;
  sqlite3* database_ = nullptr;
};

}  // namespace pstolvane1::books
