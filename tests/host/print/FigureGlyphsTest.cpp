// Figures put together from pairs, against the layout of the whole text.
#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <pango/pangocairo.h>
#include <random>
#include <string>
#include <vector>

#include "host/print/FigureGlyphs.h"

namespace pstolvane1::print {
namespace {

struct Unref {
  void operator()(void* what) const { g_object_unref(what); }
};

class Figures : public testing::Test {
 protected:
  // Letters as a page has them: their places are not rounded.
  static PangoLayout* NewLayout(PangoContext* context) {
    pango_context_set_round_glyph_positions(context, 0);
    PangoLayout* const layout = pango_layout_new(context);
    PangoFontDescription* const font = pango_font_description_from_string("sans bold");
    pango_font_description_set_absolute_size(font, 7.3 * PANGO_SCALE);
    pango_layout_set_font_description(layout, font);
    pango_font_description_free(font);
    return layout;
  }

  // Glyphs, their places and the bytes that they stand for.
  static std::vector<std::array<int, 5>> Told(const PangoGlyphItem& item) {
    std::vector<std::array<int, 5>> told;
    for (int i = 0; i < item.glyphs->num_glyphs; ++i) {
      const PangoGlyphInfo& one = item.glyphs->glyphs[i];
      told.push_back({static_cast<int>(one.glyph), one.geometry.width, one.geometry.x_offset,
                      one.geometry.y_offset, item.glyphs->log_clusters[i]});
    }
    return told;
  }

  void ExpectAsLaidOut(const std::string& text) {
    const PangoGlyphItem* const figure = figures_.Of(text);
    ASSERT_NE(figure, nullptr) << text;
    pango_layout_set_text(laid_out_.get(), text.data(), static_cast<int>(text.size()));
    const GSList* const runs = pango_layout_get_line_readonly(laid_out_.get(), 0)->runs;
    ASSERT_TRUE(runs != nullptr && runs->next == nullptr) << text;
    const auto* const run = static_cast<PangoLayoutRun*>(runs->data);
    EXPECT_EQ(Told(*figure), Told(*run)) << text;
    EXPECT_EQ(figure->item->length, run->item->length) << text;
    EXPECT_EQ(figure->item->num_chars, run->item->num_chars) << text;
  }

  std::unique_ptr<PangoContext, Unref> context_{
      pango_font_map_create_context(pango_cairo_font_map_get_default())};
  std::unique_ptr<PangoLayout, Unref> borrowed_{NewLayout(context_.get())};
  std::unique_ptr<PangoLayout, Unref> laid_out_{NewLayout(context_.get())};
  FigureGlyphs figures_{borrowed_.get()};
};

TEST_F(Figures, AreWhatTheLayoutMakesOfThem) {
  for (const char* const text : {"1,234.00", "-7.5", "12.5%", "01/04/2004", "(1,00,000.00)", "0"}) {
    ExpectAsLaidOut(text);
  }
  std::mt19937 draw(20040401);
  constexpr std::string_view kSigns = " %()+,-./0123456789:$";
  for (int i = 0; i < 2000; ++i) {
    std::string text;
    for (std::size_t left = 1 + draw() % 14; left > 0; --left) {
      text += kSigns[draw() % kSigns.size()];
    }
    ExpectAsLaidOut(text);
  }
}

TEST_F(Figures, AreNoOtherTexts) {
  for (const char* const text : {"", "Nos", "12 Nos", "1,234.00 Cr", "\xE2\x82", "1\n2", "€5"}) {
    EXPECT_EQ(figures_.Of(text), nullptr) << text;
  }
  EXPECT_EQ(figures_.Of(std::string(65, '1')), nullptr);
}

}  // namespace
}  // namespace pstolvane1::print
