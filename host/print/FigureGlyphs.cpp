#include "host/print/FigureGlyphs.h"

#include <algorithm>
#include <string>

namespace pstolvane1::print {
namespace {

constexpr std::array<std::string_view, 22> kTexts = {" ", "%", "(", ")", "+", ",", "-", ".",
                                                     "/", "0", "1", "2", "3", "4", "5", "6",
                                                     "7", "8", "9", ":", "$", "₹"};
constexpr std::size_t kEnd = kTexts.size();  // in the place of a sign

// By its first byte, which is no other sign's.
constexpr std::array<std::size_t, 256> kByFirstByte = [] {
  std::array<std::size_t, 256> signs{};
  signs.fill(kEnd);
  for (std::size_t sign = 0; sign < kTexts.size(); ++sign) {
    signs.at(static_cast<unsigned char>(kTexts.at(sign).front())) = sign;
  }
  return signs;
}();

// The sign at the start of the text; kEnd where there is none.
std::size_t SignAt(std::string_view text) {
  if (text.empty()) return kEnd;
  const std::size_t sign = kByFirstByte[static_cast<unsigned char>(text.front())];
  return sign != kEnd && text.starts_with(kTexts[sign]) ? sign : kEnd;
}

bool IsSame(const PangoGlyphInfo& one, const PangoGlyphInfo& other) {
  return one.glyph == other.glyph && one.geometry.width == other.geometry.width &&
         one.geometry.x_offset == other.geometry.x_offset &&
         one.geometry.y_offset == other.geometry.y_offset;
}

}  // namespace

// nullptr as well for a run in another font than the first.
PangoLayoutRun* FigureGlyphs::OnlyRunOf(std::string_view text) {
  pango_layout_set_text(layout_, text.data(), static_cast<int>(text.size()));
  pango_layout_set_width(layout_, -1);
  if (pango_layout_get_line_count(layout_) != 1) return nullptr;
  const GSList* const runs = pango_layout_get_line_readonly(layout_, 0)->runs;
  if (runs == nullptr || runs->next != nullptr) return nullptr;
  auto* const run = static_cast<PangoLayoutRun*>(runs->data);
  if (run->item->analysis.level != 0) return nullptr;
  if (item_ == nullptr) item_.reset(pango_glyph_item_copy(run));
  return run->item->analysis.font == item_->item->analysis.font ? run : nullptr;
}

// A sign before another has the shape that it has before that one alone, where the other is not
// changed by what stands before it.
bool FigureGlyphs::Learn(std::size_t sign, std::size_t next, Shape& shape) {
  const Shape* const other = next == kEnd ? nullptr : ShapeOf(next, kEnd);
  if (next != kEnd && other == nullptr) return false;
  const std::string text =
      std::string(kTexts[sign]) + (next == kEnd ? "" : std::string(kTexts[next]));
  const PangoLayoutRun* const run = OnlyRunOf(text);
  if (run == nullptr || run->glyphs->num_glyphs != (next == kEnd ? 1 : 2)) return false;
  if (other != nullptr && !IsSame(run->glyphs->glyphs[1], other->glyph)) return false;
  shape.glyph = run->glyphs->glyphs[0];
  return true;
}

const FigureGlyphs::Shape* FigureGlyphs::ShapeOf(std::size_t sign, std::size_t next) {
  static_assert(kSigns == kTexts.size());
  Shape& shape = shapes_[sign][next];
  if (shape.state == Shape::State::kNew) {
    shape.state = Learn(sign, next, shape) ? Shape::State::kKnown : Shape::State::kOther;
  }
  return shape.state == Shape::State::kKnown ? &shape : nullptr;
}

PangoGlyphItem* FigureGlyphs::Of(std::string_view text) {
  constexpr std::size_t kLongest = 64;
  std::size_t sign = SignAt(text);
  if (sign == kEnd || text.size() > kLongest) return nullptr;
  std::array<PangoGlyphInfo, kLongest> glyphs;
  std::array<int, kLongest> places;
  int count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) {
    const std::size_t behind = at + kTexts[sign].size();
    const std::size_t next = SignAt(text.substr(behind));
    if (next == kEnd && behind < text.size()) return nullptr;
    const Shape* const shape = ShapeOf(sign, next);
    if (shape == nullptr) return nullptr;
    glyphs[static_cast<std::size_t>(count)] = shape->glyph;
    places[static_cast<std::size_t>(count)] = static_cast<int>(at);
    at = behind;
    sign = next;
  }
  item_->item->offset = 0;
  item_->item->length = static_cast<int>(text.size());
  item_->item->num_chars = count;
  pango_glyph_string_set_size(item_->glyphs, count);
  std::copy_n(glyphs.begin(), count, item_->glyphs->glyphs);
  std::copy_n(places.begin(), count, item_->glyphs->log_clusters);
  return item_.get();
}

}  // namespace pstolvane1::print
