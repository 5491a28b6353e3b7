#include "framework/position.h"

#include <gtest/gtest.h>

#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::DescriptionOf;
using test::ErrorOf;

constexpr Long kSubscript = 9;

TEST(Position, StartsWithAllFourDescriptorsAtZero) {
  const Position position;
  for (Long index = 1; index <= 4; ++index) EXPECT_EQ(position.At(index), Descriptor{}) << index;
}

TEST(Position, CopyCopiesAllFourNumbersAndOnlyTheOneDescriptor) {
  Position position;
  position.At(3) = {1, 2, 3, 4};
  position.Copy(3, 2);
  EXPECT_EQ(position.At(2), (Descriptor{1, 2, 3, 4}));
  EXPECT_EQ(position.At(1), Descriptor{});
  EXPECT_EQ(position.At(4), Descriptor{});
}

TEST(Position, IndicesOutside1To4RaiseTheSubscriptError) {
  Position position;
  for (const Long index : {0, 5, -1, 2147483647}) {
    EXPECT_EQ(ErrorOf([&] { position.At(index); }), kSubscript) << index;
    EXPECT_EQ(ErrorOf([&] { position.Copy(index, 1); }), kSubscript) << index;
    EXPECT_EQ(ErrorOf([&] { position.Copy(1, index); }), kSubscript) << index;
  }
  EXPECT_EQ(DescriptionOf([&] { position.At(5); }), "descriptor 5 was asked for, there are 1 to 4");
}

TEST(Position, SetAllSetsOneNumberOfEveryDescriptor) {
  Position position;
  position.At(3) = {1, 2, 3, 4};
  position.SetAll(&Descriptor::dx, 9);
  EXPECT_EQ(position.At(1), (Descriptor{0, 0, 9, 0}));
  EXPECT_EQ(position.At(2), (Descriptor{0, 0, 9, 0}));
  EXPECT_EQ(position.At(3), (Descriptor{1, 2, 9, 4}));
  EXPECT_EQ(position.At(4), (Descriptor{0, 0, 9, 0}));
}

}  // namespace
}  // namespace quenzel7
