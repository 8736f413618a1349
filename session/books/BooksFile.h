// Making a file of books.
#pragma once

#include <functional>
#include <string>

namespace pstolvane1::books {

class Writer;

class ServerWriter;

// Empty books with the reference schema, in a file or in the first schema of a server's
// search_path. Error 501 when the file exists or cannot be written, or when the schema holds books
// already.
void CreateBooks(const std::string& connection);

// Makes a file of books whole or not at all: fill works on a file beside it, which takes the name
// only when fill has returned and everything is on the disk. The tables are there when fill is
// called, the indexes are made after it. An existing file is refused with error 501, before and
// after the work, and what fill throws goes on with nothing left behind.
void MakeBooks(const std::string& path, const std::function<void(Writer&)>& fill,
               const std::function<void(std::string_view table)>& indexing = {});

// The same for books on a server, where the work is one transaction.
void MakeServerBooks(ServerWriter& writer, const std::function<void()>& fill,
                     const std::function<void(std::string_view table)>& indexing = {});

// A file of books for the time of some work, gone with the object.
class PassingBooks {
 public:
  PassingBooks();
  ~PassingBooks();
  PassingBooks(const PassingBooks&) = delete;
  PassingBooks& operator=(const PassingBooks&) = delete;

  // Where the file is to be made.
  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  std::string folder_;
  std::string path_;
};

}  // namespace pstolvane1::books
