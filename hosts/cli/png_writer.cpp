#include "hosts/cli/png_writer.h"

#include <png.h>

#include <cerrno>
#include <csetjmp>
#include <string>
#include <vector>

#include "hosts/cli/replaced_file.h"
#include "hosts/cli/user_error.h"

namespace quenzel7::cli {
namespace {

constexpr std::size_t kBytesPerPixel = 3;

std::vector<png_byte> EnlargedRow(const std::uint32_t* pixels, std::int32_t width, int scale) {
  std::vector<png_byte> row;
  row.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(scale) * kBytesPerPixel);
  for (std::int32_t x = 0; x < width; ++x) {
    for (int copy = 0; copy < scale; ++copy) {
      for (const int shift : {16, 8, 0}) row.push_back(static_cast<png_byte>(pixels[x] >> shift));
    }
  }
  return row;
}

/// The library's structures of one picture. The library leaves a call that fails by a jump to the last
/// setjmp, so whoever calls it does so from a function without objects of its own.
class PngStream {
 public:
  PngStream() : png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, &Leave, &Ignore)) {
    if (png_) info_ = png_create_info_struct(png_);
  }
  PngStream(const PngStream&) = delete;
  PngStream& operator=(const PngStream&) = delete;
  ~PngStream() { png_destroy_write_struct(&png_, &info_); }

  bool Begin(std::FILE* file, png_uint_32 width, png_uint_32 height) {
    if (!info_) return false;
    if (setjmp(png_jmpbuf(png_))) return false;
    png_init_io(png_, file);
    png_set_IHDR(png_, info_, width, height, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png_, info_);
    return true;
  }
  bool Row(const png_byte* row) {
    if (setjmp(png_jmpbuf(png_))) return false;
    png_write_row(png_, row);
    return true;
  }
  bool End() {
    if (setjmp(png_jmpbuf(png_))) return false;
    png_write_end(png_, nullptr);
    return true;
  }

 private:
  /// In place of the library's own handlers, which write to standard error.
  [[noreturn]] static void Leave(png_structp png, png_const_charp) { png_longjmp(png, 1); }
  static void Ignore(png_structp, png_const_charp) {}

  png_structp png_;
  png_infop info_ = nullptr;
};

}  // namespace

void WritePng(const std::string& path, const Picture& picture, int scale) {
  ReplacedFile file(path, PicturePlace(path));
  const auto require = [&file](bool done) {
    if (!done) file.Raise(errno == 0 ? ENOMEM : errno);
  };
  errno = 0;
  const auto enlarged = [scale](std::int32_t size) { return static_cast<png_uint_32>(size * scale); };
  {
    PngStream png;
    require(png.Begin(file.Stream(), enlarged(picture.width), enlarged(picture.height)));
    for (std::int32_t y = 0; y < picture.height; ++y) {
      const auto start = static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width);
      const std::vector<png_byte> row = EnlargedRow(picture.pixels.data() + start, picture.width, scale);
      for (int copy = 0; copy < scale; ++copy) require(png.Row(row.data()));
    }
    require(png.End());
  }
  file.Commit();
}

}  // namespace quenzel7::cli
