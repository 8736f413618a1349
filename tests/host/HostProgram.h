// The command line host as a program that a test runs.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <vector>

#include "../books/BooksOnDisk.h"

namespace pstolvane1::host::test {

struct Finished {
  int status = -1;  // the exit status, or 128 and the number of the signal that ended it
  std::string out, err;
};

using Words = std::vector<std::string>;

// Runs the program to its end, neither input nor output being a terminal.
[[nodiscard]] Finished Stolvane(const Words& words);
// The same with its standard input from a file.
[[nodiscard]] Finished StolvaneWithInput(const std::string& input, const Words& words);
// The same with its standard output into a file, from which nothing is read, or closed for "".
[[nodiscard]] Finished StolvaneInto(const std::string& output, const Words& words);
// Runs it and sends it a signal once it has been at work for a while.
[[nodiscard]] Finished StolvaneWithSignal(const Words& words, int signal, int milliseconds);
// Runs it, and once it has written a word, does something with all that it has written; then it
// gets the signal of Ctrl-C. After half a minute without the word it goes on all the same.
[[nodiscard]] Finished StolvaneOnceItSays(
    const std::string& word, const Words& words,
    const std::function<void(const std::string& out)>& meanwhile);
// Runs it on a terminal of this size, with this pager. What it writes, to either output, is in out,
// with line ends as a terminal has them.
[[nodiscard]] Finished StolvaneOnTerminal(const Words& words, unsigned short lines,
                                          unsigned short columns, const std::string& pager);

// The same on a large terminal, where somebody types this.
[[nodiscard]] Finished StolvaneAtPrompt(const Words& words, const std::string& typed);

// Sample books for all tests of a program, and a folder for each.
class SampleHost : public testing::Test {
 protected:
  static const std::string& Books() { return books::test::SampleFile(); }
  books::test::Folder folder;
};

}  // namespace pstolvane1::host::test
