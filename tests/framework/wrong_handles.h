#pragma once

#include <string>
#include <vector>

#include "platform/gdi/gdi.h"

namespace quenzel7::test {

/// Handles that are no bitmap, each with what it is. Fonts are the ones that describe themselves in as many
/// bytes as a bitmap: their heights and widths stand where a bitmap has its type and width.
class WrongHandles {
 public:
  struct Named {
    std::string name;
    gdi::HGDIOBJ handle;
  };

  WrongHandles() {
    const gdi::LOGPEN pen{gdi::PS_SOLID, {9, 0}, 0x010203};
    const gdi::LOGBRUSH solid{gdi::BS_SOLID, 0x010203, 0};
    const gdi::LOGFONT small{-9, 7, 5, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, "Small"};
    const gdi::LOGFONT narrow{0, -7, 5, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, "Narrow"};
    const gdi::HBITMAP deleted = gdi::CreateBitmap(5, 5, 1, 1, nullptr);
    gdi::DeleteObject(deleted);
    all_ = {{"null", 0},
            {"never given out", 12345},
            {"negative", -5},
            {"deleted bitmap", deleted},
            {"stock pen", gdi::GetStockObject(gdi::BLACK_PEN)},
            {"stock brush", gdi::GetStockObject(gdi::GRAY_BRUSH)},
            {"stock font", gdi::GetStockObject(gdi::SYSTEM_FONT)}};
    context_ = gdi::CreateCompatibleDC(0);
    made_ = {{"context", context_},
             {"pen", gdi::CreatePenIndirect(&pen)},
             {"extended pen", gdi::ExtCreatePen(gdi::PS_GEOMETRIC, 9, &solid, 0, nullptr)},
             {"brush", gdi::CreateSolidBrush(0x010203)},
             {"hatched brush", gdi::CreateHatchBrush(gdi::HS_CROSS, 0x010203)},
             {"font", gdi::CreateFontIndirectA(&small)},
             {"font of negative width", gdi::CreateFontIndirectA(&narrow)},
             {"region", gdi::CreateEllipticRgn(0, 0, 9, 9)}};
    all_.insert(all_.end(), made_.begin(), made_.end());
  }
  WrongHandles(const WrongHandles&) = delete;
  WrongHandles& operator=(const WrongHandles&) = delete;
  ~WrongHandles() {
    gdi::DeleteDC(context_);
    for (const Named& made : made_) gdi::DeleteObject(made.handle);
  }

  const std::vector<Named>& All() const { return all_; }

 private:
  std::vector<Named> all_, made_;
  gdi::HDC context_;
};

}  // namespace quenzel7::test
