#include "platform/loomis2/dib.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "platform/loomis2/bit_field.h"
#include "platform/loomis2/invalid_picture.h"
#include "platform/loomis2/new_picture.h"
#include "platform/loomis2/run_length.h"

namespace quenzel7::loomis2 {
namespace {

constexpr std::uint32_t kCoreHeader = 12, kInfoHeader = 40, kHeaderWithAlpha = 56;
constexpr std::uint32_t kHeaders[] = {kCoreHeader, kInfoHeader, 52, kHeaderWithAlpha, 108, 124};

/// The largest depth whose pixels are numbers of colours.
constexpr int kMostNumberBits = 8;

struct Form {
  DibCoding coding;
  int bitsPerPixel;
};

constexpr Form kForms[] = {
    {DibCoding::kPlain, 1},          {DibCoding::kPlain, 2},  {DibCoding::kPlain, 4},
    {DibCoding::kPlain, 8},          {DibCoding::kPlain, 16}, {DibCoding::kPlain, 24},
    {DibCoding::kPlain, 32},         {DibCoding::kRuns8, 8},  {DibCoding::kRuns4, 4},
    {DibCoding::kMasks, 16},         {DibCoding::kMasks, 32}, {DibCoding::kMasksAndAlpha, 16},
    {DibCoding::kMasksAndAlpha, 32},
};

bool HasRuns(DibCoding coding) { return coding == DibCoding::kRuns8 || coding == DibCoding::kRuns4; }
bool HasMasks(DibCoding coding) { return coding == DibCoding::kMasks || coding == DibCoding::kMasksAndAlpha; }

void CheckForm(const DibHeader& header) {
  const bool isKnown = std::any_of(std::begin(kForms), std::end(kForms), [&](const Form& form) {
    return form.coding == header.coding && form.bitsPerPixel == header.bitsPerPixel;
  });
  if (!isKnown) {
    RefusePicture("a bitmap of " + std::to_string(header.bitsPerPixel) + " bits a pixel in coding " +
                  std::to_string(static_cast<std::uint32_t>(header.coding)) + " cannot be read");
  }
  if (HasRuns(header.coding) && header.isTopDown) {
    RefusePicture("a bitmap coded in runs cannot have its highest row first");
  }
}

void ReadMasks(ByteReader& reader, std::uint32_t size, DibHeader& header) {
  ColorMasks masks;
  if (size > kInfoHeader || HasMasks(header.coding)) {
    masks.red = reader.U32();
    masks.green = reader.U32();
    masks.blue = reader.U32();
  }
  if (size >= kHeaderWithAlpha || (size == kInfoHeader && header.coding == DibCoding::kMasksAndAlpha)) {
    masks.alpha = reader.U32();
  }
  // Pixels of other depths have no room for it.
  if (header.bitsPerPixel != 16 && header.bitsPerPixel != 32) masks.alpha = 0;
  if (!HasMasks(header.coding)) {
    const bool isShort = header.bitsPerPixel == 16;
    masks.red = isShort ? 0x7C00 : 0xFF0000;
    masks.green = isShort ? 0x03E0 : 0x00FF00;
    masks.blue = isShort ? 0x001F : 0x0000FF;
  }
  header.masks = masks;
}

void PutRow(std::span<const Byte> row, int bits, const ColorTable& colors, std::span<std::uint32_t> pixels) {
  std::size_t bit = 0;
  for (std::uint32_t& pixel : pixels) {
    const unsigned shift = static_cast<unsigned>(8 - bits) - bit % 8;
    pixel = colors[row[bit / 8] >> shift & ((1u << bits) - 1)];
    bit += static_cast<std::size_t>(bits);
  }
}

/// The colours of pixels of 16 bits or more.
class DeepPixels {
 public:
  DeepPixels(int bits, const ColorMasks& masks)
      : bytes_(static_cast<std::size_t>(bits / 8)),
        red_(masks.red),
        green_(masks.green),
        blue_(masks.blue),
        alpha_(masks.alpha) {}

  void PutRow(std::span<const Byte> row, std::span<std::uint32_t> pixels) const {
    std::size_t at = 0;
    for (std::uint32_t& pixel : pixels) {
      const std::uint32_t word = NumberOf(row.subspan(at, bytes_));
      at += bytes_;
      pixel = alpha_.Of(word) << 24 | red_.Of(word) << 16 | green_.Of(word) << 8 | blue_.Of(word);
    }
  }

 private:
  std::size_t bytes_;
  BitField red_, green_, blue_, alpha_;
};

Picture ReadPlainPixels(ByteReader& reader, const DibHeader& header, const ColorTable& colors) {
  const std::uint64_t rowBytes = DibRowBytes(header.width, header.bitsPerPixel);
  const auto height = static_cast<std::uint64_t>(header.height);
  const std::span<const Byte> bytes = reader.Take(rowBytes * height);
  const DeepPixels deep(header.bitsPerPixel, header.masks);
  Picture picture = WhitePicture(header.width, header.height);
  const auto width = static_cast<std::size_t>(header.width);
  for (std::uint64_t y = 0; y < height; ++y) {
    const std::uint64_t from = header.isTopDown ? y : height - 1 - y;
    const std::span<const Byte> row = bytes.subspan(from * rowBytes, rowBytes);
    const std::span<std::uint32_t> pixels = std::span(picture.pixels).subspan(y * width, width);
    if (header.bitsPerPixel <= kMostNumberBits) {
      PutRow(row, header.bitsPerPixel, colors, pixels);
    } else {
      deep.PutRow(row, pixels);
    }
  }
  return picture;
}

}  // namespace

std::uint64_t DibRowBytes(std::int64_t width, int bitsPerPixel) {
  return static_cast<std::uint64_t>((width * bitsPerPixel + 31) / 32 * 4);
}

DibHeader ReadDibHeader(ByteReader& reader) {
  const std::size_t start = reader.Position();
  const std::uint32_t size = reader.U32();
  if (std::count(std::begin(kHeaders), std::end(kHeaders), size) == 0) {
    RefusePicture("a bitmap header of " + std::to_string(size) +
                  " bytes cannot be read: expected 12, 40, 52, 56, 108 or 124");
  }
  const bool isCore = size == kCoreHeader;
  DibHeader header;
  header.bytesPerColor = isCore ? 3 : 4;
  header.width = isCore ? reader.U16() : reader.S32();
  header.height = isCore ? reader.U16() : reader.S32();
  header.isTopDown = header.height < 0;
  if (header.isTopDown) header.height = -header.height;
  reader.U16();  // The number of planes, which is 1.
  header.bitsPerPixel = reader.U16();
  if (!isCore) {
    header.coding = static_cast<DibCoding>(reader.U32());
    reader.Take(12);  // The bytes of the pixels, and the pixels a metre in both directions.
    header.colors = reader.U32();
    reader.U32();  // How many of the colours matter.
  }
  CheckForm(header);
  if (header.colors == 0 && header.bitsPerPixel <= kMostNumberBits) {
    header.colors = std::uint64_t{1} << header.bitsPerPixel;
  }
  ReadMasks(reader, size, header);
  reader.Seek(std::max(reader.Position(), start + size));
  return header;
}

ColorTable ReadDibColors(std::span<const Byte> bytes, const DibHeader& header) {
  if (header.bitsPerPixel > kMostNumberBits) return {};
  const std::uint64_t count = std::min({header.colors, std::uint64_t{1} << header.bitsPerPixel,
                                        std::uint64_t{bytes.size()} / header.bytesPerColor});
  std::vector<std::uint32_t> colors;
  for (std::uint64_t i = 0; i < count; ++i) {
    colors.push_back(NumberOf(bytes.subspan(i * header.bytesPerColor, 3)));
  }
  return ColorTable(std::move(colors));
}

Picture ReadDibPixels(ByteReader& reader, const DibHeader& header, const ColorTable& colors) {
  if (!HasRuns(header.coding)) {
    CheckPictureSize(header.width, header.height);
    return ReadPlainPixels(reader, header, colors);
  }
  CheckCodedPictureSize(header.width, header.height, reader.Left());
  Picture picture = WhitePicture(header.width, header.height);
  ReadRuns(reader, header.bitsPerPixel, colors, picture);
  return picture;
}

}  // namespace quenzel7::loomis2
