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

#include "session/data/Chunk.h"
#include "session/data/Provider.h"
#include "session/engine/sqlite/SqliteProvider.h"

namespace pstolvane1::sqlite {

using std::chrono::milliseconds;
inline constexpr milliseconds kNoLimit{0};

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

inline sql::Type TypeNamed(std::string_view name) {
  using sql::Type;
  for (const auto& [type, each] : {std::pair{Type::kNull, "null"},
                                   {Type::kText, "text"},
                                   {Type::kFlag, "flag"},
                                   {Type::kWhole, "whole"},
                                   {Type::kBigWhole, "big"},
                                   {Type::kMoney, "money"},
                                   {Type::kDecimal, "decimal"},
                                   {Type::kSingle, "single"},
                                   {Type::kReal, "real"},
                                   {Type::kDate, "date"}}) {
    if (name == each) return type;
  }
  throw std::runtime_error("no type " + std::string(name));
}

// Takes the engine's own text with its columns before it: "whole Id, text Name: SELECT id, name
// ...".
inline sql::Translation PlainText(std::string_view text, const sql::Catalog& /*catalog*/) {
  sql::Translation translation;
  const std::size_t colon = text.find(": ");
  if (colon == text.npos) throw Error(ErrorNumber::kQueryRefused, "no columns are told");
  std::string_view columns = text.substr(0, colon);
  translation.text = text.substr(colon + 2);
  while (!columns.empty()) {
    const std::string_view column = columns.substr(0, columns.find(", "));
    const std::size_t blank = column.find(' ');
    translation.columns.push_back({.name = std::string(column.substr(blank + 1)),
                                   .type = TypeNamed(column.substr(0, blank))});
    columns.remove_prefix(std::min(columns.size(), column.size() + 2));
  }
  return translation;
}

inline std::shared_ptr<SqliteProvider> OpenPlain(const std::string& path,
                                                 milliseconds limit = milliseconds(5000)) {
  return std::make_shared<SqliteProvider>(path, limit, PlainText);
}

inline std::string Shown(const Chunk& chunk, const ColumnInfo& column, std::size_t at,
                         std::size_t row) {
  if (chunk.IsNull(at, row)) return "(null)";
  switch (column.type) {
    case adInteger:
      return std::to_string(chunk.Get<std::int32_t>(at, row));
    case adBigInt:
      return std::to_string(chunk.Get<std::int64_t>(at, row));
    case adBoolean:
      return std::to_string(chunk.Get<std::int16_t>(at, row));
    case adSingle:
      return Variant(chunk.Get<float>(at, row)).ToText();
    case adDouble:
      return Variant(chunk.Get<double>(at, row)).ToText();
    case adCurrency:
      return Currency::FromTenThousandths(chunk.Get<std::int64_t>(at, row)).ToText();
    case adDate:
      return Date(chunk.Get<double>(at, row)).ToIso();
    default:
      return std::string(chunk.Text(at, row));
  }
}

// All rows left, a line each, cells apart by "|".
inline std::vector<std::string> Lines(Cursor& cursor) {
  std::vector<std::string> lines;
  while (true) {
    Chunk chunk(cursor.Columns());
    const std::size_t rows = cursor.Read(chunk);
    for (std::size_t row = 0; row < rows; ++row) {
      std::string line;
      for (std::size_t at = 0; at < cursor.Columns().size(); ++at) {
        line += (at > 0 ? "|" : "") + Shown(chunk, cursor.Columns()[at], at, row);
      }
      lines.push_back(line);
    }
    if (rows < chunk.Capacity()) return lines;
  }
}

inline std::vector<std::string> Lines(Snapshot& snapshot, std::string_view text) {
  return Lines(*snapshot.Run(text, kNoLimit));
}

inline std::vector<std::string> Lines(Provider& provider, std::string_view text) {
  return Lines(*provider.TakeSnapshot(milliseconds(5000)), text);
}

// "NUMBER DESCRIPTION" of the error that the call raises; "no error" when it raises none.
inline std::string ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return std::to_string(static_cast<std::int32_t>(error.Number())) + " " + error.Description();
  }
  return "no error";
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
