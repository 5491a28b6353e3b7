#include "platform/loomis2/icon_reader.h"

#include <algorithm>
#include <compare>
#include <string>
#include <string_view>
#include <vector>

#include "platform/loomis2/alpha.h"
#include "platform/loomis2/begins_with.h"
#include "platform/loomis2/dib.h"
#include "platform/loomis2/invalid_picture.h"
#include "platform/loomis2/png_reader.h"

namespace quenzel7::loomis2 {
namespace {

constexpr std::string_view kPngMark = "\x89PNG\r\n\x1A\n";
constexpr int kAlphaDepth = 32;
constexpr std::uint32_t kAlphaMask = 0xFF000000;

/// How much a picture shows: its pixels, then its bits a pixel.
struct Extent {
  std::uint64_t pixels;  ///< very many where a measure is below 0, which is refused once they are read
  int bitsPerPixel;

  auto operator<=>(const Extent&) const = default;
};

/// One of the pictures of the file.
struct IconPicture {
  std::span<const Byte> bytes;
  std::string name;
  Extent extent;
};

bool IsPng(std::span<const Byte> bytes) { return BeginsWith(bytes, kPngMark); }

/// The header of a picture and of its mask, which stand one above the other.
DibHeader ReadDoubledHeader(ByteReader& reader, const std::string& name) {
  DibHeader header = ReadDibHeader(reader);
  if (header.height % 2 != 0) {
    RefusePicture(name + " has " + std::to_string(header.height) +
                  " rows with its mask: expected an even number");
  }
  header.height /= 2;
  return header;
}

Extent ExtentOfPng(ByteReader reader) {
  reader.Seek(16);
  const auto number = [&reader] {
    std::uint64_t value = 0;
    for (const Byte byte : reader.Take(4)) value = value << 8 | byte;
    return value;
  };
  const std::uint64_t width = number(), height = number();
  const int bits = reader.U8(), colorType = reader.U8();
  // Of the kinds of colour that there are; the last stands for all others.
  constexpr int kChannels[] = {1, 0, 3, 1, 2, 0, 4, 0};
  return {width * height, bits * kChannels[std::min(colorType, 7)]};
}

Extent ExtentOfDib(ByteReader reader, const std::string& name) {
  const DibHeader header = ReadDoubledHeader(reader, name);
  return {static_cast<std::uint64_t>(header.width * header.height), header.bitsPerPixel};
}

IconPicture ReadEntry(ByteReader& reader, int number) {
  reader.Take(8);  // Size, colours, planes and depth, or the hot spot; the picture itself knows better.
  const std::uint32_t size = reader.U32(), position = reader.U32();
  const std::size_t next = reader.Position();
  reader.Seek(position);
  const std::span<const Byte> bytes = reader.Take(size);
  reader.Seek(next);
  const std::string name = "picture " + std::to_string(number) + " of the icon file";
  const ByteReader own(bytes, name);
  return {bytes, name, IsPng(bytes) ? ExtentOfPng(own) : ExtentOfDib(own, name)};
}

/// Makes the pixels white whose bit is set in the mask, as far as there is one.
void ApplyMask(ByteReader& reader, const DibHeader& header, Picture& picture) {
  const std::uint64_t rowBytes = DibRowBytes(header.width, 1);
  const auto width = static_cast<std::size_t>(header.width), height = static_cast<std::size_t>(header.height);
  const std::span<const Byte> mask = reader.Take(reader.Left());
  for (std::size_t y = 0; y < height; ++y) {
    const std::size_t row = (header.isTopDown ? y : height - 1 - y) * rowBytes;
    for (std::size_t x = 0; x < width; ++x) {
      const std::size_t at = row + x / 8;
      if (at < mask.size() && (mask[at] >> (7 - x % 8) & 1) != 0) picture.pixels[y * width + x] = kWhite;
    }
  }
}

Picture ReadIconDib(const IconPicture& source) {
  ByteReader reader(source.bytes, source.name);
  DibHeader header = ReadDoubledHeader(reader, source.name);
  if (header.coding == DibCoding::kRuns8 || header.coding == DibCoding::kRuns4) {
    RefusePicture(source.name + " is coded in runs, which icons cannot be");
  }
  const ColorMasks& masks = header.masks;
  const bool isByteFree = ((masks.red | masks.green | masks.blue) & kAlphaMask) == 0;
  if (header.bitsPerPixel == kAlphaDepth && masks.alpha == 0 && isByteFree) header.masks.alpha = kAlphaMask;
  const ColorTable colors = ReadDibColors(reader.Take(header.colors * header.bytesPerColor), header);
  Picture picture = ReadDibPixels(reader, header, colors);
  if (!BlendOverWhite(picture)) ApplyMask(reader, header, picture);
  return picture;
}

}  // namespace

Picture ReadIcon(std::span<const Byte> file) {
  ByteReader reader(file, "the icon file");
  reader.Take(4);  // Its mark.
  const int count = reader.U16();
  if (count == 0) RefusePicture("the icon file has no picture");
  std::vector<IconPicture> pictures;
  for (int number = 1; number <= count; ++number) pictures.push_back(ReadEntry(reader, number));
  const IconPicture& best =
      *std::max_element(pictures.begin(), pictures.end(),
                        [](const IconPicture& a, const IconPicture& b) { return a.extent < b.extent; });
  return IsPng(best.bytes) ? ReadPng(best.bytes) : ReadIconDib(best);
}

}  // namespace quenzel7::loomis2
