#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/numbers.h"
#include "bench/ratios.h"
#include "platform/automation/array.h"
#include "platform/corvane1/color_service.h"
#include "platform/gdi/bitmap.h"
#include "platform/gdi/owned.h"
#include "platform/loomis2/bitmap_picture.h"
#include "platform/loomis2/file_image_library.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::bench {

#ifdef QUENZEL7_IMAGEMAGICK
namespace {

using loomis2::Picture;

constexpr Long kWidth = 1920, kHeight = 1080;

/// What a camera might see: light that fades over the picture, round things of many colours with a bright
/// and a dark side, and grain.
Picture Photograph() {
  struct Ball {
    double x, y, radius, color[3];
  };
  Numbers numbers;
  std::vector<Ball> balls;
  for (int i = 0; i < 40; ++i) {
    Ball ball{static_cast<double>(numbers.Between(0, kWidth)),
              static_cast<double>(numbers.Between(0, kHeight)),
              static_cast<double>(numbers.Between(30, 240)),
              {}};
    for (double& channel : ball.color) channel = numbers.Between(10, 245);
    balls.push_back(ball);
  }
  Picture picture{kWidth, kHeight, {}};
  for (Long y = 0; y < kHeight; ++y) {
    for (Long x = 0; x < kWidth; ++x) {
      const double across = static_cast<double>(x) / kWidth, down = static_cast<double>(y) / kHeight;
      double color[] = {200 - 120 * down + 30 * std::sin(5 * across), 150 + 60 * across - 70 * down,
                        110 + 120 * down * across};
      for (const Ball& ball : balls) {
        const double dx = (x - ball.x) / ball.radius, dy = (y - ball.y) / ball.radius;
        const double light = 1 - dx * dx - dy * dy;
        if (light < 0) continue;
        for (int c = 0; c < 3; ++c)
          color[c] = ball.color[c] * (0.4 + 0.6 * std::sqrt(light) - 0.3 * (dx + dy));
      }
      std::uint32_t pixel = 0;
      for (const double channel : color) {
        const int grain = numbers.Between(-5, 5) + numbers.Between(-5, 5);
        pixel =
            pixel << 8 | static_cast<std::uint32_t>(std::clamp(static_cast<int>(channel) + grain, 0, 255));
      }
      picture.pixels.push_back(pixel);
    }
  }
  return picture;
}

/// A portable pixmap of 8 bits a channel.
void Write(const std::string& path, const Picture& picture) {
  std::string bytes =
      "P6\n" + std::to_string(picture.width) + " " + std::to_string(picture.height) + "\n255\n";
  for (const std::uint32_t pixel : picture.pixels) {
    for (const int shift : {16, 8, 0}) bytes.push_back(static_cast<char>(pixel >> shift & 0xFF));
  }
  std::ofstream(path, std::ios::binary) << bytes;
}

Picture Read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string form;
  int most = 0;
  Picture picture;
  file >> form >> picture.width >> picture.height >> most;
  file.get();
  if (form != "P6" || most != 255) throw std::runtime_error(path + " is no picture of 8 bits a channel");
  std::vector<char> bytes(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height) *
                          3);
  if (!file.read(bytes.data(), static_cast<std::streamsize>(bytes.size())))
    throw std::runtime_error(path + " is cut off");
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const auto channel = [&](std::size_t c) { return std::uint32_t{static_cast<Byte>(bytes[i + c])}; };
    picture.pixels.push_back(channel(0) << 16 | channel(1) << 8 | channel(2));
  }
  return picture;
}

/// The processor time that the program takes, on one thread.
double SecondsOfImageMagick(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), QUENZEL7_IMAGEMAGICK);
  std::vector<char*> words;
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  char oneThread[] = "MAGICK_THREAD_LIMIT=1", *environment[] = {oneThread, nullptr};
  pid_t child = 0;
  int status = 0;
  rusage usage{};
  if (posix_spawn(&child, words[0], nullptr, nullptr, words.data(), environment) != 0 ||
      wait4(child, &status, 0, &usage) != child || status != 0) {
    throw std::runtime_error("ImageMagick failed");
  }
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// CIELAB by the book, so that neither side measures itself.
struct Lab {
  explicit Lab(std::uint32_t color) {
    const auto light = [&](int shift) {
      const double part = (color >> shift & 0xFF) / 255.0;
      return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const double red = light(16), green = light(8), blue = light(0);
    const auto root = [](double value) {
      return value > 216.0 / 24389 ? std::cbrt(value) : (24389.0 / 27 * value + 16) / 116;
    };
    const double x = root((0.4124564 * red + 0.3575761 * green + 0.1804375 * blue) / 0.95047);
    const double y = root(0.2126729 * red + 0.7151522 * green + 0.0721750 * blue);
    const double z = root((0.0193339 * red + 0.1191920 * green + 0.9503041 * blue) / 1.08883);
    lightness = 116 * y - 16;
    a = 500 * (x - y);
    b = 200 * (y - z);
  }
  double lightness, a, b;
};

double MeanError(const Picture& picture, const Picture& reduced) {
  double sum = 0;
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    const Lab one(picture.pixels[i]), other(reduced.pixels[i]);
    sum += std::hypot(one.lightness - other.lightness, one.a - other.a, one.b - other.b);
  }
  return sum / static_cast<double>(picture.pixels.size());
}

struct Way {
  loomis2::ConversionMode mode;
  std::string name;
  std::vector<std::string> options;
};

}  // namespace

std::vector<Ratio> ReductionRatios() {
  constexpr int kTurns = 5;
  const test::TemporaryFolder folder;
  const std::string source = folder.File("source.ppm"), colors = folder.File("colors.ppm"),
                    reduced = folder.File("reduced.ppm");
  const Picture picture = Photograph();
  Write(source, picture);
  const automation::Variant palette = corvane1::PaletteColorService().GetPalette();
  Picture all{static_cast<Long>(palette.Elements().Size()), 1, {}};
  for (const Long color : palette.Elements().Cells<Long>())
    all.pixels.push_back(gdi::SwapRedAndBlue(static_cast<std::uint32_t>(color)));
  Write(colors, all);
  const gdi::OwnedBitmap bitmap(loomis2::BitmapOf(picture));

  std::vector<Ratio> ratios;
  const Way ways[] = {{loomis2::kNearestColor, "nearest colours", {"+dither"}},
                      {loomis2::kErrorDiffusion, "error diffusion", {"-dither", "FloydSteinberg"}}};
  for (const Way& way : ways) {
    std::vector<std::string> remap{source};
    remap.insert(remap.end(), way.options.begin(), way.options.end());
    remap.insert(remap.end(), {"-remap", colors, reduced});
    std::vector<double> first, again, theirs;
    std::vector<Byte> pixels;
    for (int turn = 0; turn < kTurns; ++turn) {
      loomis2::FileImageLibrary library(nullptr);
      const auto reduce = [&] {
        Long crc = 0;
        library.ConvertBitmapTo8bpp(way.mode, bitmap.Get(), palette, kWidth, kHeight, pixels, crc);
      };
      first.push_back(ProcessorSeconds(reduce));
      again.push_back(ProcessorSeconds(reduce));
      theirs.push_back(SecondsOfImageMagick(remap) - SecondsOfImageMagick({source, reduced + "2"}));
    }
    Picture ours{kWidth, kHeight, {}};
    for (const Byte index : pixels) ours.pixels.push_back(all.pixels[index]);
    const std::string name = "reduce 1920x1080 by " + way.name;
    const std::string peer = "ImageMagick -remap " + way.options.front();
    ratios.push_back({name, Median(first) / Median(theirs), 0.2, peer});
    ratios.push_back({name + ", colours known", Median(again) / Median(theirs), kNoLimit, peer});
    ratios.push_back(
        {name + ", CIELAB error", MeanError(picture, ours) / MeanError(picture, Read(reduced)), 1.0, peer});
  }
  return ratios;
}
#else
std::vector<Ratio> ReductionRatios() {
  std::puts("ImageMagick is not there: nothing is measured against it");
  return {};
}
#endif

}  // namespace quenzel7::bench
