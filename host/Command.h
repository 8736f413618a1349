// What every command of the program has in common: how it joins the command line.
#pragma once

#include <functional>
#include <string>

namespace CLI {
class App;
}

namespace pstolvane1::host {

inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;    // of the report or the books
inline constexpr int kWrongCall = 2;  // of the words

// What the words ask for, once they are read. The options of a command live as long as this.
struct Asked {
  std::function<int()> command;
  std::string operation;  // whose arguments are shown when the words are wrong; "" for none
};

void AddBooksCommands(CLI::App& app, Asked& asked);
// help, version, completion and man; what they show is made of the commands before them.
void AddHelpCommands(CLI::App& app, Asked& asked);
// What can be done at all, in few lines, with a whole example.
[[nodiscard]] std::string HelpInShort(const CLI::App& app);
void AddListCommand(CLI::App& app, Asked& asked);
void AddReportsCommand(CLI::App& app, Asked& asked);
void AddRunCommand(CLI::App& app, Asked& asked);
void AddServeCommand(CLI::App& app, Asked& asked);
void AddShortCommands(CLI::App& app, Asked& asked);
void AddSqlCommand(CLI::App& app, Asked& asked);

}  // namespace pstolvane1::host
