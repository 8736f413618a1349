#include "HostProgram.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <pty.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace pstolvane1::host::test {
namespace {

constexpr std::chrono::seconds kPatience{30};

struct Running {
  pid_t process = 0;
  std::string out_file, err_file;
};

// The program's own name, its words, and the null that ends them.
std::vector<char*> ArgumentsOf(Words& own) {
  own.insert(own.begin(), "stolvane");
  std::vector<char*> arguments;
  for (std::string& word : own) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  return arguments;
}

int WaitFor(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

bool HasEnded(pid_t process) {
  siginfo_t told{};
  return waitid(P_PID, static_cast<id_t>(process), &told, WEXITED | WNOHANG | WNOWAIT) == 0 &&
         told.si_pid == process;
}

Running Start(const books::test::Folder& folder, const Words& words,
              const std::optional<std::string>& output = {},
              const std::string& input = "/dev/null") {
  Running running{.out_file = folder.File("out"), .err_file = folder.File("err")};
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, input.c_str(), O_RDONLY, 0);
  if (!output) {
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, running.out_file.c_str(),
                                     O_WRONLY | O_CREAT, 0600);
  } else if (output->empty()) {
    posix_spawn_file_actions_addclose(&files, STDOUT_FILENO);
  } else {
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, output->c_str(), O_WRONLY | O_APPEND,
                                     0);
  }
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, running.err_file.c_str(),
                                   O_WRONLY | O_CREAT, 0600);
  Words own = words;
  const std::vector<char*> arguments = ArgumentsOf(own);
  const int failed =
      posix_spawn(&running.process, PST_HOST_PROGRAM, &files, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  if (failed != 0) throw std::runtime_error("the host program does not start");
  return running;
}

Finished Finish(const Running& running) {
  return {.status = WaitFor(running.process),
          .out = books::test::Content(running.out_file),
          .err = books::test::Content(running.err_file)};
}

}  // namespace

Finished Stolvane(const Words& words) {
  const books::test::Folder folder;
  return Finish(Start(folder, words));
}

Finished StolvaneWithInput(const std::string& input, const Words& words) {
  const books::test::Folder folder;
  return Finish(Start(folder, words, {}, input));
}

Finished StolvaneInto(const std::string& output, const Words& words) {
  const books::test::Folder folder;
  folder.Write("out", "");
  return Finish(Start(folder, words, output));
}

Finished StolvaneOnceItSays(const std::string& word, const Words& words,
                            const std::function<void(const std::string& out)>& meanwhile) {
  const books::test::Folder folder;
  const Running running = Start(folder, words);
  const auto end = std::chrono::steady_clock::now() + kPatience;
  std::string out;
  while (out.find(word) == std::string::npos && !HasEnded(running.process) &&
         std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    out = books::test::Content(running.out_file);
  }
  meanwhile(out);
  kill(running.process, SIGINT);
  return Finish(running);
}

Finished StolvaneWithSignal(const Words& words, int signal, int milliseconds) {
  const books::test::Folder folder;
  const Running running = Start(folder, words);
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  kill(running.process, signal);
  return Finish(running);
}

namespace {

Finished OnTerminal(const Words& words, const winsize& size, const std::string& pager,
                    const std::string& typed) {
  Words own = words;
  const std::vector<char*> arguments = ArgumentsOf(own);
  int terminal = -1;
  const pid_t process = forkpty(&terminal, nullptr, nullptr, &size);
  if (process < 0) throw std::runtime_error("there is no terminal to be had");
  if (process == 0) {
    setenv("PAGER", pager.c_str(), 1);
    execv(PST_HOST_PROGRAM, arguments.data());
    _exit(127);
  }
  if (write(terminal, typed.data(), typed.size()) < 0) {
    throw std::runtime_error("the terminal takes no input");
  }
  Finished finished;
  char bytes[4096];
  // The last read fails: nobody has the other end any more.
  for (ssize_t count = 0; (count = read(terminal, bytes, sizeof bytes)) > 0;) {
    finished.out.append(bytes, static_cast<std::size_t>(count));
  }
  close(terminal);
  finished.status = WaitFor(process);
  return finished;
}

}  // namespace

Finished StolvaneOnTerminal(const Words& words, unsigned short lines, unsigned short columns,
                            const std::string& pager) {
  return OnTerminal(words, {.ws_row = lines, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0},
                    pager, "");
}

Finished StolvaneAtPrompt(const Words& words, const std::string& typed) {
  return OnTerminal(words, {.ws_row = 200, .ws_col = 200, .ws_xpixel = 0, .ws_ypixel = 0}, "cat",
                    typed);
}

}  // namespace pstolvane1::host::test
