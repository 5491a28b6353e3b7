#include "framework/library_state.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/image_library_double.h"

namespace quenzel7 {
namespace {

TEST(LibraryStates, BeginEmpty) {
  const LibraryState state;
  EXPECT_EQ(state.CurrentPanelType, 0);
  EXPECT_EQ(state.PanelBackColor, 0);
  EXPECT_EQ(state.PanelValue2, 0);
  EXPECT_EQ(state.StretchMode, 0);
  EXPECT_EQ(state.ImageLibrary, nullptr);
  EXPECT_FALSE(state.ImageResizeFailed);
}

TEST(LibraryStates, AreOneSetPerThread) {
  LibraryState::Current() = {1, 2, 3, 4, std::make_shared<test::ImageLibraryDouble>(), true};
  std::thread([] {
    LibraryState& other = LibraryState::Current();
    EXPECT_EQ(other.CurrentPanelType, 0);
    EXPECT_EQ(other.PanelBackColor, 0);
    EXPECT_EQ(other.PanelValue2, 0);
    EXPECT_EQ(other.StretchMode, 0);
    EXPECT_EQ(other.ImageLibrary, nullptr);
    EXPECT_FALSE(other.ImageResizeFailed);
    other = {5, 6, 7, 8, nullptr, false};
  }).join();
  const LibraryState& state = LibraryState::Current();
  EXPECT_EQ(state.CurrentPanelType, 1);
  EXPECT_EQ(state.PanelBackColor, 2);
  EXPECT_EQ(state.PanelValue2, 3);
  EXPECT_EQ(state.StretchMode, 4);
  EXPECT_NE(state.ImageLibrary, nullptr);
  EXPECT_TRUE(state.ImageResizeFailed);
  LibraryState::Current() = {};
}

}  // namespace
}  // namespace quenzel7
