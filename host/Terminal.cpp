#include "host/Terminal.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "host/OutputStream.h"
#include "host/StopSignals.h"
#include "host/TextTable.h"

namespace pstolvane1::host {
namespace {

constexpr int kNoSuchCommand = 127;
// Says nothing where there is none.
constexpr const char* kUsualPager =
    "if command -v less >/dev/null 2>&1; then exec less -RS; else exit 127; fi";

// What a line takes on the screen, without the signs of its colours.
std::size_t WidthOnScreen(std::string_view line) {
  std::size_t width = 0;
  while (!line.empty()) {
    const std::size_t sign = std::min(line.find("\x1b["), line.size());
    width += DisplayWidth(line.substr(0, sign));
    line.remove_prefix(sign);
    line.remove_prefix(line.empty() ? 0 : std::min(line.find('m'), line.size() - 1) + 1);
  }
  return width;
}

bool Fits(const std::string& text) {
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_row == 0) return true;
  std::size_t lines = 0;
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    if (WidthOnScreen(rest.substr(0, end)) > size.ws_col) return false;
    rest.remove_prefix(std::min(end + 1, rest.size()));
    ++lines;
  }
  return lines < size.ws_row;
}

}  // namespace

bool StandardOutputIsTerminal() { return isatty(STDOUT_FILENO) == 1; }
bool StandardErrorIsTerminal() { return isatty(STDERR_FILENO) == 1; }

std::size_t TerminalWidth() {
  winsize size{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

void Show(const std::string& text) {
  if (StandardOutputIsTerminal() && !Fits(text)) {
    const char* chosen = std::getenv("PAGER");
    const std::string pager = chosen != nullptr && *chosen != '\0' ? chosen : kUsualPager;
    setenv("LESSCHARSET", "utf-8", 0);  // also where the locale has no characters but ASCII
    const SignalsForThePager signals;
    if (FILE* pipe = signals.Open(pager); pipe != nullptr) {
      std::fwrite(text.data(), 1, text.size(), pipe);
      const int status = pclose(pipe);
      if (WIFEXITED(status) && WEXITSTATUS(status) != kNoSuchCommand) return;
    }
  }
  WriteToStandardOutput(text);
}

}  // namespace pstolvane1::host
