// The file that a result is written into.
#pragma once

#include <functional>
#include <ostream>
#include <string>

namespace pstolvane1::host {

// Refuses a path that is the books, by another name as well, or one of the files that the engine
// keeps beside them; books that are no file are none of these. An empty path is the standard
// output. Error 3001.
void RefuseBooks(const std::string& path, const std::string& books);

// A file beside the one that is wanted, or that a link leads to; it takes that one's name at the
// end, or goes. What was there before keeps its permissions and its owner. A device or a pipe is
// written into as it is.
class OutputFile {
 public:
  // Error 3001 for what cannot be written: a folder, a file that is protected, that has a second
  // name or would get another owner, a link that leads nowhere.
  explicit OutputFile(std::string path);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // Writes the whole of it. Error 3001.
  void Write(const std::function<void(std::ostream&)>& write);

 private:
  void Open();
  void TakeOver(const std::string& existing);
  void Done();
  [[noreturn]] void Refuse(const std::string& why) const;

  const std::string path_;  // as it was given
  std::string target_;      // that a link leads to
  std::string making_;      // "" when the target is written into as it is
  int descriptor_ = -1;
};

}  // namespace pstolvane1::host
