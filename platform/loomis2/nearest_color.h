#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "platform/loomis2/lab_color.h"
#include "platform/loomis2/panel_pixels.h"

namespace quenzel7::loomis2 {

/// Finds the colour of a panel that looks nearest to a colour, exactly as a comparison with each of them
/// would.
///
/// The cube of all colours is cut into cells, and these into smaller ones. When a cell is first asked for it
/// is found out which colours can be the nearest in it at all, among those that can be in the cell
/// around it; in the smallest cells the answers are then kept, once and for all where there is only one.
/// One object serves one thread.
class NearestColor {
 public:
  /// 1 to 256 colours.
  explicit NearestColor(PanelColors colors);

  const PanelColors& Colors() const { return colors_; }
  /// The index of the colour at the least distance from a colour 0x00RRGGBB; of several the first.
  Byte Of(std::uint32_t color) {
    const std::uint32_t number = NumberOf(color);
    std::uint32_t& answers = answers_[number / kCellColors];
    if (answers == kUnknown) [[unlikely]]
      answers = AnswersFor(color);
    return given_[answers + number % kCellColors];
  }

 private:
  static constexpr int kCoarseBits = 3, kFineBits = 6;
  static constexpr std::uint32_t kUnknown = 0xFFFFFFFF;
  /// The colours of a smallest cell.
  static constexpr std::uint32_t kCellColors = 1u << 3 * (8 - kFineBits);

  /// Indices of colours in ascending order; at first none.
  struct Candidates {
    std::uint32_t begin = 0, count = 0;
  };

  /// A channel's bits with two more between each.
  static constexpr auto kSpread = [] {
    std::array<std::uint32_t, 256> spread{};
    for (std::uint32_t value = 0; value < spread.size(); ++value) {
      for (int bit = 0; bit < 8; ++bit) spread[value] |= (value >> bit & 1) << 3 * bit;
    }
    return spread;
  }();
  /// The number of a colour when the bits of the channels take turns, the highest first: the colours of a
  /// cell follow one another, and so do the cells in a larger one.
  static constexpr std::uint32_t NumberOf(std::uint32_t color) {
    return kSpread[color >> 16 & 0xFF] << 2 | kSpread[color >> 8 & 0xFF] << 1 | kSpread[color & 0xFF];
  }
  /// Those among the candidates that can be nearest somewhere in the cell, added to the lists.
  Candidates CandidatesIn(const LabCell& cell, Candidates around);
  template <int kBits>
  Candidates CandidatesAt(std::uint32_t color);
  /// Where the answers begin for the smallest cell of a colour.
  std::uint32_t AnswersFor(std::uint32_t color);
  std::uint32_t GiveAnswers(std::uint32_t color, const LabCell& cell, Candidates candidates);
  Byte NearestAmong(Candidates candidates, const LabColor& lab) const;

  PanelColors colors_;
  std::vector<LabColor> labs_;
  /// The indices of all candidates.
  std::vector<Byte> lists_;
  std::array<std::vector<Candidates>, kFineBits - kCoarseBits> cells_;
  /// Where the answers of each smallest cell begin among those given.
  std::vector<std::uint32_t> answers_;
  /// First the answers of a cell for each index alone.
  std::vector<Byte> given_;
};

}  // namespace quenzel7::loomis2
