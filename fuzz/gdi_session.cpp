#include "fuzz/gdi_session.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quenzel7::fuzz {
namespace {

/// Of 256 first bytes of a handle, how many ask for one that the parameter is made for.
constexpr int kFitting = 0xD0;
constexpr std::int32_t kNextGeneration = 0x10000;

bool IsStock(gdi::Handle handle) {
  for (std::int32_t index = gdi::WHITE_BRUSH; index <= gdi::DEFAULT_GUI_FONT; ++index) {
    if (handle != 0 && handle == gdi::GetStockObject(index)) return true;
  }
  return false;
}

/// The bitmap that every context has from the beginning: no object of its own, and never deleted.
gdi::HBITMAP FirstBitmap() {
  static const gdi::HBITMAP first = [] {
    const gdi::HDC dc = gdi::CreateCompatibleDC(0);
    const gdi::HBITMAP bitmap = gdi::GetCurrentObject(dc, gdi::OBJ_BITMAP);
    gdi::DeleteDC(dc);
    return bitmap;
  }();
  return first;
}

}  // namespace

GdiSession::GdiSession(std::span<const std::uint8_t> bytes) : bytes_(bytes), liveBefore_(gdi::LiveObjects()) {
  for (const auto& [width, height, bitsPerPixel] : {std::array{48, 40, 32}, std::array{37, 21, 1}}) {
    const gdi::HDC dc = gdi::CreateCompatibleDC(0);
    const gdi::HBITMAP bitmap =
        gdi::CreateBitmap(width, height, 1, static_cast<std::uint32_t>(bitsPerPixel), nullptr);
    gdi::SelectObject(dc, bitmap);
    Made(Kind::kContext, dc);
    Made(Kind::kBitmap, bitmap);
  }
}

gdi::Handle GdiSession::Pick(Kind kind) {
  const int choice = bytes_.Byte();
  const std::vector<gdi::Handle>& fitting = given_[kind];
  if (choice >= kFitting || fitting.empty()) return PickAny();
  return fitting[static_cast<std::size_t>(choice) % fitting.size()];
}

gdi::Handle GdiSession::PickAny() {
  const int choice = bytes_.Byte();
  const auto given = [&] { return all_[bytes_.Byte() % all_.size()]; };
  switch (choice % 8) {
    case 0:
      return 0;
    case 1:
      return gdi::GetStockObject(choice / 8);
    case 2:
      return FirstBitmap();
    case 3:
      return given() + kNextGeneration;
    case 4:
      return static_cast<gdi::Handle>(bytes_.Word());
    default:
      return given();
  }
}

void GdiSession::Made(Kind kind, gdi::Handle handle) {
  if (handle == 0) return;
  Expect(handle > 0 && !IsStock(handle), "a new handle is positive and no stock object's");
  Expect(living_.emplace(handle, kind).second, "a new handle is not one that is still alive");
  given_[kind].push_back(handle);
  all_.push_back(handle);
}

void GdiSession::DeleteContext(gdi::HDC dc) {
  const auto found = living_.find(dc);
  const bool isContext = found != living_.end() && found->second == Kind::kContext;
  Expect(gdi::DeleteDC(dc) == isContext, "DeleteDC ends living contexts and nothing else");
  if (isContext) living_.erase(found);
}

void GdiSession::DeleteObject(gdi::HGDIOBJ object) {
  const auto found = living_.find(object);
  const bool isObject = found != living_.end() && found->second != Kind::kContext && !IsHeld(object);
  const bool isHarmless = IsStock(object) || object == FirstBitmap();
  Expect(gdi::DeleteObject(object) == (isObject || isHarmless),
         "DeleteObject ends living objects that no context holds, and nothing else");
  if (isObject) living_.erase(found);
}

bool GdiSession::IsHeld(gdi::Handle object) const {
  return std::any_of(living_.begin(), living_.end(), [&](const auto& entry) {
    const auto holds = [&](std::uint32_t type) {
      return entry.second == Kind::kContext && gdi::GetCurrentObject(entry.first, type) == object;
    };
    return holds(gdi::OBJ_PEN) || holds(gdi::OBJ_BRUSH) || holds(gdi::OBJ_FONT) || holds(gdi::OBJ_BITMAP);
  });
}

void GdiSession::Check() {
  Expect(gdi::LiveObjects() == liveBefore_ + living_.size(),
         "LiveObjects counts what was made and not deleted");
  const std::vector<gdi::Handle>& contexts = given_[Kind::kContext];
  const gdi::HDC dc = contexts[turn_++ % contexts.size()];
  if (living_.count(dc) != 0) CheckContext(dc);
}

void GdiSession::CheckContext(gdi::HDC dc) {
  constexpr std::array<std::pair<std::uint32_t, Kind>, 4> kTypes{{{gdi::OBJ_PEN, Kind::kPen},
                                                                  {gdi::OBJ_BRUSH, Kind::kBrush},
                                                                  {gdi::OBJ_FONT, Kind::kFont},
                                                                  {gdi::OBJ_BITMAP, Kind::kBitmap}}};
  for (const auto& [type, kind] : kTypes) {
    const gdi::HGDIOBJ object = gdi::GetCurrentObject(dc, type);
    const auto found = living_.find(object);
    const bool isOwn = found != living_.end() && found->second == kind;
    Expect(isOwn || IsStock(object) || object == FirstBitmap(),
           "what a context holds is alive and of its kind");
    Expect(gdi::GetObjectA(object, 0, nullptr) > 0, "what a context holds can be described");
  }
  gdi::BITMAP bitmap{};
  gdi::GetObjectA(gdi::GetCurrentObject(dc, gdi::OBJ_BITMAP), sizeof bitmap, &bitmap);
  Expect(gdi::GetPixel(dc, bitmap.bmWidth - 1, bitmap.bmHeight - 1) <= 0xFFFFFF,
         "the last pixel has a colour");
  Expect(gdi::GetPixel(dc, bitmap.bmWidth, 0) == gdi::CLR_INVALID, "no pixel lies beyond the width");
  Expect(gdi::GetPixel(dc, 0, bitmap.bmHeight) == gdi::CLR_INVALID, "no pixel lies beyond the height");
}

void GdiSession::End() {
  for (std::size_t i = 0; i < given_[Kind::kContext].size(); ++i) Check();
  for (const gdi::HDC dc : given_[Kind::kContext]) DeleteContext(dc);
  for (const gdi::HGDIOBJ object : all_) DeleteObject(object);
  Expect(gdi::LiveObjects() == liveBefore_, "nothing is left once everything is deleted");
}

void GdiSession::Expect(bool holds, const std::string& promise) {
  if (!holds && complaint_.empty()) complaint_ = promise;
}

}  // namespace quenzel7::fuzz
