// stolvane serve: the viewer of one company's books in a browser.
#pragma once

#include <string>

#include "host/Output.h"
#include "viewer/Books.h"

namespace pstolvane1::host {

// What the viewer asks of these books; each question opens them anew. Of the options, those that
// AddLook adds count.
[[nodiscard]] viewer::Books BooksFor(const std::string& connection, OutputOptions look = {});

}  // namespace pstolvane1::host
