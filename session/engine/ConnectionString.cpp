#include "session/engine/ConnectionString.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <system_error>

#include "session/data/Ascii.h"
#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

struct Naming {
  std::string_view word;
  EngineKind engine;
};

constexpr std::array kSchemes{
    Naming{"sqlite", EngineKind::kSqlite},
    Naming{"postgresql", EngineKind::kPostgresql},
    Naming{"postgres", EngineKind::kPostgresql},
};

// The first keyword of a "keyword=value" text tells whose keywords they are.
constexpr std::array kKeywords{
    Naming{"host", EngineKind::kPostgresql},
    Naming{"hostaddr", EngineKind::kPostgresql},
    Naming{"port", EngineKind::kPostgresql},
    Naming{"dbname", EngineKind::kPostgresql},
    Naming{"user", EngineKind::kPostgresql},
    Naming{"password", EngineKind::kPostgresql},
    Naming{"passfile", EngineKind::kPostgresql},
    Naming{"service", EngineKind::kPostgresql},
    Naming{"sslmode", EngineKind::kPostgresql},
    Naming{"connect_timeout", EngineKind::kPostgresql},
    Naming{"application_name", EngineKind::kPostgresql},
    Naming{"options", EngineKind::kPostgresql},
    Naming{"target_session_attrs", EngineKind::kPostgresql},
    Naming{"driver", EngineKind::kOdbc},
    Naming{"dsn", EngineKind::kOdbc},
    Naming{"filedsn", EngineKind::kOdbc},
};

// Keywords of data sources that no engine of the library reads.
constexpr std::array<std::string_view, 4> kForeignKeywords{"provider", "data source", "server",
                                                           "initial catalog"};

constexpr std::string_view kForms = "write a path, sqlite:///PATH or a postgresql:// URL";

[[noreturn]] void Refuse(const std::string& why) { throw Error(ErrorNumber::kConnection, why); }

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsLetter(char c) { return Lower(c) >= 'a' && Lower(c) <= 'z'; }

bool SameWord(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

bool StartsWithWord(std::string_view text, std::string_view word) {
  return text.size() >= word.size() && SameWord(text.substr(0, word.size()), word);
}

std::optional<EngineKind> EngineOf(const auto& namings, std::string_view word) {
  const auto found = std::find_if(namings.begin(), namings.end(), [&](const Naming& naming) {
    return SameWord(naming.word, word);
  });
  if (found == namings.end()) return std::nullopt;
  return found->engine;
}

// The scheme of "scheme://...", or an empty text.
std::string_view SchemeOf(std::string_view text) {
  const std::size_t colon = text.find("://");
  if (colon == std::string_view::npos || colon == 0 || !IsLetter(text[0])) return {};
  const std::string_view scheme = text.substr(0, colon);
  const bool valid = std::all_of(scheme.begin(), scheme.end(), [](char c) {
    return IsLetter(c) || IsDigit(c) || c == '+' || c == '-' || c == '.';
  });
  return valid ? scheme : std::string_view{};
}

int HexValue(char c) {
  if (IsDigit(c)) return c - '0';
  const char low = Lower(c);
  return low >= 'a' && low <= 'f' ? low - 'a' + 10 : -1;
}

std::string PercentDecoded(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '?' || text[at] == '#') {
      Refuse("The connection string's sqlite:/// URL takes no parameters: write a \"" +
             std::string(1, text[at]) + "\" of the file's name as " +
             (text[at] == '?' ? "%3F." : "%23."));
    }
    if (text[at] != '%') {
      decoded += text[at];
      continue;
    }
    const int high = at + 2 < text.size() ? HexValue(text[at + 1]) : -1;
    const int low = at + 2 < text.size() ? HexValue(text[at + 2]) : -1;
    if (high < 0 || low < 0) {
      Refuse(
          "The connection string's sqlite:/// URL has a \"%\" that two hexadecimal digits do "
          "not follow: write a \"%\" of the file's name as %25.");
    }
    decoded += static_cast<char>(high * 16 + low);
    at += 2;
  }
  return decoded;
}

// Refuses what the engine would not take for a file's name.
void CheckPath(std::string_view path) {
  if (path.empty()) Refuse("The connection string names no database: " + std::string(kForms) + ".");
  if (path.find('\0') != std::string_view::npos) {
    Refuse("The connection string names a file with a zero byte in its name.");
  }
  if (path == ":memory:" || StartsWithWord(path, "file:")) {
    Refuse("The connection string \"" + std::string(path) +
           "\" names no file of books: write the path of the file, with ./ before it if the file "
           "is really called so.");
  }
}

ConnectionTarget SqliteUrl(std::string_view behind_scheme) {
  if (behind_scheme.empty() || behind_scheme[0] != '/') {
    Refuse(
        "The connection string's sqlite:// URL names a host, and SQLite's books are files: "
        "write sqlite:///PATH.");
  }
  ConnectionTarget target;
  target.path = PercentDecoded(behind_scheme.substr(1));
  CheckPath(target.path);
  if (target.path[0] != '/') target.other_path = "/" + target.path;
  return target;
}

void RefuseForeignKeywords(std::string_view keyword) {
  for (const std::string_view foreign : kForeignKeywords) {
    if (SameWord(foreign, keyword)) {
      Refuse("The connection string's keyword \"" + std::string(foreign) +
             "\" is of no engine of this library: " + std::string(kForms) + ".");
    }
  }
}

}  // namespace

std::string_view NameOf(EngineKind engine) {
  switch (engine) {
    case EngineKind::kSqlite:
      return "SQLite";
    case EngineKind::kPostgresql:
      return "PostgreSQL";
    case EngineKind::kOdbc:
      return "ODBC";
  }
  return "";
}

ConnectionTarget ReadConnectionString(std::string_view text) {
  if (const std::string_view scheme = SchemeOf(text); !scheme.empty()) {
    const std::optional<EngineKind> engine = EngineOf(kSchemes, scheme);
    if (!engine) {
      Refuse("The connection string's scheme \"" + std::string(scheme) +
             "://\" is of no engine of this library: " + std::string(kForms) + ".");
    }
    if (*engine == EngineKind::kSqlite) return SqliteUrl(text.substr(scheme.size() + 3));
    return {.engine = *engine, .path = {}, .other_path = {}};
  }
  if (StartsWithWord(text, "sqlite:")) {
    Refuse(
        "The connection string begins with \"sqlite:\" but not with \"sqlite:///\": write "
        "sqlite:///PATH.");
  }
  if (const std::size_t equals = text.find('='); equals != std::string_view::npos) {
    const std::string_view keyword = Trimmed(text.substr(0, equals), kWhiteSpace);
    if (const std::optional<EngineKind> engine = EngineOf(kKeywords, keyword)) {
      return {.engine = *engine, .path = {}, .other_path = {}};
    }
    RefuseForeignKeywords(keyword);
  }
  if (Trimmed(text, kWhiteSpace).empty()) CheckPath({});
  CheckPath(text);
  return {.engine = EngineKind::kSqlite, .path = std::string(text), .other_path = {}};
}

std::string FileOf(const ConnectionTarget& target) {
  std::error_code unreadable;
  if (target.other_path.empty() || std::filesystem::exists(target.path, unreadable)) {
    return target.path;
  }
  return std::filesystem::exists(target.other_path, unreadable) ? target.other_path : target.path;
}

ConnectionTarget TargetOf(std::string_view text) {
  ConnectionTarget target = ReadConnectionString(text);
  if (target.engine == EngineKind::kOdbc) {
    throw Error(ErrorNumber::kConnection, "The connection string names " +
                                              std::string(NameOf(target.engine)) +
                                              ", which this build of the library does not have.");
  }
  return target;
}

}  // namespace pstolvane1
