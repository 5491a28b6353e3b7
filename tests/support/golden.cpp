#include "tests/support/golden.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quenzel7::test {

void ExpectGolden(const Pixels& painted, const std::string& name) {
  const std::string path = QUENZEL7_TEST_DATA "/golden/" + name + ".png";
  const char* renew = std::getenv("QUENZEL7_RENEW_GOLDENS");
  if (renew && std::string(renew) == "1") {
    EXPECT_TRUE(WritePngFile(path, painted)) << path;
  }
  const Pixels expected = ReadPngFile(path);
  const bool sameSize = painted.width == expected.width && painted.height == expected.height;
  EXPECT_TRUE(sameSize) << painted.width << " by " << painted.height << " pixels instead of "
                        << expected.width << " by " << expected.height << " of " << path;
  Pixels shown = painted;
  std::size_t differing = 0;
  for (std::size_t index = 0; index < shown.words.size(); ++index) {
    const std::uint32_t word = painted.words[index];
    const bool same = sameSize && expected.words[index] == word;
    differing += !same;
    const std::uint32_t grey = 0xC0 + ((word >> 8 & 0xFF) >> 2);
    shown.words[index] = same ? grey * 0x010101u : 0xFF0000u;
  }
  if (differing == 0) return;
  WritePngFile(name + "_difference.png", shown);
  ADD_FAILURE() << differing << " pixels differ from " << path << "; see " << name << "_difference.png";
}

}  // namespace quenzel7::test
