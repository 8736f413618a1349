// stolvane serve: the viewer of one company's books in a browser.
#pragma once

#include <string>

#include "viewer/Books.h"

namespace pstolvane1::host {

// What the viewer asks of these books; each question opens them anew.
[[nodiscard]] viewer::Books BooksFor(const std::string& connection);

}  // namespace pstolvane1::host
