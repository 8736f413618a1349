// The query texts of tests/queries.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/SourcePath.h"

namespace pstolvane1::sql {

// Those that are to be refused, or all others; in order.
inline std::vector<std::filesystem::path> QueryFiles(bool refused) {
  namespace fs = std::filesystem;
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(SourcePath("tests/queries"))) {
    const std::string extension = entry.path().extension();
    if (extension != ".sql" && extension != ".shape") continue;
    if ((entry.path().parent_path().filename() == "refused") == refused) {
      files.push_back(entry.path());
    }
  }
  std::ranges::sort(files);
  return files;
}

inline std::string ContentOf(const std::filesystem::path& path) {
  std::ostringstream read;
  read << std::ifstream(path).rdbuf();
  return read.str();
}

// The SELECT of a .sql file, or those in the braces of a .shape file, without the comment above.
inline std::vector<std::string> SelectsOf(const std::filesystem::path& path) {
  std::istringstream lines(ContentOf(path));
  std::string text;
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("--")) text += line;
  }
  if (path.extension() == ".sql") return {text};
  std::vector<std::string> selects;
  std::size_t open = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '{') open = i + 1;
    if (text[i] == '}') selects.push_back(text.substr(open, i - open));
  }
  return selects;
}

}  // namespace pstolvane1::sql
