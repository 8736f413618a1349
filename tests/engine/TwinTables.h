// Two tables that are always changed together, and another program that changes them.
#pragma once

#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "tests/engine/TestBooks.h"

namespace pstolvane1::sqlite {

// Two tables that every writer changes together: whoever reads them at two states sees it.
inline std::string TwinTables(const char* journal_mode, int rows) {
  return std::string("PRAGMA journal_mode = ") + journal_mode +
         "; CREATE TABLE a (id INTEGER PRIMARY KEY, v INTEGER, filler TEXT);"
         "CREATE TABLE b (id INTEGER PRIMARY KEY, v INTEGER);"
         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
         std::to_string(rows) +
         ") INSERT INTO a SELECT i, 0, 'row ' || i FROM n;"
         "INSERT INTO b SELECT id, 0 FROM a;";
}
inline constexpr const char* kStep =
    "BEGIN IMMEDIATE; UPDATE a SET v = v + 1; UPDATE b SET v = v + 1; COMMIT";
inline constexpr const char* kReadA = "whole V: SELECT v FROM a";
inline constexpr const char* kReadB = "whole V: SELECT v FROM b";

// The one value that all lines have; "mixed" if they have several.
inline std::string OneValue(const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    if (line != lines.front()) return "mixed";
  }
  return lines.front();
}

// Another program that writes when told to, on the other side of two pipes. It is made before this
// process opens the books, because a copy of a process would inherit the belief in its locks.
class WriterProcess {
 public:
  explicit WriterProcess(const std::string& path) {
    int orders[2];
    int answers[2];
    if (pipe(orders) != 0 || pipe(answers) != 0) throw std::runtime_error("no pipe");
    child_ = fork();
    if (child_ == 0) {
      close(orders[1]);
      Obey(path, orders[0], answers[1]);
    }
    close(orders[0]);
    close(answers[1]);
    orders_ = orders[1];
    answers_ = answers[0];
  }
  ~WriterProcess() {
    close(orders_);
    close(answers_);
    int status = 0;
    waitpid(child_, &status, 0);
  }
  WriterProcess(const WriterProcess&) = delete;
  WriterProcess& operator=(const WriterProcess&) = delete;

  // One change of both tables; true when it was committed without waiting.
  bool Step() {
    char byte = 's';
    if (write(orders_, &byte, 1) != 1 || read(answers_, &byte, 1) != 1) {
      throw std::runtime_error("the writer is gone");
    }
    return byte == 'y';
  }

 private:
  [[noreturn]] static void Obey(const std::string& path, int orders, int answers) {
    try {
      Writer writer(path);
      for (char byte = 0; read(orders, &byte, 1) == 1;) {
        const bool done = writer.Try(kStep) == SQLITE_OK;
        if (!done) writer.Try("ROLLBACK");
        byte = done ? 'y' : 'n';
        if (write(answers, &byte, 1) != 1) break;
      }
    } catch (...) {
      _exit(1);
    }
    _exit(0);
  }

  pid_t child_;
  int orders_;
  int answers_;
};

}  // namespace pstolvane1::sqlite
