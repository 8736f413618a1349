#include "QueryFile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "Play.h"

namespace pstolvane1::golden {
namespace {

constexpr std::string_view kQuery = "query ";
constexpr std::string_view kRefused = "refused: ";

bool StartsBlock(const std::string& line) {
  return line.starts_with("set ") || line.starts_with("call ") || line.starts_with("books ") ||
         line.starts_with("table ");
}

// The head as a case: what stands in front of its first block is the comment.
void ReadHead(QueryFile& file) {
  std::string as_case;
  bool in_blocks = false;
  for (const std::string& line : file.head) {
    if (line.starts_with(kQuery)) {
      file.number = std::stoul(line.substr(kQuery.size()));
    } else if (line.starts_with(kRefused)) {
      file.refused = line.substr(kRefused.size());
    } else {
      in_blocks = in_blocks || StartsBlock(line);
      as_case += (in_blocks || line.empty() ? line : "# " + line) + "\n";
    }
  }
  if (!in_blocks) return;
  std::istringstream text(as_case);
  file.sender = ReadCase(text, file.path, kCases);
  if (file.sender->calls.size() != 1) throw std::runtime_error(file.path + ": more than one call");
}

QueryFile ReadQuery(const std::filesystem::path& path) {
  QueryFile file{.path = path.string(), .head = {}, .text = {}, .sender = {}, .refused = {}};
  std::ifstream in(path);
  for (std::string line; std::getline(in, line);) {
    if (!line.starts_with("--")) {
      file.text += line;
    } else {
      file.head.push_back(line.substr(line.starts_with("-- ") ? 3 : 2));
    }
  }
  if (file.head.empty()) throw std::runtime_error(file.path + " does not say what it shows");
  ReadHead(file);
  return file;
}

}  // namespace

std::vector<QueryFile> AllQueries() {
  std::vector<QueryFile> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(kQueries)) {
    const std::string extension = entry.path().extension();
    if (extension == ".sql" || extension == ".shape") files.push_back(ReadQuery(entry.path()));
  }
  std::ranges::sort(files, {}, &QueryFile::path);
  return files;
}

void WriteQuery(const QueryFile& file) {
  std::filesystem::remove(file.path);
  std::filesystem::path path = file.path;
  path.replace_extension(file.text.starts_with("shape") ? ".shape" : ".sql");
  std::vector<std::string> head = file.head;
  std::erase_if(head, [](const std::string& line) {
    return line.starts_with(kQuery) || line.starts_with(kRefused);
  });
  while (head.back().empty()) head.pop_back();
  std::ofstream out(path);
  for (const std::string& line : head) out << "--" << (line.empty() ? "" : " ") << line << '\n';
  if (file.number > 1) out << "--\n-- " << kQuery << file.number << '\n';
  if (!file.refused.empty()) out << "--\n-- " << kRefused << file.refused << '\n';
  out << file.text << '\n';
}

}  // namespace pstolvane1::golden
