// What a connection string of PostgreSQL says.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pstolvane1::postgres {

// libpq's keywords with their values, those that the library sets on every connection included. It
// may hold a password and is not to be shown; Name is.
class Settings {
 public:
  // Reads "postgresql://..." or "host=... dbname=...". Error 501 for what libpq cannot read,
  // without the text where that may hold a password.
  explicit Settings(std::string_view connection_string);

  [[nodiscard]] const std::vector<std::pair<std::string, std::string>>& Keywords() const {
    return keywords_;
  }
  // How an error calls the database: "books" on "db.example.com:5433".
  [[nodiscard]] const std::string& Name() const { return name_; }
  // For how long a connection may be tried; 0 is no limit.
  [[nodiscard]] std::chrono::milliseconds ConnectLimit() const;

 private:
  [[nodiscard]] std::string Value(std::string_view keyword) const;

  std::vector<std::pair<std::string, std::string>> keywords_;
  std::string name_;
};

}  // namespace pstolvane1::postgres
