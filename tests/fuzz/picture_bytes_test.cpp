#include "fuzz/picture_bytes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/loomis2/picture_file.h"
#include "tests/support/raises.h"
#include "tests/support/stored_inputs.h"

namespace quenzel7::fuzz {
namespace {

TEST(ReadAsPicture, StoredInputsKeepEveryPromise) {
  for (const auto& input : test::StoredInputs("picture")) {
    EXPECT_EQ(ReadAsPicture(test::Contents(input)), "") << input.filename();
  }
}

TEST(ReadAsPicture, StoredInputsHoldPicturesOfEveryKind) {
  for (const std::string& mark : {std::string("BM"), std::string("GIF"), std::string("\xFF\xD8\xFF"),
                                  std::string("\0\0\1", 3), std::string("\0\0\2", 3)}) {
    int pictures = 0;
    for (const auto& input : test::StoredInputs("picture")) {
      const std::vector<std::uint8_t> bytes = test::Contents(input);
      const std::string beginning(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(mark.size()));
      if (beginning == mark && test::ErrorOf([&] { loomis2::DecodePicture(bytes); }) == 0) ++pictures;
    }
    EXPECT_GE(pictures, 1) << mark;
  }
}

TEST(ReadAsPicture, KeepsItsPromisesForWhatIsNoPicture) {
  EXPECT_EQ(ReadAsPicture({}), "");
  const std::vector<std::uint8_t> bytes{'B', 'M', 1};
  EXPECT_EQ(ReadAsPicture(bytes), "");
}

}  // namespace
}  // namespace quenzel7::fuzz
