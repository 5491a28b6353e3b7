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
      std::size_t begin = 0;
      for (std::size_t i = 0; i < 4; ++i) {
        begin = begin << 8 | static_cast<unsigned char>(bytes_[at + kOffsetInEntry + i]);
      }
      bytes_[begin + offset] = static_cast<char>(value >> 8);
      bytes_[begin + offset + 1] = static_cast<char>(value);
      return *this;
    }
    return *this;
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
  const test::TemporaryFolder folder_;
  std::string bytes_;
};

/// Offsets of numbers in the table "OS/2", of which this font says that the line's are there too.
constexpr std::size_t kAscender = 68, kDescender = 70, kLineGap = 72;
constexpr std::size_t kCellAscent = 74, kCellDescent = 76;

}  // namespace quenzel7::gdi
