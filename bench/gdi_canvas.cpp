#include <cstring>

#include "bench/canvas.h"
#include "framework/transparent_bitmap.h"
#include "platform/gdi/bitmap.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"

namespace quenzel7::bench {
namespace {

class GdiCanvas : public Canvas {
 public:
  GdiCanvas(int width, int height) : surface_(width, height) { surface_.Clear(kPaper); }

  void Draw(std::span<const Figure> figures) override {
    for (const Figure& figure : figures) DrawOne(figure);
  }
  void Write(std::span<const TextLine> lines) override {
    const gdi::HDC dc = surface_.Dc();
    for (const TextLine& line : lines) {
      gdi::LOGFONT look{};
      look.lfHeight = -kTextSize;
      std::strncpy(look.lfFaceName, kTextFace, sizeof look.lfFaceName - 1);
      const gdi::SelectedFont font(dc, gdi::CreateFontIndirectA(&look));
      gdi::SetTextColor(dc, gdi::SwapRedAndBlue(line.ink));
      gdi::SetBkColor(dc, gdi::SwapRedAndBlue(line.paper));
      gdi::TextOutA(dc, line.left, line.top, line.text.data(), static_cast<int>(line.text.size()));
    }
  }

  void Hold(const KeyedPicture& picture) override {
    held_.Reset(gdi::CreateBitmap(picture.width, picture.height, 1, 32, picture.pixels.data()));
    key_ = gdi::SwapRedAndBlue(picture.key);
  }
  void PaintThroughMask(int left, int top) override {
    DrawBitmapTransparent(surface_.Dc(), held_.Get(), left, top, key_);
  }
  // There is no other way to have a colour left out.
  void PaintWithAlpha(int left, int top) override { PaintThroughMask(left, top); }
  void PaintPrepared(int left, int top) override { PaintThroughMask(left, top); }

  std::span<const std::uint32_t> Pixels() override { return surface_.Pixels(); }

 private:
  void DrawOne(const Figure& figure) {
    const gdi::HDC dc = surface_.Dc();
    const gdi::LOGPEN pen{gdi::PS_SOLID, {figure.penWidth, 0}, gdi::SwapRedAndBlue(figure.line)};
    const std::uint32_t style = figure.isHollow                    ? gdi::BS_NULL
                                : figure.hatch == Figure::kNoHatch ? gdi::BS_SOLID
                                                                   : gdi::BS_HATCHED;
    const gdi::LOGBRUSH brush{style, gdi::SwapRedAndBlue(figure.fill),
                              static_cast<std::uint32_t>(figure.hatch)};
    const auto [kind, left, top, right, bottom, penWidth, line, fill, hatch, isHollow] = figure;
    if (kind == Figure::Kind::kFill) {
      const gdi::RECT box{left, top, right, bottom};
      const gdi::HBRUSH made = gdi::CreateBrushIndirect(&brush);
      gdi::FillRect(dc, &box, made);
      gdi::DeleteObject(made);
      return;
    }
    if (kind == Figure::Kind::kFlatLine) {
      const gdi::LOGBRUSH ink{gdi::BS_SOLID, pen.lopnColor, 0};
      const gdi::SelectedPen flat(
          dc, gdi::ExtCreatePen(gdi::PS_GEOMETRIC | gdi::PS_ENDCAP_FLAT, static_cast<std::uint32_t>(penWidth),
                                &ink, 0, nullptr));
      gdi::BeginPath(dc);
      gdi::MoveToEx(dc, left, top, nullptr);
      gdi::LineTo(dc, right, bottom);
      gdi::EndPath(dc);
      gdi::StrokePath(dc);
      return;
    }
    const gdi::SelectedPen selectedPen(dc, gdi::CreatePenIndirect(&pen));
    const gdi::SelectedBrush selectedBrush(dc, gdi::CreateBrushIndirect(&brush));
    switch (kind) {
      case Figure::Kind::kFill:
      case Figure::Kind::kRectangle:
        gdi::Rectangle(dc, left, top, right, bottom);
        break;
      case Figure::Kind::kEllipse:
        gdi::Ellipse(dc, left, top, right, bottom);
        break;
      case Figure::Kind::kRoundRect:
        gdi::RoundRect(dc, left, top, right, bottom, figure.CornerWidth(), figure.CornerHeight());
        break;
      case Figure::Kind::kLine:
      case Figure::Kind::kFlatLine:
        gdi::MoveToEx(dc, left, top, nullptr);
        gdi::LineTo(dc, right, bottom);
        break;
      case Figure::Kind::kArrow: {
        const auto corners = figure.Corners();
        gdi::BeginPath(dc);
        gdi::Polyline(dc, corners.data(), static_cast<int>(corners.size()));
        gdi::EndPath(dc);
        gdi::StrokeAndFillPath(dc);
        break;
      }
    }
  }

  gdi::Surface surface_;
  gdi::OwnedBitmap held_;
  gdi::COLORREF key_ = 0;
};

}  // namespace

std::unique_ptr<Canvas> MakeGdiCanvas(int width, int height) {
  return std::make_unique<GdiCanvas>(width, height);
}

}  // namespace quenzel7::bench
