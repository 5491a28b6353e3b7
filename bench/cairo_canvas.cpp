#include "bench/cairo_canvas.h"

#include <cairo.h>

#include <algorithm>
#include <map>
#include <numbers>
#include <optional>
#include <utility>

namespace quenzel7::bench {
namespace {

constexpr double kQuarter = std::numbers::pi / 2;

void SetColor(cairo_t* context, std::uint32_t color) {
  cairo_set_source_rgb(context, (color >> 16 & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0,
                       (color & 0xFF) / 255.0);
}

/// A hatch as a repeated picture of 8 by 8 pixels.
class HatchPattern {
 public:
  HatchPattern(int hatch, std::uint32_t color) : tile_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, 8, 8)) {
    cairo_surface_flush(tile_);
    unsigned char* const data = cairo_image_surface_get_data(tile_);
    const auto rows = HatchRows(hatch);
    for (std::size_t i = 0; i < 64; ++i) {
      reinterpret_cast<std::uint32_t*>(data)[i] = (rows[i / 8] >> (7 - i % 8) & 1) != 0 ? color : kPaper;
    }
    cairo_surface_mark_dirty(tile_);
    pattern_ = cairo_pattern_create_for_surface(tile_);
    cairo_pattern_set_extend(pattern_, CAIRO_EXTEND_REPEAT);
    cairo_pattern_set_filter(pattern_, CAIRO_FILTER_NEAREST);
  }
  ~HatchPattern() {
    cairo_pattern_destroy(pattern_);
    cairo_surface_destroy(tile_);
  }
  HatchPattern(const HatchPattern&) = delete;
  HatchPattern& operator=(const HatchPattern&) = delete;

  cairo_pattern_t* Get() const { return pattern_; }

 private:
  cairo_surface_t* tile_;
  cairo_pattern_t* pattern_ = nullptr;
};

/// A picture of which the pixels of the key colour let the ground through.
class Cutout {
 public:
  Cutout(cairo_surface_t* picture, std::uint32_t key)
      : surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width(picture),
                                            cairo_image_surface_get_height(picture))) {
    cairo_surface_flush(surface_);
    const auto* from = reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(picture));
    auto* to = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface_));
    const int count = cairo_image_surface_get_width(picture) * cairo_image_surface_get_height(picture);
    for (int i = 0; i < count; ++i) to[i] = from[i] == key ? 0 : from[i] | 0xFF000000;
    cairo_surface_mark_dirty(surface_);
  }
  ~Cutout() { cairo_surface_destroy(surface_); }
  Cutout(const Cutout&) = delete;
  Cutout& operator=(const Cutout&) = delete;

  void Paint(cairo_t* context, int left, int top) const {
    cairo_set_source_surface(context, surface_, left, top);
    cairo_paint(context);
  }

 private:
  cairo_surface_t* surface_;
};

class CairoCanvas : public Canvas {
 public:
  CairoCanvas(int width, int height)
      : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
        context_(cairo_create(surface_)) {
    SetColor(context_, kPaper);
    cairo_paint(context_);
    cairo_set_antialias(context_, CAIRO_ANTIALIAS_NONE);
    cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
    cairo_set_fill_rule(context_, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
    cairo_set_font_options(context_, options);
    cairo_font_options_destroy(options);
  }
  ~CairoCanvas() override {
    cairo_surface_destroy(held_);
    cairo_destroy(context_);
    cairo_surface_destroy(surface_);
  }

  void Draw(std::span<const Figure> figures) override {
    for (const Figure& figure : figures) DrawOne(figure);
    cairo_surface_flush(surface_);
  }
  void Write(std::span<const TextLine> lines) override {
    for (const TextLine& line : lines) WriteOne(line);
    cairo_surface_flush(surface_);
  }

  void Hold(const KeyedPicture& picture) override {
    cairo_surface_destroy(held_);
    held_ = cairo_image_surface_create(CAIRO_FORMAT_RGB24, picture.width, picture.height);
    cairo_surface_flush(held_);
    std::copy(picture.pixels.begin(), picture.pixels.end(),
              reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(held_)));
    cairo_surface_mark_dirty(held_);
    key_ = picture.key;
    prepared_.emplace(held_, key_);
  }
  void PaintThroughMask(int left, int top) override {
    const int width = cairo_image_surface_get_width(held_), height = cairo_image_surface_get_height(held_);
    cairo_surface_t* const mask = cairo_image_surface_create(CAIRO_FORMAT_A8, width, height);
    cairo_surface_flush(mask);
    const auto* from = reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(held_));
    for (int y = 0; y < height; ++y, from += width) {
      unsigned char* const to =
          cairo_image_surface_get_data(mask) + std::ptrdiff_t{y} * cairo_image_surface_get_stride(mask);
      for (int x = 0; x < width; ++x) to[x] = from[x] == key_ ? 0 : 255;
    }
    cairo_surface_mark_dirty(mask);
    cairo_set_source_surface(context_, held_, left, top);
    cairo_mask_surface(context_, mask, left, top);
    cairo_surface_destroy(mask);
    cairo_surface_flush(surface_);
  }
  void PaintWithAlpha(int left, int top) override {
    Cutout(held_, key_).Paint(context_, left, top);
    cairo_surface_flush(surface_);
  }
  void PaintPrepared(int left, int top) override {
    prepared_->Paint(context_, left, top);
    cairo_surface_flush(surface_);
  }

  std::span<const std::uint32_t> Pixels() override {
    const auto* data = reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(surface_));
    return {data, static_cast<std::size_t>(cairo_image_surface_get_width(surface_) *
                                           cairo_image_surface_get_height(surface_))};
  }

 private:
  void DrawOne(const Figure& figure) {
    if (figure.kind == Figure::Kind::kFill) {
      SetFill(figure);
      cairo_rectangle(context_, figure.left, figure.top, figure.right - figure.left,
                      figure.bottom - figure.top);
      cairo_fill(context_);
      return;
    }
    Outline(figure);
    if (!figure.IsLine() && !figure.isHollow) {
      SetFill(figure);
      cairo_fill_preserve(context_);
    }
    SetColor(context_, figure.line);
    const bool isFlat = figure.kind == Figure::Kind::kFlatLine;
    cairo_set_line_cap(context_, isFlat ? CAIRO_LINE_CAP_BUTT : CAIRO_LINE_CAP_ROUND);
    cairo_set_line_width(context_, figure.penWidth);
    cairo_stroke(context_);
  }

  void WriteOne(const TextLine& line) {
    cairo_select_font_face(context_, kTextFace, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context_, kTextSize);
    cairo_scaled_font_t* const font = cairo_get_scaled_font(context_);
    cairo_font_extents_t cell;
    cairo_scaled_font_extents(font, &cell);
    cairo_glyph_t* glyphs = nullptr;
    int count = 0;
    cairo_scaled_font_text_to_glyphs(font, line.left, line.top + cell.ascent, line.text.data(),
                                     static_cast<int>(line.text.size()), &glyphs, &count, nullptr, nullptr,
                                     nullptr);
    cairo_text_extents_t extents;
    cairo_scaled_font_glyph_extents(font, glyphs, count, &extents);
    SetColor(context_, line.paper);
    cairo_rectangle(context_, line.left, line.top, extents.x_advance, cell.ascent + cell.descent);
    cairo_fill(context_);
    SetColor(context_, line.ink);
    cairo_show_glyphs(context_, glyphs, count);
    cairo_glyph_free(glyphs);
  }

  void SetFill(const Figure& figure) {
    if (figure.hatch == Figure::kNoHatch) {
      SetColor(context_, figure.fill);
      return;
    }
    // Making a pattern takes long here; a program would keep it.
    const auto place = std::pair(figure.hatch, figure.fill);
    const auto pattern = patterns_.try_emplace(place, figure.hatch, figure.fill).first;
    cairo_set_source(context_, pattern->second.Get());
  }

  /// The line through the middles of the border's pixels.
  void Outline(const Figure& figure) {
    const double left = figure.left + 0.5, top = figure.top + 0.5;
    const double width = figure.right - figure.left - 1, height = figure.bottom - figure.top - 1;
    const double right = left + width, bottom = top + height;
    switch (figure.kind) {
      case Figure::Kind::kFill:
      case Figure::Kind::kRectangle:
        cairo_rectangle(context_, left, top, width, height);
        break;
      case Figure::Kind::kEllipse:
        Arc(left + width / 2, top + height / 2, width / 2, height / 2, 0, 4);
        cairo_close_path(context_);
        break;
      case Figure::Kind::kRoundRect: {
        const double x = (figure.CornerWidth() - 1) / 2.0, y = (figure.CornerHeight() - 1) / 2.0;
        Arc(right - x, top + y, x, y, 3, 4);
        Arc(right - x, bottom - y, x, y, 0, 1);
        Arc(left + x, bottom - y, x, y, 1, 2);
        Arc(left + x, top + y, x, y, 2, 3);
        cairo_close_path(context_);
        break;
      }
      case Figure::Kind::kLine:
      case Figure::Kind::kFlatLine:
        cairo_move_to(context_, left, top);
        cairo_line_to(context_, figure.right + 0.5, figure.bottom + 0.5);
        break;
      case Figure::Kind::kArrow:
        for (const gdi::POINT& corner : figure.Corners()) {
          cairo_line_to(context_, corner.x + 0.5, corner.y + 0.5);
        }
        cairo_close_path(context_);
        break;
    }
  }

  /// An arc of an ellipse about (x, y), from one quarter of the turn to another.
  void Arc(double x, double y, double radiusX, double radiusY, int from, int to) {
    cairo_save(context_);
    cairo_translate(context_, x, y);
    cairo_scale(context_, radiusX, radiusY);
    cairo_arc(context_, 0, 0, 1, from * kQuarter, to * kQuarter);
    cairo_restore(context_);
  }

  cairo_surface_t* surface_;
  cairo_t* context_;
  /// By hatch and colour.
  std::map<std::pair<int, std::uint32_t>, HatchPattern> patterns_;
  cairo_surface_t* held_ = nullptr;
  std::uint32_t key_ = 0;
  std::optional<Cutout> prepared_;
};

}  // namespace

std::unique_ptr<Canvas> MakeCairoCanvas(int width, int height) {
  return std::make_unique<CairoCanvas>(width, height);
}

}  // namespace quenzel7::bench
