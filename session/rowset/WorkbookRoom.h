// Where a workbook is put together before it goes anywhere.
#pragma once

#include <string>
#include <string_view>

namespace pstolvane1 {

// A file in memory that the writer of workbooks can open by a path, and the folder in which it
// makes the parts. Goes with the object.
class WorkbookRoom {
 public:
  // Error 3001 where no file can be made in the folder for temporary files.
  WorkbookRoom();
  ~WorkbookRoom();
  WorkbookRoom(const WorkbookRoom&) = delete;
  WorkbookRoom& operator=(const WorkbookRoom&) = delete;

  [[nodiscard]] const std::string& Path() const { return path_; }
  // As the writer wants it; it does not change it.
  [[nodiscard]] char* PartsFolder() { return parts_folder_.data(); }
  // What stands in the file; valid until the next call.
  [[nodiscard]] std::string_view Bytes();
  // Writes it into a file of that name. Error 3001 with the name when that fails; a file that was
  // begun is removed.
  void CopyTo(const std::string& path);

 private:
  void LetGo();

  std::string parts_folder_;
  int file_ = -1;
  std::string path_;
  void* bytes_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace pstolvane1
