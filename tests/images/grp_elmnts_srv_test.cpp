#include "images/grp_elmnts_srv.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>

#include "framework/library_state.h"
#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"
#include "platform/platform.h"
#include "tests/support/image_fixture.h"
#include "tests/support/image_library_double.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::Variant;
using Lines = std::vector<std::string>;

/// What a panel service or an image library finds set when it is called.
std::string StateLine() {
  const LibraryState& state = LibraryState::Current();
  return std::to_string(state.CurrentPanelType) + " " + std::to_string(state.PanelBackColor) + " " +
         std::to_string(state.PanelValue2) + " " + std::to_string(state.StretchMode);
}

Variant Palette(Long first) {
  automation::Array colors = automation::Array::OfSize(automation::VariantKind::Long, 1);
  colors.Set(0, first);
  return colors;
}

/// Notes the state in which it is asked.
class NotingPanels final : public corvane1::PanelService {
 public:
  bool fails = false;
  Lines seen;

  corvane1::PanelValues SelectPanel(Long panelType) override {
    seen.push_back(std::to_string(panelType) + " in " + StateLine());
    if (fails) throw automation::AutomationError(automation::ErrorNumber::Overflow, "no panel");
    return {panelType + 100, panelType + 200};
  }
  Long CurrentPanelType() override { return 0; }
  corvane1::PanelModel Model(Long) override { return {}; }
};

/// Notes what it is given, and whether it is the thread's library then.
class NotingLibrary final : public test::ImageLibraryDouble {
 public:
  Lines given;
  std::string failsAt;

  std::string Name() const override { return {}; }
  void Name(const std::string& name) override { Note("name", name); }
  std::string Folder() const override { return {}; }
  void Folder(const std::string& folder) override { Note("folder", folder); }
  Variant Palette() const override { return {}; }
  void Palette(const Variant& palette) override {
    Note("palette", automation::To<std::string>(palette.Elements().At(0)));
  }

 private:
  void Note(const std::string& what, const std::string& value) {
    const bool isCurrent = LibraryState::Current().ImageLibrary.get() == this;
    given.push_back(what + " " + value + (isCurrent ? "" : " too early"));
    if (what == failsAt) throw automation::AutomationError(automation::ErrorNumber::Overflow, "no " + what);
  }
};

class FixedApplication final : public corvane1::Application {
  std::string Path() override { return "C:\\Plant\\Bin"; }
};

class LibraryServiceObject : public ::testing::Test {
 protected:
  void SetUp() override { Forget(); }
  void TearDown() override { Forget(); }
  static void Forget() {
    Platform::Current() = Platform();
    LibraryState::Current() = {};
  }
  /// Has the service object use this library.
  static void Use(const std::shared_ptr<NotingLibrary>& library) {
    Platform::Current().newImageLibrary = [library] { return library; };
    Platform::Current().application = std::make_shared<FixedApplication>();
  }

  clsGrpElmntsSrv service_;
};

TEST_F(LibraryServiceObject, HasThisSurfaceInSlotOrder) {
  EXPECT_EQ(service_.Class().name, "clsGrpElmntsSrv");
  ASSERT_EQ(service_.Class().interfaces.size(), 1u);
  EXPECT_EQ(service_.Class().Default().Name(), "_clsGrpElmntsSrv");
  EXPECT_EQ(service_.Class().Default().Slots(),
            (Lines{"call ChangeHMIPanel(Long)", "call InitImageLibrary(String, ByRef Variant)",
                   "get ImageLibrary() As ImageLibrary", "call GetCRCsOfVarImages(Long, Long) As Long()",
                   "call GetImageData8bppByCRC(Long) As Byte()", "call GetImageLibCRC(Long) As Long",
                   "call GetImagePathFromDB(Long) As String",
                   "call GetImageOriginalDimansions(Long, ByRef Long, ByRef Long)",
                   "call SaveToDbForBimaryHandler(Long, enVarType, ByRef Collection, Long, Long)"}));
}

TEST_F(LibraryServiceObject, ItsMembersAreDocumentedAndUnmarked) {
  Lines words;
  for (const automation::Member& member : service_.Class().Default().Members()) {
    words.push_back(std::string(member.name) + ": " + std::string(member.documentation));
    EXPECT_EQ(member.mark, automation::Mark::None) << member.name;
  }
  EXPECT_EQ(words,
            (Lines{"ChangeHMIPanel: Sets the panel that the project is for.",
                   "InitImageLibrary: Makes the image library with its name and the panel's colours, "
                   "an array of Long.",
                   "ImageLibrary: The image library; none until it is made.",
                   "GetCRCsOfVarImages: The picture for each index of a variable; -1 where it has none.",
                   "GetImageData8bppByCRC: The panel pixels of a picture.",
                   "GetImageLibCRC: 8209 whatever the picture.",
                   "GetImagePathFromDB: The file that a picture came from.",
                   "GetImageOriginalDimansions: A picture's own size; both -1 when there is none.",
                   "SaveToDbForBimaryHandler: Saves the pictures of a variable's list."}));
}

// The panel.

TEST_F(LibraryServiceObject, ChangingThePanelSetsItsValuesAndTheStretchMode) {
  const struct {
    Long type, backColor, value2, stretchMode;
  } cases[] = {{1, 8, 9, 1}, {2, 9, 8, 2}, {3, 8, 9, 1}, {14, 8, 9, 1}};
  for (const auto& expected : cases) {
    service_.ChangeHMIPanel(expected.type);
    const LibraryState& state = LibraryState::Current();
    EXPECT_EQ(state.CurrentPanelType, expected.type);
    EXPECT_EQ(state.PanelBackColor, expected.backColor);
    EXPECT_EQ(state.PanelValue2, expected.value2);
    EXPECT_EQ(state.StretchMode, expected.stretchMode);
    EXPECT_EQ(Platform::Current().panelService->CurrentPanelType(), expected.type);
  }
}

TEST_F(LibraryServiceObject, TheTypeIsStoredBeforeThePanelServiceIsAskedAndTheRestAfter) {
  const auto panels = std::make_shared<NotingPanels>();
  Platform::Current().panelService = panels;
  service_.ChangeHMIPanel(2);
  EXPECT_EQ(panels->seen, Lines{"2 in 2 0 0 0"});
  EXPECT_EQ(StateLine(), "2 102 202 2");
  service_.ChangeHMIPanel(7);
  EXPECT_EQ(panels->seen.back(), "7 in 7 102 202 2");
  EXPECT_EQ(StateLine(), "7 107 207 1");
}

TEST_F(LibraryServiceObject, APanelServiceThatFailsLeavesAllButTheType) {
  const auto panels = std::make_shared<NotingPanels>();
  Platform::Current().panelService = panels;
  service_.ChangeHMIPanel(2);
  panels->fails = true;
  EXPECT_RAISES(6, "no panel", service_.ChangeHMIPanel(3));
  EXPECT_EQ(StateLine(), "3 102 202 2");
}

TEST_F(LibraryServiceObject, AnyPanelTypeIsTakenAndOneWithoutAModelIsBlackOnWhite) {
  for (const Long type : {0, 15, 99, -1}) {
    service_.ChangeHMIPanel(2);
    service_.ChangeHMIPanel(type);
    EXPECT_EQ(StateLine(), std::to_string(type) + " 8 9 1");
    EXPECT_EQ(Platform::Current().panelService->CurrentPanelType(), type);
  }
}

// The image library.

TEST_F(LibraryServiceObject, HasNoImageLibraryAtFirst) {
  EXPECT_EQ(service_.ImageLibrary(), nullptr);
  const Variant none = automation::GetByName(service_, "ImageLibrary");
  ASSERT_TRUE(none.IsObject());
  EXPECT_EQ(none.Object(), nullptr);
}

TEST_F(LibraryServiceObject, TheImageLibraryIsSetBeforeItIsGivenNameFolderAndPalette) {
  const auto library = std::make_shared<NotingLibrary>();
  Use(library);
  Variant palette = Palette(5);
  service_.InitImageLibrary("plant", palette);
  EXPECT_EQ(library->given, (Lines{"name plant", "folder C:\\Plant\\Bin\\..\\Data\\Images\\", "palette 5"}));
  EXPECT_EQ(service_.ImageLibrary(), library);
  EXPECT_EQ(LibraryState::Current().ImageLibrary, library);
}

TEST_F(LibraryServiceObject, AFailureLeavesTheImageLibraryWithWhatItGotUntilThen) {
  const auto library = std::make_shared<NotingLibrary>();
  Use(library);
  library->failsAt = "folder";
  Variant palette = Palette(5);
  EXPECT_RAISES(6, "no folder", service_.InitImageLibrary("plant", palette));
  EXPECT_EQ(library->given.size(), 2u);
  EXPECT_EQ(service_.ImageLibrary(), library);
}

TEST_F(LibraryServiceObject, TheEmbeddedImageLibraryHoldsWhatItWasGiven) {
  Variant palette = Palette(5);
  service_.InitImageLibrary("plant", palette);
  const auto library = service_.ImageLibrary();
  ASSERT_NE(library, nullptr);
  EXPECT_EQ(library->Name(), "plant");
  EXPECT_EQ(library->Folder(), Platform::Current().application->Path() + R"(\..\Data\Images\)");
  EXPECT_EQ(library->Palette(), Palette(5));
  EXPECT_EQ(palette, Palette(5));
}

TEST_F(LibraryServiceObject, ANewImageLibraryReplacesTheEarlierOne) {
  Variant palette = Palette(5);
  service_.InitImageLibrary("first", palette);
  const std::weak_ptr<loomis2::ImageLibrary> first = service_.ImageLibrary();
  service_.InitImageLibrary("second", palette);
  EXPECT_TRUE(first.expired());
  EXPECT_EQ(service_.ImageLibrary()->Name(), "second");
}

TEST_F(LibraryServiceObject, EveryPaletteButARowOfLongsIsATypeMismatch) {
  Variant numbers[] = {Variant(), Variant(Long{5}),
                       automation::Array::OfSize(automation::VariantKind::Integer, 1),
                       automation::Array::OfSize(automation::VariantKind::Variant, 1)};
  for (Variant& palette : numbers) {
    EXPECT_RAISES(13, "a palette is an array of 32-bit integers of one dimension",
                  service_.InitImageLibrary("plant", palette));
  }
}

TEST_F(LibraryServiceObject, APaletteThatIsNoneIsAnErrorAfterNameAndFolder) {
  Variant palette("red");
  EXPECT_EQ(test::ErrorOf([&] { service_.InitImageLibrary("plant", palette); }), 13);
  EXPECT_EQ(service_.ImageLibrary()->Name(), "plant");
  EXPECT_EQ(service_.ImageLibrary()->Palette(), Variant());
}

TEST_F(LibraryServiceObject, WithoutALibraryToBeHadTheEarlierOneStays) {
  Variant palette = Palette(5);
  service_.InitImageLibrary("first", palette);
  Platform::Current().newImageLibrary = [] { return nullptr; };
  EXPECT_RAISES(429, "the image library cannot be created", service_.InitImageLibrary("second", palette));
  EXPECT_EQ(service_.ImageLibrary()->Name(), "first");
}

TEST_F(LibraryServiceObject, WithoutAMakerOfLibrariesTheEarlierOneStays) {
  Variant palette = Palette(5);
  service_.InitImageLibrary("first", palette);
  Platform::Current().newImageLibrary = nullptr;
  EXPECT_RAISES(429, "the image library cannot be created", service_.InitImageLibrary("second", palette));
  EXPECT_EQ(service_.ImageLibrary()->Name(), "first");
}

TEST_F(LibraryServiceObject, AFailureInMakingALibraryLeavesTheEarlierOne) {
  Variant palette = Palette(5);
  service_.InitImageLibrary("first", palette);
  Platform::Current().newImageLibrary = []() -> loomis2::ImageLibraryRef {
    throw automation::AutomationError(automation::ErrorNumber::OutOfMemory, "no room");
  };
  EXPECT_RAISES(7, "no room", service_.InitImageLibrary("second", palette));
  EXPECT_EQ(service_.ImageLibrary()->Name(), "first");
}

TEST_F(LibraryServiceObject, AProgramWithoutAFolderLeavesTheImageLibraryWithItsName) {
  class Nowhere final : public corvane1::Application {
    std::string Path() override {
      throw automation::AutomationError(automation::ErrorNumber::PathNotFound, "no folder");
    }
  };
  const auto library = std::make_shared<NotingLibrary>();
  Use(library);
  Platform::Current().application = std::make_shared<Nowhere>();
  Variant palette = Palette(5);
  EXPECT_RAISES(76, "no folder", service_.InitImageLibrary("plant", palette));
  EXPECT_EQ(library->given, Lines{"name plant"});
  EXPECT_EQ(service_.ImageLibrary(), library);
}

// Together.

TEST_F(LibraryServiceObject, StartsWorkAsTheDocumentationShows) {
  clsGrpElmntsSrv service;
  service.ChangeHMIPanel(7);
  automation::Variant palette = Platform::Current().colorService->GetPalette();
  service.InitImageLibrary("plant", palette);
  EXPECT_EQ(StateLine(), "7 8 9 1");
  EXPECT_EQ(service.ImageLibrary()->Name(), "plant");
  const Variant kept = service.ImageLibrary()->Palette();
  ASSERT_EQ(kept.Elements().Size(), 256u);
  EXPECT_EQ(kept.Elements().At(8), Variant(Long{0xFFFFFF}));
  EXPECT_EQ(kept.Elements().At(9), Variant(Long{0x000000}));
}

TEST(StartingWork, StandsInTheDocumentationAsItIsRunHere) {
  const auto textOf = [](const char* path) {
    std::ifstream file(path);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  const std::string section = "## Starting work\n", fence = "```cpp\n";
  const std::string document = textOf(QUENZEL7_SOURCE_DIR "/docs/host-services.md");
  const auto begin = document.find(fence, document.find(section)) + fence.size();
  std::istringstream shown(document.substr(begin, document.find("```", begin) - begin));
  std::string body, line;
  while (std::getline(shown, line)) body += "  " + line + "\n";
  const std::string test = "StartsWorkAsTheDocumentationShows) {\n" + body + "  EXPECT_EQ(StateLine()";
  EXPECT_NE(textOf(QUENZEL7_SOURCE_DIR "/tests/images/grp_elmnts_srv_test.cpp").find(test), std::string::npos)
      << body;
}

// By name, and for how long.

TEST_F(LibraryServiceObject, IsReachedByName) {
  automation::InvokeByName(service_, "changehmipanel", {Long{2}});
  EXPECT_EQ(StateLine(), "2 9 8 2");
  automation::InvokeByName(service_, "InitImageLibrary", {"plant", Palette(3)});
  const Variant library = automation::GetByName(service_, "ImageLibrary");
  EXPECT_EQ(automation::GetByName(*library.Object(), "Name"), Variant("plant"));
  EXPECT_EQ(test::ErrorOf([&] { automation::PutByName(service_, "ImageLibrary", library); }), 383);
}

TEST_F(LibraryServiceObject, WhatItSetOutlivesItAndIsSharedByAllOnTheThread) {
  Variant palette = Palette(5);
  {
    clsGrpElmntsSrv other;
    other.ChangeHMIPanel(2);
    other.InitImageLibrary("plant", palette);
    EXPECT_EQ(service_.ImageLibrary(), other.ImageLibrary());
  }
  EXPECT_EQ(StateLine(), "2 9 8 2");
  ASSERT_NE(service_.ImageLibrary(), nullptr);
  EXPECT_EQ(clsGrpElmntsSrv().ImageLibrary()->Name(), "plant");
}

TEST_F(LibraryServiceObject, OfAnotherThreadHasItsOwn) {
  Variant palette = Palette(5);
  service_.ChangeHMIPanel(2);
  service_.InitImageLibrary("here", palette);
  std::thread([this] {
    EXPECT_EQ(service_.ImageLibrary(), nullptr);
    EXPECT_EQ(StateLine(), "0 0 0 0");
    service_.ChangeHMIPanel(3);
    Variant colors = Palette(6);
    service_.InitImageLibrary("there", colors);
    EXPECT_EQ(service_.ImageLibrary()->Name(), "there");
  }).join();
  EXPECT_EQ(StateLine(), "2 9 8 2");
  EXPECT_EQ(service_.ImageLibrary()->Name(), "here");
}

class LibraryServiceObjectOfAProject : public test::ImageProjectTest {
 protected:
  clsGrpElmntsSrv service_;
};

TEST_F(LibraryServiceObjectOfAProject, TheCrcOfALibraryPictureIsTheTypeNumberOfAByteArray) {
  PutImage(1, 50, kImageInUse);
  for (const Long crc : {-1, 0, 1, 50, 0x3F3F3F3F}) EXPECT_EQ(service_.GetImageLibCRC(crc), 8209);
  TakeLog();
  EXPECT_EQ(automation::InvokeByName(service_, "GetImageLibCRC", {Long{50}}), Variant(Long{8209}));
  EXPECT_EQ(Statements(), Lines{"open SELECT CRC,Data8bpp FROM ProjectImages WHERE CRC=50 [0,3,1]"});
  Platform::Current().newCompressor = nullptr;
  EXPECT_EQ(test::ErrorOf([&] { service_.GetImageLibCRC(50); }), 429);
}

TEST_F(LibraryServiceObjectOfAProject, TellsOfItsPictures) {
  PutImage(1, 50, kImageInUse);
  Link(6, 0, 50);
  EXPECT_EQ(service_.GetCRCsOfVarImages(6, 2), (std::vector<Long>{50, -1}));
  EXPECT_EQ(service_.GetImageData8bppByCRC(50), test::PixelsOf(3, 2, 8));
  EXPECT_EQ(service_.GetImagePathFromDB(50), "C:\\p\\50.png");
  Long dx = 0, dy = 0;
  service_.GetImageOriginalDimansions(50, dx, dy);
  EXPECT_EQ(std::make_pair(dx, dy), std::make_pair(Long{4}, Long{3}));
  service_.GetImageOriginalDimansions(51, dx, dy);
  EXPECT_EQ(std::make_pair(dx, dy), std::make_pair(Long{-1}, Long{-1}));
}

TEST_F(LibraryServiceObjectOfAProject, TellsOfItsPicturesByName) {
  PutImage(1, 50, kImageInUse);
  Link(6, 0, 50);
  const Variant crcs = automation::InvokeByName(service_, "GetCRCsOfVarImages", {Long{6}, Long{2}});
  ASSERT_EQ(crcs.Elements().Size(), 2u);
  EXPECT_EQ(crcs.Elements().At(0), Variant(Long{50}));
  EXPECT_EQ(crcs.Elements().At(1), Variant(Long{-1}));
  EXPECT_EQ(
      automation::To<PixelBytes>(automation::InvokeByName(service_, "GetImageData8bppByCRC", {Long{50}})),
      test::PixelsOf(3, 2, 8));
  EXPECT_EQ(automation::InvokeByName(service_, "GetImagePathFromDB", {Long{50}}), Variant("C:\\p\\50.png"));
  std::vector<Variant> sizes = {Long{50}, Long{7}, Long{7}};
  automation::CallByName(service_, "GetImageOriginalDimansions", automation::CallKind::Method, sizes);
  EXPECT_EQ(sizes[1], Variant(Long{4}));
  EXPECT_EQ(sizes[2], Variant(Long{3}));
}

TEST_F(LibraryServiceObjectOfAProject, SavesTheListOfAVariable) {
  auto list = std::make_shared<automation::Collection>();
  list->Add(Variant(RecordOf(Picture(50), 4)));
  service_.SaveToDbForBimaryHandler(6, eVT_BinaryImage, list, 3, 2);
  EXPECT_EQ(Links(), Lines{"6 0 4 50"});
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"CRC", "Dx", "Dy", "Bits"}), Lines{"50 3 2 0"});
  automation::InvokeByName(service_, "SaveToDbForBimaryHandler",
                           {Long{6}, Long{eVT_ListImage}, Variant(list), Long{3}, Long{2}});
  EXPECT_EQ(Links(), (Lines{"6 0 4 50", "6 1 4 50"}));
  automation::CollectionRef none;
  EXPECT_EQ(test::ErrorOf([&] { service_.SaveToDbForBimaryHandler(6, eVT_ListImage, none, 3, 2); }), 91);
}

}  // namespace
}  // namespace quenzel7
