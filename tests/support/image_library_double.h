#pragma once

#include <string>
#include <vector>

#include "platform/loomis2/image_library.h"

namespace quenzel7::test {

/// An image library that holds and does nothing: tests override what they are about.
class ImageLibraryDouble : public loomis2::ImageLibrary {
 public:
  std::string Name() const override { return {}; }
  void Name(const std::string&) override {}
  std::string Folder() const override { return {}; }
  void Folder(const std::string&) override {}
  automation::Variant Palette() const override { return {}; }
  void Palette(const automation::Variant&) override {}

  gdi::HBITMAP CreateBitmapFrom8bpp(const std::vector<Byte>&, Long, Long) override { return 0; }
  gdi::HBITMAP CreateBitmapFrom16bpp(const std::vector<Byte>&, Long, Long) override { return 0; }
  gdi::HBITMAP StretchBitmap(gdi::HBITMAP, Long, Long) override { return 0; }
  Long ConvertBitmapTo8bpp(Long, gdi::HBITMAP, const automation::Variant&, Long, Long, std::vector<Byte>&,
                           Long&) override {
    return loomis2::kImageRefused;
  }
  Long ConvertBitmapTo16bpp(gdi::HBITMAP, Long, Long, std::vector<Byte>&, Long&) override {
    return loomis2::kImageRefused;
  }
  Long GetConversionMode(const std::string&) override { return loomis2::kNearestColor; }
  gdi::HBITMAP LoadResizedImage(const std::string&, Long, Long, Long, Long& status) override {
    status = loomis2::kImageFileNotFound;
    return 0;
  }
  Long SelectImageFile(loomis2::LibraryPicture&, Long, Long) override { return loomis2::kImageNotChosen; }
  loomis2::LibraryPicture ReadPicture(const std::string&, Long, Long, Long) override { return {}; }
};

}  // namespace quenzel7::test
