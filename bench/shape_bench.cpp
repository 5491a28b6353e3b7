#include <algorithm>
#include <cstdlib>

#include "bench/canvas.h"
#include "bench/numbers.h"
#include "bench/picture_difference.h"
#include "bench/ratios.h"

namespace quenzel7::bench {
namespace {

constexpr int kWidth = kPageWidth, kHeight = kPageHeight;
constexpr int kSmallest = 20, kLargest = 200;
constexpr int kOfEachKind = 100, kOnThePage = 1000;

using Kind = Figure::Kind;

/// A figure of a page element's usual size somewhere on the page, solid and with a thin pen.
Figure Anywhere(Numbers& numbers, Kind kind) {
  const int width = numbers.Between(kSmallest, kLargest), height = numbers.Between(kSmallest, kLargest);
  const int left = numbers.Between(0, kWidth - width), top = numbers.Between(0, kHeight - height);
  Figure figure{kind, left, top, left + width, top + height, 1, numbers.Color(), numbers.Color()};
  if (figure.IsLine() && numbers.Between(0, 1) == 1) std::swap(figure.left, figure.right);
  return figure;
}

std::vector<Figure> Thin(Kind kind) {
  Numbers numbers;
  std::vector<Figure> figures;
  for (int i = 0; i < kOfEachKind; ++i) figures.push_back(Anywhere(numbers, kind));
  return figures;
}

std::vector<Figure> Wide(Kind kind) {
  std::vector<Figure> figures = Thin(kind);
  int index = 0;
  for (Figure& figure : figures) figure.penWidth = 2 + index++ % 6;
  return figures;
}

std::vector<Figure> Hatched(Kind kind) {
  std::vector<Figure> figures = Thin(kind);
  int index = 0;
  for (Figure& figure : figures) {
    figure.fill = 0x006000;
    figure.hatch = index++ * kHatches / kOfEachKind;
  }
  return figures;
}

std::vector<Figure> Hollow(Kind kind) {
  std::vector<Figure> figures = Wide(kind);
  for (Figure& figure : figures) figure.isHollow = true;
  return figures;
}

std::vector<Figure> Large(Kind kind, int penWidth) {
  return {{kind, 10, 10, kWidth - 10, kHeight - 10, penWidth, 0x800000, 0x20C0C0}};
}

/// What a crowded page shows: all kinds, some of them hatched, some with a wide pen.
std::vector<Figure> MixedPage() {
  Numbers numbers;
  std::vector<Figure> figures;
  for (int i = 0; i < kOnThePage; ++i) {
    Figure figure = Anywhere(numbers, static_cast<Kind>(i % 6));
    if (i / 6 % 4 == 1) figure.penWidth = numbers.Between(2, 7);
    if (i / 6 % 4 == 2) {
      figure.fill = 0x006000;
      figure.hatch = i * kHatches / kOnThePage;
    }
    figures.push_back(figure);
  }
  return figures;
}

struct Work {
  std::string name;
  std::vector<Figure> figures;
};

std::vector<Work> Works() {
  return {{"FillRect", Thin(Kind::kFill)},
          {"FillRect, hatched", Hatched(Kind::kFill)},
          {"Rectangle", Thin(Kind::kRectangle)},
          {"Rectangle, hatched", Hatched(Kind::kRectangle)},
          {"Rectangle, wide pen", Wide(Kind::kRectangle)},
          {"Rectangle, wide pen, hollow", Hollow(Kind::kRectangle)},
          {"Ellipse", Thin(Kind::kEllipse)},
          {"Ellipse, hatched", Hatched(Kind::kEllipse)},
          {"Ellipse, wide pen", Wide(Kind::kEllipse)},
          {"Ellipse, wide pen, hollow", Hollow(Kind::kEllipse)},
          {"Ellipse, large", Large(Kind::kEllipse, 1)},
          {"Ellipse, large, wide pen", Large(Kind::kEllipse, 5)},
          {"RoundRect", Thin(Kind::kRoundRect)},
          {"RoundRect, hatched", Hatched(Kind::kRoundRect)},
          {"RoundRect, wide pen", Wide(Kind::kRoundRect)},
          {"line", Thin(Kind::kLine)},
          {"line, wide pen", Wide(Kind::kLine)},
          {"line, flat ends", Thin(Kind::kFlatLine)},
          {"line, flat ends, wide pen", Wide(Kind::kFlatLine)},
          {"line, across the page", Large(Kind::kLine, 1)},
          {"line, across the page, wide pen", Large(Kind::kLine, 5)},
          {"StrokeAndFillPath", Thin(Kind::kArrow)},
          {"StrokeAndFillPath, hatched", Hatched(Kind::kArrow)},
          {"StrokeAndFillPath, wide pen", Wide(Kind::kArrow)},
          {"StrokeAndFillPath, large", Large(Kind::kArrow, 1)}};
}

void AddAgainst(const Peer& peer, std::vector<Ratio>& ratios) {
  double worst = 0;
  const auto measure = [&](const Work& work, int turns, double limit) {
    const auto ours = MakeGdiCanvas(kWidth, kHeight), theirs = peer.make(kWidth, kHeight);
    const auto draw = [&] { ours->Draw(work.figures); };
    const auto drawTheirs = [&] { theirs->Draw(work.figures); };
    ratios.push_back({work.name, TimeRatio(turns, 3, draw, drawTheirs), limit, peer.name});
    worst = std::max(worst, Difference(ours->Pixels(), theirs->Pixels()));
  };
  constexpr int kTurns = 41, kPageTurns = 41;
  for (const Work& work : Works()) measure(work, kTurns, 1.0);
  const double pageLimit = peer.name == "cairo" ? 0.25 : 0.5;
  measure({"page of 1,000 mixed shapes", MixedPage()}, kPageTurns, pageLimit);
  ratios.push_back(
      {"most that two pictures of these differ", worst, 5, "percent of the pixels, " + peer.name});
}

}  // namespace

std::vector<Ratio> ShapeRatios() {
  std::vector<Ratio> ratios;
  for (const Peer& peer : Peers()) {
    if (peer.make) AddAgainst(peer, ratios);
  }
  return ratios;
}

}  // namespace quenzel7::bench
