#include "platform/loomis2/file_image_library.h"

#include <new>

#include "platform/automation/array.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/class_info.h"
#include "platform/loomis2/bitmap_picture.h"
#include "platform/loomis2/color_reduction.h"
#include "platform/loomis2/new_picture.h"
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
  return dx > 0 && dy > 0 && dx <= kLongestSide && dy <= kLongestSide && dx * dy <= kMostPixels;
}

bool IsSizeOf(const Picture& picture, Long dx, Long dy) {
  return IsSize(dx, dy) && picture.width == dx && picture.height == dy;
}

void RequirePalette(const std::optional<PanelColors>& colors) {
  if (!colors) {
    throw AutomationError(ErrorNumber::InvalidProcedureCall, "the panel has no palette of 1 to 256 colours");
  }
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

/// What the action gives. Error 7 where there is no room for it.
template <class Action>
auto WithRoom(Action action) {
  try {
    return action();
  } catch (const std::bad_alloc&) {
    throw AutomationError(ErrorNumber::OutOfMemory, "there is no room for the picture");
  }
}

/// The new bitmap of the picture that the action gives, 0 where it gives none. Error 7 where there is no room
/// for either.
template <class Action>
gdi::HBITMAP NewBitmapOf(Action picture) {
  return WithRoom([&]() -> gdi::HBITMAP {
    const std::optional<Picture> made = picture();
    if (!made) return 0;
    const gdi::HBITMAP bitmap = BitmapOf(*made);
    if (bitmap == 0) throw std::bad_alloc();
    return bitmap;
  });
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
  switch (error.Code()) {
    case ErrorNumber::FileNotFound:
      return kImageFileNotFound;
    case ErrorNumber::OutOfMemory:
    case ErrorNumber::InvalidProcedureCall:
      return kImageRefused;
    default:
      return kImageFileNotRead;
  }
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
  return NewBitmapOf([&]() -> std::optional<Picture> {
    const std::optional<PanelColors> colors = PanelColorsOf(palette_);
    RequirePalette(colors);
    if (!IsSize(dx, dy)) return {};
    return PictureOf8bpp(pixels, dx, dy, *colors);
  });
}

gdi::HBITMAP FileImageLibrary::CreateBitmapFrom16bpp(const std::vector<Byte>& pixels, Long dx, Long dy) {
  return NewBitmapOf([&]() -> std::optional<Picture> {
    if (!IsSize(dx, dy)) return {};
    return PictureOf16bpp(pixels, dx, dy);
  });
}

gdi::HBITMAP FileImageLibrary::StretchBitmap(gdi::HBITMAP bitmap, Long dx, Long dy) {
  return NewBitmapOf([&]() -> std::optional<Picture> {
    const std::optional<Picture> picture = PictureOf(bitmap);
    if (!picture || !IsSize(picture->width, picture->height) || !IsSize(dx, dy)) return {};
    return Resized(*picture, dx, dy);
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
      return BitmapOf(Resized(SourceOf(folder_, path, libCrc).picture, dx, dy));
    } catch (const AutomationError& error) {
      status = StatusOf(error);
      return 0;
    }
  });
  if (bitmap != 0) status = kImageDone;
  return bitmap;
}

Long FileImageLibrary::SelectImageFile(LibraryPicture& picture, Long dx, Long dy) {
  if (!IsSize(dx, dy)) return kImageRefused;
  const std::string chosen = chooser_ ? chooser_->Choose(PictureFileTypes()) : "";
  if (chosen.empty()) return kImageNotChosen;
  // Otherwise the path would be what is behind the ";".
  const std::string path = (chosen.find(';') == std::string::npos ? "" : ";") + chosen;
  try {
    picture = ReadPicture(path, dx, dy, picture.bits);
    return kImageDone;
  } catch (const AutomationError& error) {
    return StatusOf(error);
  }
}

LibraryPicture FileImageLibrary::ReadPicture(const std::string& path, Long dx, Long dy, Long bits) {
  const bool isOwnSize = dx == 0 && dy == 0;
  const auto read = [&] {
    const std::optional<PanelColors> colors = PanelColorsOf(palette_);
    if (!isOwnSize && !IsSize(dx, dy)) {
      throw AutomationError(ErrorNumber::InvalidProcedureCall,
                            std::to_string(dx) + " x " + std::to_string(dy) + " is no size of a picture");
    }
    if (bits != kTwoBytes) RequirePalette(colors);
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
    result.data = IsSizeOf(source.picture, result.dx, result.dy)
                      ? result.dataOrg
                      : converted(Resized(source.picture, result.dx, result.dy));
    result.crc = PictureCrc(result.data);
    result.bits = bits;
    return result;
  };
  try {
    return WithRoom(read);
  } catch (const AutomationError& error) {
    throw error.In("picture file \"" + path + "\"");
  }
}

NearestColor& FileImageLibrary::NearestIn(const PanelColors& colors) {
  if (!nearest_ || nearest_->Colors() != colors) nearest_ = std::make_unique<NearestColor>(colors);
  return *nearest_;
}

}  // namespace quenzel7::loomis2
