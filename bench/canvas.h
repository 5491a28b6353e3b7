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
  /// A line has round ends, or flat ones.
  enum class Kind { kFill, kRectangle, kEllipse, kRoundRect, kLine, kArrow, kFlatLine };
  static constexpr int kNoHatch = -1;

  Kind kind;
  /// Of a line its two ends, of all others the box, right and bottom edge out.
  int left, top, right, bottom;
  int penWidth;
  std::uint32_t line, fill;  ///< 0x00RRGGBB
  int hatch = kNoHatch;      ///< painted in `fill`, its gaps white
  bool isHollow = false;     ///< without a body

  bool IsLine() const { return kind == Kind::kLine || kind == Kind::kFlatLine; }
  /// The measures of the ellipses in a rounded rectangle's corners: half those of the box.
  int CornerWidth() const { return (right - left) / 2; }
  int CornerHeight() const { return (bottom - top) / 2; }
  /// The corners of an arrow that points to the right.
  std::array<gdi::POINT, 7> Corners() const;
};

/// A line of text as an element draws it: in a font and on a box of its own.
struct TextLine {
  int left, top;
  std::string text;
  std::uint32_t ink, paper;  ///< 0x00RRGGBB
};

/// The font of all lines, in black and white without shades.
constexpr const char* kTextFace = "DejaVu Sans";
constexpr int kTextSize = 14;  ///< pixels from line to line as the face's designer meant it

/// A picture whose pixels of one colour are left out when it is painted.
struct KeyedPicture {
  int width, height;
  std::vector<std::uint32_t> pixels;  ///< rows from the top, 0x00RRGGBB
  std::uint32_t key;
};

constexpr int kPageWidth = 800, kPageHeight = 480;
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
  /// Makes the font for each line, and gives it up after it.
  virtual void Write(std::span<const TextLine> lines) = 0;

  /// Holds a picture in the library's own form, for the three that follow.
  virtual void Hold(const KeyedPicture& picture) = 0;
  /// Makes a mask by the key colour, with what the library has for that, and paints the picture through it.
  virtual void PaintThroughMask(int left, int top) = 0;
  /// Makes a picture with alpha by the key colour, in one pass by hand, and paints that.
  virtual void PaintWithAlpha(int left, int top) = 0;
  /// Paints a picture with alpha that was made when the picture was handed over.
  virtual void PaintPrepared(int left, int top) = 0;

  /// Rows from the top, 0xXXRRGGBB.
  virtual std::span<const std::uint32_t> Pixels() = 0;
};

/// Figures that are hit as one.
using HitGroup = std::span<const Figure>;

/// A drawing library by its name. What it has no way for, or the program was built without, is empty.
struct Peer {
  std::string name;
  std::function<std::unique_ptr<Canvas>(int width, int height)> make;
  /// How many of the groups have a figure with the point in its box (of a line: near the line) and in the
  /// figure itself. The groups are asked anew each time, as nothing of the last question is kept.
  std::function<int(std::span<const HitGroup> groups, gdi::POINT point)> countHits;
};

std::unique_ptr<Canvas> MakeGdiCanvas(int width, int height);
/// The libraries that others draw with.
std::vector<Peer> Peers();

}  // namespace quenzel7::bench
