#include "platform/loomis2/jpeg_reader.h"

#include <csetjmp>
#include <cstdio>
// The library's headers need those of the language before them.
#include <jpeglib.h>
// clang-format off
#include <jerror.h>
// clang-format on

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/loomis2/color_table.h"
#include "platform/loomis2/invalid_picture.h"
#include "platform/loomis2/new_picture.h"

namespace quenzel7::loomis2 {
namespace {

/// Scans of the whole picture that a file may hold; a progressive one usually has ten. More could keep the
/// library busy for as long as a file likes.
constexpr int kMostScans = 100;
/// The most pixels in all scans together, as each goes over the whole picture.
constexpr std::int64_t kMostScannedPixels = std::int64_t{1} << 30;
/// The most pixels of a picture in several scans: the library keeps two bytes of each colour of a pixel until
/// the last scan, 128 MiB with four colours.
constexpr std::int64_t kMostPixelsInScans = std::int64_t{16} << 20;

struct JpegErrors : jpeg_error_mgr {
  std::jmp_buf place;
  char message[JMSG_LENGTH_MAX];
};

/// The level of messages that are warnings; others tell what is being done.
constexpr int kWarning = -1;

/// Whether a warning says nothing of the pixels.
bool IsHarmless(int warning) {
  return warning == JWRN_EXTRANEOUS_DATA || warning == JWRN_JFIF_MAJOR || warning == JWRN_ADOBE_XFORM;
}

/// The library's structures of one picture. The library leaves a call that fails by a jump to the last
/// setjmp, so whoever calls it does so from a function without objects that would have to be ended.
class JpegStream {
 public:
  JpegStream() {
    picture_.err = jpeg_std_error(&errors_);
    errors_.error_exit = &Leave;
    errors_.emit_message = &Judge;
    progress_.progress_monitor = &Watch;
  }
  JpegStream(const JpegStream&) = delete;
  JpegStream& operator=(const JpegStream&) = delete;
  ~JpegStream() { jpeg_destroy_decompress(&picture_); }

  const jpeg_decompress_struct& Header() const { return picture_; }
  const char* Message() const { return errors_.message; }
  bool HasSeveralScans() { return jpeg_has_multiple_scans(&picture_) != 0; }

  bool Begin(std::span<const Byte> file) {
    return Try([this, file] {
      jpeg_create_decompress(&picture_);
      picture_.progress = &progress_;
      jpeg_mem_src(&picture_, file.data(), static_cast<unsigned long>(file.size()));
      jpeg_read_header(&picture_, TRUE);
    });
  }
  bool Start(J_COLOR_SPACE colors) {
    return Try([this, colors] {
      picture_.out_color_space = colors;
      jpeg_start_decompress(&picture_);
    });
  }
  bool Row(Byte* row) {
    return Try([this, row]() mutable { jpeg_read_scanlines(&picture_, &row, 1); });
  }
  bool End() {
    return Try([this] { jpeg_finish_decompress(&picture_); });
  }

 private:
  /// Whether the calls were done.
  template <class Calls>
  bool Try(Calls calls) {
    if (setjmp(errors_.place)) return false;
    calls();
    return true;
  }
  [[noreturn]] static void Leave(j_common_ptr picture) {
    auto& errors = *static_cast<JpegErrors*>(picture->err);
    errors.format_message(picture, errors.message);
    std::longjmp(errors.place, 1);
  }
  /// In place of the library's own handler, which writes warnings to standard error.
  static void Judge(j_common_ptr picture, int level) {
    if (level == kWarning && !IsHarmless(picture->err->msg_code)) Leave(picture);
  }
  static void Watch(j_common_ptr picture) {
    auto& errors = *static_cast<JpegErrors*>(picture->err);
    const auto& header = *reinterpret_cast<j_decompress_ptr>(picture);
    const std::int64_t pixels = std::int64_t{header.image_width} * header.image_height;
    const int most = static_cast<int>(std::min<std::int64_t>(kMostScans, kMostScannedPixels / pixels));
    if (header.input_scan_number <= most) return;
    std::snprintf(errors.message, sizeof errors.message, "more than %d scans", most);
    std::longjmp(errors.place, 1);
  }

  jpeg_decompress_struct picture_{};
  JpegErrors errors_{};
  jpeg_progress_mgr progress_{};
};

/// What ink leaves of a colour. Adobe's programs write the ink that is missing, others what is there.
Byte Inked(Byte ink, Byte black, bool isInverted) {
  const int left = isInverted ? ink : 0xFF - ink, lightness = isInverted ? black : 0xFF - black;
  return static_cast<Byte>((left * lightness + 0x7F) / 0xFF);
}

}  // namespace

Picture ReadJpeg(std::span<const Byte> file) {
  JpegStream stream;
  const auto require = [&stream](bool done) {
    if (!done) RefusePicture("the jpg file cannot be read: " + std::string(stream.Message()));
  };
  require(stream.Begin(file));
  const jpeg_decompress_struct& header = stream.Header();
  CheckCodedPictureSize(header.image_width, header.image_height, file.size());
  if (header.arith_code) RefusePicture("the jpg file cannot be read: it is coded by arithmetic");
  const std::int64_t pixels = std::int64_t{header.image_width} * header.image_height;
  if (stream.HasSeveralScans() && pixels > kMostPixelsInScans) {
    RefusePicture("the jpg file cannot be read: " + std::to_string(pixels) +
                  " pixels in several scans, expected at most " + std::to_string(kMostPixelsInScans));
  }
  const bool hasInks = header.jpeg_color_space == JCS_CMYK || header.jpeg_color_space == JCS_YCCK;
  const bool isInverted = header.saw_Adobe_marker != 0;
  require(stream.Start(hasInks ? JCS_CMYK : JCS_RGB));
  Picture picture = WhitePicture(header.image_width, header.image_height);
  const std::size_t step = hasInks ? 4 : 3;
  std::vector<Byte> row(header.image_width * step);
  for (std::size_t at = 0; at < picture.pixels.size();) {
    require(stream.Row(row.data()));
    for (std::size_t i = 0; i < row.size(); i += step) {
      const Byte* const p = &row[i];
      const auto inked = [&](int ink) { return Inked(p[ink], p[3], isInverted); };
      picture.pixels[at++] = hasInks ? PixelOf(inked(0), inked(1), inked(2)) : PixelOf(p[0], p[1], p[2]);
    }
  }
  require(stream.End());
  return picture;
}

}  // namespace quenzel7::loomis2
