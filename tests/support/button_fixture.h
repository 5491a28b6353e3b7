#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "framework/library_state.h"
#include "platform/gdi/gdi.h"
#include "shapes/button.h"
#include "tests/support/image_library_double.h"
#include "tests/support/text_fixture.h"

/// What the tests of buttons share: a picture to give to a button, and an image library that notes what it is
/// asked.
namespace quenzel7::test {

/// A picture as hosts hand it over.
struct ButtonPicture {
  Long crc = 61;
  PixelBytes data = {7, 8};
  Long level = 0;
  Long bits = 0;
  Long libCrc = 62;
  Long dxOrg = 3, dyOrg = 2;
  PixelBytes dataOrg = {1, 2, 3, 0, 4, 5, 6, 0};
  std::string path = "C:\\pictures\\valve.bmp";
};

/// Gives a button a picture through its default interface.
inline void GivePicture(clsButton& button, ButtonPicture picture = {}) {
  button.SetImage8bppPropsEx(picture.libCrc, picture.dxOrg, picture.dyOrg, picture.dataOrg, picture.crc, 0, 0,
                             picture.data, 0, picture.level, picture.path, picture.bits);
}

/// Whose bitmaps are all of one colour, red 0x11, green 0x22, blue 0x33. Pixels that it is asked for are all
/// 9, their CRC is 90 + bits.
class NotingLibrary final : public ImageLibraryDouble {
 public:
  static constexpr std::uint32_t kColor = 0x332211;

  ServiceNote note;
  /// Whether it makes bitmaps of pixels.
  bool makesBitmaps = true;
  /// How reading the file of a picture ends, and converting one.
  Long loading = loomis2::kImageDone;
  Long converting = loomis2::kImageDone;

  gdi::HBITMAP CreateBitmapFrom8bpp(const PixelBytes& pixels, Long dx, Long dy) override {
    Note("bitmap of " + std::to_string(pixels.size()) + " bytes", dx, dy);
    return makesBitmaps ? MakeBitmap(dx, dy) : 0;
  }
  gdi::HBITMAP CreateBitmapFrom16bpp(const PixelBytes& pixels, Long dx, Long dy) override {
    Note("bitmap 16 of " + std::to_string(pixels.size()) + " bytes", dx, dy);
    return makesBitmaps ? MakeBitmap(dx, dy) : 0;
  }
  gdi::HBITMAP StretchBitmap(gdi::HBITMAP, Long dx, Long dy) override {
    Note("stretch", dx, dy);
    return MakeBitmap(dx, dy);
  }
  Long ConvertBitmapTo8bpp(Long, gdi::HBITMAP, const automation::Variant&, Long dx, Long dy,
                           PixelBytes& pixels, Long& crc) override {
    Note("convert", dx, dy);
    return Give(PixelBytes(static_cast<std::size_t>((dx + dx % 2) * dy), 9), 90, pixels, crc);
  }
  Long ConvertBitmapTo16bpp(gdi::HBITMAP, Long dx, Long dy, PixelBytes& pixels, Long& crc) override {
    Note("convert 16", dx, dy);
    return Give(PixelBytes(static_cast<std::size_t>(2 * dx * dy), 9), 106, pixels, crc);
  }
  gdi::HBITMAP LoadResizedImage(const std::string& path, Long libCrc, Long dx, Long dy,
                                Long& status) override {
    Note("load " + path + " " + std::to_string(libCrc), dx, dy);
    status = loading;
    return loading == loomis2::kImageDone ? MakeBitmap(dx, dy) : 0;
  }

 private:
  static gdi::HBITMAP MakeBitmap(Long dx, Long dy) {
    const std::vector<std::uint32_t> pixels(static_cast<std::size_t>(dx * dy), 0x112233);
    return gdi::CreateBitmap(dx, dy, 1, 32, pixels.data());
  }
  Long Give(PixelBytes made, Long madeCrc, PixelBytes& pixels, Long& crc) const {
    if (!loomis2::IsConverted(converting)) return converting;
    pixels = std::move(made);
    crc = madeCrc;
    return converting;
  }
  void Note(const std::string& what, Long dx, Long dy) const {
    if (note) note(what + ", " + std::to_string(dx) + " x " + std::to_string(dy));
  }
};

/// The library of the thread, for as long as it lives.
class LibraryInUse {
 public:
  LibraryInUse() { LibraryState::Current().ImageLibrary = library_; }
  ~LibraryInUse() { LibraryState::Current().ImageLibrary = nullptr; }
  LibraryInUse(const LibraryInUse&) = delete;
  LibraryInUse& operator=(const LibraryInUse&) = delete;

  NotingLibrary* operator->() const { return library_.get(); }

 private:
  const std::shared_ptr<NotingLibrary> library_ = std::make_shared<NotingLibrary>();
};

/// Buttons in a project file on disk.
class SavedButton : public SavedTextBearing<clsButton> {
 protected:
  /// What is asked of the image library is noted with what is asked of the project.
  void NotePictures() {
    library_->note = [this](const std::string& call) { Recorder().Note(call); };
    TakeLog();
  }

  /// A button in which every field that is kept has a value of its own.
  static std::shared_ptr<clsButton> Distinct() {
    auto button = SavedTextBearing<clsButton>::Distinct();
    button->EnabledOpAddr(28);
    button->HighlightOpAddr(29);
    return button;
  }

  /// The picture that fits a button of this size, plain or flat.
  static ButtonPicture Fitting(Long dx = 140, Long dy = 150) {
    ButtonPicture picture;
    picture.data.assign(static_cast<std::size_t>(dx * dy), 5);
    picture.dxOrg = dx;
    picture.dyOrg = dy;
    picture.dataOrg.assign(static_cast<std::size_t>(dx * dy), 6);
    return picture;
  }

  /// The rows of the project's pictures and of the elements that have them.
  CallLog PictureRows() {
    return Rows("SELECT * FROM ProjectImages ORDER BY [Index]",
                {"CRC", "RecordStatus", "Dx", "Dy", "DxORG", "DyORG", "LibCRC", "ImagePath", "Bits"});
  }
  CallLog Links() {
    return Rows("SELECT * FROM ElementsAndImages",
                {"Element_ID", "Image_CRC", "Image_Index", "TransparencyLevel"});
  }

  LibraryInUse library_;
};

}  // namespace quenzel7::test
