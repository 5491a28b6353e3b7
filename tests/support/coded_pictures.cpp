#include "tests/support/coded_pictures.h"

#include <gif_lib.h>
#include <png.h>
#include <zlib.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
// The library's header needs those of the language before it.
#include <jpeglib.h>

#include <span>

#include "tests/support/file_bytes.h"

namespace quenzel7::test {
namespace {

/// First the mean of all, then the coefficients: all in one scan, or each to its last bit but one, then the
/// last bits.
std::vector<jpeg_scan_info> Scans(int count) {
  std::vector<jpeg_scan_info> scans{{1, {0}, 0, 0, 0, 0}};
  if (count == 2) return {scans.front(), {1, {0}, 1, 63, 0, 0}};
  for (int i = 1; i < count; ++i) {
    const int coefficient = (i - 1) % 63 + 1, refined = (i - 1) / 63;
    scans.push_back({1, {0}, coefficient, coefficient, refined, 1 - refined});
  }
  return scans;
}

int TakeGifBytes(GifFileType* gif, const GifByteType* bytes, int count) {
  static_cast<FileBytes*>(gif->UserData)->Append({bytes, static_cast<std::size_t>(count)});
  return count;
}

/// A table of as many colours as the format can have: a power of two.
ColorMapObject* MapOf(const std::vector<std::uint32_t>& colors) {
  if (colors.empty()) return nullptr;
  int count = 2;
  while (count < static_cast<int>(colors.size())) count *= 2;
  std::vector<GifColorType> map(static_cast<std::size_t>(count));
  std::transform(colors.begin(), colors.end(), map.begin(), [](std::uint32_t color) {
    return GifColorType{static_cast<GifByteType>(color >> 16), static_cast<GifByteType>(color >> 8),
                        static_cast<GifByteType>(color)};
  });
  return GifMakeMapObject(count, map.data());
}

void TakePngBytes(png_structp png, png_bytep bytes, png_size_t count) {
  static_cast<FileBytes*>(png_get_io_ptr(png))->Append({bytes, count});
}

}  // namespace

std::vector<Byte> JpegBytes(const JpegSample& sample) {
  struct Colors {
    J_COLOR_SPACE given, kept;
    int components;
  };
  constexpr Colors kColors[] = {{JCS_GRAYSCALE, JCS_GRAYSCALE, 1},
                                {JCS_RGB, JCS_YCbCr, 3},
                                {JCS_RGB, JCS_RGB, 3},
                                {JCS_CMYK, JCS_CMYK, 4},
                                {JCS_CMYK, JCS_YCCK, 4}};
  const Colors& colors = kColors[static_cast<std::size_t>(sample.kind)];
  jpeg_compress_struct jpeg{};
  jpeg_error_mgr errors{};
  jpeg.err = jpeg_std_error(&errors);
  jpeg_create_compress(&jpeg);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&jpeg, &bytes, &size);
  jpeg.image_width = sample.width;
  jpeg.image_height = sample.height;
  jpeg.input_components = colors.components;
  jpeg.in_color_space = colors.given;
  jpeg_set_defaults(&jpeg);
  jpeg_set_colorspace(&jpeg, colors.kept);
  jpeg_set_quality(&jpeg, 100, TRUE);
  for (int i = 0; i < jpeg.num_components; ++i) {
    jpeg.comp_info[i].h_samp_factor = jpeg.comp_info[i].v_samp_factor = 1;
  }
  if (sample.areColorsHalved) jpeg.comp_info[0].h_samp_factor = jpeg.comp_info[0].v_samp_factor = 2;
  jpeg.write_Adobe_marker = sample.hasAdobeMarker ? TRUE : FALSE;
  const std::vector<jpeg_scan_info> scans = Scans(sample.scans);
  if (sample.scans != 0) {
    jpeg.scan_info = scans.data();
    jpeg.num_scans = sample.scans;
  }
  jpeg_start_compress(&jpeg, TRUE);
  if (!sample.exif.empty()) {
    jpeg_write_marker(&jpeg, JPEG_APP0 + 1, sample.exif.data(), static_cast<unsigned>(sample.exif.size()));
  }
  const std::size_t rowBytes = sample.samples.size() / sample.height;
  for (std::size_t y = 0; y < sample.height; ++y) {
    JSAMPROW row = const_cast<Byte*>(&sample.samples[y * rowBytes]);
    jpeg_write_scanlines(&jpeg, &row, 1);
  }
  jpeg_finish_compress(&jpeg);
  jpeg_destroy_compress(&jpeg);
  const std::vector<Byte> file(bytes, bytes + size);
  std::free(bytes);
  return file;
}

std::vector<Byte> Squares(const std::vector<std::vector<Byte>>& colors) {
  FileBytes bytes;
  for (int y = 0; y < 8; ++y) {
    for (const std::vector<Byte>& color : colors) {
      for (int x = 0; x < 8; ++x) bytes.Append(color);
    }
  }
  return bytes.Bytes();
}

std::vector<Byte> GifBytes(const GifSample& sample) {
  FileBytes bytes;
  GifFileType* const gif = EGifOpen(&bytes, &TakeGifBytes, nullptr);
  EGifSetGifVersion(gif, true);
  ColorMapObject* const colors = MapOf(sample.colors);
  ColorMapObject* const ownColors = MapOf(sample.ownColors);
  EGifPutScreenDesc(gif, sample.width, sample.height, 8, 0, colors);
  if (sample.transparent) {
    const GraphicsControlBlock description{DISPOSAL_UNSPECIFIED, false, 0, *sample.transparent};
    GifByteType block[4];
    EGifGCBToExtension(&description, block);
    EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, sizeof block, block);
  }
  EGifPutImageDesc(gif, sample.left, sample.top, sample.frameWidth, sample.frameHeight, sample.isInterlaced,
                   ownColors);
  std::vector<Byte> pixels = sample.pixels;
  constexpr int kFirst[] = {0, 4, 2, 1}, kStep[] = {8, 8, 4, 2};
  for (std::size_t pass = 0; pass < (sample.isInterlaced ? 4u : 1u); ++pass) {
    const int step = sample.isInterlaced ? kStep[pass] : 1;
    for (int y = kFirst[pass]; y < sample.frameHeight; y += step) {
      EGifPutLine(gif, &pixels[static_cast<std::size_t>(y * sample.frameWidth)], sample.frameWidth);
    }
  }
  EGifCloseFile(gif, nullptr);
  GifFreeMapObject(colors);
  GifFreeMapObject(ownColors);
  return bytes.Bytes();
}

std::vector<Byte> PngBytes(const PngSample& sample) {
  FileBytes bytes;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(png, &bytes, &TakePngBytes, nullptr);
  png_set_IHDR(png, info, sample.width, sample.height, sample.bits, sample.colorType, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  std::vector<png_color> colors;
  for (const std::uint32_t color : sample.colors) {
    colors.push_back({static_cast<png_byte>(color >> 16), static_cast<png_byte>(color >> 8),
                      static_cast<png_byte>(color)});
  }
  if (!colors.empty()) png_set_PLTE(png, info, colors.data(), static_cast<int>(colors.size()));
  png_write_info(png, info);
  const std::size_t rowBytes = sample.rows.size() / sample.height;
  for (std::size_t y = 0; y < sample.height; ++y) png_write_row(png, &sample.rows[y * rowBytes]);
  png_write_end(png, nullptr);
  png_destroy_write_struct(&png, &info);
  return bytes.Bytes();
}

std::vector<Byte> PngHeader(std::uint32_t width, std::uint32_t height) {
  FileBytes header;
  header.Append({'I', 'H', 'D', 'R'});
  for (const std::uint32_t measure : {width, height}) {
    for (const int shift : {24, 16, 8, 0}) header.U8(measure >> shift);
  }
  header.Append({8, 6, 0, 0, 0});
  const auto check =
      static_cast<std::uint32_t>(crc32(0, header.Bytes().data(), static_cast<unsigned>(header.Size())));
  FileBytes bytes;
  bytes.Append({0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13}).Append(header.Bytes());
  for (const int shift : {24, 16, 8, 0}) bytes.U8(check >> shift);
  return bytes.Append({0, 0, 0, 0, 'I', 'D', 'A', 'T'}).Bytes();
}

}  // namespace quenzel7::test
