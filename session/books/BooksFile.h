// Making a file of books.
#pragma once

#include <functional>
#include <string>

namespace pstolvane1::books {

class Writer;

// Empty books with the reference schema. Error 501 when the file exists or cannot be written.
void CreateBooks(const std::string& path);

// Makes a file of books whole or not at all: fill works on a file beside it, which takes the name
// only when fill has returned and everything is on the disk. The tables are there when fill is
// called, the indexes are made after it. An existing file is refused with error 501, before and
// after the work, and what fill throws goes on with nothing left behind.
void MakeBooks(const std::string& path, const std::function<void(Writer&)>& fill,
               const std::function<void(std::string_view table)>& indexing = {});

}  // namespace pstolvane1::books
