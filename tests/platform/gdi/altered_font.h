#pragma once

#include <cstddef>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/gdi/font_catalog.h"
#include "tests/platform/gdi/font_samples.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::gdi {

/// A copy of Unifont in which single numbers are changed, for what no font at hand shows.
class AlteredUnifont {
 public:
  AlteredUnifont() {
    const FaceInfo& unifont = *FontCatalog::OfMachine().Ranked(Described("Unifont", 16)).front();
    std::ifstream file(unifont.file, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(file), {});
  }

  /// Puts a number of 16 bits at an offset of one of the tables.
  AlteredUnifont& Put(const std::string& table, std::size_t offset, int value) {
    constexpr std::size_t kDirectory = 12, kEntrySize = 16, kOffsetInEntry = 8;
    for (std::size_t at = kDirectory; at < 1000; at += kEntrySize) {
      if (bytes_.compare(at, 4, table) != 0) continue;
      const std::size_t begin = NumberAt(bytes_, at + kOffsetInEntry);
      bytes_[begin + offset] = static_cast<char>(value >> 8);
      bytes_[begin + offset + 1] = static_cast<char>(value);
      return *this;
    }
    return *this;
  }

  const std::string& Bytes() const { return bytes_; }

  /// The font twice in a file of several fonts, whose tables lie behind a header.
  std::string Collection() const {
    using namespace std::string_literals;
    constexpr std::size_t kHeader = 20, kDirectory = 12, kEntrySize = 16, kOffsetInEntry = 8;
    std::string moved = bytes_;
    const std::size_t tables = static_cast<unsigned char>(bytes_[5]);
    for (std::size_t i = 0; i < tables; ++i) {
      const std::size_t at = kDirectory + i * kEntrySize + kOffsetInEntry;
      PutNumber(moved, at, NumberAt(moved, at) + kHeader);
    }
    return "ttcf\0\1\0\0\0\0\0\2\0\0\0\x14\0\0\0\x14"s + moved;
  }

  FontCatalog Catalog() const {
    FaceInfo info;
    info.families = {"Altered"};
    info.file = folder_.File("altered.otf");
    std::ofstream(info.file, std::ios::binary) << bytes_;
    FontCatalog catalog;
    catalog.faces = {info};
    return catalog;
  }

 private:
  static std::size_t NumberAt(const std::string& bytes, std::size_t at) {
    std::size_t number = 0;
    for (std::size_t i = 0; i < 4; ++i) number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    return number;
  }
  static void PutNumber(std::string& bytes, std::size_t at, std::size_t number) {
    for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(number >> (24 - 8 * i));
  }

  const test::TemporaryFolder folder_;
  std::string bytes_;
};

/// Offsets of numbers in the table "OS/2", of which this font says that the line's are there too.
constexpr std::size_t kWeightClass = 4, kWidthClass = 6, kSelection = 62;
constexpr std::size_t kAscender = 68, kDescender = 70, kLineGap = 72;
constexpr std::size_t kCellAscent = 74, kCellDescent = 76;

}  // namespace quenzel7::gdi
