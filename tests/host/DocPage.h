// The pages of docs/ as tests try them: their snippets, and their commands on sample books.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "HostProgram.h"

namespace pstolvane1::host::test {

// The text of a file that is named from the root of the sources.
[[nodiscard]] std::string DocPage(const std::string& file);

// What stands between the fences of a page that begin in this way.
[[nodiscard]] std::vector<std::string> Snippets(const std::string& page, const std::string& fence);

// The commands of the program in the page's fences without a language, each as its words without
// "stolvane". Lines go on behind a backslash, and notes begin with "#".
[[nodiscard]] std::vector<Words> CommandsOf(const std::string& page);

// In a folder of its own with the sample books, which lie there under this name.
class DocHost : public SampleHost {
 protected:
  explicit DocHost(const std::string& books);
  ~DocHost() override;

 private:
  std::filesystem::path before_;
};

}  // namespace pstolvane1::host::test
