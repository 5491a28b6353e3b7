#include "platform/png/png_encoder.h"

#include <png.h>

#include <csetjmp>
#include <exception>
#include <new>

namespace quenzel7::png {
namespace {

constexpr std::size_t kBytesPerPixel = 3;

std::vector<png_byte> EnlargedRow(std::span<const std::uint32_t> pixels, int scale) {
  std::vector<png_byte> row;
  row.reserve(pixels.size() * static_cast<std::size_t>(scale) * kBytesPerPixel);
  for (const std::uint32_t pixel : pixels) {
    for (int copy = 0; copy < scale; ++copy) {
      for (const int shift : {16, 8, 0}) row.push_back(static_cast<png_byte>(pixel >> shift));
    }
  }
  return row;
}

/// The library's structures of one picture. The library leaves a call that fails by a jump to the last
/// setjmp, so whoever calls it does so from a function without objects of its own.
class PngStream {
 public:
  explicit PngStream(const ByteSink& sink)
      : sink_(sink), png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, &Leave, &Ignore)) {
    if (png_) info_ = png_create_info_struct(png_);
  }
  PngStream(const PngStream&) = delete;
  PngStream& operator=(const PngStream&) = delete;
  ~PngStream() { png_destroy_write_struct(&png_, &info_); }

  bool Begin(png_uint_32 width, png_uint_32 height) {
    if (!info_) return false;
    if (setjmp(png_jmpbuf(png_))) return false;
    png_set_write_fn(png_, this, &Write, &Flush);
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

  /// Throws what made a call fail: the sink's own exception, or else that there was no memory.
  [[noreturn]] void Raise() const {
    if (failure_) std::rethrow_exception(failure_);
    throw std::bad_alloc();
  }

 private:
  /// In place of the library's own handlers, which write to standard error.
  [[noreturn]] static void Leave(png_structp png, png_const_charp) { png_longjmp(png, 1); }
  static void Ignore(png_structp, png_const_charp) {}
  static void Flush(png_structp) {}

  static void Write(png_structp png, png_bytep bytes, std::size_t count) {
    if (!static_cast<PngStream*>(png_get_io_ptr(png))->Take(bytes, count)) png_error(png, "");
  }
  /// Exceptions cannot pass through the library.
  bool Take(png_const_bytep bytes, std::size_t count) noexcept {
    try {
      sink_({bytes, count});
      return true;
    } catch (...) {
      failure_ = std::current_exception();
      return false;
    }
  }

  const ByteSink& sink_;
  std::exception_ptr failure_;
  png_structp png_;
  png_infop info_ = nullptr;
};

}  // namespace

void EncodePng(const PixelView& picture, int scale, const ByteSink& sink) {
  PngStream png(sink);
  const auto require = [&png](bool done) {
    if (!done) png.Raise();
  };
  const auto enlarged = [scale](std::int32_t size) { return static_cast<png_uint_32>(size * scale); };
  require(png.Begin(enlarged(picture.width), enlarged(picture.height)));
  const auto width = static_cast<std::size_t>(picture.width);
  for (std::size_t start = 0; start < picture.pixels.size(); start += width) {
    const std::vector<png_byte> row = EnlargedRow(picture.pixels.subspan(start, width), scale);
    for (int copy = 0; copy < scale; ++copy) require(png.Row(row.data()));
  }
  require(png.End());
}

std::vector<Byte> EncodePng(const PixelView& picture, int scale) {
  std::vector<Byte> file;
  EncodePng(picture, scale,
            [&file](std::span<const Byte> bytes) { file.insert(file.end(), bytes.begin(), bytes.end()); });
  return file;
}

}  // namespace quenzel7::png
