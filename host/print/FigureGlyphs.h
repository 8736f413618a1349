// Figures as glyphs, without shaping each of them anew.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <pango/pango.h>
#include <string_view>

namespace pstolvane1::print {

// A figure is digits and the signs that stand among them: amounts, quantities, percentages, days.
// How such a sign is shaped follows from the one behind it alone, so that a figure is put together
// from pairs which have been shaped once. Belongs to one thread.
class FigureGlyphs {
 public:
  // For letters as this layout has them. It is borrowed for every pair that is new: its text and
  // width are others then.
  explicit FigureGlyphs(PangoLayout* layout) : layout_(layout) {}

  // What the layout would make of the text on one line, until the next call. nullptr for a text
  // that is no figure, and in a font that does not shape it pair by pair.
  [[nodiscard]] PangoGlyphItem* Of(std::string_view text);

 private:
  static constexpr std::size_t kSigns = 22;
  struct Shape {
    enum class State : std::uint8_t { kNew, kKnown, kOther } state = State::kNew;
    PangoGlyphInfo glyph;
  };
  struct Free {
    void operator()(PangoGlyphItem* what) const { pango_glyph_item_free(what); }
  };

  // Of a sign before that one, or at the end of the figure; nullptr for one that is shaped
  // otherwise.
  const Shape* ShapeOf(std::size_t sign, std::size_t next);
  bool Learn(std::size_t sign, std::size_t next, Shape& shape);
  PangoLayoutRun* OnlyRunOf(std::string_view text);

  PangoLayout* layout_;
  std::unique_ptr<PangoGlyphItem, Free> item_;  // of the first that was shaped, with what is asked
  std::array<std::array<Shape, kSigns + 1>, kSigns> shapes_{};
};

}  // namespace pstolvane1::print
