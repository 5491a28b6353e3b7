#include "hosts/cli/element_picture.h"

#include <array>
#include <filesystem>
#include <limits>
#include <vector>

#include "hosts/cli/base64.h"
#include "hosts/cli/property_values.h"
#include "hosts/cli/user_error.h"
#include "images/image_queries.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"
#include "platform/gdi/owned.h"
#include "platform/platform.h"

namespace quenzel7::cli {
namespace {

namespace fs = std::filesystem;
using automation::To;
using automation::Variant;

constexpr char kSeparator = ';';
constexpr Long kLongestSide = 32767;

const automation::Interface& Images(ItfHmiElement& element) { return *PictureInterfaceOf(element.Class()); }

Variant ReadImage(ItfHmiElement& element, std::string_view property) {
  return automation::GetByName(element, Images(element), property);
}

Long NumberOf(ItfHmiElement& element, std::string_view property) {
  return To<Long>(ReadImage(element, property));
}

/// Slashes for the backslashes of a path.
std::string WithSlashes(std::string path) {
  for (char& letter : path) {
    if (letter == '\\') letter = '/';
  }
  return path;
}

/// Whether an element is as large as its picture. Where the picture is smaller, ItfImage tells so.
bool IsBitmap(const ItfHmiElement& element) {
  return element.Class().Default().Find("ResizeImageEx") != nullptr;
}

/// The members of a picture in a page file.
struct Key {
  std::string_view name;
  void (*read)(FiledPicture&, const Json&);
  Json (*write)(const FiledPicture&);
};

Long SideFromJson(const Json& value) { return WholeNumberFromJson(value, 1, kLongestSide); }

PixelBytes PixelsFromJson(const Json& value) {
  const auto bytes = BytesOfBase64(TextFromJson(value));
  if (!bytes || bytes->empty()) throw UserError("must be bytes in base64, " + Shown(value) + " was given");
  return *bytes;
}

Json JsonFromPixels(const PixelBytes& pixels) { return pixels.empty() ? Json() : Json(Base64Of(pixels)); }

Json JsonFromSide(Long side) { return side > 0 ? Json(side) : Json(); }

/// In the order in which they are written; what is written as null is left out.
constexpr Key kKeys[] = {
    {"path", [](FiledPicture& picture, const Json& value) { picture.path = TextFromJson(value); },
     [](const FiledPicture& picture) { return picture.path.empty() ? Json() : Json(picture.path); }},
    {"bits",
     [](FiledPicture& picture, const Json& value) {
       if (value != 0 && value != kTwoBytePixels) {
         throw UserError("must be 0 or 16, " + Shown(value) + " was given");
       }
       picture.bits = value == 0 ? 0 : kTwoBytePixels;
     },
     [](const FiledPicture& picture) { return picture.bits == 0 ? Json() : Json(picture.bits); }},
    {"source",
     [](FiledPicture& picture, const Json& value) {
       picture.source =
           WholeNumberFromJson(value, std::numeric_limits<Long>::min(), std::numeric_limits<Long>::max());
     },
     [](const FiledPicture& picture) { return picture.source == kNoImage ? Json() : Json(picture.source); }},
    {"width", [](FiledPicture& picture, const Json& value) { picture.width = SideFromJson(value); },
     [](const FiledPicture& picture) { return JsonFromSide(picture.width); }},
    {"height", [](FiledPicture& picture, const Json& value) { picture.height = SideFromJson(value); },
     [](const FiledPicture& picture) { return JsonFromSide(picture.height); }},
    {"pixels", [](FiledPicture& picture, const Json& value) { picture.pixels = PixelsFromJson(value); },
     [](const FiledPicture& picture) { return JsonFromPixels(picture.pixels); }},
    {"panelPixels",
     [](FiledPicture& picture, const Json& value) { picture.panelPixels = PixelsFromJson(value); },
     [](const FiledPicture& picture) { return JsonFromPixels(picture.panelPixels); }},
};

void ReadKey(FiledPicture& picture, std::vector<std::string_view>& seen, const std::string& name,
             const Json& value) {
  std::vector<std::string_view> names;
  for (const Key& key : kKeys) {
    names.push_back(key.name);
    if (!automation::EqualFolded(key.name, name)) continue;
    for (const std::string_view other : seen) {
      if (other == key.name) throw UserError(Quoted(name) + " is given twice");
    }
    seen.push_back(key.name);
    try {
      return key.read(picture, value);
    } catch (const UserError& error) {
      throw UserError(Quoted(key.name) + " " + error.what());
    }
  }
  throw UserError(Quoted(name) + " does not exist; nearest is " +
                  Quoted(automation::NearestName(name, names)));
}

void RequireFile(const FiledPicture& picture) {
  if (picture.path.empty()) throw UserError("must name a file or give pixels");
  if (picture.path.find(kSeparator) != std::string::npos) {
    throw UserError("must name a file without a \";\" in its name, " + Quoted(picture.path) + " was given");
  }
}

/// The end of a path that goes up first.
fs::path WithoutUpward(const fs::path& path) {
  fs::path end;
  for (const fs::path& part : path.lexically_normal()) {
    if (part != "..") end /= part;
  }
  return end;
}

/// The name under which a page file can tell the file of that path; empty when it cannot.
std::string NameForPageFile(const std::string& path) {
  const auto separator = path.find(kSeparator);
  if (separator == std::string::npos) return path.substr(0, 1) == "/" ? path : "";
  const std::string name = path.substr(0, separator), file = path.substr(separator + 1);
  if (file.find(kSeparator) != std::string::npos || file.substr(0, 1) != "/") return {};
  if (name.empty()) return file;
  const std::string end = "/" + WithoutUpward(WithSlashes(name)).string();
  const bool isItsName =
      WithSlashes(name) == file ||
      (file.size() > end.size() && file.compare(file.size() - end.size(), end.size(), end) == 0);
  return isItsName ? name : "";
}

loomis2::LibraryPicture ReadFile(const std::string& path, const PictureMeasure& measure) {
  return CurrentImageLibrary()->ReadPicture(path, measure.dx, measure.dy, measure.bits);
}

/// Whether the file gives the element's picture.
bool GivesPicture(const std::string& path, ItfHmiElement& element) {
  try {
    const loomis2::LibraryPicture read = ReadFile(path, MeasureOf(element));
    return read.crc == PictureCrcOf(element) && read.libCrc == NumberOf(element, "ImageLibCRC");
  } catch (const automation::AutomationError&) {
    return false;
  }
}

/// Calls SetImage8bppPropsEx with the picture.
void SetProps(ItfHmiElement& element, const loomis2::LibraryPicture& picture) {
  std::array<Variant, 12> arguments = {picture.libCrc,
                                       picture.dxOrg,
                                       picture.dyOrg,
                                       automation::From(picture.dataOrg),
                                       picture.crc,
                                       picture.dx,
                                       picture.dy,
                                       automation::From(picture.data),
                                       NumberOf(element, "ImageIndexInVar"),
                                       NumberOf(element, "TransparencyLevel"),
                                       picture.path,
                                       picture.bits};
  automation::CallByName(element, Images(element), "SetImage8bppPropsEx", automation::CallKind::Method,
                         arguments);
}

std::string SizeText(Long dx, Long dy) { return std::to_string(dx) + "x" + std::to_string(dy); }

void RequireFit(std::string_view key, const PixelBytes& pixels, Long dx, Long dy, Long bits) {
  if (IsImageDataValid(pixels, dx, dy, bits)) return;
  throw UserError(Quoted(key) + " must be the pixels of a picture of " + SizeText(dx, dy) + ", " +
                  std::to_string(pixels.size()) + " bytes were given");
}

/// The picture of given pixels at the element's size.
loomis2::LibraryPicture FromPixels(const FiledPicture& picture, const PictureMeasure& measure) {
  loomis2::LibraryPicture made;
  made.path = picture.path;
  made.libCrc = picture.source;
  made.bits = picture.bits;
  made.dx = measure.dx;
  made.dy = measure.dy;
  if (!picture.pixels.empty()) {
    RequireFit("pixels", picture.pixels, picture.width, picture.height, picture.bits);
    made.dxOrg = picture.width;
    made.dyOrg = picture.height;
    made.dataOrg = picture.pixels;
  }
  if (!picture.panelPixels.empty()) {
    RequireFit("panelPixels", picture.panelPixels, made.dx, made.dy, picture.bits);
    made.data = picture.panelPixels;
    made.crc = Platform::Current().crcService->Crc(made.data);
  } else if (!RebuildImageData(made.dataOrg, made.dxOrg, made.dyOrg, made.dx, made.dy, made.data, made.crc,
                               made.bits)) {
    throw UserError("cannot be made in the size " + SizeText(made.dx, made.dy));
  }
  return made;
}

}  // namespace

const automation::Interface* PictureInterfaceOf(const automation::ClassInfo& elementClass) {
  return elementClass.FindInterface("ItfImage");
}

FiledPicture PictureFromJson(const Json& value) {
  FiledPicture picture;
  if (value.is_string()) {
    picture.path = TextFromJson(value);
    RequireFile(picture);
    return picture;
  }
  if (!value.is_object()) throw UserError("must be a text or an object, " + Shown(value) + " was given");
  std::vector<std::string_view> seen;
  for (const auto& [name, member] : value.items()) ReadKey(picture, seen, name, member);
  const auto requirePixels = [](std::string_view key, bool isGiven, std::string_view pixels) {
    if (isGiven) throw UserError(Quoted(key) + " is given without " + Quoted(pixels));
  };
  requirePixels("width", picture.width > 0 && picture.pixels.empty(), "pixels");
  requirePixels("height", picture.height > 0 && picture.pixels.empty(), "pixels");
  picture.hasPixels = !picture.pixels.empty() || !picture.panelPixels.empty();
  requirePixels("source", picture.source != kNoImage && !picture.hasPixels, "pixels");
  if (!picture.hasPixels) RequireFile(picture);
  return picture;
}

std::string PicturePath(const std::string& name, const std::string& folder) {
  const bool isPlain = name.find(kSeparator) == std::string::npos;
  return (isPlain ? name : "") + kSeparator +
         fs::absolute(fs::path(folder) / WithSlashes(name)).lexically_normal().string();
}

std::string PictureName(const std::string& path) {
  const auto separator = path.find(kSeparator);
  return separator == std::string::npos || separator == 0 ? path : path.substr(0, separator);
}

void TakePicture(ItfHmiElement& element, const FiledPicture& picture, const std::string& folder) {
  PictureMeasure measure = MeasureOf(element);
  measure.bits = picture.bits;
  // A picture of no size would be read at its own.
  if (!IsBitmap(element) && (measure.dx < 1 || measure.dy < 1)) {
    throw UserError("there is no room for it: inside the element it would be " +
                    SizeText(measure.dx, measure.dy));
  }
  loomis2::LibraryPicture taken =
      picture.hasPixels ? FromPixels(picture, measure) : ReadPictureFile(picture.path, folder, measure);
  KeepStoredSource(taken);
  SetProps(element, taken);
}

void KeepStoredSource(loomis2::LibraryPicture& picture) {
  Long dxOrg = 0, dyOrg = 0;
  GetImageOriginalDimansions(picture.crc, dxOrg, dyOrg);
  PixelBytes dataOrg = GetImageDataORGByCRC(picture.crc);
  const bool serves = !dataOrg.empty() && GetImageBitsByCRC(picture.crc) == picture.bits &&
                      IsImageDataValid(dataOrg, dxOrg, dyOrg, picture.bits);
  if (!serves) return;
  picture.path = GetImagePathFromDB(picture.crc);
  picture.libCrc = GetImageLibCRC(picture.crc);
  picture.dxOrg = dxOrg;
  picture.dyOrg = dyOrg;
  picture.dataOrg = std::move(dataOrg);
}

loomis2::LibraryPicture ReadPictureFile(const std::string& name, const std::string& folder,
                                        const PictureMeasure& measure) {
  const std::string path = PicturePath(name, folder);
  // Read by where it is alone, so that an error tells that and nothing else.
  const std::string place = path.substr(path.find(kSeparator) + 1);
  try {
    loomis2::LibraryPicture read =
        ReadFile(place.find(kSeparator) == std::string::npos ? place : path, measure);
    read.path = path;
    return read;
  } catch (const automation::AutomationError& error) {
    if (error.Code() == automation::ErrorNumber::FileNotFound) {
      loomis2::LibraryPicture chosen;
      chosen.bits = measure.bits;
      const Long status = CurrentImageLibrary()->SelectImageFile(chosen, measure.dx, measure.dy);
      if (status == loomis2::kImageDone) return chosen;
      if (status == loomis2::kImageFileNotFound || status == loomis2::kImageFileNotRead) {
        throw UserError(error.Description() + ", and the one that was chosen for it cannot be read");
      }
    }
    throw UserError(error.Description());
  }
}

void TakeNoPicture(ItfHmiElement& element) {
  for (const std::string_view side : {"Dx", "Dy"}) {
    automation::PutByName(element, Images(element), side, automation::GetByName(element, side));
  }
}

bool IsWithoutPicture(ItfHmiElement& element) {
  return PictureInterfaceOf(element.Class()) && PictureCrcOf(element) == kNoImage;
}

NoPictureSize::NoPictureSize(ItfHmiElement& element)
    : element_(IsWithoutPicture(element) ? &element : nullptr) {
  if (!element_) return;
  for (const std::string_view side : {"Dx", "Dy"}) {
    automation::PutByName(*element_, Images(*element_), side, Long{0});
  }
}

NoPictureSize::~NoPictureSize() {
  if (element_) TakeNoPicture(*element_);
}

Long PictureCrcOf(ItfHmiElement& element) { return NumberOf(element, "Image8bppCRC"); }

PictureMeasure MeasureOf(ItfHmiElement& element) {
  const auto side = [&](std::string_view name) {
    return IsBitmap(element) ? To<Long>(automation::GetByName(element, name)) : NumberOf(element, name);
  };
  const Long crc = PictureCrcOf(element);
  return {side("Dx"), side("Dy"), crc == kNoImage ? 0 : GetImageBitsByCRC(crc)};
}

PixelBytes PanelPixelsOf(ItfHmiElement& element) {
  return To<PixelBytes>(automation::InvokeByName(element, Images(element), "GetImageData8bpp", {}));
}

std::string PicturePathOf(ItfHmiElement& element) { return To<std::string>(ReadImage(element, "ImagePath")); }

bool HasPictureWithoutPixels(ItfHmiElement& element) {
  if (!PictureInterfaceOf(element.Class())) return false;
  const Long crc = PictureCrcOf(element);
  return crc != kNoImage && PanelPixelsOf(element).empty() && GetImageDataORGByCRC(crc).empty();
}

Json JsonFromPicture(ItfHmiElement& element) {
  const Long crc = PictureCrcOf(element);
  if (crc == kNoImage || HasPictureWithoutPixels(element)) return {};
  const PictureMeasure measure = MeasureOf(element);
  FiledPicture picture;
  picture.bits = measure.bits;
  picture.path = NameForPageFile(PicturePathOf(element));
  if (!picture.path.empty() && GivesPicture(PicturePathOf(element), element)) {
    if (picture.bits == 0) return picture.path;
  } else {
    picture.path = PicturePathOf(element);
    picture.source = NumberOf(element, "ImageLibCRC");
    GetImageOriginalDimansions(crc, picture.width, picture.height);
    picture.pixels = GetImageDataORGByCRC(crc);
    if (picture.pixels.empty()) picture.width = picture.height = 0;
    picture.panelPixels = PanelPixelsOf(element);
    // Others could not be brought in again; they are made of the original ones whenever they are needed.
    const bool fits = IsImageDataValid(picture.panelPixels, measure.dx, measure.dy, measure.bits);
    if (!fits && !picture.pixels.empty()) picture.panelPixels.clear();
  }
  Json json = Json::object();
  for (const Key& key : kKeys) {
    Json value = key.write(picture);
    if (!value.is_null()) json[std::string(key.name)] = std::move(value);
  }
  return json;
}

std::string LostFileOf(ItfHmiElement& element) {
  if (PictureCrcOf(element) == kNoImage) return {};
  const std::string path = PicturePathOf(element);
  if (NameForPageFile(path).empty() || GivesPicture(path, element)) return {};
  Long status = loomis2::kImageDone;
  const gdi::OwnedBitmap bitmap(CurrentImageLibrary()->LoadResizedImage(path, kNoImage, 1, 1, status));
  return status == loomis2::kImageFileNotFound ? "is not there" : "is another one now";
}

std::string PictureText(ItfHmiElement& element) {
  const std::string key = PictureKeyText(element);
  if (PictureCrcOf(element) == kNoImage) return key;
  return Quoted(PictureName(PicturePathOf(element))) + " (" + key + ")";
}

std::string PictureKeyText(ItfHmiElement& element) {
  const Long crc = PictureCrcOf(element);
  if (crc == kNoImage) return "none";
  return "CRC " + std::to_string(crc) + ", source " + To<std::string>(ReadImage(element, "ImageLibCRC"));
}

}  // namespace quenzel7::cli
