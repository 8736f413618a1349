// Shaped texts and lines on the pages of a PDF file.
#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

namespace pstolvane1::print {

struct Font {
  double size;  // points
  bool bold = false;
};

enum class Side { kLeft, kCentre, kRight };

// Lengths are points, 72 to an inch, from the upper left corner of the page. Texts are UTF-8 in any
// script; a byte that is no UTF-8 shows as a replacement character, and a line end as a blank. A
// pen belongs to one thread.
class Pen {
 public:
  struct AboutTheFile {
    std::string title, author, day;  // ISO text of the day on which it is made
  };

  // Writes into `out`, which must live as long. Error 3001 on a machine without any font.
  Pen(std::ostream& out, const AboutTheFile& about);
  ~Pen();
  Pen(const Pen&) = delete;
  Pen& operator=(const Pen&) = delete;

  // Of a text on one line, in letters of one point; it grows with the size of the letters.
  [[nodiscard]] double WidthOfOnePoint(std::string_view text, bool bold);
  // From one line to the next.
  [[nodiscard]] static double LineHeight(double size);
  // Of a text that is broken so that it is not wider; a word that is wider is broken as well.
  [[nodiscard]] double Height(std::string_view text, const Font& font, double width);

  void BeginPage(double width, double height);
  // As above, from the upper end of its first line, at that side of the width.
  void Text(std::string_view text, const Font& font, double x, double y, double width, Side side);
  void Line(double x, double y, double width, double thickness);
  void EndPage();

  // Ends the file. Error 3001 when it cannot be made; what its stream says is left to the caller.
  void Finish();

 private:
  class Sheet;
  std::unique_ptr<Sheet> sheet_;
};

}  // namespace pstolvane1::print
