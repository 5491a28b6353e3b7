#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/gdi/types.h"

namespace quenzel7::bench {

/// One figure as an element draws it: with a pen and a brush of its own.
struct Figure {
  enum class Kind { kFill, kRectangle, kEllipse, kRoundRect, kLine, kArrow };
  static constexpr int kNoHatch = -1;

  Kind kind;
  /// Of a line its two ends, of all others the box, right and bottom edge out.
  int left, top, right, bottom;
  int penWidth;
  std::uint32_t line, fill;  ///< 0x00RRGGBB
  int hatch = kNoHatch;      ///< painted in `fill`, its gaps white

  /// The diameter of a rounded rectangle's corners.
  int Corner() const;
  /// The corners of an arrow that points to the right.
  std::array<gdi::POINT, 7> Corners() const;
};

constexpr std::uint32_t kPaper = 0xFFFFFF;
constexpr int kHatches = 6;

/// The rows of a hatch from the top, leftmost pixel in the highest bit.
std::array<std::uint8_t, 8> HatchRows(int hatch);

/// Something that draws figures on a picture of 32 bits a pixel, without smoothing edges.
class Canvas {
 public:
  Canvas() = default;
  virtual ~Canvas() = default;
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  /// Makes a pen and a brush for each figure, and gives them up after it.
  virtual void Draw(std::span<const Figure> figures) = 0;
  /// Rows from the top, 0xXXRRGGBB.
  virtual std::span<const std::uint32_t> Pixels() = 0;
};

/// A drawing library by its name; `make` is empty if the program was built without it.
struct Peer {
  std::string name;
  std::function<std::unique_ptr<Canvas>(int width, int height)> make;
};

std::unique_ptr<Canvas> MakeGdiCanvas(int width, int height);
/// The libraries that others draw with.
std::vector<Peer> Peers();

}  // namespace quenzel7::bench
