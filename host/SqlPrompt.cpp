#include "host/SqlPrompt.h"

#include <fmt/format.h>
#include <iostream>
#include <string_view>

#include "host/OutputStream.h"
#include "host/StopSignals.h"
#include "session/rowset/Export.h"

namespace pstolvane1::host {
namespace {

constexpr const char* kHelp =
    "A SELECT ends with \";\" or an empty line.\n"
    ".tables          the tables\n"
    ".columns TABLE   the columns of one\n"
    ".quit            ends, as Ctrl-D does\n";

std::string Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

class Statements {
 public:
  Statements(std::istream& in, bool prompt, SqlNames& names, const OutputOptions& output,
             const std::function<void(const std::string&)>& run)
      : in_(in), prompt_(prompt), names_(names), output_(output), run_(run) {}

  void ReadAll() {
    if (prompt_) WriteToStandardOutput(".help tells what can be asked.\n");
    for (std::string line; !ended_ && NextLine(line);) {
      line = Trimmed(line);
      if (statement_.empty() && line.starts_with('.')) {
        Try([&] { Command(line); });
        continue;
      }
      const bool ends = line.ends_with(';');
      if (ends) line.pop_back();
      statement_ += statement_.empty() || line.empty() ? line : "\n" + line;
      if (ends || line.empty()) RunStatement();
    }
    RunStatement();
    if (prompt_ && !ended_) WriteToStandardOutput("\n");
  }

 private:
  bool NextLine(std::string& line) {
    if (prompt_) WriteToStandardOutput(statement_.empty() ? "sql> " : "...> ");
    return static_cast<bool>(std::getline(in_, line));
  }

  void RunStatement() {
    if (statement_.empty()) return;
    const std::string statement = std::exchange(statement_, {});
    Try([&] {
      try {
        run_(statement);
      } catch (const Error& error) {
        throw names_.WithSuggestion(error, statement);
      }
    });
  }

  void Command(const std::string& line) {
    const std::string word = line.substr(0, line.find(' '));
    const std::string rest = Trimmed(std::string_view(line).substr(word.size()));
    if (word == ".quit" || word == ".exit") {
      ended_ = true;
    } else if (word == ".tables") {
      Show(*names_.Tables());
    } else if (word == ".columns" && !rest.empty()) {
      Show(*names_.Columns(rest));
    } else {
      WriteToStandardOutput(kHelp);
    }
  }

  void Show(const Recordset& rowset) {
    Write(rowset, {.title = "Names"}, output_, [&rowset] { return ExportJson(rowset); });
  }

  void Try(const std::function<void()>& work) {
    if (!prompt_) return work();
    try {
      work();
    } catch (const StoppedBySignal&) {
      std::cerr << "stopped\n";
    } catch (const Error& error) {
      std::cerr << error.Description() << (error.Cause().empty() ? "" : ": ") << error.Cause()
                << '\n';
    }
  }

  std::istream& in_;
  const bool prompt_;
  SqlNames& names_;
  const OutputOptions& output_;
  const std::function<void(const std::string&)>& run_;
  std::string statement_;
  bool ended_ = false;
};

}  // namespace

void ReadStatements(std::istream& in, bool prompt, SqlNames& names, const OutputOptions& output,
                    const std::function<void(const std::string& select)>& run) {
  Statements(in, prompt, names, output, run).ReadAll();
}

}  // namespace pstolvane1::host
