#include <algorithm>

#include "bench/canvas.h"
#include "bench/numbers.h"
#include "bench/ratios.h"

namespace quenzel7::bench {
namespace {

struct Place {
  int left, top;
};

/// Some places on the page, for all of the picture or for a part of it.
std::vector<Place> Places(int count, const KeyedPicture& picture) {
  Numbers numbers;
  std::vector<Place> places;
  for (int i = 0; i < count; ++i) {
    places.push_back({numbers.Between(-picture.width / 4, kPageWidth - picture.width * 3 / 4),
                      numbers.Between(-picture.height / 4, kPageHeight - picture.height * 3 / 4)});
  }
  return places;
}

/// A disc of many colours on a ground to be left out, with a hole and some grains of that colour in it.
KeyedPicture Disc(int width, int height) {
  Numbers numbers;
  KeyedPicture picture{width, height, {}, 0xFF00FF};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const double across = (2 * x + 1.0) / width - 1, down = (2 * y + 1.0) / height - 1;
      const double distance = across * across + down * down;
      const bool isLeftOut = distance > 1 || distance < 0.1 || numbers.Between(0, 30) == 0;
      picture.pixels.push_back(isLeftOut ? picture.key : numbers.Color() & ~0x010101u);
    }
  }
  return picture;
}

/// A page with something on every part of it.
std::vector<Figure> Ground() {
  std::vector<Figure> figures;
  constexpr int kStep = 40;
  for (int top = 0; top < kPageHeight; top += kStep) {
    for (int left = 0; left < kPageWidth; left += kStep) {
      const auto color = static_cast<std::uint32_t>(top * 300 + left * 70000) & 0xFFFFFF;
      figures.push_back({Figure::Kind::kFill, left, top, left + kStep, top + kStep, 1, color, color});
    }
  }
  return figures;
}

/// How many pixels differ; this work leaves no room for that.
double Different(std::span<const std::uint32_t> one, std::span<const std::uint32_t> other) {
  double different = 0;
  for (std::size_t i = 0; i < one.size(); ++i) different += ((one[i] ^ other[i]) & 0xFFFFFF) != 0;
  return different;
}

void AddSize(const Peer& peer, int width, int height, int count, std::vector<Ratio>& ratios) {
  constexpr int kTurns = 41, kWarmUps = 3;
  const KeyedPicture picture = Disc(width, height);
  const std::vector<Place> places = Places(count, picture);
  const auto ours = MakeGdiCanvas(kPageWidth, kPageHeight), theirs = peer.make(kPageWidth, kPageHeight);
  for (const auto& canvas : {ours.get(), theirs.get()}) {
    canvas->Draw(Ground());
    canvas->Hold(picture);
  }
  const auto paintOn = [&places](Canvas& canvas, void (Canvas::*paint)(int, int)) {
    return [&canvas, &places, paint] {
      for (const Place& place : places) (canvas.*paint)(place.left, place.top);
    };
  };
  const std::string name = "DrawBitmapTransparent " + std::to_string(width) + "x" + std::to_string(height);
  const auto paint = paintOn(*ours, &Canvas::PaintThroughMask);
  double different = 0;
  const auto measure = [&](void (Canvas::*way)(int, int), double limit, const std::string& how) {
    const double ratio = TimeRatio(kTurns, kWarmUps, paint, paintOn(*theirs, way));
    ratios.push_back({name, ratio, limit, peer.name + how});
    different = std::max(different, Different(ours->Pixels(), theirs->Pixels()));
    theirs->Draw(Ground());
  };
  // The call passes the picture nine times, as it saves and restores it and keeps what it makes in bitmaps;
  // cairo does with a mask and one pass.
  measure(&Canvas::PaintThroughMask, 1.0, ", through a mask made each time");
  measure(&Canvas::PaintWithAlpha, kNoLimit, ", with alpha made by hand each time");
  measure(&Canvas::PaintPrepared, kNoLimit, ", with alpha made once");
  ratios.push_back({name + ", pixels that differ", different, 0, peer.name});
}

}  // namespace

std::vector<Ratio> PictureRatios() {
  std::vector<Ratio> ratios;
  for (const Peer& peer : Peers()) {
    if (!peer.make) continue;
    AddSize(peer, 46, 46, 50, ratios);
    AddSize(peer, 320, 240, 4, ratios);
  }
  return ratios;
}

}  // namespace quenzel7::bench
