#include "DocPage.h"

#include <sstream>

#include "tests/SourcePath.h"

namespace pstolvane1::host::test {
namespace {

// The words of a command, as a shell parts them.
Words WordsOf(const std::string& command) {
  Words words;
  bool quoted = false;
  bool in_word = false;
  for (const char c : command) {
    if (c == '"') {
      quoted = !quoted;
      if (!in_word) words.emplace_back();
      in_word = true;
    } else if (!quoted && (c == ' ' || c == '\n' || c == '\\')) {
      in_word = false;
    } else if (!quoted && !in_word && c == '#') {
      break;
    } else {
      if (!in_word) words.emplace_back();
      in_word = true;
      words.back() += c;
    }
  }
  return words;
}

}  // namespace

std::string DocPage(const std::string& file) { return books::test::Content(SourcePath(file)); }

std::vector<std::string> Snippets(const std::string& page, const std::string& fence) {
  std::vector<std::string> snippets;
  std::istringstream lines(page);
  bool inside = false;
  bool wanted = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("```")) {
      inside = !inside;
      wanted = inside && line == fence;
      if (wanted) snippets.emplace_back();
    } else if (wanted) {
      snippets.back() += line + '\n';
    }
  }
  return snippets;
}

std::vector<Words> CommandsOf(const std::string& page) {
  std::vector<Words> commands;
  for (std::string snippet : Snippets(page, "```")) {
    for (std::size_t at = 0; (at = snippet.find("\nstolvane ")) != std::string::npos;) {
      snippet[at] = '\v';
    }
    std::istringstream parts(snippet);
    for (std::string command; std::getline(parts, command, '\v');) {
      Words words = WordsOf(command);
      EXPECT_EQ(words.front(), "stolvane");
      words.erase(words.begin());
      commands.push_back(std::move(words));
    }
  }
  return commands;
}

DocHost::DocHost(const std::string& books) : before_(std::filesystem::current_path()) {
  std::filesystem::copy_file(Books(), folder.File(books));
  std::filesystem::current_path(folder.Path());
}

DocHost::~DocHost() { std::filesystem::current_path(before_); }

}  // namespace pstolvane1::host::test
