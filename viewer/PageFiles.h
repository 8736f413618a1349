// The page's files, as they stand in the program.
#pragma once

#include <span>
#include <string_view>

namespace pstolvane1::viewer {

struct PageFile {
  std::string_view name, type, text;  // "page.js", its media type, and the file
};

[[nodiscard]] std::span<const PageFile> PageFiles();
// nullptr for an unknown one.
[[nodiscard]] const PageFile* FindPageFile(std::string_view name);

}  // namespace pstolvane1::viewer
