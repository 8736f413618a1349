#include "viewer/PageFiles.h"

#include <algorithm>

namespace pstolvane1::viewer {

const PageFile* FindPageFile(std::string_view name) {
  const std::span<const PageFile> files = PageFiles();
  const auto found =
      std::ranges::find_if(files, [&](const PageFile& one) { return one.name == name; });
  return found == files.end() ? nullptr : &*found;
}

}  // namespace pstolvane1::viewer
