#include "tests/hosts/cli/golden.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "hosts/cli/png_writer.h"
#include "tests/hosts/cli/png_reader.h"

namespace quenzel7::cli::test {

void ExpectGolden(const Picture& picture, const std::string& name) {
  const std::string path = QUENZEL7_TEST_DATA "/golden/" + name + ".png";
  const char* renew = std::getenv("QUENZEL7_RENEW_GOLDENS");
  if (renew && std::string(renew) == "1") WritePng(path, picture);
  const Picture expected = ReadPng(path);
  const std::size_t differing = DifferingPixels(picture, expected);
  if (differing == 0) return;
  Picture shown = picture;
  for (std::size_t index = 0; index < shown.pixels.size(); ++index) {
    const std::uint32_t pixel = picture.pixels[index];
    const bool same = index < expected.pixels.size() && expected.pixels[index] == pixel;
    const std::uint32_t grey = 0xC0 + ((pixel >> 8 & 0xFF) >> 2);
    shown.pixels[index] = same ? grey * 0x010101u : 0xFF0000u;
  }
  WritePng(name + "_difference.png", shown);
  ADD_FAILURE() << differing << " pixels differ from " << path << "; see " << name << "_difference.png";
}

}  // namespace quenzel7::cli::test
