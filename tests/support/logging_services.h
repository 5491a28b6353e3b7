#pragma once

#include <map>
#include <string>

#include "framework/bitmap_size.h"
#include "platform/automation/convert.h"
#include "platform/corvane1/host_frame.h"
#include "platform/corvane1/message_service.h"
#include "platform/gdi/gdi.h"
#include "tests/support/image_library_double.h"
#include "tests/support/recording_connection.h"

/// Services that note in the log of a connection what is asked of them while a picture is made anew.
namespace quenzel7::test {

inline std::string SizeText(Long dx, Long dy) { return std::to_string(dx) + 'x' + std::to_string(dy); }
inline std::string SizeText(gdi::HBITMAP bitmap) {
  const BitmapSize size = BitmapSizeOf(bitmap);
  return SizeText(size.w, size.h);
}
inline std::string BytesText(const std::vector<Byte>& bytes) {
  std::string text;
  for (const Byte byte : bytes) text += (text.empty() ? "" : " ") + std::to_string(byte);
  return '[' + text + ']';
}

/// An image library that ends as it is told to, and makes bitmaps of no particular look.
class LoggingImageLibrary final : public ImageLibraryDouble {
 public:
  explicit LoggingImageLibrary(RecordingConnection& log) : log_(log) {}

  // Answers.
  Long mode = 7;
  Long loadStatus = loomis2::kImageDone;
  /// Whether a file that is not read comes with a bitmap all the same.
  bool givesBitmapAnyway = false;
  Long convertStatus = loomis2::kImageDone;
  std::vector<Byte> converted = {8, 9};
  Long convertedCrc = 501;
  Long selectStatus = loomis2::kImageDone;
  loomis2::LibraryPicture selected = {};
  /// What the operation of that name raises error 5 at.
  std::string failing;

  /// The bitmaps that were given last.
  gdi::HBITMAP loaded = 0, stretched = 0, ofPixels = 0;

  gdi::HBITMAP CreateBitmapFrom8bpp(const std::vector<Byte>& pixels, Long dx, Long dy) override {
    return ofPixels = OfPixels("from8 ", pixels, dx, dy);
  }
  gdi::HBITMAP CreateBitmapFrom16bpp(const std::vector<Byte>& pixels, Long dx, Long dy) override {
    return ofPixels = OfPixels("from16 ", pixels, dx, dy);
  }
  gdi::HBITMAP StretchBitmap(gdi::HBITMAP bitmap, Long dx, Long dy) override {
    Note("stretch", ' ' + SizeText(bitmap) + " to " + SizeText(dx, dy));
    return stretched = Made(dx, dy);
  }
  Long ConvertBitmapTo8bpp(Long conversionMode, gdi::HBITMAP bitmap, const automation::Variant& palette,
                           Long dx, Long dy, std::vector<Byte>& pixels, Long& crc) override {
    return Convert("to8", " by " + std::to_string(conversionMode) + (palette.IsArray() ? "" : " colourless"),
                   bitmap, dx, dy, pixels, crc);
  }
  Long ConvertBitmapTo16bpp(gdi::HBITMAP bitmap, Long dx, Long dy, std::vector<Byte>& pixels,
                            Long& crc) override {
    return Convert("to16", "", bitmap, dx, dy, pixels, crc);
  }
  Long GetConversionMode(const std::string& path) override {
    Note("mode", ' ' + path);
    return mode;
  }
  gdi::HBITMAP LoadResizedImage(const std::string& path, Long libCrc, Long dx, Long dy,
                                Long& status) override {
    Note("load", ' ' + path + ' ' + std::to_string(libCrc) + ' ' + SizeText(dx, dy));
    status = loadStatus;
    return loaded = status == loomis2::kImageDone || givesBitmapAnyway ? Made(dx, dy) : 0;
  }
  Long SelectImageFile(loomis2::LibraryPicture& picture, Long dx, Long dy) override {
    Note("select", ' ' + picture.path + ' ' + std::to_string(picture.libCrc) + ' ' +
                       SizeText(picture.dxOrg, picture.dyOrg) + BytesText(picture.dataOrg) + ' ' +
                       std::to_string(picture.crc) + ' ' + SizeText(picture.dx, picture.dy) +
                       BytesText(picture.data) + ' ' + std::to_string(picture.bits) + " for " +
                       SizeText(dx, dy));
    picture = selected;
    return selectStatus;
  }

 private:
  void Note(const std::string& name, const std::string& arguments) {
    log_.Note(name + arguments);
    if (failing == name)
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, name);
  }
  static gdi::HBITMAP Made(Long dx, Long dy) { return gdi::CreateBitmap(dx, dy, 1, 1, nullptr); }
  gdi::HBITMAP OfPixels(const std::string& name, const std::vector<Byte>& pixels, Long dx, Long dy) {
    Note(name, BytesText(pixels) + " as " + SizeText(dx, dy));
    return Made(dx, dy);
  }
  Long Convert(const std::string& name, const std::string& how, gdi::HBITMAP bitmap, Long dx, Long dy,
               std::vector<Byte>& pixels, Long& crc) {
    Note(name, how + ' ' + SizeText(bitmap) + " as " + SizeText(dx, dy));
    // A library that fails may have begun.
    pixels = converted;
    crc = convertedCrc;
    return convertStatus;
  }

  RecordingConnection& log_;
};

/// The window of a host: "pointer 11", "interrupt", "refresh -1 12".
class NotingFrame final : public corvane1::HostFrame {
 public:
  explicit NotingFrame(RecordingConnection& log) : log_(log) {}
  void SetPointer(Long pointer) override { log_.Note("pointer " + std::to_string(pointer)); }
  void AddOutput(const std::string& text, Long kind) override {
    log_.Note("output " + std::to_string(kind) + ' ' + text);
  }
  void InterruptWork() override { log_.Note("interrupt"); }
  void Refresh(Long which, Long what) override {
    log_.Note("refresh " + std::to_string(which) + ' ' + std::to_string(what));
  }

 private:
  RecordingConnection& log_;
};

/// The messages of a host: "message 377 name".
class NotingMessages final : public corvane1::MessageService {
 public:
  explicit NotingMessages(RecordingConnection& log) : log_(log) {}
  Long answer = corvane1::kAnswerYes;
  Long ShowMessage(Long number, automation::Variant& argument) override {
    log_.Note("message " + std::to_string(number) + ' ' + automation::To<std::string>(argument));
    return answer;
  }

 private:
  RecordingConnection& log_;
};

}  // namespace quenzel7::test
