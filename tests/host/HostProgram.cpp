#include "HostProgram.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "session/books/SampleBooks.h"

extern char** environ;

namespace pstolvane1::host::test {
namespace {

struct Running {
  pid_t process = 0;
  std::string out_file, err_file;
};

Running Start(const books::test::Folder& folder, const Words& words) {
  Running running{.out_file = folder.File("out"), .err_file = folder.File("err")};
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, running.out_file.c_str(),
                                   O_WRONLY | O_CREAT, 0600);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, running.err_file.c_str(),
                                   O_WRONLY | O_CREAT, 0600);
  std::vector<std::string> own = {"stolvane"};
  own.insert(own.end(), words.begin(), words.end());
  std::vector<char*> arguments;
  for (std::string& word : own) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const int failed =
      posix_spawn(&running.process, PST_HOST_PROGRAM, &files, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  if (failed != 0) throw std::runtime_error("the host program does not start");
  return running;
}

Finished Finish(const Running& running) {
  int status = 0;
  while (waitpid(running.process, &status, 0) < 0 && errno == EINTR) {
  }
  return {.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
          .out = books::test::Content(running.out_file),
          .err = books::test::Content(running.err_file)};
}

}  // namespace

Finished Stolvane(const Words& words) {
  const books::test::Folder folder;
  return Finish(Start(folder, words));
}

Finished StolvaneWithSignal(const Words& words, int signal, int milliseconds) {
  const books::test::Folder folder;
  const Running running = Start(folder, words);
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  kill(running.process, signal);
  return Finish(running);
}

const std::string& SampleHost::Books() {
  static const books::test::Folder folder;
  static const std::string path = [] {
    std::string file = folder.File("sample.db");
    books::SampleBooks(file);
    return file;
  }();
  return path;
}

}  // namespace pstolvane1::host::test
