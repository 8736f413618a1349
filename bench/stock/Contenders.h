// What one would write without the library: the closing value of all stock keys at the end of a
// year.
#pragma once

#include <fmt/format.h>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace pstolvane1::bench {

// The statement that all contenders reckon.
inline constexpr int kYear = 3;
inline constexpr const char* kFrom = "2005-04-01";
inline constexpr const char* kTo = "2006-03-31";

struct Answer {
  double seconds = 1e9;  // of the processor
  double value = 0;
};

// The cheapest statements that give the figures of a method's report, as one would write them by
// hand for the engine.
enum class Engine { kFile, kServer };
std::vector<std::string> FloorOf(const std::string& method, Engine engine);
// By window functions of the bare engine. The method is a name of enmValuationMethod.
Answer InSql(sqlite3* database, const std::string& method);
// By a Python program of its own, without the time that Python takes to start.
Answer InPython(const std::string& path, const std::string& method);

void Check(int code, sqlite3* database);

// The numbers that a command prints first.
template <typename... Numbers>
void ReadFrom(const std::string& command, const char* format, Numbers*... numbers) {
  FILE* const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("cannot run " + command);
  const int read = std::fscanf(pipe, format, numbers...);
  if (pclose(pipe) != 0 || read != static_cast<int>(sizeof...(numbers)))
    throw std::runtime_error("no answer from " + command);
}

}  // namespace pstolvane1::bench
