/// What a button asks of the graphics interface, of the services of fonts, colours and painting, and of the
/// image library, and what it looks like.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "framework/bitmap_size.h"
#include "images/grp_elmnts_srv.h"
#include "platform/corvane1/project_file.h"
#include "platform/loomis2/file_image_library.h"
#include "tests/support/button_fixture.h"
#include "tests/support/empty_connection.h"
#include "tests/support/frame_letters.h"
#include "tests/support/golden.h"
#include "tests/support/text_painting_fixture.h"

namespace quenzel7 {
namespace {

using namespace test::text_painting;
using test::ButtonPicture;
using test::CallLog;
using test::CallsOfPainting;
using test::GivePicture;
using test::LettersOf;

const Calls kFlatGround = {
    "GetColor(7)",
    "CreatePenIndirect({0, 1, 0x0a0007}) -> pen:1",
    "SelectObject(dc:1, pen:1)",
    "CreateSolidBrush(0x0a0007) -> brush:1",
    "SelectObject(dc:1, brush:1)",
    "Rectangle(dc:1, 10, 20, 110, 70)",
    "SelectObject(dc:1, stock:0)",
    "DeleteObject(brush:1)",
    "SelectObject(dc:1, stock:7)",
    "DeleteObject(pen:1)",
};

const Calls kPlainGround = {
    "GetColor(7)",
    "CreateSolidBrush(0x0a0007) -> brush:1",
    "SelectObject(dc:1, brush:1)",
    "Rectangle(dc:1, 10, 20, 110, 70)",
    "SelectObject(dc:1, stock:0)",
    "DeleteObject(brush:1)",
};

class PaintedButton : public test::TextPaintingTest<clsButton> {
 protected:
  void SetUp() override {
    TextPaintingTest::SetUp();
    const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
    database->Hold(std::make_shared<test::EmptyConnection>());
    Platform::Current().projectDatabase = database;
  }

  /// What is asked of the image library, among the calls of a drawing.
  Calls CallsWithPicture(clsButton& button) {
    return test::CallsOfPainting([&](Long dc, gdi::Recorder& recorder) {
      gdi::SetBkColor(dc, kBackgroundBefore);
      recorder.Take();
      notes_->Into(&recorder);
      library_->note = [&recorder](const std::string& call) { recorder.Add(call); };
      static_cast<ItfHmiElement&>(button).Draw(dc, false);
      library_->note = {};
      notes_->Into(nullptr);
      // What the button keeps is not left behind.
      const Calls calls = recorder.Take();
      button.hBmp(0);
      recorder.Take();
      for (const std::string& call : calls) recorder.Add(call);
    });
  }

  /// What the host is told of is printed nowhere.
  static void TellNobody() {
    Platform::Current().errorLog = std::make_shared<corvane1::CollectedErrors>(nullptr);
    Platform::Current().hostFrame = std::make_shared<corvane1::CollectedHostFrame>(nullptr);
  }

  static std::shared_ptr<clsButton> WithPicture(Long style, const ButtonPicture& picture,
                                                const std::string& text = "") {
    auto button = Make(style, text);
    GivePicture(*button, picture);
    return button;
  }

  test::LibraryInUse library_;
};

// --- Frame and text ---

TEST_F(PaintedButton, FlatIsABoxOfOneColourWithItsBorderThenItsLines) {
  EXPECT_EQ(CallsOf(0, "ab"), InARow({kFlatGround, InOwnColors("pen:2", OneLine(0, "DrawTextTransparent"))}));
  EXPECT_EQ(CallsOf(0, "ab\r\ncde"),
            InARow({kFlatGround, InOwnColors("pen:2", TwoLines(0, "DrawTextTransparent"))}));
}

TEST_F(PaintedButton, RaisedIsEightAnglesAndAFaceThenItsLinesClearOfThem) {
  EXPECT_EQ(CallsOf(1, "ab"),
            InARow({RaisedGround(), InOwnColors("pen:9", OneLine(1, "DrawTextTransparent"))}));
  EXPECT_EQ(CallsOf(1, "ab\r\ncde"),
            InARow({RaisedGround(), InOwnColors("pen:9", TwoLines(1, "DrawTextTransparent"))}));
}

TEST_F(PaintedButton, PlainIsABoxInTheContextsPenThenItsLinesOnTheirBackground) {
  EXPECT_EQ(CallsOf(2, "ab"), InARow({kPlainGround, InOwnColors("pen:1", OneLine(2, "DrawText"))}));
  EXPECT_EQ(CallsOf(2, "ab\r\ncde"), InARow({kPlainGround, InOwnColors("pen:1", TwoLines(2, "DrawText"))}));
}

TEST_F(PaintedButton, OfAnyOtherStyleIsNotPaintedAtAll) {
  for (const Long style : {3, 4, 5, -1, kMost}) {
    for (const Long string : {-1, 5}) EXPECT_EQ(CallsOf(style, "ab", string), Calls{}) << style;
    EXPECT_EQ(CallsWithPicture(*WithPicture(style, {}, "ab")), Calls{}) << style;
  }
}

TEST_F(PaintedButton, AStringOfTheLibraryIsPaintedInOneCall) {
  const auto inOne = [](Long style, const std::string& operation, const std::string& option) {
    return Calls{PositionAsked("ab\r\ncde", style),
                 operation + "(107, 207, \"ab\\r\\ncde\", dc:1, 3" + option + ")"};
  };
  for (const Long string : {0, 5}) {
    EXPECT_EQ(CallsOf(0, "ab\r\ncde", string),
              InARow({kFlatGround, InOwnColors("pen:2", inOne(0, "DrawStorageTextTransparent", ", 1"))}));
    EXPECT_EQ(CallsOf(1, "ab\r\ncde", string),
              InARow({RaisedGround(), InOwnColors("pen:9", inOne(1, "DrawStorageTextTransparent", ", 1"))}));
    EXPECT_EQ(CallsOf(2, "ab\r\ncde", string),
              InARow({kPlainGround, InOwnColors("pen:1", inOne(2, "DrawStorageText", ""))}));
  }
  for (const Long style : {0, 1, 2}) EXPECT_EQ(CallsOf(style, "ab", -2), CallsOf(style, "ab", -1));
}

TEST_F(PaintedButton, EmptyOrBlankIsTheBareGround) {
  for (const char* text : {"", " ", "   "}) {
    for (const Long string : {-1, 5}) {
      EXPECT_EQ(CallsOf(0, text, string), kFlatGround);
      EXPECT_EQ(CallsOf(1, text, string), RaisedGround());
      EXPECT_EQ(CallsOf(2, text, string), kPlainGround);
      EXPECT_EQ(backgroundAfter_, kBackgroundBefore);
    }
  }
}

TEST_F(PaintedButton, ShowsWhatAVariableWroteAndHasNoBoundingRectangle) {
  const auto button = Make(0, "Text");
  button->ActualText("ab");
  EXPECT_EQ(CallsOf([&](Long dc) { static_cast<ItfHmiElement&>(*button).Draw(dc, true); }), CallsOf(0, "ab"));
}

TEST_F(PaintedButton, IsPaintedWhereItIsShownInTheMiddleOfADrag) {
  for (const Long style : {0, 1, 2}) {
    const auto button = WithPicture(style, {}, "ab"), there = WithPicture(style, {}, "ab");
    button->SaveInitialPosition();
    button->Stretch(7, 9, ePD_UpLeft);
    button->UpdateDisplayWithTransx();
    there->Xs(17);
    there->Ys(29);
    there->Dx(93);
    there->Dy(41);
    EXPECT_EQ(CallsWithPicture(*button), CallsWithPicture(*there)) << style;
  }
}

// --- The picture ---

/// A picture without a file, which stays as it is whatever the size of the button.
ButtonPicture Fixed(Long level = 0, Long bits = 0) {
  ButtonPicture picture;
  picture.libCrc = -1;
  picture.level = level;
  picture.bits = bits;
  return picture;
}

/// The log of making the bitmap of a picture, which is met under that name.
Calls Made(const std::string& what, const std::string& dx, const std::string& dy, const std::string& bitmap) {
  return {what + " of 2 bytes, " + dx + " x " + dy,
          "CreateBitmap(" + dx + ", " + dy + ", 1, 32) -> " + bitmap};
}

/// The log of copying it.
Calls Copied(const std::string& corner, const std::string& size) {
  return {"GetObjectA(bitmap:1, 24)",
          "CreateCompatibleDC(dc:1) -> dc:2",
          "SelectObject(dc:2, bitmap:1)",
          "BitBlt(dc:1, " + corner + ", " + size + ", dc:2, 0, 0, 0xcc0020)",
          "SelectObject(dc:2, default-bitmap)",
          "DeleteDC(dc:2)"};
}

TEST_F(PaintedButton, AFlatOneHasItsPictureOverAllOfItBeforeItsText) {
  EXPECT_EQ(CallsWithPicture(*WithPicture(0, Fixed(), "ab")),
            InARow({kFlatGround, Made("bitmap", "100", "50", "bitmap:1"), Copied("10, 20", "100, 50"),
                    InColors("pen:2", "0x0a0006", "0x0a0007", OneLine(0, "DrawTextTransparent"),
                             {"GetColor(6)"}, {"GetColor(7)"})}));
}

TEST_F(PaintedButton, ARaisedOneHasItsPictureOverItsFace) {
  EXPECT_EQ(CallsWithPicture(*WithPicture(1, Fixed())),
            InARow({RaisedGround(), Made("bitmap", "92", "42", "bitmap:1"), Copied("14, 24", "92, 42")}));
  EXPECT_EQ(CallsWithPicture(*WithPicture(1, Fixed(0, 16))),
            InARow({RaisedGround(), Made("bitmap 16", "92", "42", "bitmap:1"), Copied("14, 24", "92, 42")}));
}

TEST_F(PaintedButton, OnlyTwoKeysAreNoPicture) {
  const Calls drawn = CallsWithPicture(*WithPicture(0, Fixed()));
  for (const Long crc : {-2, 0, 1, 0x3F3F3F3E, 0x3F3F3F40}) {
    ButtonPicture picture = Fixed();
    picture.crc = crc;
    EXPECT_EQ(CallsWithPicture(*WithPicture(0, picture)), drawn) << crc;
  }
}

TEST_F(PaintedButton, APlainOneHasNoPicture) {
  const Long level = 1;
  EXPECT_EQ(CallsWithPicture(*WithPicture(2, Fixed(level))), kPlainGround);
}

TEST_F(PaintedButton, APictureOfOneByteIsMadeAsSuchWhateverTheBitsButFor16) {
  for (const Long bits : {0, 8, 15, 17}) {
    EXPECT_EQ(CallsWithPicture(*WithPicture(0, Fixed(0, bits))),
              InARow({kFlatGround, Made("bitmap", "100", "50", "bitmap:1"), Copied("10, 20", "100, 50")}));
  }
}

/// Of the log of a transparent picture, what differs: which areas are filled, and the colour that is left
/// out.
Calls FillsAndKeyOf(const Calls& calls) {
  Calls found;
  for (const std::string& call : calls) {
    for (const char* name : {"FillRect", "SetBkColor(dc:2, 0x", "GetBitmapBits", "bitmap", "BitBlt(dc:1"}) {
      if (call.rfind(name, 0) == 0 && call != "SetBkColor(dc:2, 0xffffff)") found.push_back(call);
    }
  }
  return found;
}

TEST_F(PaintedButton, ATransparentOneIsOnItsOwnColourIfItHasOneWithoutTheFirstPixelsColour) {
  for (const Long level : {1, 100, -1}) {
    EXPECT_EQ(FillsAndKeyOf(CallsWithPicture(*WithPicture(0, Fixed(level)))),
              (Calls{"bitmap of 2 bytes, 100 x 50", "FillRect(dc:1, {10, 20, 110, 70}, brush:2)",
                     "SetBkColor(dc:2, 0x0a0007)", "BitBlt(dc:1, 10, 20, 100, 50, dc:6, 0, 0, 0xcc0020)"}));
    EXPECT_EQ(FillsAndKeyOf(CallsWithPicture(*WithPicture(1, Fixed(level)))),
              (Calls{"FillRect(dc:1, {14, 24, 106, 66}, brush:1)", "bitmap of 2 bytes, 92 x 42",
                     "FillRect(dc:1, {14, 24, 106, 66}, brush:2)", "SetBkColor(dc:2, 0x0a0007)",
                     "BitBlt(dc:1, 14, 24, 92, 42, dc:6, 0, 0, 0xcc0020)"}));
  }
  ButtonPicture picture = Fixed(1);
  picture.data = {9, 8};
  EXPECT_EQ(FillsAndKeyOf(CallsWithPicture(*WithPicture(0, picture)))[2], "SetBkColor(dc:2, 0x0a0009)");
}

TEST_F(PaintedButton, WithoutAColourBehindItATransparentPictureShowsTheGround) {
  for (const Long color : {-2, -1, 0, 1}) {
    const auto button = WithPicture(0, Fixed(1));
    button->ColorBack(color);
    const Calls calls = FillsAndKeyOf(CallsWithPicture(*button));
    EXPECT_EQ(calls[1].rfind("FillRect", 0) == 0, color >= 0) << color;
    EXPECT_EQ(calls.size(), color >= 0 ? 4u : 3u) << color;
  }
}

TEST_F(PaintedButton, ThePixelsOfTwoBytesTellTheirColourThemselves) {
  EXPECT_EQ(FillsAndKeyOf(CallsWithPicture(*WithPicture(0, Fixed(1, 16)))),
            (Calls{"bitmap 16 of 2 bytes, 100 x 50", "FillRect(dc:1, {10, 20, 110, 70}, brush:2)",
                   "GetBitmapBits(bitmap:1, 4)", "SetBkColor(dc:2, 0x332211)",
                   "BitBlt(dc:1, 10, 20, 100, 50, dc:6, 0, 0, 0xcc0020)"}));
}

TEST_F(PaintedButton, WithoutAPictureIsItsGroundAlone) {
  ButtonPicture none = Fixed(1);
  none.crc = -1;
  EXPECT_EQ(CallsWithPicture(*WithPicture(0, none)), kFlatGround);
  EXPECT_EQ(CallsWithPicture(*WithPicture(1, none)), RaisedGround());
}

TEST_F(PaintedButton, ABitmapOfBeforeGoesWhenThePictureDoes) {
  ButtonPicture none;
  none.crc = -1;
  const auto button = WithPicture(0, none);
  const gdi::Surface surface(120, 80);
  const std::size_t before = gdi::LiveObjects();
  button->hBmp(gdi::CreateBitmap(2, 2, 1, 32, nullptr));
  static_cast<ItfHmiElement&>(*button).Draw(surface.Dc(), false);
  EXPECT_EQ(button->hBmp(), 0);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(PaintedButton, ABitmapOfBeforeGoesBeforeThePixelsAreLookedAt) {
  TellNobody();
  for (const bool hasPixels : {true, false}) {
    ButtonPicture picture = Fixed();
    if (!hasPixels) picture.data.clear();
    const auto button = WithPicture(0, picture);
    const Calls calls = CallsOf([&](Long dc) {
      button->hBmp(gdi::CreateBitmap(2, 2, 1, 32, nullptr));
      static_cast<ItfHmiElement&>(*button).Draw(dc, false);
      button->hBmp(0);
    });
    const Calls before =
        InARow({{"CreateBitmap(2, 2, 1, 32) -> bitmap:1"}, kFlatGround, {"DeleteObject(bitmap:1)"}});
    if (hasPixels) {
      EXPECT_TRUE(test::BeginsWith(calls, InARow({before, {"CreateBitmap(100, 50, 1, 32) -> bitmap:2"}})));
    } else {
      EXPECT_EQ(calls, before);
    }
  }
}

TEST_F(PaintedButton, OfADamagedPictureNothingIsDrawnAndTheTextIs) {
  TellNobody();
  for (const Long level : {0, 1}) {
    for (const bool hasPixels : {true, false}) {
      library_->makesBitmaps = false;
      ButtonPicture picture = Fixed(level);
      if (!hasPixels) picture.data.clear();
      const Calls asked = hasPixels ? Calls{"bitmap of 2 bytes, 100 x 50"} : Calls{};
      EXPECT_EQ(CallsWithPicture(*WithPicture(0, picture, "ab")),
                InARow({kFlatGround, asked, InOwnColors("pen:2", OneLine(0, "DrawTextTransparent"))}));
    }
  }
}

TEST_F(PaintedButton, APaintedPictureWithoutABitmapCopiesNoPixels) {
  for (const Long level : {0, 1}) {
    ButtonPicture painted = Fixed(level);
    painted.crc = 0x3F3F3F3F;
    painted.data.clear();
    const std::size_t before = gdi::LiveObjects();
    const auto button = WithPicture(0, painted);
    const Calls calls = CallsWithPicture(*button);
    EXPECT_TRUE(test::BeginsWith(calls, kFlatGround));
    // The ground of a transparent picture, and no pixel of one.
    Calls copies;
    for (const std::string& call : calls) {
      if (call.rfind("FillRect(dc:1", 0) == 0 || call.rfind("BitBlt(dc:1", 0) == 0) copies.push_back(call);
    }
    EXPECT_EQ(copies, (level == 0 ? Calls{"BitBlt(dc:1, 10, 20, 0, 0, dc:2, 0, 0, 0xcc0020)"}
                                  : Calls{"FillRect(dc:1, {10, 20, 110, 70}, brush:2)",
                                          "BitBlt(dc:1, 10, 20, 0, 0, dc:6, 0, 0, 0xcc0020)"}));
    EXPECT_EQ(button->hBmp(), 0);
    EXPECT_EQ(gdi::LiveObjects(), before);
  }
}

TEST_F(PaintedButton, WithoutAnImageLibraryHasItsGroundAndError91) {
  const auto button = WithPicture(0, Fixed(), "ab");
  LibraryState::Current().ImageLibrary = nullptr;
  EXPECT_EQ(CallsOf([&](Long dc) {
              EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*button).Draw(dc, false); }), 91);
            }),
            kFlatGround);
}

TEST_F(PaintedButton, KeepsTheBitmapOfItsLastDrawing) {
  const auto button = WithPicture(0, Fixed());
  const gdi::Surface surface(120, 80);
  const std::size_t before = gdi::LiveObjects();
  for (int drawing = 0; drawing < 3; ++drawing) {
    static_cast<ItfHmiElement&>(*button).Draw(surface.Dc(), false);
    EXPECT_NE(button->hBmp(), 0);
  }
  EXPECT_EQ(gdi::LiveObjects(), before + 1);
  button->hBmp(0);
}

TEST_F(PaintedButton, APaintedPictureIsTheBitmapThatWasGivenAndLookedUpNowhere) {
  for (const Long level : {0, 1}) {
    ButtonPicture painted;
    painted.crc = 0x3F3F3F3F;
    painted.data.clear();
    painted.level = level;
    const auto button = WithPicture(0, painted);
    Platform::Current().projectDatabase = std::make_shared<corvane1::HeldProjectDatabase>();
    const std::vector<std::uint32_t> pixels(6, 0x112233);
    button->hBmp(gdi::CreateBitmap(3, 2, 1, 32, pixels.data()));
    const gdi::HBITMAP given = button->hBmp();
    Calls calls = CallsOfPainting([&](Long dc) { static_cast<ItfHmiElement&>(*button).Draw(dc, false); });
    EXPECT_EQ(button->hBmp(), given);
    if (level == 0) {
      EXPECT_EQ(Calls(calls.begin() + 9, calls.end()), Copied("10, 20", "3, 2"));
    } else {
      EXPECT_EQ(FillsAndKeyOf(calls),
                (Calls{"FillRect(dc:1, {10, 20, 110, 70}, brush:2)", "GetBitmapBits(bitmap:1, 4)",
                       "SetBkColor(dc:2, 0x332211)", "BitBlt(dc:1, 10, 20, 3, 2, dc:6, 0, 0, 0xcc0020)"}));
    }
    button->hBmp(0);
  }
}

TEST_F(PaintedButton, WithoutRoomForItHasNoPicture) {
  const struct {
    Long style, dx, dy;
    bool isDrawn;
  } kCases[] = {{1, 8, 50, false}, {1, 9, 50, true}, {1, 100, 8, false}, {1, 100, 9, true},
                {0, 0, 50, false}, {0, 1, 50, true}, {0, 100, 0, false}, {0, 100, 1, true},
                {0, 8, 8, true},   {1, 0, 0, false}, {1, -5, 50, false}, {1, 50, -5, false}};
  for (const auto& [style, dx, dy, isDrawn] : kCases) {
    const auto button = WithPicture(style, Fixed());
    button->Dx(dx);
    button->Dy(dy);
    Calls calls = CallsWithPicture(*button);
    std::erase_if(calls, [](const std::string& call) { return call.rfind("bitmap of", 0) != 0; });
    EXPECT_EQ(calls.size(), isDrawn ? 1u : 0u) << style << ": " << dx << " x " << dy;
  }
}

TEST_F(PaintedButton, OnPaperHasNoPicture) {
  for (const Long style : {0, 1, 2, 3}) {
    EXPECT_EQ(CallsOfPrinting(*WithPicture(style, Fixed(), "ab")),
              InARow({kPaper, InColors("pen:1", "0x000000", "0xffffff", OneLine(style, "DrawText"))}));
  }
  ExpectPickedStringInOneOnPaper();
}

TEST_F(PaintedButton, AServiceThatFailsLeavesNothingBehind) {
  for (const Long style : {0, 1, 2}) {
    for (const Long string : {-1, 5}) {
      const auto button = Make(style, "ab\r\ncde", string);
      ExpectToLeaveNothingBehind([&](Long dc) { static_cast<ItfHmiElement&>(*button).Draw(dc, false); });
    }
  }
}

TEST_F(PaintedButton, AFarEdgeBeyond32BitsOverflowsAndLeavesNothingBehind) {
  for (const Long style : {0, 1, 2}) {
    for (const bool across : {true, false}) {
      const auto button = Make(style, "");
      across ? button->Xs(kMost) : button->Ys(kMost);
      CallsOf([&](Long dc) {
        EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*button).Draw(dc, false); }), 6);
      });
    }
  }
}

TEST_F(PaintedButton, WhatIsNotPaintedHasNoEdgesToOverflow) {
  for (const Long style : {3, 4, -1}) {
    for (const bool across : {true, false}) {
      const auto button = WithPicture(style, Fixed());
      across ? button->Xs(kMost) : button->Ys(kMost);
      EXPECT_EQ(CallsWithPicture(*button), Calls{}) << style;
    }
  }
}

// --- In a project ---

/// The bitmap and the picture of a button that is drawn on a white surface.
class DrawnButton : public test::SavedButton {
 protected:
  /// What drawing asks of the project and of the image library.
  CallLog LogOfDrawing(clsButton& button) {
    NotePictures();
    const gdi::Surface surface(160, 170);
    static_cast<ItfHmiElement&>(button).Draw(surface.Dc(), false);
    return TakeLog();
  }
};

TEST_F(DrawnButton, IsFittedFirstWhenThePictureInTheProjectHasAnotherSize) {
  const struct {
    Integer style;
    Long dx, dy;
    bool isFitted;
  } kCases[] = {{0, 140, 150, false}, {0, 139, 150, true}, {0, 140, 151, true}, {0, 132, 142, true},
                {1, 132, 142, false}, {1, 133, 142, true}, {1, 132, 141, true}, {1, 140, 150, true}};
  for (const auto& [style, dx, dy, isFitted] : kCases) {
    for (const Long bits : {0, 16}) {
      const auto button = Distinct();
      static_cast<ItfHmiElement&>(*button).Flat3D(style);
      ButtonPicture picture = Fitting(dx, dy);
      picture.bits = bits;
      GivePicture(*button, picture);
      Connection().Execute("DELETE FROM ProjectImages");
      Connection().Execute("INSERT INTO ProjectImages (CRC,RecordStatus,Dx,Dy) VALUES (61,3," +
                           std::to_string(dx) + "," + std::to_string(dy) + ")");
      const std::string size = style == 0 ? "140 x 150" : "132 x 142";
      CallLog expected = {"open SELECT Dx,Dy FROM ProjectImages WHERE CRC=61 AND RecordStatus=3 [0,3,1]",
                          "get Dx", "get Dy", "Close"};
      if (isFitted) {
        expected.push_back("load C:\\pictures\\valve.bmp 62, " + size);
        expected.push_back((bits == 16 ? "convert 16, " : "convert, ") + size);
      }
      const std::size_t bytes = !isFitted    ? static_cast<std::size_t>(dx * dy)
                                : style == 0 ? 140u * 150u
                                             : 132u * 142u;
      expected.push_back((bits == 16 ? "bitmap 16 of " : "bitmap of ") +
                         std::to_string(isFitted && bits == 16 ? 2 * bytes : bytes) + " bytes, " + size);
      EXPECT_EQ(LogOfDrawing(*button), expected) << style << ": " << dx << " x " << dy;
      EXPECT_EQ(button->Image().CRC8bpp(), !isFitted ? 61 : bits == 16 ? 106 : 90);
    }
  }
}

TEST_F(DrawnButton, WithoutAPictureInAnyProjectLooksNowhere) {
  for (const Long crc : {-1, 0x3F3F3F3F}) {
    const auto button = Distinct();
    ButtonPicture picture;
    picture.crc = crc;
    GivePicture(*button, picture);
    NotePictures();
    button->Flat3D(Long{0});
    EXPECT_TRUE(TakeLog().empty()) << crc;
    EXPECT_TRUE(LogOfDrawing(*button).empty()) << crc;
  }
}

TEST_F(DrawnButton, APictureIsFittedWhateverItsKeyButForTwo) {
  for (const Long crc : {-2, 0}) {
    const auto button = Distinct();
    static_cast<ItfHmiElement&>(*button).Flat3D(Integer{0});
    ButtonPicture picture = Fitting();
    picture.crc = crc;
    GivePicture(*button, picture);
    EXPECT_EQ(LogOfDrawing(*button), (CallLog{"open SELECT Dx,Dy FROM ProjectImages WHERE CRC=" +
                                                  std::to_string(crc) + " AND RecordStatus=3 [0,3,1]",
                                              "Close", "load C:\\pictures\\valve.bmp 62, 140 x 150",
                                              "convert, 140 x 150", "bitmap of 21000 bytes, 140 x 150"}));
    EXPECT_EQ(button->Image().CRC8bpp(), 90);
  }
}

TEST_F(DrawnButton, APictureThatTheProjectDoesNotHaveCountsAsOneWithoutASize) {
  const struct {
    Integer style;
    Long dx, dy;
    bool isFitted;
  } kCases[] = {{0, 1, 1, true},  {0, 0, 0, false}, {0, 1, 0, true}, {0, 0, 1, true}, {1, 9, 9, true},
                {1, 8, 8, false}, {1, 9, 8, true},  {1, 8, 9, true}, {1, 0, 0, true}};
  for (const auto& [style, dx, dy, isFitted] : kCases) {
    const auto button = test::Placed<clsButton>(0, 0, dx, dy);
    GivePicture(*button);
    library_->converting = loomis2::kImageRefused;
    library_->loading = loomis2::kImageFileNotFound;
    NotePictures();
    button->Flat3D(Long{style});
    const CallLog log = TakeLog();
    const Long inset = style == 1 ? 8 : 0;
    const std::string load =
        "load C:\\pictures\\valve.bmp 62, " + std::to_string(dx - inset) + " x " + std::to_string(dy - inset);
    EXPECT_EQ(std::find(log.begin(), log.end(), load) != log.end(), isFitted) << style << dx << dy;
    EXPECT_EQ(log.size() > 2, isFitted) << style << dx << dy;
    EXPECT_EQ(button->Image().CRC8bpp(), 61);
    EXPECT_EQ(button->Image().GetData8bpp(), (PixelBytes{7, 8}));
  }
}

TEST_F(DrawnButton, WithoutRoomForItsPictureFitsNothing) {
  const struct {
    Integer style;
    Long dx, dy;
  } kCases[] = {{1, 8, 150}, {1, 140, 8}, {0, 0, 150}, {0, 140, 0}};
  for (const auto& [style, dx, dy] : kCases) {
    const auto button = Distinct();
    static_cast<ItfHmiElement&>(*button).Flat3D(style);
    GivePicture(*button);
    button->Dx(dx);
    button->Dy(dy);
    EXPECT_TRUE(LogOfDrawing(*button).empty()) << dx << ' ' << dy;
    EXPECT_EQ(button->Image().CRC8bpp(), 61);
    EXPECT_EQ(button->hBmp(), 0);
  }
}

TEST_F(DrawnButton, APictureThatCannotBeFittedIsPaintedInTheSizeOfItsRow) {
  automation::Variant palette = Platform::Current().colorService->GetPalette();
  clsGrpElmntsSrv().InitImageLibrary("plant", palette);
  const auto errors = std::make_shared<corvane1::CollectedErrors>(nullptr);
  Platform::Current().errorLog = errors;
  clsButton button;
  static_cast<ItfHmiElement&>(button).Flat3D(Integer{0});
  button.Txt("");
  button.Dx(3);
  button.Dy(2);
  PixelBytes pixels = {1, 2, 3, 0, 4, 5, 6, 0}, none;
  button.SetImage8bppPropsEx(-1, 0, 0, none, 77, 3, 2, pixels, 0, 0, "", 0);
  button.SaveToDB();
  button.Dx(5);
  const gdi::Surface surface(8, 4);
  static_cast<ItfHmiElement&>(button).Draw(surface.Dc(), false);
  EXPECT_TRUE(errors->Reports().empty());
  EXPECT_EQ(BitmapSizeOf(button.hBmp()).w, 3);
  EXPECT_EQ(BitmapSizeOf(button.hBmp()).h, 2);
  EXPECT_EQ(static_cast<ItfImage&>(button).Image8bppCRC(), 77);
  EXPECT_EQ(PictureRows().size(), 1u);
}

TEST_F(DrawnButton, ADamagedPictureIsToldAndLeavesTheProjectTheButtonStays) {
  const auto frame = std::make_shared<corvane1::CollectedHostFrame>();
  for (const bool isEmpty : {true, false}) {
    const auto button = Distinct();
    button->StorageStringType(0);
    button->StorageStringID(-1);
    static_cast<ItfHmiElement&>(*button).Flat3D(Integer{0});
    GivePicture(*button, Fitting());
    button->SaveToDB();
    if (isEmpty) static_cast<ItfImage&>(*button).SetImageData8bpp({});
    library_->makesBitmaps = isEmpty;
    Platform::Current().hostFrame = frame;
    frame->Clear();
    const auto errors = std::make_shared<corvane1::CollectedErrors>(nullptr);
    Platform::Current().errorLog = errors;
    const CallLog log = LogOfDrawing(*button);
    library_->makesBitmaps = true;
    EXPECT_EQ(button->hBmp(), 0);
    EXPECT_EQ(frame->Interruptions(), 1);
    ASSERT_EQ(errors->Reports().size(), 1u);
    EXPECT_EQ(errors->Reports()[0].source, "Corruted Image");
    EXPECT_TRUE(errors->Reports()[0].description.ends_with(
        " holds corrupted image data from file: C:\\pictures\\valve.bmp\r\nThis picture will be removed from "
        "project"))
        << errors->Reports()[0].description;
    EXPECT_EQ(Elements(), CallLog{std::to_string(button->ID())});
    EXPECT_TRUE(Links().empty());
    EXPECT_TRUE(PictureRows().empty());
    // It has no picture from now on, and so tells nothing more.
    EXPECT_EQ(static_cast<ItfImage&>(*button).Image8bppCRC(), -1);
    LogOfDrawing(*button);
    EXPECT_EQ(errors->Reports().size(), 1u);
    EXPECT_NE(
        std::find(log.begin(), log.end(),
                  "open SELECT * FROM HMI_Elements WHERE ID= " + std::to_string(button->ID()) + " [0,3,1]"),
        log.end());
    static_cast<ItfHmiElement&>(*button).DeleteFromDB();
  }
}

TEST_F(DrawnButton, ShowsItsTextThoughItsPictureIsDamaged) {
  const auto painted = std::make_shared<CallLog>();
  Platform::Current().newTextPainter = [&] { return std::make_shared<test::KeepingPainter>(painted); };
  const auto button = Distinct();
  static_cast<ItfHmiElement&>(*button).Flat3D(Integer{0});
  button->SaveToDB();
  GivePicture(*button);
  library_->makesBitmaps = false;
  button->ActualText("ab");
  LogOfDrawing(*button);
  EXPECT_EQ(*painted, CallLog{"ab"});
}

// --- Pixels ---

using PixelsOfButton = test::LetterTest<clsButton>;

TEST_F(PixelsOfButton, FlatIsOneColourWithoutABorder) {
  EXPECT_EQ(LettersOf(*Make(0, 4, 3), 6, 5), (Calls{"......", ".HHHH.", ".HHHH.", ".HHHH.", "......"}));
}

TEST_F(PixelsOfButton, RaisedIsLightAboveAndDarkBelow) {
  EXPECT_EQ(LettersOf(*Make(1, 10, 10), 12, 12),
            (Calls{"............", ".5555555555.", ".5666666661.", ".5677777721.", ".5678888321.",
                   ".5678ff4321.", ".5678ff4321.", ".5678444321.", ".5673333321.", ".5622222221.",
                   ".5111111111.", "............"}));
}

TEST_F(PixelsOfButton, PlainHasABorderInTheContextsPen) {
  EXPECT_EQ(LettersOf(*Make(2, 4, 3), 6, 5), (Calls{"......", ".????.", ".?HH?.", ".????.", "......"}));
}

/// Buttons of all styles beside each other: without a picture, with an opaque one, and with a transparent one
/// on a dark colour and on a light one, each without a text, with one, and with one at the left above.
TEST(PicturesOfButtons, AreTheGoldenOnes) {
  Platform::Current() = Platform();
  {
    const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
    database->Hold(std::make_shared<test::EmptyConnection>());
    Platform::Current().projectDatabase = database;
    const auto library = std::make_shared<loomis2::FileImageLibrary>(nullptr);
    library->Palette(Platform::Current().colorService->GetPalette());
    LibraryState::Current().ImageLibrary = library;
    constexpr Long kStyles = 4, kPictures = 4, kTexts = 3, kColumn = 91, kRow = 50, kGap = 6;
    gdi::Surface sheet(kStyles * kColumn + kGap, kPictures * kTexts * kRow + kGap);
    sheet.Clear(0xD8C8B8);
    for (Long style = 0; style < kStyles; ++style) {
      for (Long row = 0; row < kPictures * kTexts; ++row) {
        const Long kind = row / kTexts, text = row % kTexts;
        const auto button =
            test::Placed<clsButton>(style * kColumn + kGap, row * kRow + kGap, kColumn - kGap, kRow - kGap);
        button->Flat3D(style);
        button->Txt(text == 0 ? "" : "Pump 1\r\non");
        if (text == 2) button->Alignment(Integer{0});
        if (kind != 0) {
          const ItfImage& size = *button;
          ButtonPicture picture = Fixed(kind > 1 ? 1 : 0);
          picture.data.clear();
          const Long dx = size.Dx(), dy = size.Dy();
          for (Long y = 0; y < dy; ++y) {
            for (Long x = 0; x < dx + dx % 2; ++x) {
              // A frame and a cross in the first pixel's colour, and stripes.
              const bool isKey = x < 2 || y < 2 || x >= dx - 2 || y >= dy - 2 || x == dx / 2 || y == dy / 2;
              picture.data.push_back(static_cast<Byte>(isKey ? 3 : 16 + (x + y) / 8));
            }
          }
          GivePicture(*button, picture);
        }
        if (kind == 2) button->ColorBack(7);
        static_cast<ItfHmiElement&>(*button).Draw(sheet.Dc(), false);
      }
    }
    test::ExpectGolden({sheet.Width(), sheet.Height(), {sheet.Pixels().begin(), sheet.Pixels().end()}},
                       "button_styles");
    LibraryState::Current().ImageLibrary = nullptr;
  }
  Platform::Current() = Platform();
}

}  // namespace
}  // namespace quenzel7
