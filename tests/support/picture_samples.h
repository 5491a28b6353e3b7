#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/automation/types.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::test {

/// A bitmap as bmp files and icons hold it: header, masks, colours and pixels.
struct DibSample {
  std::int32_t width = 1, height = 1;
  std::uint32_t bits = 24;
  std::vector<Byte> pixels = {};
  std::vector<std::uint32_t> colors = {};
  std::uint32_t header = 40;
  std::uint32_t coding = 0;
  std::vector<std::uint32_t> masks = {};  ///< in the header from byte 40 on, or after one of 40
  std::uint32_t colorsUsed = 0;
};

/// The bytes of a bitmap without those of the file around it.
std::vector<Byte> DibBytes(const DibSample& sample);

/// A bmp file, with so many other bytes before the pixels.
std::vector<Byte> BmpBytes(const DibSample& sample, std::uint32_t gap = 0);

/// An icon (type 1) or cursor (type 2) file of these pictures.
std::vector<Byte> IconBytes(std::uint32_t type, const std::vector<std::vector<Byte>>& pictures);

/// The rows of a picture from the top down, in hexadecimal: "FF0000 0000FF / FFFFFF 000000".
std::string Shown(const loomis2::Picture& picture);

/// Expects that every beginning of a file is refused by error 481, or is the picture that the whole file is.
void ExpectNoBeginningIsAnotherPicture(std::span<const Byte> file);

}  // namespace quenzel7::test
