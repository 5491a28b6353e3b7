#include "platform/loomis2/run_length.h"

#include <algorithm>
#include <cstdint>

namespace quenzel7::loomis2 {
namespace {

/// What the second byte says where the first is 0; all others are the number of pixels that follow.
enum Escape : Byte { kEndOfRow = 0, kEndOfBitmap = 1, kSkip = 2 };

class RunReader {
 public:
  RunReader(ByteReader& reader, int bitsPerPixel, const ColorTable& colors, Picture& picture)
      : reader_(reader), bitsPerPixel_(bitsPerPixel), colors_(colors), picture_(picture) {}

  void Read() {
    while (!IsDone()) {
      const Byte count = reader_.U8(), second = reader_.U8();
      if (count != 0) {
        Repeat(count, second);
      } else if (second == kEndOfBitmap) {
        return;
      } else {
        Follow(second);
      }
    }
  }

 private:
  /// Whether nothing that follows can paint anything.
  bool IsDone() const {
    return row_ >= picture_.height || (row_ == picture_.height - 1 && x_ >= picture_.width);
  }

  void Follow(Byte escape) {
    if (escape == kEndOfRow) {
      x_ = 0;
      ++row_;
    } else if (escape == kSkip) {
      x_ += reader_.U8();
      row_ += reader_.U8();
    } else {
      // A whole number of pairs of bytes.
      const int bytes = (escape * bitsPerPixel_ + 15) / 16 * 2;
      Paint(escape, reader_.Take(static_cast<std::uint64_t>(bytes)));
    }
  }

  /// Two pixels of four bits are painted in turn.
  void Repeat(int count, Byte pixels) {
    const int room = RoomFor(count);
    for (int i = 0; i < room; ++i) PaintOne(bitsPerPixel_ == 8 ? pixels : Half(pixels, i));
  }
  void Paint(int count, std::span<const Byte> pixels) {
    const int room = RoomFor(count);
    for (int i = 0; i < room; ++i) {
      const auto at = static_cast<std::size_t>(i);
      PaintOne(bitsPerPixel_ == 8 ? pixels[at] : Half(pixels[at / 2], i));
    }
  }

  /// How many of so many pixels the row has room for.
  int RoomFor(int count) const {
    return static_cast<int>(std::clamp<std::int64_t>(picture_.width - x_, 0, count));
  }

  /// The higher half of a byte comes first.
  static std::size_t Half(Byte pair, int i) { return i % 2 == 0 ? pair >> 4 : pair & 0xF; }

  void PaintOne(std::size_t number) {
    const std::int64_t y = picture_.height - 1 - row_;
    picture_.pixels[static_cast<std::size_t>(y * picture_.width + x_++)] = colors_[number];
  }

  ByteReader& reader_;
  int bitsPerPixel_;
  const ColorTable& colors_;
  Picture& picture_;
  std::int64_t x_ = 0, row_ = 0;  ///< from the left and from below
};

}  // namespace

void ReadRuns(ByteReader& reader, int bitsPerPixel, const ColorTable& colors, Picture& picture) {
  RunReader(reader, bitsPerPixel, colors, picture).Read();
}

}  // namespace quenzel7::loomis2
