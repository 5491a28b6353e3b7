#include "platform/loomis2/gif_reader.h"

#include <gif_lib.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/loomis2/color_table.h"
#include "platform/loomis2/invalid_picture.h"
#include "platform/loomis2/new_picture.h"

namespace quenzel7::loomis2 {
namespace {

[[noreturn]] void RefuseGif(int error) {
  const char* const message = GifErrorString(error);
  RefusePicture("the gif file cannot be read: " +
                (message ? std::string(message) : "error " + std::to_string(error)));
}

/// Hands the bytes of a file to the library.
class GifStream {
 public:
  explicit GifStream(std::span<const Byte> file) : left_(file) {
    int error = D_GIF_SUCCEEDED;
    gif_ = DGifOpen(this, &Hand, &error);
    if (!gif_) RefuseGif(error);
  }
  GifStream(const GifStream&) = delete;
  GifStream& operator=(const GifStream&) = delete;
  ~GifStream() { DGifCloseFile(gif_, nullptr); }

  GifFileType* operator->() const { return gif_; }
  GifFileType* Get() const { return gif_; }

  /// Refuses the file unless a call of the library was done.
  void Require(int status) const {
    if (status != GIF_OK) RefuseGif(gif_->Error);
  }

 private:
  static int Hand(GifFileType* gif, GifByteType* bytes, int count) {
    std::span<const Byte>& left = static_cast<GifStream*>(gif->UserData)->left_;
    const std::size_t handed = std::min(left.size(), static_cast<std::size_t>(count));
    std::copy_n(left.begin(), handed, bytes);
    left = left.subspan(handed);
    return static_cast<int>(handed);
  }

  std::span<const Byte> left_;
  GifFileType* gif_ = nullptr;
};

/// Reads an extension. Where it describes the picture that follows, gives the number of its transparent
/// colour.
int ReadExtension(const GifStream& gif, int transparent) {
  int code = 0;
  GifByteType* block = nullptr;
  gif.Require(DGifGetExtension(gif.Get(), &code, &block));
  while (block) {
    // The first byte of a block is its length.
    GraphicsControlBlock description{};
    if (code == GRAPHICS_EXT_FUNC_CODE && DGifExtensionToGCB(block[0], block + 1, &description) == GIF_OK) {
      transparent = description.TransparentColor;
    }
    gif.Require(DGifGetExtensionNext(gif.Get(), &block));
  }
  return transparent;
}

/// Goes to the description of the first picture, and gives the number of its transparent colour.
int FindPicture(const GifStream& gif) {
  int transparent = NO_TRANSPARENT_COLOR;
  for (;;) {
    GifRecordType type = UNDEFINED_RECORD_TYPE;
    gif.Require(DGifGetRecordType(gif.Get(), &type));
    if (type == IMAGE_DESC_RECORD_TYPE) return transparent;
    if (type == TERMINATE_RECORD_TYPE) RefusePicture("the gif file has no picture");
    transparent = ReadExtension(gif, transparent);
  }
}

/// The colours of the picture that was begun.
ColorTable ColorsOf(const GifStream& gif) {
  const ColorMapObject* const map = gif->Image.ColorMap ? gif->Image.ColorMap : gif->SColorMap;
  if (!map) RefusePicture("the gif file has no colours");
  std::vector<std::uint32_t> colors;
  for (const GifColorType& color : std::span(map->Colors, static_cast<std::size_t>(map->ColorCount))) {
    colors.push_back(PixelOf(color.Red, color.Green, color.Blue));
  }
  return ColorTable(std::move(colors));
}

/// The rows of a picture in the order in which the file has them.
std::vector<int> RowOrder(int height, bool isInterlaced) {
  constexpr std::pair<int, int> kPlain[] = {{0, 1}}, kInterlaced[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
  std::vector<int> order;
  for (const auto& [first, step] :
       isInterlaced ? std::span<const std::pair<int, int>>(kInterlaced) : kPlain) {
    for (int row = first; row < height; row += step) order.push_back(row);
  }
  return order;
}

}  // namespace

Picture ReadGif(std::span<const Byte> file) {
  const GifStream gif(file);
  CheckCodedPictureSize(gif->SWidth, gif->SHeight, file.size());
  const int transparent = FindPicture(gif);
  gif.Require(DGifGetImageDesc(gif.Get()));
  const GifImageDesc& part = gif->Image;
  CheckCodedPictureSize(part.Width, part.Height, file.size());
  const ColorTable colors = ColorsOf(gif);
  Picture picture = WhitePicture(gif->SWidth, gif->SHeight);
  std::vector<Byte> numbers(static_cast<std::size_t>(part.Width));
  for (const int row : RowOrder(part.Height, part.Interlace)) {
    gif.Require(DGifGetLine(gif.Get(), numbers.data(), part.Width));
    const std::int64_t y = part.Top + row;
    for (std::int64_t x = part.Left;
         y < picture.height && x < std::min(part.Left + part.Width, picture.width); ++x) {
      const Byte number = numbers[static_cast<std::size_t>(x - part.Left)];
      if (number == transparent) continue;
      picture.pixels[static_cast<std::size_t>(y * picture.width + x)] = colors[number];
    }
  }
  return picture;
}

}  // namespace quenzel7::loomis2
