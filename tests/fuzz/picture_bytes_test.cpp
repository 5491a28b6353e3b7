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
    EXPECT_EQ(ReadAsPicture(&loomis2::DecodePicture, test::Contents(input)), "") << input.filename();
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
  EXPECT_EQ(ReadAsPicture(&loomis2::DecodePicture, {}), "");
  const std::vector<std::uint8_t> bytes{'B', 'M', 1};
  EXPECT_EQ(ReadAsPicture(&loomis2::DecodePicture, bytes), "");
}

/// What is wrong with what a decoder makes of no bytes.
std::string Complaint(PictureDecoder decode) { return ReadAsPicture(decode, {}); }

using loomis2::Picture;
using Bytes = std::span<const Byte>;

TEST(ReadAsPicture, HandsTheBytesToTheDecoder) {
  const std::vector<std::uint8_t> bytes{5};
  const auto decode = [](Bytes file) { return Picture{1, 1, {file.empty() ? 0xFF000000u : file.front()}}; };
  EXPECT_EQ(ReadAsPicture(decode, bytes), "");
  EXPECT_EQ(Complaint(decode), "a pixel has three colours and no more");
}

TEST(ReadAsPicture, ComplainsOfPicturesWithoutPixels) {
  EXPECT_EQ(Complaint([](Bytes) { return Picture{1, 1, {0}}; }), "");
  EXPECT_EQ(Complaint([](Bytes) { return Picture{0, 1, {}}; }), "a picture has at least one pixel");
  EXPECT_EQ(Complaint([](Bytes) { return Picture{1, 0, {}}; }), "a picture has at least one pixel");
}

TEST(ReadAsPicture, ComplainsOfOtherNumbersOfPixels) {
  constexpr auto kComplaint = "a picture has as many pixels as its measures say";
  EXPECT_EQ(Complaint([](Bytes) { return Picture{3, 2, std::vector<std::uint32_t>(6)}; }), "");
  EXPECT_EQ(Complaint([](Bytes) { return Picture{3, 2, std::vector<std::uint32_t>(5)}; }), kComplaint);
  EXPECT_EQ(Complaint([](Bytes) { return Picture{3, 2, std::vector<std::uint32_t>(7)}; }), kComplaint);
}

TEST(ReadAsPicture, ComplainsOfPixelsThatAreNoColors) {
  EXPECT_EQ(Complaint([](Bytes) { return Picture{2, 1, {0xFFFFFF, 0}}; }), "");
  EXPECT_EQ(Complaint([](Bytes) {
              return Picture{2, 1, {0, 0x1000000}};
            }),
            "a pixel has three colours and no more");
}

TEST(ReadAsPicture, ComplainsOfOtherErrorsAndOfEmptyOnes) {
  using automation::AutomationError;
  using automation::ErrorNumber;
  EXPECT_EQ(Complaint([](Bytes) -> Picture { throw AutomationError(ErrorNumber::InvalidPicture, "why"); }),
            "");
  EXPECT_EQ(Complaint([](Bytes) -> Picture { throw AutomationError(ErrorNumber::OutOfMemory, "why"); }),
            "a picture is refused by its number");
  EXPECT_EQ(Complaint([](Bytes) -> Picture { throw AutomationError(ErrorNumber::InvalidPicture, ""); }),
            "an error says what is wrong");
}

}  // namespace
}  // namespace quenzel7::fuzz
