// What another program says.
#pragma once

#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>

namespace pstolvane1 {

// The standard output of a shell's command, which must succeed.
inline std::string CommandOutput(const std::string& command) {
  std::FILE* const pipe = popen(command.c_str(), "r");
  std::string text;
  std::array<char, 4096> buffer{};
  for (std::size_t got = 0; (got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    text.append(buffer.data(), got);
  }
  EXPECT_EQ(pclose(pipe), 0) << command;
  return text;
}

}  // namespace pstolvane1
