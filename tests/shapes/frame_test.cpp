#include "shapes/frame.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation/call_by_name.h"
#include "platform/corvane1/project_string_library.h"
#include "tests/support/placed_shape.h"
#include "tests/support/project_fixture.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"

namespace quenzel7 {
namespace {

using automation::InvokeByName;
using automation::Variant;
using test::ErrorOf;
using test::Placed;

using Lines = std::vector<std::string>;

constexpr Long kMost = 2147483647;

/// Settings by key, and what was asked of them, as "section/key/fallback".
class KeyedSettings final : public corvane1::Settings {
 public:
  std::string GetSetting(Long section, Long key, const std::string& fallback) override {
    asked.push_back(std::to_string(section) + "/" + std::to_string(key) + "/" + fallback);
    const auto kept = texts.find(key);
    return kept == texts.end() ? fallback : kept->second;
  }
  std::map<Long, std::string> texts;
  Lines asked;
};

class Frame : public ::testing::Test {
 protected:
  void SetUp() override { Platform::Current() = Platform(); }
  void TearDown() override { Platform::Current() = Platform(); }

  std::shared_ptr<KeyedSettings> UseSettings(std::map<Long, std::string> texts) {
    auto settings = std::make_shared<KeyedSettings>();
    settings->texts = std::move(texts);
    Platform::Current().settings = settings;
    return settings;
  }

  static ItfHmiElement& Contract(clsFrame& frame) { return frame; }
};

// --- Fields and interface ---

TEST_F(Frame, StartsWithItsDefaults) {
  clsFrame frame;
  EXPECT_EQ(frame.ElementType(), 12);
  EXPECT_EQ(frame.ID(), -1);
  EXPECT_EQ(frame.GroupID(), -1);
  EXPECT_EQ(frame.Xs(), 0);
  EXPECT_EQ(frame.Ys(), 0);
  EXPECT_EQ(frame.Dx(), 0);
  EXPECT_EQ(frame.Dy(), 0);
  EXPECT_EQ(frame.TouchOprndAddr(), -1);
  EXPECT_EQ(frame.Txt(), "Frame");
  EXPECT_EQ(frame.ActualText(), "");
  EXPECT_EQ(frame.FontNumber(), 1);
  ASSERT_NE(frame.ColOpPropBag(), nullptr);
  EXPECT_EQ(frame.ColOpPropBag()->Count(), 0);
  EXPECT_EQ(frame.StorageStringType(), 0);
  EXPECT_EQ(frame.StorageStringID(), -1);
  EXPECT_EQ(frame.TabIndex(), 255);
  EXPECT_EQ(frame.OrderIndex(), 0);
}

TEST_F(Frame, AsksTheSettingsInThisOrder) {
  const auto settings = UseSettings({});
  const clsFrame frame;
  EXPECT_EQ(settings->asked, (Lines{"6000/6042/1", "6000/6018/103", "6000/6019/5", "6000/6039/1"}));
  EXPECT_EQ(frame.Flat3D(), 1);
  EXPECT_EQ(frame.ColorBack(), 103);
  EXPECT_EQ(frame.ColorFore(), 5);
  EXPECT_EQ(frame.ColorBackTouch(), 103);
  EXPECT_EQ(frame.ColorForeTouch(), 5);
  EXPECT_EQ(frame.Alignment(), 1);
}

TEST_F(Frame, AFlatOneHasABackgroundOfItsOwn) {
  const auto settings = UseSettings({{6042, "0"}});
  const clsFrame frame;
  EXPECT_EQ(settings->asked, (Lines{"6000/6042/1", "6000/6045/103", "6000/6019/5", "6000/6039/1"}));
  EXPECT_EQ(frame.Flat3D(), 0);
  EXPECT_EQ(frame.ColorBack(), 103);
}

TEST_F(Frame, TakesWhatTheSettingsTellTheColoursWhileTouchedFromTheOthers) {
  std::map<Long, std::string> texts = {{6018, "21"}, {6019, "22"}, {6039, "7"}, {6045, "24"},
                                       {6057, "91"}, {6058, "92"}, {6059, "93"}};
  struct Case {
    const char* style;
    Long flat3D, back;
  };
  for (const Case& c : {Case{"0", 0, 24}, {"1", 1, 21}, {"2", 2, 21}, {"3", 3, 21}, {"4", 4, 21}}) {
    texts[6042] = c.style;
    UseSettings(texts);
    const clsFrame frame;
    EXPECT_EQ(frame.Flat3D(), c.flat3D);
    EXPECT_EQ(frame.ColorBack(), c.back) << c.style;
    EXPECT_EQ(frame.ColorBackTouch(), c.back) << c.style;
    EXPECT_EQ(frame.ColorFore(), 22);
    EXPECT_EQ(frame.ColorForeTouch(), 22);
    EXPECT_EQ(frame.Alignment(), 7);
  }
}

TEST_F(Frame, ASettingThatIsNoNumberIsAnErrorThatNamesIt) {
  for (const Long key : {6042, 6018, 6019, 6039}) {
    UseSettings({{key, "red"}});
    EXPECT_EQ(ErrorOf([] { clsFrame(); }), 13) << key;
    EXPECT_NE(test::DescriptionOf([] { clsFrame(); }).find("6000/" + std::to_string(key)), std::string::npos);
  }
  UseSettings({{6042, "0"}, {6045, "red"}});
  EXPECT_EQ(ErrorOf([] { clsFrame(); }), 13);
  UseSettings({{6039, "32768"}});
  EXPECT_EQ(ErrorOf([] { clsFrame(); }), 6);
}

TEST_F(Frame, PublishesItsDefaultInterfaceInSlotOrder) {
  const Lines expected = {
      "get ID() As Long",
      "put ID(Long)",
      "get GroupID() As Long",
      "put GroupID(Long)",
      "get Xs() As Long",
      "put Xs(Long)",
      "get Ys() As Long",
      "put Ys(Long)",
      "get Dx() As Long",
      "put Dx(Long)",
      "get Dy() As Long",
      "put Dy(Long)",
      "get ColorBack() As Long",
      "put ColorBack(Long)",
      "get ColorFore() As Long",
      "put ColorFore(Long)",
      "get ColorBackTouch() As Long",
      "put ColorBackTouch(Long)",
      "get ColorForeTouch() As Long",
      "put ColorForeTouch(Long)",
      "get TouchOprndAddr() As Long",
      "put TouchOprndAddr(Long)",
      "get Txt() As String",
      "put Txt(String)",
      "get ActualText() As String",
      "put ActualText(String)",
      "get FontNumber() As Long",
      "put FontNumber(Long)",
      "get ColOpPropBag() As Collection",
      "putref ColOpPropBag(Collection)",
      "get Alignment() As Integer",
      "put Alignment(Integer)",
      "get Flat3D() As Long",
      "put Flat3D(Long)",
      "get StorageStringType() As Long",
      "put StorageStringType(Long)",
      "get StorageStringID() As Long",
      "put StorageStringID(Long)",
      "get TabIndex() As Long",
      "put TabIndex(Long)",
      "get OrderIndex() As Long",
      "put OrderIndex(Long)",
      "call DrawTransparent(Long)",
      "call GetOptimalDimensions(ByRef Long, ByRef Long)",
      "call SaveToDB() As Boolean",
      "call ItfHmiElement_CreateStaticElementPrinterReport(Object)",
  };
  EXPECT_EQ(clsFrame::ClassOf().Default().Slots(), expected);
  EXPECT_EQ(clsFrame::ClassOf().Default().Name(), "_clsFrame");
  EXPECT_EQ(clsFrame::ClassOf().name, "clsFrame");
  EXPECT_NE(std::dynamic_pointer_cast<clsFrame>(clsFrame::ClassOf().create()), nullptr);
}

TEST_F(Frame, HasNoHideOperand) {
  clsFrame frame;
  frame.ID(5);
  const auto bags = frame.ColOpPropBag();
  // No project is open: a row that were removed for -1 would be an error.
  for (const Long address : {7, 0, -1}) {
    Contract(frame).VisibleOpAddr(address);
    EXPECT_EQ(Contract(frame).VisibleOpAddr(), 0);
  }
  EXPECT_EQ(frame.ColOpPropBag(), bags);
  EXPECT_EQ(ErrorOf([&] { InvokeByName(frame, clsFrame::ClassOf().Default(), "VisibleOpAddr", {}); }), 438);
}

// --- Fitting ---

TEST_F(Frame, OnlyABevelKeepsTheTextFromTheFarEdges) {
  struct Case {
    Long style, inset;
  };
  // A character is 8 by 16 pixels.
  for (const Case& c : {Case{0, 0}, {1, 7}, {2, 0}, {3, 7}, {4, 0}, {5, 0}, {-1, 0}}) {
    const auto frame = Placed<clsFrame>(3, 5, 24 + c.inset, 32 + c.inset);
    frame->FontNumber(0);
    frame->Flat3D(c.style);
    frame->Txt("abc\r\nde");
    EXPECT_EQ(frame->ActualText(), "abc\r\nde") << c.style;
    frame->Dx(23 + c.inset);
    EXPECT_EQ(frame->ActualText(), "ab\r\nde") << c.style;
    frame->Dy(31 + c.inset);
    EXPECT_EQ(frame->ActualText(), "ab") << c.style;
  }
}

TEST_F(Frame, IsEightPixelsLargerThanItsTextWhateverItsStyle) {
  for (const Long style : {0, 1, 2, 3, 4, 5, -1}) {
    const auto frame = Placed<clsFrame>(3, 5, 9, 9);
    frame->FontNumber(0);
    frame->Flat3D(style);
    frame->Txt("abc\r\nde");
    Long width = 0, height = 0;
    frame->GetOptimalDimensions(width, height);
    EXPECT_EQ(width, 3 * 8 + 8) << style;
    EXPECT_EQ(height, 2 * 16 + 8) << style;
    Long x = 0, y = 0;
    Contract(*frame).GetOptimalDimensions(x, y, width, height);
    EXPECT_EQ(x, 3);
    EXPECT_EQ(y, 5);
    EXPECT_EQ(width, 32);
    EXPECT_EQ(height, 40);
  }
}

TEST_F(Frame, ASizeBeyond32BitsOverflowsAndLeavesBothNumbers) {
  class WideFont final : public corvane1::FontService {
   public:
    explicit WideFont(Long width, Long height) : width_(width), height_(height) {}
    Long GetDefaultFontNumber() override { return 1; }
    Long GetDefaultDescriptionFontNumber() override { return 1; }
    Long GetCharHeight(Long) override { return height_; }
    std::array<Long, 256> GetCharWidths(Long) override {
      std::array<Long, 256> widths;
      widths.fill(width_);
      return widths;
    }
    corvane1::TextExtent GetTextRect(const std::string&, Long) override { return {}; }
    std::string GetFontName(Long) override { return {}; }

   private:
    Long width_, height_;
  };
  struct Case {
    Long width, height, error;
  };
  for (const Case& c : {Case{kMost - 7, 1, 6}, {1, kMost - 7, 6}, {kMost - 8, kMost - 8, 0}}) {
    Platform::Current().fontService = std::make_shared<WideFont>(c.width, c.height);
    clsFrame frame;
    frame.Txt("a");
    Long width = 40, height = 41;
    EXPECT_EQ(ErrorOf([&] { frame.GetOptimalDimensions(width, height); }), c.error);
    EXPECT_EQ(width, c.error ? 40 : kMost);
    EXPECT_EQ(height, c.error ? 41 : kMost);
  }
}

// --- In a project ---

class FrameInProject : public test::ProjectTest {
 protected:
  static Lines ReportOf(clsFrame& frame) {
    test::ReportDouble report;
    frame.CreateStaticElementPrinterReport(report);
    return report.Lines();
  }
};

TEST_F(FrameInProject, AReplicaTakesAllButNoHideOperand) {
  auto frame = Placed<clsFrame>(1, 2, 100, 40);
  frame->Txt("abc");
  frame->FontNumber(0);
  frame->Flat3D(3);
  frame->TouchOprndAddr(22);
  const auto copy = std::dynamic_pointer_cast<clsFrame>(frame->Replica());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->Txt(), "abc");
  EXPECT_EQ(copy->Flat3D(), 3);
  EXPECT_EQ(copy->TouchOprndAddr(), 22);
  EXPECT_EQ(copy->BuildOpPropBag()->Count(), 1);
  EXPECT_EQ(static_cast<ItfHmiElement&>(*copy).VisibleOpAddr(), 0);
}

TEST_F(FrameInProject, ReportsPlaceTextFontAlignmentAndStyle) {
  const auto frame = Placed<clsFrame>(1, -2, 30, 40);
  frame->FontNumber(0);
  frame->Stretch(5, 5, ePD_DownRight);
  frame->UpdateDisplayWithTransx();
  EXPECT_EQ(ReportOf(*frame), (Lines{"Coordinates (Left,Top,Width,Height): (1,-2,30,40)", "Text: Frame",
                                     "Font: Unifont 16", "Alignment: Top Center", "Style: 3D (Unpressed)"}));
  frame->Txt("Tank\r\n1\r\n2");
  frame->FontNumber(1);
  frame->Alignment(9);
  frame->Flat3D(2);
  EXPECT_EQ(ReportOf(*frame), (Lines{"Coordinates (Left,Top,Width,Height): (1,-2,30,40)", "Text: Tank ...",
                                     "Font: DejaVu Sans 16", "Alignment: ", ""}));
}

TEST_F(FrameInProject, ReportsTheNumberOfALibraryString) {
  const auto frame = Placed<clsFrame>(1, 2, 30, 40);
  // Every number but -1, also one that no library has.
  for (const Long string : {0, 17, -2, -kMost - 1}) {
    frame->StorageStringID(string);
    const Lines lines = ReportOf(*frame);
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[5], "String ID in Library: " + std::to_string(string));
  }
  frame->StorageStringID(-1);
  EXPECT_EQ(ReportOf(*frame).size(), 5u);
}

TEST_F(FrameInProject, ReportsTheOperandThatPicksTheString) {
  const auto frame = Placed<clsFrame>(1, 2, 30, 40);
  frame->StorageStringType(2);
  EXPECT_EQ(ReportOf(*frame).size(), 5u);
  // -1 is no address here, but -2 is one.
  for (const Long address : {17, 0, -2}) {
    frame->StorageStringID(address);
    Lines lines = ReportOf(*frame);
    ASSERT_EQ(lines.size(), 6u) << address;
    EXPECT_EQ(lines[5], "Operand for String Library ID: ") << "not yet in the project: " << address;
    fennick1::Operand operand(Platform::Current().operands);
    operand.OperandType(2);
    operand.OperandAddress(address);
    operand.OperandComment("which text");
    operand.AddToProject();
    lines = ReportOf(*frame);
    ASSERT_EQ(lines.size(), 6u) << address;
    EXPECT_EQ(lines[5], "Operand for String Library ID: IB " + std::to_string(address));
  }
}

TEST_F(FrameInProject, HasNoHideLineInItsReport) {
  const auto frame = Placed<clsFrame>(1, 2, 30, 40);
  static_cast<ItfHmiElement&>(*frame).VisibleOpAddr(17);
  EXPECT_EQ(ReportOf(*frame).size(), 5u);
}

TEST_F(FrameInProject, IsLargeEnoughForItsStringInEveryLanguage) {
  corvane1::ProjectStringLibrary library;
  library.Open(Platform::Current().heldProject->Held(), -1);
  library.SetLanguage(1, "short");
  library.SetLanguage(2, "long");
  library.SetString(5, 1, {"a\r\nb\r\nc", 0});
  library.SetString(5, 2, {"abcdef", 0});
  const auto frame = Placed<clsFrame>(0, 0, 9, 9);
  frame->Flat3D(0);
  frame->StorageStringID(5);
  Long width = 0, height = 0;
  frame->GetOptimalDimensions(width, height);
  EXPECT_EQ(width, 6 * 8 + 8);
  EXPECT_EQ(height, 3 * 16 + 8);
  // No language has string 6: the word in its place.
  frame->StorageStringID(6);
  frame->GetOptimalDimensions(width, height);
  EXPECT_EQ(width, 5 * 8 + 8);
  EXPECT_EQ(height, 16 + 8);
  // With an operand the element does not know the string; its own text counts.
  frame->StorageStringType(2);
  frame->FontNumber(0);
  frame->Txt("x");
  frame->GetOptimalDimensions(width, height);
  EXPECT_EQ(width, 8 + 8);
  EXPECT_EQ(height, 16 + 8);
}

}  // namespace
}  // namespace quenzel7
