#pragma once

#include <cstdint>

namespace quenzel7::gdi {

/// The truth table of a raster code: bit (4*pattern + 2*source + target).
constexpr std::uint8_t RasterTable(std::uint32_t code) { return static_cast<std::uint8_t>(code >> 16); }

constexpr bool NeedsSource(std::uint8_t table) { return ((table >> 2 ^ table) & 0x33) != 0; }
constexpr bool NeedsPattern(std::uint8_t table) { return ((table >> 4 ^ table) & 0x0F) != 0; }

/// A raster operation with the pattern worked in. Every function of two bits is
/// `constant ^ (s & source) ^ (d & target) ^ (s & d & both)`, so four words serve all 256 operations
/// and the loop over the pixels has no branch.
struct RasterTerms {
  std::uint32_t constant, source, target, both;

  constexpr RasterTerms(std::uint8_t table, std::uint32_t pattern)
      : constant(Corner(table, pattern, 0)),
        source(Corner(table, pattern, 2) ^ constant),
        target(Corner(table, pattern, 1) ^ constant),
        both(Corner(table, pattern, 3) ^ constant ^ source ^ target) {}

  constexpr std::uint32_t operator()(std::uint32_t s, std::uint32_t d) const {
    return constant ^ (s & source) ^ (d & target) ^ (s & d & both);
  }

  /// The same operation on the bits of `mask` only, for pixels that do not fill their word. Bits
  /// outside come out 0.
  constexpr RasterTerms Masked(std::uint32_t mask) const {
    RasterTerms terms = *this;
    terms.constant &= mask;
    terms.source &= mask;
    terms.target &= mask;
    terms.both &= mask;
    return terms;
  }

  /// This operation on some of the bits and another one on others, each masked to its own.
  constexpr RasterTerms And(const RasterTerms& other) const {
    RasterTerms terms = *this;
    terms.constant |= other.constant;
    terms.source |= other.source;
    terms.target |= other.target;
    terms.both |= other.both;
    return terms;
  }

  /// An operation on the lowest byte, on each of the four.
  constexpr RasterTerms FourTimes() const {
    constexpr std::uint32_t kEach = 0x01010101;
    RasterTerms terms = *this;
    terms.constant *= kEach;
    terms.source *= kEach;
    terms.target *= kEach;
    terms.both *= kEach;
    return terms;
  }

 private:
  static constexpr std::uint32_t Corner(std::uint8_t table, std::uint32_t pattern, int sourceAndTarget) {
    const std::uint32_t where1 = (table >> (4 + sourceAndTarget) & 1) != 0 ? pattern : 0;
    const std::uint32_t where0 = (table >> sourceAndTarget & 1) != 0 ? ~pattern : 0;
    return where1 | where0;
  }
};

}  // namespace quenzel7::gdi
