#include "hosts/cli/image_setup.h"

#include <gtest/gtest.h>

#include "hosts/cli/project_session.h"
#include "platform/platform.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

TEST(ImageSetup, GivesTheLibraryTheColoursOfThePanelForAsLongAsItLives) {
  Platform::Current() = Platform();
  LibraryState::Current() = {};
  {
    const ImageSetup setup;
    const auto& library = LibraryState::Current().ImageLibrary;
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(library->Name(), "Quenzel7");
    EXPECT_EQ(library->Palette(), automation::Variant(Platform::Current().colorService->GetPalette()));
  }
  EXPECT_EQ(LibraryState::Current().ImageLibrary, nullptr);
}

TEST(ImageSetup, WhatWasSetUpBeforeComesBack) {
  LibraryState::Current() = {};
  const ImageSetup outer;
  UsePanel(2);
  const auto before = LibraryState::Current().ImageLibrary;
  {
    const ImageSetup inner;
    EXPECT_NE(LibraryState::Current().ImageLibrary, before);
    UsePanel(1);
    EXPECT_EQ(LibraryState::Current().CurrentPanelType, 1);
  }
  EXPECT_EQ(LibraryState::Current().ImageLibrary, before);
  EXPECT_EQ(LibraryState::Current().CurrentPanelType, 2);
}

TEST(ImageSetup, EveryOpenProjectHasIt) {
  const quenzel7::test::TemporaryFolder folder;
  LibraryState::Current() = {};
  {
    const ProjectSession session(folder.File("p.qz7"), corvane1::ProjectMode::Create);
    EXPECT_NE(LibraryState::Current().ImageLibrary, nullptr);
  }
  EXPECT_EQ(LibraryState::Current().ImageLibrary, nullptr);
}

}  // namespace
}  // namespace quenzel7::cli
