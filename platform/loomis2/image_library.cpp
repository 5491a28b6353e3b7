#include "platform/loomis2/image_library.h"

#include "platform/automation/member.h"

namespace quenzel7::loomis2 {
namespace {

using automation::Method;
using automation::Property;
using automation::Variant;

constexpr automation::Member kMembers[] = {
    Property<std::string>("Name", "The library's name.", AUTOMATION_GETTER(ImageLibrary, Name),
                          AUTOMATION_SETTER(ImageLibrary, std::string, Name)),
    Property<std::string>("Folder", "The folder of the picture files, with a separator at its end.",
                          AUTOMATION_GETTER(ImageLibrary, Folder),
                          AUTOMATION_SETTER(ImageLibrary, std::string, Folder)),
    Property<Variant>("Palette", "The panel's colours, an array of 32-bit integers.",
                      AUTOMATION_GETTER(ImageLibrary, Palette),
                      AUTOMATION_SETTER(ImageLibrary, Variant, Palette)),
    Method<ImageLibrary, &ImageLibrary::CreateBitmapFrom8bpp>(
        "CreateBitmapFrom8bpp", "A bitmap of palette indices; 0 when they are no such picture.",
        "pixels, dx, dy"),
    Method<ImageLibrary, &ImageLibrary::CreateBitmapFrom16bpp>(
        "CreateBitmapFrom16bpp", "A bitmap of pixels of two bytes; 0 when they are no such picture.",
        "pixels, dx, dy"),
    Method<ImageLibrary, &ImageLibrary::StretchBitmap>(
        "StretchBitmap", "A copy of a bitmap at another size; 0 when it is none or the size is none.",
        "bitmap, dx, dy"),
    Method<ImageLibrary, &ImageLibrary::ConvertBitmapTo8bpp>(
        "ConvertBitmapTo8bpp",
        "Turns a bitmap into palette indices with their CRC; gives a status, 0 or 6 when done.",
        "conversionMode, bitmap, palette, dx, dy, pixels, crc"),
    Method<ImageLibrary, &ImageLibrary::ConvertBitmapTo16bpp>(
        "ConvertBitmapTo16bpp",
        "Turns a bitmap into pixels of two bytes with their CRC; gives a status, 0 or 6 when done.",
        "bitmap, dx, dy, pixels, crc"),
    Method<ImageLibrary, &ImageLibrary::GetConversionMode>(
        "GetConversionMode", "The conversion mode that suits the picture in a file.", "path"),
    Method<ImageLibrary, &ImageLibrary::LoadResizedImage>(
        "LoadResizedImage", "Reads a picture file as a bitmap of that size, with a status, 0 when done.",
        "path, libCrc, dx, dy, status"),
    Method<ImageLibrary, &ImageLibrary::SelectImageFileFields>(
        "SelectImageFile", "Lets the user choose a picture file; gives a status, 0 when done.",
        "path, libCrc, dxOrg, dyOrg, dataOrg, crc, data, bits, dx, dy"),
    Method<ImageLibrary, &ImageLibrary::ReadPictureFields>(
        "ReadPicture", "Reads a picture file at a size, 0 x 0 for its own.",
        "path, dx, dy, bits, libCrc, dxOrg, dyOrg, dataOrg, crc, data"),
};

}  // namespace

const automation::ClassInfo& ImageLibrary::ClassOf() {
  static const automation::Interface interface("_ImageLibrary", kMembers);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{kClassName, interfaces, nullptr};
  return info;
}

Long ImageLibrary::SelectImageFileFields(std::string& path, Long& libCrc, Long& dxOrg, Long& dyOrg,
                                         std::vector<Byte>& dataOrg, Long& crc, std::vector<Byte>& data,
                                         Long& bits, Long dx, Long dy) {
  LibraryPicture picture{path, libCrc, dxOrg, dyOrg, dataOrg, crc, dx, dy, data, bits};
  const Long status = SelectImageFile(picture, dx, dy);
  if (status != kImageDone) return status;
  path = picture.path;
  libCrc = picture.libCrc;
  dxOrg = picture.dxOrg;
  dyOrg = picture.dyOrg;
  dataOrg = picture.dataOrg;
  crc = picture.crc;
  data = picture.data;
  bits = picture.bits;
  return status;
}

void ImageLibrary::ReadPictureFields(const std::string& path, Long& dx, Long& dy, Long bits, Long& libCrc,
                                     Long& dxOrg, Long& dyOrg, std::vector<Byte>& dataOrg, Long& crc,
                                     std::vector<Byte>& data) {
  const LibraryPicture picture = ReadPicture(path, dx, dy, bits);
  dx = picture.dx;
  dy = picture.dy;
  libCrc = picture.libCrc;
  dxOrg = picture.dxOrg;
  dyOrg = picture.dyOrg;
  dataOrg = picture.dataOrg;
  crc = picture.crc;
  data = picture.data;
}

}  // namespace quenzel7::loomis2
