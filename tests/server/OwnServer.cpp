#include "tests/server/OwnServer.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>
#include <unistd.h>

#include "tests/SourcePath.h"
#include "tests/server/Server.h"

namespace pstolvane1 {
namespace {

const std::string kScript = SourcePath("scripts/postgres");

void Do(const std::string& what, const std::string& folder) {
  const std::string command = kScript + " " + what + " " + folder;
  if (std::system(command.c_str()) != 0) throw std::runtime_error(command + " failed");
}

std::string TextOf(const std::string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Not there, or there only until somebody asks how it ended.
bool IsGone(pid_t process) {
  const std::string stat = TextOf("/proc/" + std::to_string(process) + "/stat");
  const std::size_t name_end = stat.rfind(')');
  return name_end == std::string::npos || stat.compare(name_end + 2, 1, "Z") == 0;
}

}  // namespace

OwnServer::OwnServer() {
  // Short, because a socket's path is.
  std::string folder = "/tmp/pst-own-XXXXXX";
  if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
  folder_ = folder;
  Do("start", folder_);
}

OwnServer::~OwnServer() {
  Thaw();
  static_cast<void>(std::system((kScript + " stop " + folder_).c_str()));
}

std::string OwnServer::ConnectionString() const {
  return "host=" + folder_ + " user=books dbname=postgres";
}

std::string OwnServer::Run(const std::string& statements) const {
  ServerSession writer(ConnectionString());
  // What is written stays when the server is killed.
  writer.Run("SET synchronous_commit = on");
  return writer.Run(statements);
}

void OwnServer::Stop() const {
  const std::vector<pid_t> processes = Processes();
  if (processes.empty()) return;
  kill(processes.front(), SIGINT);
  while (!IsGone(processes.front())) std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

void OwnServer::Halt() const { Do("halt", folder_); }

void OwnServer::Kill() const {
  const std::vector<pid_t> processes = Processes();
  for (const pid_t process : processes) kill(process, SIGKILL);
  for (const pid_t process : processes) {
    while (!IsGone(process)) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  // They name a process that may stay in sight as one that has ended.
  std::filesystem::remove(Data() + "/postmaster.pid");
  std::filesystem::remove(folder_ + "/.s.PGSQL.5432.lock");
}

void OwnServer::Resume() const { Do("resume", folder_); }

void OwnServer::Freeze() const {
  for (const pid_t process : Processes()) kill(process, SIGSTOP);
}

void OwnServer::Thaw() const {
  for (const pid_t process : Processes()) kill(process, SIGCONT);
}

void OwnServer::Configure(const std::string& line) const {
  std::ofstream(Data() + "/postgresql.conf", std::ios::app) << line << '\n';
}

void OwnServer::LetIn(const std::string& rule) const {
  const std::string path = Data() + "/pg_hba.conf";
  const std::string rules = TextOf(path);
  std::ofstream(path) << rule << '\n' << rules;
}

void OwnServer::Signal(const std::string& name) const { std::ofstream file(Data() + "/" + name); }

// The first is the one that all others come from.
std::vector<pid_t> OwnServer::Processes() const {
  std::vector<pid_t> processes;
  std::ifstream file(Data() + "/postmaster.pid");
  pid_t first = 0;
  if (!(file >> first)) return processes;
  processes.push_back(first);
  const std::string number = std::to_string(first);
  std::ifstream children("/proc/" + number + "/task/" + number + "/children");
  for (pid_t child = 0; children >> child;) processes.push_back(child);
  return processes;
}

}  // namespace pstolvane1
