#include "tests/server/Wire.h"

#include <algorithm>
#include <array>
#include <list>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <tuple>
#include <unistd.h>
#include <utility>
#include <vector>

namespace pstolvane1 {
namespace {

constexpr int kLookMilliseconds = 5;

template <typename Address>
sockaddr* Plain(Address& address) {
  return static_cast<sockaddr*>(static_cast<void*>(&address));
}

// A socket that listens on a port of its own, and the port.
std::pair<int, int> Listen() {
  const int listening = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  if (bind(listening, Plain(address), size) != 0 || listen(listening, 64) != 0 ||
      getsockname(listening, Plain(address), &size) != 0) {
    throw std::runtime_error("no port to listen on");
  }
  return {listening, ntohs(address.sin_port)};
}

int ConnectTo(const std::string& folder) {
  const int connected = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string path = folder + "/.s.PGSQL.5432";
  std::copy_n(path.begin(), std::min(path.size(), sizeof address.sun_path - 1), address.sun_path);
  if (connect(connected, Plain(address), sizeof address) == 0) return connected;
  close(connected);
  return -1;
}

// A host and the server, and what is on its way from each.
struct Pair {
  std::array<int, 2> ends;
  std::array<std::string, 2> from;
  bool cut = false;
  bool over = false;

  void Close() const {
    for (const int end : ends) close(end);
  }
  // What is read only once what came before is gone does not pile up.
  [[nodiscard]] pollfd Awaited(std::size_t side) const {
    const bool full = !from[side].empty();
    return {full ? ends[1 - side] : ends[side], static_cast<short>(full ? POLLOUT : POLLIN), 0};
  }
  void Move(std::size_t side) {
    std::string& piece = from[side];
    if (!piece.empty()) {
      const ssize_t sent =
          send(ends[1 - side], piece.data(), piece.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
      if (sent > 0) piece.erase(0, static_cast<std::size_t>(sent));
      over = over || sent <= 0;
      return;
    }
    std::array<char, 16384> buffer{};
    const ssize_t got = recv(ends[side], buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (got > 0) piece.assign(buffer.data(), static_cast<std::size_t>(got));
    over = over || got <= 0;
  }
};

std::string AtPort(int port) {
  return "host=127.0.0.1 port=" + std::to_string(port) + " user=books dbname=postgres";
}

}  // namespace

Wire::Wire(std::string folder) : folder_(std::move(folder)) {
  std::tie(listening_, port_) = Listen();
  passing_ = std::thread([this] { Pass(); });
}

Wire::~Wire() {
  ends_ = true;
  passing_.join();
  close(listening_);
}

std::string Wire::ConnectionString() const { return AtPort(port_); }

void Wire::Pass() {
  std::list<Pair> pairs;
  while (!ends_) {
    if (cut_.exchange(false)) {
      for (Pair& pair : pairs) pair.cut = true;
    }
    std::vector<pollfd> awaited{{listening_, POLLIN, 0}};
    std::vector<std::pair<Pair*, std::size_t>> whose;
    for (Pair& pair : pairs) {
      for (std::size_t side = 0; side < 2 && !pair.cut; ++side) {
        awaited.push_back(pair.Awaited(side));
        whose.emplace_back(&pair, side);
      }
    }
    if (poll(awaited.data(), awaited.size(), kLookMilliseconds) <= 0) continue;
    for (std::size_t i = 0; i < whose.size(); ++i) {
      if (awaited[i + 1].revents != 0) whose[i].first->Move(whose[i].second);
    }
    if (awaited[0].revents != 0) {
      const int host = accept(listening_, nullptr, nullptr);
      const int server = ConnectTo(folder_);
      if (host >= 0 && server >= 0) {
        pairs.push_back({.ends = {host, server}, .from = {}});
      } else {
        if (host >= 0) close(host);
        if (server >= 0) close(server);
      }
    }
    pairs.remove_if([](const Pair& pair) {
      if (pair.over) pair.Close();
      return pair.over;
    });
  }
  for (const Pair& pair : pairs) pair.Close();
}

Stranger::Stranger(std::string words) : words_(std::move(words)) {
  std::tie(listening_, port_) = Listen();
  talking_ = std::thread([this] {
    std::vector<int> hosts;
    while (!ends_) {
      pollfd awaited{listening_, POLLIN, 0};
      if (poll(&awaited, 1, kLookMilliseconds) <= 0) continue;
      hosts.push_back(accept(listening_, nullptr, nullptr));
      static_cast<void>(send(hosts.back(), words_.data(), words_.size(), MSG_NOSIGNAL));
    }
    for (const int host : hosts) close(host);
  });
}

Stranger::~Stranger() {
  ends_ = true;
  talking_.join();
  close(listening_);
}

std::string Stranger::ConnectionString() const { return AtPort(port_); }

}  // namespace pstolvane1
