#include "images/corrupted_image.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/image_fixture.h"
#include "tests/support/noting_services.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using corvane1::ErrorReport;
using test::CallLog;
using test::operator+;
using Lines = std::vector<std::string>;

class CorruptedImage : public test::ImageProjectTest {
 protected:
  void SetUp() override {
    ImageProjectTest::SetUp();
    Platform::Current().hostFrame = std::make_shared<test::NotingFrame>(Recorder());
    Platform::Current().errorLog = errors_ = std::make_shared<test::NotingErrors>(Recorder());
    PutRow("DispModules", {{"ModuleId", Long{2}}, {"ModuleName", "Main"}});
    PutRow("Pages", {{"Id", Long{7}}, {"ModuleID", Long{2}}, {"Description", "Start"}});
    PutElements();
    TakeLog();
  }

  /// The elements 5 and 6 with a picture each.
  void PutElements() {
    for (Long id = 5; id <= 6; ++id) {
      PutRow("HMI_Elements",
             {{"ID", id}, {"DisplayID", Long{7}}, {"Type", Long{kBitmap}}, {"Text", "Level"}});
      PutImage(id, id * 10, kImageInUse);
      Link(id, 0, id * 10);
    }
  }

  void SetType(Long type) {
    Connection().Execute("UPDATE HMI_Elements SET Type=" + std::to_string(type) + " WHERE ID=5");
  }
  std::string ReportOf5() {
    ReportCorruptedImage("C:\\p\\a.png", 5);
    return errors_->reports.at(0).description;
  }
  Lines Elements() { return Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID"}); }

  static constexpr Long kBitmap = 3;
  std::shared_ptr<test::NotingErrors> errors_;
};

TEST_F(CorruptedImage, OfAnElementIsToldInThisOrder) {
  ReportCorruptedImage("C:\\p\\a.png", 5);
  EXPECT_EQ(
      Writes(),
      CallLog(
          {"open SELECT DispModules.ModuleName, Pages.Description, HMI_Elements.ID FROM DispModules INNER "
           "JOIN (HMI_Elements INNER JOIN Pages ON HMI_Elements.DisplayID = Pages.Id) ON "
           "DispModules.ModuleId = Pages.ModuleID WHERE HMI_Elements.ID=5 [0,1,1]",
           "Close",
           "open SELECT * FROM HMI_Elements WHERE ID= 5 [0,3,1]",
           "Close",
           "execute DELETE * FROM HMI_Elements WHERE ID= 5",
           "open SELECT * FROM ElementsAndImages WHERE Element_ID=5 [0,3,1]",
           "Close",
           "execute DELETE * FROM ElementsAndImages WHERE Element_ID=5",
           "execute SELECT COUNT(*) AS NumOfImages FROM ElementsAndImages WHERE Image_CRC=50",
           "Close",
           "execute SELECT COUNT(*) AS NumOfImages FROM PagesAndImages WHERE Image_CRC=50",
           "Close",
           "execute UPDATE ProjectImages SET LibCRC=-1,Dx=0,Dy=0,ImagePath=NULL,Data8bpp=NULL,DxORG=0,"
           "DyORG=0,Data8bppORG=NULL,RecordStatus=2 WHERE CRC=50 AND RecordStatus=3",
           "open SELECT Max(Index) AS MaxIndex FROM ProjectImages [0,3,1]",
           "execute DELETE * FROM ProjectImages WHERE Index=6 AND RecordStatus=2",
           "Close",
           "open SELECT Max(Index) AS MaxIndex FROM ProjectImages [0,3,1]",
           "execute DELETE * FROM ProjectImages WHERE Index=6 AND RecordStatus=2",
           "Close",
           "interrupt",
           "pointer 1",
           "log",
           "refresh -1 12",
           "pointer 11"}));
  EXPECT_EQ(errors_->reports,
            (std::vector<ErrorReport>{
                {"Corruted Image", static_cast<Long>(0x80040257),
                 "A picture of element in module Main, display Start holds corrupted image data from file: "
                 "C:\\p\\a.png\r\nThis picture will be removed from project",
                 "Quenzel7.dll", "clsBitmap", "Draw", 0}}));
}

TEST_F(CorruptedImage, OnlyTheElementNamedGoesAndOnlyItsPictures) {
  ReportCorruptedImage("a.png", 5);
  EXPECT_EQ(Elements(), Lines{"6"});
  EXPECT_EQ(Links(), Lines{"6 0 0 60"});
  EXPECT_EQ(Images(), (Lines{"5 50 2", "6 60 3"}));
}

TEST_F(CorruptedImage, OfAVariableIsToldWithItsText) {
  SetType(5);
  EXPECT_EQ(
      ReportOf5(),
      "A variable: Level in module Main, display Start holds corrupted image data from file: C:\\p\\a.png"
      "\r\nThis varible will be removed from project");
  EXPECT_EQ(Elements(), Lines{"6"});
}

TEST_F(CorruptedImage, OfAVariableReadsTheTextAndOthersDoNot) {
  const std::string text = "get Text";
  ReportCorruptedImage("a.png", 6);
  const CallLog other = TakeLog();
  EXPECT_EQ(std::count(other.begin(), other.end(), text), 0);
  SetType(5);
  ReportCorruptedImage("a.png", 5);
  const CallLog variable = TakeLog();
  EXPECT_EQ(std::count(variable.begin(), variable.end(), text), 1);
}

TEST_F(CorruptedImage, OfAButtonLeavesTheButton) {
  SetType(11);
  EXPECT_EQ(ReportOf5(),
            "A picture of element in module Main, display Start holds corrupted image data from file: "
            "C:\\p\\a.png\r\nThis picture will be removed from project");
  EXPECT_EQ(Elements(), (Lines{"5", "6"}));
  EXPECT_EQ(Links(), Lines{"6 0 0 60"});
}

TEST_F(CorruptedImage, ElementsOfTheTypesAroundGo) {
  for (const Long type : {4, 6, 10, 12}) {
    SetType(type);
    ReportCorruptedImage("a.png", 5);
    EXPECT_EQ(Elements(), Lines{"6"}) << type;
    EXPECT_EQ(errors_->reports.back().description.find("A picture of element"), 0u);
    PutRow("HMI_Elements", {{"ID", Long{5}}, {"DisplayID", Long{7}}});
  }
}

TEST_F(CorruptedImage, OfAnElementThatIsNotThereIsToldAllTheSame) {
  ReportCorruptedImage("a.png", 9);
  EXPECT_EQ(errors_->reports.at(0).description,
            "A picture of element in module , display  holds corrupted image data from file: a.png\r\nThis "
            "picture will be removed from project");
  EXPECT_EQ(Elements(), (Lines{"5", "6"}));
  EXPECT_EQ(TakeLog().back(), "pointer 11");
}

TEST_F(CorruptedImage, OfAPageWithoutADescriptionHasNone) {
  Connection().Execute("UPDATE Pages SET Description=NULL");
  EXPECT_EQ(ReportOf5().find("A picture of element in module Main, display  holds"), 0u);
}

TEST_F(CorruptedImage, AVariableWithoutATextIsToldWithout) {
  SetType(5);
  Connection().Execute("UPDATE HMI_Elements SET Text=NULL WHERE ID=5");
  EXPECT_EQ(ReportOf5().find("A variable:  in module Main, display Start holds"), 0u);
}

TEST_F(CorruptedImage, AFailureOfAnyCallPassesUpAndNothingAfterItIsDone) {
  SetType(5);
  ReportCorruptedImage("a.png", 5);
  const CallLog calls = TakeLog();
  ASSERT_EQ(calls.size(), 35u) << ::testing::PrintToString(calls);
  const auto told = std::find(calls.begin(), calls.end(), "log");
  for (std::size_t call = 1; call <= calls.size(); ++call) {
    for (const char* table : {"HMI_Elements", "ElementsAndImages", "ProjectImages"}) {
      Connection().Execute(std::string("DELETE FROM ") + table);
    }
    PutElements();
    SetType(5);
    errors_->reports.clear();
    TakeLog();
    Recorder().FailAt(static_cast<int>(call));
    const std::string raised = test::DescriptionOf([] { ReportCorruptedImage("a.png", 5); });
    EXPECT_NE(raised.find("failed at " + calls[call - 1]), std::string::npos) << raised;
    Recorder().FailAt(0);
    EXPECT_EQ(TakeLog(), CallLog(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(call)));
    EXPECT_EQ(errors_->reports.size(),
              told - calls.begin() < static_cast<std::ptrdiff_t>(call) - 1 ? 1u : 0u);
  }
}

TEST_F(CorruptedImage, ARepairIsLoggedWithItsSource) {
  LogRepairedImage("C:\\p\\a.png", {"clsSome", "some"});
  EXPECT_EQ(errors_->reports, (std::vector<ErrorReport>{{"Corrupted Image", static_cast<Long>(0x80040257),
                                                         "Corrupted image data from file: C:\\p\\a.png",
                                                         "Quenzel7.dll", "clsSome", "some", 48}}));
  EXPECT_EQ(TakeLog(), CallLog{"log"});
}

}  // namespace
}  // namespace quenzel7
