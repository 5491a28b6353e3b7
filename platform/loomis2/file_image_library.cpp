#include "platform/loomis2/file_image_library.h"

#include <new>

#include "platform/automation/array.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/class_info.h"
#include "platform/loomis2/bitmap_picture.h"
#include "platform/loomis2/color_reduction.h"
#include "platform/loomis2/panel_pixels.h"
#include "platform/loomis2/picture_file.h"
#include "platform/loomis2/resized_picture.h"
#include "platform/loomis2/source_file.h"

namespace quenzel7::loomis2 {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::Variant;
using automation::VariantKind;

constexpr Long kTwoBytes = 16;

bool IsSize(std::int64_t dx, std::int64_t dy) {
  return dx > 0 && dy > 0 && dx <= FileImageLibrary::kLongestSide && dy <= FileImageLibrary::kLongestSide &&
         dx * dy <= FileImageLibrary::kMostPixels;
}

bool IsSizeOf(const Picture& picture, Long dx, Long dy) {
  return picture.width == dx && picture.height == dy;
}

/// What the action gives; nothing where there is no room for it.
template <class Action>
auto IfThereIsRoom(Action action) -> decltype(action()) {
  try {
    return action();
  } catch (const std::bad_alloc&) {
    return {};
  }
}

/// The new bitmap of a picture, 0 of none.
gdi::HBITMAP BitmapOf(const std::optional<Picture>& picture) {
  return picture ? loomis2::BitmapOf(*picture) : 0;
}

bool EndsWith(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() &&
         automation::EqualFolded(text.substr(text.size() - ending.size()), ending);
}

PanelPixels ReducedTo(NearestColor& nearest, Long conversionMode, const Picture& picture) {
  return conversionMode == kErrorDiffusion ? ReducedByDiffusion(picture, nearest)
                                           : ReducedToNearest(picture, nearest);
}

/// Hands out the pixels of a conversion.
Long Given(PanelPixels made, std::vector<Byte>& pixels, Long& crc) {
  pixels = std::move(made.bytes);
  crc = PictureCrc(pixels);
  return made.isExact ? kImageDone : kImageApproximated;
}

/// A picture file as it was read.
struct Source {
  Long crc;
  Picture picture;
};

/// Error 53 when there is no such file; of others the errors of reading and decoding. `libCrc` -1 takes any.
Source SourceOf(const std::string& folder, const std::string& path, Long libCrc) {
  const std::string file = FoundFile(folder, path);
  if (file.empty()) throw AutomationError(ErrorNumber::FileNotFound, "there is no such file");
  const std::vector<Byte> bytes = FileBytes(file);
  const Long crc = PictureCrc(bytes);
  if (libCrc != -1 && libCrc != crc)
    throw AutomationError(ErrorNumber::InvalidPicture, "the file is another one");
  return {crc, DecodePicture(bytes)};
}

Long StatusOf(const AutomationError& error) {
  return error.Code() == ErrorNumber::FileNotFound ? kImageFileNotFound : kImageFileNotRead;
}

}  // namespace

FileImageLibrary::FileImageLibrary(std::shared_ptr<FileChooser> chooser) : chooser_(std::move(chooser)) {}

FileImageLibrary::~FileImageLibrary() = default;

void FileImageLibrary::Palette(const Variant& palette) {
  const bool isPalette = palette.IsArray() && palette.Elements().ElementKind() == VariantKind::Long &&
                         palette.Elements().Dimensions() == 1;
  if (!isPalette) {
    throw AutomationError(ErrorNumber::TypeMismatch,
                          "a palette is an array of 32-bit integers of one dimension");
  }
  palette_ = palette;
}

gdi::HBITMAP FileImageLibrary::CreateBitmapFrom8bpp(const std::vector<Byte>& pixels, Long dx, Long dy) {
  return IfThereIsRoom([&]() -> gdi::HBITMAP {
    const std::optional<PanelColors> colors = PanelColorsOf(palette_);
    return colors ? BitmapOf(PictureOf8bpp(pixels, dx, dy, *colors)) : 0;
  });
}

gdi::HBITMAP FileImageLibrary::CreateBitmapFrom16bpp(const std::vector<Byte>& pixels, Long dx, Long dy) {
  return IfThereIsRoom([&] { return BitmapOf(PictureOf16bpp(pixels, dx, dy)); });
}

gdi::HBITMAP FileImageLibrary::StretchBitmap(gdi::HBITMAP bitmap, Long dx, Long dy) {
  return IfThereIsRoom([&]() -> gdi::HBITMAP {
    const std::optional<Picture> picture = PictureOf(bitmap);
    return picture && IsSize(dx, dy) ? loomis2::BitmapOf(Resized(*picture, dx, dy)) : 0;
  });
}

Long FileImageLibrary::ConvertBitmapTo8bpp(Long conversionMode, gdi::HBITMAP bitmap, const Variant& palette,
                                           Long dx, Long dy, std::vector<Byte>& pixels, Long& crc) {
  if (conversionMode != kNearestColor && conversionMode != kErrorDiffusion) return kImageRefused;
  const auto made = IfThereIsRoom([&]() -> std::optional<PanelPixels> {
    const std::optional<PanelColors> colors = PanelColorsOf(palette);
    const std::optional<Picture> picture = PictureOf(bitmap);
    if (!colors || !picture || !IsSizeOf(*picture, dx, dy)) return {};
    return ReducedTo(NearestIn(*colors), conversionMode, *picture);
  });
  return made ? Given(*made, pixels, crc) : kImageRefused;
}

Long FileImageLibrary::ConvertBitmapTo16bpp(gdi::HBITMAP bitmap, Long dx, Long dy, std::vector<Byte>& pixels,
                                            Long& crc) {
  const auto made = IfThereIsRoom([&]() -> std::optional<PanelPixels> {
    const std::optional<Picture> picture = PictureOf(bitmap);
    if (!picture || !IsSizeOf(*picture, dx, dy)) return {};
    return PixelsOf16bpp(*picture);
  });
  return made ? Given(*made, pixels, crc) : kImageRefused;
}

Long FileImageLibrary::GetConversionMode(const std::string& path) {
  return EndsWith(path, ".jpg") || EndsWith(path, ".jpeg") ? kErrorDiffusion : kNearestColor;
}

gdi::HBITMAP FileImageLibrary::LoadResizedImage(const std::string& path, Long libCrc, Long dx, Long dy,
                                                Long& status) {
  status = kImageRefused;
  if (!IsSize(dx, dy)) return 0;
  const gdi::HBITMAP bitmap = IfThereIsRoom([&]() -> gdi::HBITMAP {
    try {
      return loomis2::BitmapOf(Resized(SourceOf(folder_, path, libCrc).picture, dx, dy));
    } catch (const AutomationError& error) {
      status = StatusOf(error);
      return 0;
    }
  });
  if (bitmap != 0) status = kImageDone;
  return bitmap;
}

Long FileImageLibrary::SelectImageFile(LibraryPicture& picture, Long dx, Long dy) {
  const std::string chosen = chooser_->Choose(PictureFileTypes());
  if (chosen.empty()) return kImageNotChosen;
  // Otherwise the path would be what is behind the ";".
  const std::string path = (chosen.find(';') == std::string::npos ? "" : ";") + chosen;
  try {
    picture = ReadPicture(path, dx, dy, picture.bits);
    return kImageDone;
  } catch (const AutomationError& error) {
    return error.Code() == ErrorNumber::InvalidProcedureCall ? kImageRefused : StatusOf(error);
  }
}

LibraryPicture FileImageLibrary::ReadPicture(const std::string& path, Long dx, Long dy, Long bits) {
  const bool isOwnSize = dx == 0 && dy == 0;
  const std::optional<PanelColors> colors = PanelColorsOf(palette_);
  try {
    if (!isOwnSize && !IsSize(dx, dy)) {
      throw AutomationError(ErrorNumber::InvalidProcedureCall,
                            std::to_string(dx) + " x " + std::to_string(dy) + " is no size of a picture");
    }
    if (bits != kTwoBytes && !colors) {
      throw AutomationError(ErrorNumber::InvalidProcedureCall,
                            "the panel has no palette of 1 to 256 colours");
    }
    const auto converted = [&](const Picture& picture) {
      if (bits == kTwoBytes) return PixelsOf16bpp(picture).bytes;
      return ReducedTo(NearestIn(*colors), GetConversionMode(path), picture).bytes;
    };
    const Source source = SourceOf(folder_, path, -1);
    LibraryPicture result;
    result.path = path;
    result.libCrc = source.crc;
    result.dxOrg = source.picture.width;
    result.dyOrg = source.picture.height;
    result.dataOrg = converted(source.picture);
    result.dx = isOwnSize ? result.dxOrg : dx;
    result.dy = isOwnSize ? result.dyOrg : dy;
    result.data = converted(Resized(source.picture, result.dx, result.dy));
    result.crc = PictureCrc(result.data);
    result.bits = bits;
    return result;
  } catch (const AutomationError& error) {
    throw error.In("picture file \"" + path + "\"");
  } catch (const std::bad_alloc&) {
    throw AutomationError(ErrorNumber::OutOfMemory, "there is no room for the picture")
        .In("picture file \"" + path + "\"");
  }
}

NearestColor& FileImageLibrary::NearestIn(const PanelColors& colors) {
  if (!nearest_ || nearest_->Colors() != colors) nearest_ = std::make_unique<NearestColor>(colors);
  return *nearest_;
}

}  // namespace quenzel7::loomis2
