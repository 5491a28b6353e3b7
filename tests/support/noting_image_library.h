#pragma once

#include <string>
#include <vector>

#include "platform/automation/array.h"
#include "platform/gdi/gdi.h"
#include "tests/support/image_library_double.h"

namespace quenzel7::test {

/// An image library that notes what it is asked and answers as it was told. Bitmaps are noted as "#1" and so
/// on in the order of their making, "#0" for none, and "gone" when they were deleted.
class NotingImageLibrary final : public ImageLibraryDouble {
 public:
  std::vector<std::string> calls;
  /// What conversions give, and whether bitmaps are made.
  Long status = loomis2::kImageDone;
  std::vector<Byte> pixels = {1, 2};
  Long crc = 77;
  bool makesBitmaps = true;
  /// Whether conversions that are not done write pixels and a CRC all the same.
  bool writesAnyway = false;
  /// What reading a file gives, and the mode for all of them.
  Long loadStatus = loomis2::kImageDone;
  Long mode = 7;

  gdi::HBITMAP CreateBitmapFrom8bpp(const std::vector<Byte>& from, Long dx, Long dy) override {
    return Made("from 8bpp " + Bytes(from) + Size(dx, dy));
  }
  gdi::HBITMAP CreateBitmapFrom16bpp(const std::vector<Byte>& from, Long dx, Long dy) override {
    return Made("from 16bpp " + Bytes(from) + Size(dx, dy));
  }
  gdi::HBITMAP StretchBitmap(gdi::HBITMAP bitmap, Long dx, Long dy) override {
    return Made("stretch " + NameOf(bitmap) + Size(dx, dy));
  }
  Long ConvertBitmapTo8bpp(Long conversionMode, gdi::HBITMAP bitmap, const automation::Variant& palette,
                           Long dx, Long dy, std::vector<Byte>& to, Long& toCrc) override {
    calls.push_back("to 8bpp mode " + std::to_string(conversionMode) + " " + NameOf(bitmap) + " of " +
                    std::to_string(palette.Elements().Size()) + " colours" + Size(dx, dy));
    return Converted(to, toCrc);
  }
  Long ConvertBitmapTo16bpp(gdi::HBITMAP bitmap, Long dx, Long dy, std::vector<Byte>& to,
                            Long& toCrc) override {
    calls.push_back("to 16bpp " + NameOf(bitmap) + Size(dx, dy));
    return Converted(to, toCrc);
  }
  Long GetConversionMode(const std::string& path) override {
    calls.push_back("mode of '" + path + "'");
    return mode;
  }
  gdi::HBITMAP LoadResizedImage(const std::string& path, Long libCrc, Long dx, Long dy,
                                Long& toStatus) override {
    toStatus = loadStatus;
    const std::string call = "load '" + path + "' " + std::to_string(libCrc) + Size(dx, dy);
    if (loadStatus == loomis2::kImageDone) return Made(call);
    calls.push_back(call);
    return 0;
  }

  /// The bitmaps that were made and not deleted again.
  std::vector<std::string> Kept() const {
    std::vector<std::string> names;
    for (const gdi::HBITMAP bitmap : made_) {
      if (IsThere(bitmap)) names.push_back(NameOf(bitmap));
    }
    return names;
  }

 private:
  static std::string Size(Long dx, Long dy) { return " " + std::to_string(dx) + "x" + std::to_string(dy); }
  static std::string Bytes(const std::vector<Byte>& bytes) { return std::to_string(bytes.size()) + " bytes"; }
  static bool IsThere(gdi::HBITMAP bitmap) { return gdi::GetBitmapBits(bitmap, 0, nullptr) > 0; }
  std::string NameOf(gdi::HBITMAP bitmap) const {
    if (bitmap == 0) return "#0";
    if (!IsThere(bitmap)) return "gone";
    for (std::size_t i = made_.size(); i > 0; --i) {
      if (made_[i - 1] == bitmap) return "#" + std::to_string(i);
    }
    return "unknown";
  }
  gdi::HBITMAP Made(std::string call) {
    calls.push_back(std::move(call));
    if (!makesBitmaps) return 0;
    made_.push_back(gdi::CreateBitmap(1, 1, 1, 32, nullptr));
    return made_.back();
  }
  Long Converted(std::vector<Byte>& to, Long& toCrc) const {
    if (writesAnyway || loomis2::IsConverted(status)) {
      to = pixels;
      toCrc = crc;
    }
    return status;
  }

  std::vector<gdi::HBITMAP> made_;
};

}  // namespace quenzel7::test
