#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/class_info.h"
#include "platform/automation/object.h"
#include "platform/automation/variant.h"
#include "platform/gdi/types.h"

namespace quenzel7::loomis2 {

/// How an operation of the image library ended.
enum ImageStatus : Long {
  kImageDone = 0,
  /// There is no such file.
  kImageFileNotFound = 1,
  /// The file is there, but is no picture that the library can read, or no longer the one that was asked for.
  kImageFileNotRead = 2,
  /// What was given is no bitmap, no palette or no size of a picture, or there is no room for the result.
  kImageRefused = 3,
  /// The user chose nothing.
  kImageNotChosen = 4,
  /// Done; some colours of the picture are shown by near ones of the panel.
  kImageApproximated = 6,
};

/// Whether a conversion gave pixels.
constexpr bool IsConverted(Long status) { return status == kImageDone || status == kImageApproximated; }

/// How a picture's colours become those of the panel's palette.
enum ConversionMode : Long {
  /// Each pixel becomes the colour that looks nearest to it.
  kNearestColor = 0,
  /// The same, and what is lost at a pixel goes to its neighbours, so that areas keep their look.
  kErrorDiffusion = 1,
};

/// A picture of the library: where it came from, its pixels as the panel shows them at the size asked for,
/// and those at its own size. Pixels are palette indices, one byte each, rows padded to an even number of
/// bytes; or two bytes each without padding.
struct LibraryPicture {
  /// The file.
  std::string path = {};
  /// Tells the source apart, -1 for none.
  Long libCrc = -1;
  /// The picture's own size, in pixels, and its pixels at that size.
  Long dxOrg = 0, dyOrg = 0;
  std::vector<Byte> dataOrg = {};
  /// The CRC of `data`.
  Long crc = -1;
  /// The size asked for, and the pixels at that size.
  Long dx = 0, dy = 0;
  std::vector<Byte> data = {};
  /// 16 when a pixel takes two bytes.
  Long bits = 0;
};

/// The library of pictures that the elements of a project share. Hosts reach it by member name too.
///
/// Bitmaps are handles of the graphics interface; those that an operation makes belong to the caller. Sizes
/// are in pixels.
class ImageLibrary : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "ImageLibrary";

  /// The class, whose objects hosts do not create themselves.
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// The name under which the host knows the library; empty until it was given.
  virtual std::string Name() const = 0;
  /// Gives the library its name.
  virtual void Name(const std::string& name) = 0;
  /// The folder of the picture files, with a separator at its end.
  virtual std::string Folder() const = 0;
  /// Gives the folder, as a host writes it.
  virtual void Folder(const std::string& folder) = 0;
  /// The panel's colours: an array of 32-bit integers, 0x00BBGGRR, of one dimension; Empty until it was
  /// given.
  virtual automation::Variant Palette() const = 0;
  /// Gives the colours. A library refuses what is no such array by an automation error.
  virtual void Palette(const automation::Variant& palette) = 0;

  /// A bitmap of palette indices, in the colours of Palette; 0 when the pixels are not those of a picture of
  /// that size, or an index has no colour: then they are damaged. What is no fault of theirs is an automation
  /// error: 5 when a palette is missing, 7 when there is no room for the bitmap.
  virtual gdi::HBITMAP CreateBitmapFrom8bpp(const std::vector<Byte>& pixels, Long dx, Long dy) = 0;
  /// A bitmap of pixels of two bytes; 0 when they are not those of a picture of that size. Error 7 when there
  /// is no room for it.
  virtual gdi::HBITMAP CreateBitmapFrom16bpp(const std::vector<Byte>& pixels, Long dx, Long dy) = 0;
  /// A copy of a bitmap at another size; 0 when it is none or the size is none. Error 7 when there is no room
  /// for it.
  virtual gdi::HBITMAP StretchBitmap(gdi::HBITMAP bitmap, Long dx, Long dy) = 0;
  /// Turns a bitmap of that size into palette indices and tells their CRC, leaving both alone unless
  /// IsConverted. Gives an ImageStatus.
  virtual Long ConvertBitmapTo8bpp(Long conversionMode, gdi::HBITMAP bitmap,
                                   const automation::Variant& palette, Long dx, Long dy,
                                   std::vector<Byte>& pixels, Long& crc) = 0;
  /// The same into pixels of two bytes.
  virtual Long ConvertBitmapTo16bpp(gdi::HBITMAP bitmap, Long dx, Long dy, std::vector<Byte>& pixels,
                                    Long& crc) = 0;
  /// The ConversionMode that suits the picture in that file, which need not be there.
  virtual Long GetConversionMode(const std::string& path) = 0;
  /// Reads the picture of a file again, at another size: kImageDone, kImageFileNotFound, kImageFileNotRead,
  /// or kImageRefused for what is no size or has no room. The bitmap is 0 unless done. A file whose CRC is
  /// not `libCrc` is not read; -1 takes any.
  virtual gdi::HBITMAP LoadResizedImage(const std::string& path, Long libCrc, Long dx, Long dy,
                                        Long& status) = 0;
  /// Lets the user choose a picture file and reads it at that size, in the pixels that `picture.bits` tells.
  /// Gives an ImageStatus; the picture stays as it is unless done. Nobody is asked when the size is none.
  virtual Long SelectImageFile(LibraryPicture& picture, Long dx, Long dy) = 0;

  /// Reads a picture file at that size, or at its own for a size of 0 x 0, in pixels of two bytes when `bits`
  /// is 16. An automation error tells what is wrong with the file: 53 when it is not there, 481 when it
  /// cannot be read, 7 when there is no room for it; and 5 when the size is none or a palette is missing.
  virtual LibraryPicture ReadPicture(const std::string& path, Long dx, Long dy, Long bits) = 0;

  /// SelectImageFile for calls by name, the picture by its fields; "SelectImageFile" there.
  Long SelectImageFileFields(std::string& path, Long& libCrc, Long& dxOrg, Long& dyOrg,
                             std::vector<Byte>& dataOrg, Long& crc, std::vector<Byte>& data, Long& bits,
                             Long dx, Long dy);
  /// ReadPicture for calls by name, the picture by its fields; "ReadPicture" there. A size of 0 x 0 becomes
  /// the picture's own.
  void ReadPictureFields(const std::string& path, Long& dx, Long& dy, Long bits, Long& libCrc, Long& dxOrg,
                         Long& dyOrg, std::vector<Byte>& dataOrg, Long& crc, std::vector<Byte>& data);
};

using ImageLibraryRef = std::shared_ptr<ImageLibrary>;

}  // namespace quenzel7::loomis2
