#include "host/print/Pen.h"

#include <array>
#include <cairo-pdf.h>
#include <cmath>
#include <map>
#include <new>
#include <ostream>
#include <pango/pangocairo.h>
#include <unordered_map>
#include <utility>

#include "host/print/FigureGlyphs.h"
#include "session/data/Error.h"

namespace pstolvane1::print {

// What the drawing library hands out, let go by the function that belongs to it. Not in the unnamed
// namespace, because Pen::Sheet has members of it.
template <auto release>
struct Release {
  template <typename T>
  void operator()(T* what) const {
    release(what);
  }
};
template <typename T, auto release>
using Owned = std::unique_ptr<T, Release<release>>;
using Layout = Owned<PangoLayout, g_object_unref>;

namespace {

// The first that the machine has: narrow letters hold more figures. Other scripts follow by
// themselves from the fonts that have them.
constexpr const char* kFamilies = "Noto Sans,DejaVu Sans Condensed,DejaVu Sans,sans";
constexpr double kLineHeight = 1.4, kAscent = 1.05;  // of the letters' size
constexpr double kMeasured = 64;                     // points in which texts are measured
constexpr double kTolerance = 0.3;  // what is measured larger and drawn smaller may differ by
constexpr std::size_t kMostRemembered = 100'000, kMostDrawn = 5'000;  // texts

cairo_status_t WriteBytes(void* closure, const unsigned char* bytes, unsigned int size) noexcept {
  auto& out = *static_cast<std::ostream*>(closure);
  try {
    out.write(reinterpret_cast<const char*>(bytes), size);
  } catch (const std::exception&) {
    return CAIRO_STATUS_WRITE_ERROR;
  }
  return out ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

// Kept for all pens of a thread: reading the machine's fonts takes longer than most reports.
PangoFontMap* FontsOfTheThread() { return pango_cairo_font_map_get_default(); }

// For a call that wants UTF-8 alone.
class Utf8 {
 public:
  explicit Utf8(std::string_view text) : text_(text) {
    const auto size = static_cast<gssize>(text.size());
    if (g_utf8_validate(text.data(), size, nullptr) != 0) return;
    made_.reset(g_utf8_make_valid(text.data(), size));
    text_ = made_.get();
  }
  [[nodiscard]] const char* Bytes() const { return text_.data(); }
  [[nodiscard]] int Size() const { return static_cast<int>(text_.size()); }

 private:
  std::string_view text_;
  Owned<char, g_free> made_;
};

}  // namespace

class Pen::Sheet {
 public:
  Sheet(std::ostream& out, const AboutTheFile& about)
      : surface_(cairo_pdf_surface_create_for_stream(WriteBytes, &out, 1, 1)),
        drawing_(cairo_create(surface_.get())),
        context_(pango_font_map_create_context(FontsOfTheThread())) {
    int families = 0;
    PangoFontFamily** list = nullptr;
    pango_font_map_list_families(FontsOfTheThread(), &list, &families);
    g_free(list);
    if (families == 0) {
      throw Error(ErrorNumber::kArgumentOutOfRange,
                  "cannot print: there is no font on this machine");
    }
    // What is measured once then holds for every size.
    pango_context_set_round_glyph_positions(context_.get(), 0);
    const Owned<cairo_font_options_t, cairo_font_options_destroy> exact(
        cairo_font_options_create());
    cairo_font_options_set_hint_metrics(exact.get(), CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(exact.get(), CAIRO_HINT_STYLE_NONE);
    pango_cairo_context_set_font_options(context_.get(), exact.get());
    const std::pair<cairo_pdf_metadata_t, const std::string&> told[] = {
        {CAIRO_PDF_METADATA_TITLE, about.title},
        {CAIRO_PDF_METADATA_AUTHOR, about.author},
        {CAIRO_PDF_METADATA_CREATE_DATE, about.day}};
    for (const auto& [what, text] : told) {
      const std::string valid(Utf8(text).Bytes(), static_cast<std::size_t>(Utf8(text).Size()));
      cairo_pdf_surface_set_metadata(surface_.get(), what, valid.c_str());
    }
  }

  PangoLayout* LayoutOf(std::string_view text, const Font& font, double width) {
    PangoLayout* const layout = LettersOf(font).layout.get();
    const Utf8 valid(text);
    pango_layout_set_text(layout, valid.Bytes(), valid.Size());
    pango_layout_set_width(layout, width < 0 ? -1 : RoomOf(width));
    return layout;
  }

  // False for a text that has to be laid out.
  bool DrewOneLine(std::string_view text, const Font& font, double x, double baseline, double width,
                   double share) {
    const Utf8 valid(text);
    PangoGlyphItem* const line =
        LineOf({valid.Bytes(), static_cast<std::size_t>(valid.Size())}, font);
    if (line == nullptr) return false;
    const int taken = pango_glyph_string_get_width(line->glyphs);
    if (taken > RoomOf(width)) return false;
    const double left_over = width - static_cast<double>(taken) / PANGO_SCALE;
    cairo_move_to(drawing_.get(), x + share * left_over, baseline);
    pango_cairo_show_glyph_item(drawing_.get(), valid.Bytes(), line);
    return true;
  }

  double Width(std::string_view text, bool bold) {
    if (const PangoGlyphItem* const figure = LettersOf({kMeasured, bold}).figures.Of(text)) {
      return pango_glyph_string_get_width(figure->glyphs) / (kMeasured * PANGO_SCALE);
    }
    auto& known = known_widths_[bold ? 1 : 0];
    const auto found = known.find(std::string(text));
    if (found != known.end()) return found->second;
    int width = 0;
    pango_layout_get_size(LayoutOf(text, {kMeasured, bold}, -1), &width, nullptr);
    const double of_one_point = width / (kMeasured * PANGO_SCALE);
    if (known.size() < kMostRemembered) known.emplace(text, of_one_point);
    return of_one_point;
  }

  [[nodiscard]] cairo_surface_t* Surface() { return surface_.get(); }
  [[nodiscard]] cairo_t* Drawing() { return drawing_.get(); }

 private:
  using Glyphs = Owned<PangoGlyphItem, pango_glyph_item_free>;
  struct Letters {
    Layout layout;
    FigureGlyphs figures;
    std::unordered_map<std::string, Glyphs> known;  // texts that come again; none for several runs
  };

  static int RoomOf(double width) { return static_cast<int>((width + kTolerance) * PANGO_SCALE); }

  Layout NewLayout(const Font& font) {
    Layout layout(pango_layout_new(context_.get()));
    const Owned<PangoFontDescription, pango_font_description_free> described(
        pango_font_description_from_string(kFamilies));
    pango_font_description_set_absolute_size(described.get(), font.size * PANGO_SCALE);
    pango_font_description_set_weight(described.get(),
                                      font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_layout_set_font_description(layout.get(), described.get());
    pango_layout_set_single_paragraph_mode(layout.get(), 1);
    pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
    return layout;
  }

  Letters& LettersOf(const Font& font) {
    const std::pair<double, bool> key(font.size, font.bold);
    const auto found = letters_.find(key);
    if (found != letters_.end()) return found->second;
    Layout layout = NewLayout(font);
    FigureGlyphs figures(layout.get());
    return letters_.emplace(key, Letters{std::move(layout), std::move(figures), {}}).first->second;
  }

  // nullptr for a text of several runs, and for one too many.
  PangoGlyphItem* LineOf(std::string_view text, const Font& font) {
    Letters& letters = LettersOf(font);
    if (PangoGlyphItem* const figure = letters.figures.Of(text)) return figure;
    std::string key(text);
    const auto found = letters.known.find(key);
    if (found != letters.known.end()) return found->second.get();
    if (letters.known.size() >= kMostDrawn) return nullptr;
    Glyphs& line = letters.known.emplace(std::move(key), nullptr).first->second;
    PangoLayout* const layout = LayoutOf(text, font, -1);
    const GSList* const runs = pango_layout_get_line_readonly(layout, 0)->runs;
    if (pango_layout_get_line_count(layout) == 1 && runs != nullptr && runs->next == nullptr) {
      line.reset(pango_glyph_item_copy(static_cast<PangoLayoutRun*>(runs->data)));
    }
    return line.get();
  }

  Owned<cairo_surface_t, cairo_surface_destroy> surface_;
  Owned<cairo_t, cairo_destroy> drawing_;
  Owned<PangoContext, g_object_unref> context_;
  std::map<std::pair<double, bool>, Letters> letters_;
  std::array<std::unordered_map<std::string, double>, 2> known_widths_;
};

Pen::Pen(std::ostream& out, const AboutTheFile& about)
    : sheet_(std::make_unique<Sheet>(out, about)) {}

Pen::~Pen() = default;

double Pen::WidthOfOnePoint(std::string_view text, bool bold) { return sheet_->Width(text, bold); }

double Pen::LineHeight(double size) { return kLineHeight * size; }

double Pen::Height(std::string_view text, const Font& font, double width) {
  PangoLayout* const layout = sheet_->LayoutOf(text, font, width);
  return pango_layout_get_line_count(layout) * LineHeight(font.size);
}

void Pen::BeginPage(double width, double height) {
  cairo_pdf_surface_set_size(sheet_->Surface(), width, height);
}

void Pen::Text(std::string_view text, const Font& font, double x, double y, double width,
               Side side) {
  const double share = side == Side::kLeft ? 0 : side == Side::kCentre ? 0.5 : 1;
  // Letters of all scripts stand on one line, whatever room their fonts ask for.
  double baseline = y + kAscent * font.size;
  if (sheet_->DrewOneLine(text, font, x, baseline, width, share)) return;
  PangoLayout* const layout = sheet_->LayoutOf(text, font, width);
  cairo_t* const drawing = sheet_->Drawing();
  for (int i = 0; i < pango_layout_get_line_count(layout); ++i) {
    PangoLayoutLine* const line = pango_layout_get_line_readonly(layout, i);
    PangoRectangle taken;
    pango_layout_line_get_extents(line, nullptr, &taken);
    const double left_over = width - static_cast<double>(taken.width) / PANGO_SCALE;
    cairo_move_to(drawing, x + share * left_over, baseline);
    pango_cairo_show_layout_line(drawing, line);
    baseline += LineHeight(font.size);
  }
}

void Pen::Line(double x, double y, double width, double thickness) {
  cairo_t* const drawing = sheet_->Drawing();
  cairo_set_line_width(drawing, thickness);
  cairo_move_to(drawing, x, y);
  cairo_line_to(drawing, x + width, y);
  cairo_stroke(drawing);
}

void Pen::EndPage() { cairo_show_page(sheet_->Drawing()); }

void Pen::Finish() {
  cairo_surface_finish(sheet_->Surface());
  for (const cairo_status_t status :
       {cairo_status(sheet_->Drawing()), cairo_surface_status(sheet_->Surface())}) {
    if (status == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
    if (status == CAIRO_STATUS_SUCCESS || status == CAIRO_STATUS_WRITE_ERROR) continue;
    throw Error(ErrorNumber::kArgumentOutOfRange,
                std::string("cannot print: ") + cairo_status_to_string(status));
  }
}

}  // namespace pstolvane1::print
