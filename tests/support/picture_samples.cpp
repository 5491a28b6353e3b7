#include "tests/support/picture_samples.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "platform/automation/automation_error.h"
#include "platform/loomis2/picture_file.h"
#include "tests/support/file_bytes.h"

namespace quenzel7::test {
namespace {

FileBytes HeaderAndColors(const DibSample& sample) {
  FileBytes bytes;
  const bool isCore = sample.header == 12;
  bytes.U32(sample.header);
  for (const std::int32_t measure : {sample.width, sample.height}) {
    isCore ? bytes.U16(static_cast<std::uint32_t>(measure)) : bytes.U32(static_cast<std::uint32_t>(measure));
  }
  bytes.U16(1).U16(sample.bits);
  if (!isCore) bytes.U32(sample.coding).U32(0).U32(2835).U32(2835).U32(sample.colorsUsed).U32(0);
  for (const std::uint32_t mask : sample.masks) bytes.U32(mask);
  while (bytes.Size() < sample.header) bytes.U8(0x5A);
  for (const std::uint32_t color : sample.colors) {
    bytes.U8(color).U8(color >> 8).U8(color >> 16);
    if (!isCore) bytes.U8(color >> 24);
  }
  return bytes;
}

}  // namespace

std::vector<Byte> DibBytes(const DibSample& sample) {
  return HeaderAndColors(sample).Append(sample.pixels).Bytes();
}

std::vector<Byte> BmpBytes(const DibSample& sample, std::uint32_t gap) {
  FileBytes bytes;
  const FileBytes head = HeaderAndColors(sample);
  const auto pixels = static_cast<std::uint32_t>(14 + head.Size() + gap);
  bytes.U8('B').U8('M').U32(pixels + static_cast<std::uint32_t>(sample.pixels.size())).U32(0).U32(pixels);
  bytes.Append(head.Bytes());
  while (bytes.Size() < pixels) bytes.U8(0xA5);
  return bytes.Append(sample.pixels).Bytes();
}

std::vector<Byte> IconBytes(std::uint32_t type, const std::vector<std::vector<Byte>>& pictures) {
  FileBytes bytes;
  bytes.U16(0).U16(type).U16(static_cast<std::uint32_t>(pictures.size()));
  auto place = static_cast<std::uint32_t>(6 + 16 * pictures.size());
  for (const std::vector<Byte>& picture : pictures) {
    const auto size = static_cast<std::uint32_t>(picture.size());
    // What the directory says of the picture itself is wrong here, so that it cannot matter.
    bytes.U8(7).U8(9).U8(2).U8(0).U16(1).U16(3).U32(size).U32(place);
    place += size;
  }
  for (const std::vector<Byte>& picture : pictures) bytes.Append(picture);
  return bytes.Bytes();
}

std::string Shown(const loomis2::Picture& picture) {
  std::string text;
  const auto width = static_cast<std::size_t>(picture.width);
  EXPECT_EQ(picture.pixels.size(), width * static_cast<std::size_t>(picture.height));
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    char word[16];
    std::snprintf(word, sizeof word, "%06X", picture.pixels[i]);
    text += i == 0 ? "" : i % width == 0 ? " / " : " ";
    text += word;
  }
  return text;
}

void ExpectNoBeginningIsAnotherPicture(std::span<const Byte> file) {
  const std::string whole = Shown(loomis2::DecodePicture(file));
  for (std::size_t size = 0; size < file.size(); ++size) {
    // A copy of its own, so that a sanitizer sees what is read beyond it.
    const std::vector<Byte> beginning(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
    try {
      EXPECT_EQ(Shown(loomis2::DecodePicture(beginning)), whole) << size << " bytes";
    } catch (const automation::AutomationError& error) {
      EXPECT_EQ(error.Number(), 481) << size << " bytes: " << error.Description();
    }
  }
}

}  // namespace quenzel7::test
