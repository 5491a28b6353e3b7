#include "hosts/cli/base64.h"

#include <gtest/gtest.h>

namespace quenzel7::cli {
namespace {

using Bytes = std::vector<Byte>;

TEST(Base64, IsThatOfItsPublishedSamples) {
  const std::pair<const char*, const char*> samples[] = {
      {"", ""},
      {"f", "Zg=="},
      {"fo", "Zm8="},
      {"foo", "Zm9v"},
      {"foob", "Zm9vYg=="},
      {"fooba", "Zm9vYmE="},
      {"foobar", "Zm9vYmFy"},
  };
  for (const auto& [text, coded] : samples) {
    const std::string letters = text;
    const Bytes bytes(letters.begin(), letters.end());
    EXPECT_EQ(Base64Of(bytes), coded);
    EXPECT_EQ(BytesOfBase64(coded), bytes);
  }
}

TEST(Base64, HoldsEveryByteAndUsesEveryDigit) {
  Bytes bytes;
  for (int value = 0; value < 256; ++value) bytes.push_back(static_cast<Byte>(value));
  EXPECT_EQ(BytesOfBase64(Base64Of(bytes)), bytes);
  EXPECT_EQ(Base64Of({0x00, 0x10, 0x83, 0xFB, 0xEF, 0xBE, 0xFF, 0xFF, 0xFF}), "ABCD++++////");
}

TEST(Base64, ATextThatIsNoneGivesNothing) {
  for (const char* text :
       {"Zg", "Zg=", "Zg===", "=", "Zh==", "Zm9=", "Z m9v", "Zm9v\n", "Zm-v", "Zg==Zg=="}) {
    EXPECT_EQ(BytesOfBase64(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace quenzel7::cli
