#include "platform/platform.h"

#include <gtest/gtest.h>

#include <thread>

#include "platform/corvane1/project_file.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7 {
namespace {

class PlatformServices : public ::testing::Test {
 protected:
  void SetUp() override { Platform::Current() = Platform(); }
  void TearDown() override { Platform::Current() = Platform(); }
};

TEST_F(PlatformServices, AreCompleteFromTheBeginning) {
  const Platform& platform = Platform::Current();
  ASSERT_NE(platform.heldProject, nullptr);
  EXPECT_EQ(platform.projectDatabase, platform.heldProject);
  EXPECT_EQ(platform.colorService->GetColor(9), 0x000000u);
  EXPECT_EQ(platform.settings->GetSetting(6000, 6051, "fall-back"), "fall-back");
  EXPECT_EQ(platform.globalValues->Value(25), 0);
  EXPECT_NE(platform.changeTracker, nullptr);
  EXPECT_NE(dynamic_cast<corvane1::CollectedProjectEvents*>(platform.projectService.get()), nullptr);
  EXPECT_EQ(platform.fontService->GetFontName(0), "Unifont 16");
  EXPECT_EQ(platform.textService->TextOrder("\xD7\x90"), 1);
  EXPECT_EQ(platform.stringLibrary->Language(), 1);
  EXPECT_EQ(platform.panelService->Model(1).width, 128);
  EXPECT_NE(dynamic_cast<corvane1::CollectedMessages*>(platform.messageService.get()), nullptr);
  EXPECT_NE(dynamic_cast<corvane1::CollectedMessageBoxes*>(platform.messageBoxes.get()), nullptr);
  EXPECT_NE(dynamic_cast<corvane1::CollectedErrors*>(platform.errorLog.get()), nullptr);
  EXPECT_NE(dynamic_cast<corvane1::CollectedHostFrame*>(platform.hostFrame.get()), nullptr);
  EXPECT_NE(platform.resources->LoadPicture(501).Get(), 0u);
  EXPECT_EQ(platform.crcService->Crc(std::vector<Byte>{'a', 'b', 'c'}), 0x352441C2);
  EXPECT_NE(platform.application->Path(), "");
  EXPECT_EQ(platform.files->OpenTextFile("\\none\\Strings\\Calendar_English.txt")->ReadLine(),
            "//Day Of Week//");
  EXPECT_EQ(platform.fileChooser->Choose({}), "");
}

TEST_F(PlatformServices, MakeANewImageLibraryEachTime) {
  const auto first = Platform::Current().newImageLibrary();
  const auto second = Platform::Current().newImageLibrary();
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
}

TEST_F(PlatformServices, MakeANewCompressorEachTime) {
  const auto first = Platform::Current().newCompressor();
  const auto second = Platform::Current().newCompressor();
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  std::vector<Byte> block;
  EXPECT_EQ(first->Compress({'a'}, block), 0);
  EXPECT_EQ(std::string(block.begin(), block.begin() + 3), "Qz7");
}

TEST_F(PlatformServices, LetImageLibrariesAskTheFileChooserOfTheTimeOfTheirMaking) {
  auto& platform = Platform::Current();
  const auto earlier = std::make_shared<loomis2::PreparedFileChooser>();
  platform.fileChooser = earlier;
  const auto library = platform.newImageLibrary();
  platform.fileChooser = std::make_shared<loomis2::PreparedFileChooser>();
  earlier->Prepare("missing.bmp");
  loomis2::LibraryPicture picture;
  picture.bits = 16;
  EXPECT_EQ(library->SelectImageFile(picture, 1, 1), loomis2::kImageFileNotFound);
  EXPECT_EQ(library->SelectImageFile(picture, 1, 1), loomis2::kImageNotChosen);
}

TEST_F(PlatformServices, MakeANewTextPainterEachTime) {
  const auto first = Platform::Current().newTextPainter();
  const auto second = Platform::Current().newTextPainter();
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(first->GetTextSize("a", 0), (corvane1::TextExtent{8, 16}));
}

TEST_F(PlatformServices, MeasureAndPaintInTheCodePageOfTheSettings) {
  Platform& platform = Platform::Current();
  const auto painter = platform.newTextPainter();
  const Long western = platform.fontService->GetTextRect("\xC3\xB9", 7).width;
  const Long greek = platform.fontService->GetTextRect("\xCF\x89", 7).width;
  ASSERT_NE(western, greek);
  EXPECT_EQ(platform.fontService->GetCharWidths(7)[0xF9], western);
  EXPECT_EQ(painter->GetTextSize("\xCF\x89", 7), painter->GetTextSize("?", 7));
  // Also when a host brings settings of its own later.
  const auto settings = std::make_shared<corvane1::LayeredSettings>(platform.heldProject);
  settings->Set(7000, 1, "1253");
  platform.settings = settings;
  EXPECT_EQ(platform.fontService->GetCharWidths(7)[0xF9], greek);
  EXPECT_EQ(painter->GetTextSize("\xCF\x89", 7).width, greek);
  settings->Set(7000, 1, "1");
  EXPECT_EQ(test::ErrorOf([&] { platform.fontService->GetCharWidths(7); }), 5);
}

TEST_F(PlatformServices, MeasureElementsByTheChangeTrackerOfTheTime) {
  class HostsTracker final : public corvane1::ChangeTracker {
   public:
    void NotifyElementChanged(Long) override {}
    void NotifyPageChanged(Long) override {}
    Long ElementSize(Long elementId) override { return 100 + elementId; }
  };
  Platform& platform = Platform::Current();
  const auto project = platform.projectService;
  EXPECT_EQ(test::ErrorOf([&] { project->ElementSize(5); }), 91);
  platform.changeTracker = std::make_shared<HostsTracker>();
  EXPECT_EQ(project->ElementSize(5), 105);
}

TEST_F(PlatformServices, ThatStandOnTheProjectSayWhenNoneIsOpen) {
  Platform& platform = Platform::Current();
  EXPECT_EQ(test::ErrorOf([&] { platform.projectDatabase->OpenConnection(); }), 91);
  EXPECT_EQ(test::ErrorOf([&] { platform.numberGenerator->NewUniqueNumber(); }), 91);
  EXPECT_EQ(test::ErrorOf([&] { platform.operands->IsDefined({1, 2, 0}); }), 91);
  EXPECT_EQ(test::ErrorOf([&] { platform.changeTracker->ElementSize(1); }), 91);
  EXPECT_EQ(test::ErrorOf([&] { platform.stringLibrary->GetCount(); }), 91);
}

TEST_F(PlatformServices, ThatStandOnTheProjectSeeTheOneThatIsHeld) {
  const test::TemporaryFolder folder;
  Platform& platform = Platform::Current();
  const auto connection = corvane1::OpenProject(folder.File("p.qz7"), corvane1::ProjectMode::Create);
  platform.heldProject->Hold(connection);
  EXPECT_EQ(platform.numberGenerator->NewUniqueNumber(), 1);
  platform.operands->Add({1, 2, 0}, {});
  EXPECT_TRUE(platform.operands->IsDefined({1, 2, 0}));
  connection->Execute("INSERT INTO Settings (Section,Key,Value) VALUES (6000,6051,'4')");
  EXPECT_EQ(platform.settings->GetSetting(6000, 6051, "0"), "4");
  connection->Execute("INSERT INTO HMI_Elements (ID) VALUES (3)");
  EXPECT_EQ(platform.changeTracker->ElementSize(3), 4);
  platform.heldProject->Hold(nullptr);
}

TEST_F(PlatformServices, KeepStringsInTheProjectThatTheyAreOpenedOn) {
  const test::TemporaryFolder folder;
  const auto connection = corvane1::OpenProject(folder.File("p.qz7"), corvane1::ProjectMode::Create);
  connection->Execute("INSERT INTO StringLanguages VALUES (1,'English')");
  connection->Execute("INSERT INTO LibraryStrings VALUES (5,1,'tank',2)");
  corvane1::StringLibrary& strings = *Platform::Current().stringLibrary;
  strings.Open(connection, -1);
  EXPECT_EQ(strings.GetString(5), (corvane1::LibraryString{"tank", 2}));
}

TEST_F(PlatformServices, AreOneSetPerThread) {
  Platform* other = nullptr;
  std::thread([&other] { other = &Platform::Current(); }).join();
  EXPECT_NE(other, &Platform::Current());
  EXPECT_EQ(&Platform::Current(), &Platform::Current());
}

}  // namespace
}  // namespace quenzel7
