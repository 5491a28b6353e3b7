/// What a text asks of the graphics interface and of the services of fonts, colours and painting, and what
/// it looks like.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "shapes/text.h"
#include "tests/platform/gdi/picture.h"
#include "tests/support/frame_letters.h"
#include "tests/support/text_painting_fixture.h"

namespace quenzel7 {
namespace {

using namespace test::text_painting;
using test::LettersOf;

const Calls kFlatGround = {"GetColor(7)", "CreateSolidBrush(0x0a0007) -> brush:1",
                           "FillRect(dc:1, {10, 20, 110, 70}, brush:1)", "DeleteObject(brush:1)"};

/// The log of the hatched marker, whose brush is met under that name.
Calls Marker(const std::string& brush) {
  return {
      "SetBkColor(dc:1, 0xffffff)",
      "GetColor(2)",
      "CreateHatchBrush(3, 0x0a0002) -> " + brush,
      "SelectObject(dc:1, " + brush + ")",
      "GetColor(0)",
      "CreatePenIndirect({0, 1, 0x0a0000}) -> pen:1",
      "SelectObject(dc:1, pen:1)",
      "Rectangle(dc:1, 10, 20, 110, 70)",
      "SelectObject(dc:1, stock:7)",
      "DeleteObject(pen:1)",
      "SelectObject(dc:1, stock:0)",
      "DeleteObject(" + brush + ")",
  };
}

using PaintedText = test::TextPaintingTest<clsText>;

// --- Constant texts ---

TEST_F(PaintedText, FlatIsItsPlaceInOneColourThenItsLines) {
  EXPECT_EQ(CallsOf(0, "ab"), InARow({kFlatGround, InOwnColors("pen:1", OneLine(0, "DrawText"))}));
  EXPECT_EQ(CallsOf(0, "ab\r\ncde"), InARow({kFlatGround, InOwnColors("pen:1", TwoLines(0, "DrawText"))}));
}

TEST_F(PaintedText, RaisedIsEightAnglesAndAFaceThenItsLinesClearOfThem) {
  EXPECT_EQ(CallsOf(1, "ab"), InARow({RaisedGround(), InOwnColors("pen:9", OneLine(1, "DrawText"))}));
  EXPECT_EQ(CallsOf(1, "ab\r\ncde"), InARow({RaisedGround(), InOwnColors("pen:9", TwoLines(1, "DrawText"))}));
}

TEST_F(PaintedText, SunkenIsAPictureAndAFaceThenItsLinesClearOfTheEdges) {
  EXPECT_EQ(CallsOf(3, "ab"), InARow({kSunkenGround, InOwnColors("pen:1", OneLine(1, "DrawText"))}));
  EXPECT_EQ(CallsOf(3, "ab\r\ncde"), InARow({kSunkenGround, InOwnColors("pen:1", TwoLines(1, "DrawText"))}));
}

TEST_F(PaintedText, TransparentIsItsLinesAlone) {
  EXPECT_EQ(CallsOf(4, "ab"), InOwnColors("pen:1", OneLine(0, "DrawTextTransparent")));
  EXPECT_EQ(CallsOf(4, "ab\r\ncde"), InOwnColors("pen:1", TwoLines(0, "DrawTextTransparent")));
}

TEST_F(PaintedText, AStyleWithRoomForABoxAndNumbersThatAreNoStyleArePaintedFlat) {
  for (const Long style : {2, 5, -1, kMost}) {
    for (const char* text : {"ab", "ab\r\ncde", ""}) {
      EXPECT_EQ(CallsOf(style, text), CallsOf(0, text)) << style;
    }
    EXPECT_EQ(CallsOf(style, "ab", 5), CallsOf(0, "ab", 5)) << style;
  }
}

TEST_F(PaintedText, HasNoBoundingRectangle) {
  for (const Long style : {0, 1, 3, 4}) {
    const auto text = Make(style, "ab");
    EXPECT_EQ(CallsOf([&](Long dc) { text->Draw(dc, true); }), CallsOfDrawing(*text)) << style;
  }
}

// --- Texts of the library ---

TEST_F(PaintedText, AStringOfTheLibraryIsPaintedLineByLineAsOne) {
  for (const Long string : {0, 5}) {
    EXPECT_EQ(CallsOf(0, "ab\r\ncde", string),
              InARow({kFlatGround, InOwnColors("pen:1", TwoLines(0, "DrawStorageText"))}));
    EXPECT_EQ(CallsOf(1, "ab\r\ncde", string),
              InARow({RaisedGround(), InOwnColors("pen:9", TwoLines(1, "DrawStorageText"))}));
    EXPECT_EQ(CallsOf(3, "ab\r\ncde", string),
              InARow({kSunkenGround, InOwnColors("pen:1", TwoLines(1, "DrawStorageText"))}));
  }
}

TEST_F(PaintedText, WithoutBackgroundAStringOfTheLibraryIsPaintedWithTheOptionOfLines) {
  for (const Long string : {0, 5}) {
    EXPECT_EQ(CallsOf(4, "ab", string),
              InOwnColors("pen:1", OneLine(0, "DrawStorageTextTransparent", ", 255")));
    EXPECT_EQ(CallsOf(4, "ab\r\ncde", string),
              InOwnColors("pen:1", TwoLines(0, "DrawStorageTextTransparent", ", 255")));
  }
}

TEST_F(PaintedText, EveryNumberBelow0IsNoString) {
  for (const Long style : {0, 1, 3, 4}) {
    EXPECT_EQ(CallsOf(style, "ab", -2), CallsOf(style, "ab", -1)) << style;
    EXPECT_NE(CallsOf(style, "ab", 0), CallsOf(style, "ab", -1)) << style;
  }
}

TEST_F(PaintedText, AStringThatAnOperandPicksIsPaintedAsOneOfTheLibrary) {
  const auto text = Make(4, "ab", 5);
  text->StorageStringType(3);
  EXPECT_EQ(CallsOfDrawing(*text), CallsOf(4, "ab", 5));
}

// --- Nothing to read ---

TEST_F(PaintedText, EmptyOrBlankIsAHatchedMarkerWhereThereIsNoBevel) {
  for (const char* text : {"", " ", "   "}) {
    for (const Long string : {-1, 5}) {
      EXPECT_EQ(CallsOf(0, text, string), InARow({kFlatGround, Marker("brush:2")}));
      EXPECT_EQ(backgroundAfter_, 0xffffffu);
      EXPECT_EQ(CallsOf(4, text, string), Marker("brush:1"));
      EXPECT_EQ(backgroundAfter_, 0xffffffu);
    }
  }
}

TEST_F(PaintedText, EmptyOrBlankIsTheBareFrameWhereThereIsABevel) {
  for (const char* text : {"", " ", "   "}) {
    EXPECT_EQ(CallsOf(1, text), RaisedGround());
    EXPECT_EQ(CallsOf(3, text), kSunkenGround);
    EXPECT_EQ(backgroundAfter_, kBackgroundBefore);
  }
}

TEST_F(PaintedText, LineBreaksAndTabsAreNoBlanks) {
  const Calls breaks = {
      PositionAsked("\r\n", 0), PositionAsked("", 0), "DrawTextTransparent(100, 202, \"\", dc:1, 3)",
      "GetCharHeight(3)",       PositionAsked("", 0), "DrawTextTransparent(100, 210, \"\", dc:1, 3)",
      "GetCharHeight(3)"};
  EXPECT_EQ(CallsOf(4, "\r\n"), InOwnColors("pen:1", breaks));
  EXPECT_EQ(CallsOf(4, "\t"),
            InOwnColors("pen:1", {PositionAsked("\t", 0), PositionAsked("\t", 0),
                                  "DrawTextTransparent(101, 201, \"\t\", dc:1, 3)", "GetCharHeight(3)"}));
}

TEST_F(PaintedText, BlanksAroundATextArePaintedWithIt) {
  EXPECT_EQ(CallsOf(4, " a "),
            InOwnColors("pen:1", {PositionAsked(" a ", 0), PositionAsked(" a ", 0),
                                  "DrawTextTransparent(103, 203, \" a \", dc:1, 3)", "GetCharHeight(3)"}));
}

TEST_F(PaintedText, APlaceTooLowForALineShowsTheMarkerWhateverTheText) {
  const auto text = Make(0, "ab");
  text->Dy(8);
  EXPECT_EQ(CallsOfDrawing(*text)[2], "FillRect(dc:1, {10, 20, 110, 28}, brush:1)");
  EXPECT_EQ(CallsOfDrawing(*text).back(), "DeleteObject(pen:1)");
  text->Dy(7);
  EXPECT_EQ(CallsOfDrawing(*text).back(), "DeleteObject(brush:2)");
}

// --- What is painted, and where ---

TEST_F(PaintedText, ShowsWhatAVariableWroteAndFitsNothing) {
  const auto text = Make(4, "Text");
  text->ActualText("ab");
  EXPECT_EQ(CallsOfDrawing(*text), InOwnColors("pen:1", OneLine(0, "DrawTextTransparent")));
  text->ActualText("");
  EXPECT_EQ(CallsOfDrawing(*text), Marker("brush:1"));
}

TEST_F(PaintedText, LinesAreAsFarApartAsTheirFontIsHigh) {
  const auto text = Make(4, "a\r\nb\r\nc");
  text->FontNumber(15);
  text->Dy(60);
  const Calls calls = CallsOfDrawing(*text);
  EXPECT_EQ(calls[7], "GetTextPosition(\"a\\r\\nb\\r\\nc\", 15, 10, 20, 100, 60, 5, 0)");
  EXPECT_EQ(calls[9], "DrawTextTransparent(101, 207, \"a\", dc:1, 15)");
  EXPECT_EQ(calls[12], "DrawTextTransparent(101, 227, \"b\", dc:1, 15)");
  EXPECT_EQ(calls[15], "DrawTextTransparent(101, 247, \"c\", dc:1, 15)");
}

TEST_F(PaintedText, TheAlignmentGoesToTheFontServiceAsItIs) {
  const auto text = Make(4, "ab");
  for (const Integer alignment : {0, 8, 9, -1}) {
    text->Alignment(alignment);
    EXPECT_EQ(CallsOfDrawing(*text)[7],
              "GetTextPosition(\"ab\", 3, 10, 20, 100, 50, " + std::to_string(alignment) + ", 0)");
  }
}

TEST_F(PaintedText, ThePenOfTheContextKeepsItsStyleAndWidthInTheColourOfTheText) {
  for (const auto& [style, width] : {std::pair<std::uint32_t, int>{gdi::PS_DASH, 1}, {gdi::PS_SOLID, 5}}) {
    const auto text = Make(4, "ab");
    const Calls calls = CallsOf([&, style = style, width = width](Long dc) {
      const gdi::SelectedPen pen(dc, gdi::MakePen(style, width, 0x123456));
      text->Draw(dc, false);
    });
    const std::string kind = std::to_string(style) + ", " + std::to_string(width);
    // Two calls of this test's own on either side.
    EXPECT_EQ(calls,
              InARow({{"CreatePenIndirect({" + kind + ", 0x123456}) -> pen:1", "SelectObject(dc:1, pen:1)",
                       "GetCurrentObject(dc:1, 1)", "GetObjectA(pen:1, 16)", "GetColor(6)",
                       "CreatePenIndirect({" + kind + ", 0x0a0006}) -> pen:2", "SelectObject(dc:1, pen:2)",
                       "GetColor(7)", "SetBkColor(dc:1, 0x0a0007)"},
                      OneLine(0, "DrawTextTransparent"),
                      {"SetBkColor(dc:1, 0x00ff00)", "SelectObject(dc:1, pen:1)", "DeleteObject(pen:2)",
                       "SelectObject(dc:1, stock:7)", "DeleteObject(pen:1)"}}));
  }
}

TEST_F(PaintedText, IsPaintedWhereItIsShownInTheMiddleOfADrag) {
  for (const Long style : {0, 1, 3, 4}) {
    for (const char* shown : {"ab\r\ncde", ""}) {
      const auto text = Make(style, shown), there = Make(style, shown);
      text->SaveInitialPosition();
      text->Stretch(7, 9, ePD_UpLeft);
      EXPECT_EQ(CallsOfDrawing(*text), CallsOfDrawing(*there)) << style;
      text->UpdateDisplayWithTransx();
      text->Move(1, 1);
      text->SaveLastLegalPosition();
      there->Xs(17);
      there->Ys(29);
      there->Dx(93);
      there->Dy(41);
      EXPECT_EQ(CallsOfDrawing(*text), CallsOfDrawing(*there)) << style;
      EXPECT_EQ(CallsOfPrinting(*text), CallsOfPrinting(*there)) << style;
      EXPECT_EQ(text->Xs(), 10);
    }
  }
}

TEST_F(PaintedText, KeepsThePainterAndTheColoursOfItsCreationAndAsksForTheFontsOfTheDay) {
  const auto text = Make(4, "ab");
  const Calls before = CallsOfDrawing(*text);
  const Platform embedded;
  Platform::Current().newTextPainter = embedded.newTextPainter;
  Platform::Current().colorService = embedded.colorService;
  EXPECT_EQ(CallsOfDrawing(*text), before);
  Platform::Current().fontService = std::make_shared<test::FontDouble>(std::make_shared<Calls>());
  EXPECT_EQ(CallsOfDrawing(*text), InOwnColors("pen:1", {"DrawTextTransparent(110, 45, \"ab\", dc:1, 3)"}));
}

TEST_F(PaintedText, ALineBelowAllNumbersIsAnErrorWithPenAndBackgroundPutBack) {
  /// Begins at the lowest place that there is.
  class Lowest final : public test::FontDouble {
   public:
    Lowest() : FontDouble(std::make_shared<Calls>()) {}
    corvane1::TextPosition GetTextPosition(const std::string&, Long, Long, Long, Long, Long, Long,
                                           Long) override {
      return {0, 2147483647 - 7};
    }
  };
  const auto text = Make(4, "ab\r\ncd");
  Platform::Current().fontService = std::make_shared<Lowest>();
  EXPECT_EQ(CallsOf([&](Long dc) { EXPECT_EQ(test::ErrorOf([&] { text->Draw(dc, false); }), 6); }),
            InOwnColors("pen:1", {"DrawTextTransparent(0, 2147483640, \"ab\", dc:1, 3)"}));
}

// --- On paper ---

TEST_F(PaintedText, OnPaperIsBlackLinesOnAWhiteBoxWithTheStyleItselfAsFlag) {
  for (const Long style : {0, 1, 2, 3, 4, 5, -1}) {
    EXPECT_EQ(CallsOfPrinting(*Make(style, "ab\r\ncde")),
              InARow({kPaper, InColors("pen:1", "0x000000", "0xffffff", TwoLines(style, "DrawText"))}));
    EXPECT_EQ(CallsOfPrinting(*Make(style, "ab", -2)),
              InARow({kPaper, InColors("pen:1", "0x000000", "0xffffff", OneLine(style, "DrawText"))}));
  }
}

TEST_F(PaintedText, OnPaperAStringOfTheLibraryIsOneConstantText) {
  for (const Long string : {0, 5}) {
    for (const Long style : {0, 1, 2, 3, 4}) {
      EXPECT_EQ(CallsOfPrinting(*Make(style, "ab\r\ncde", string)),
                InARow({kPaper, InColors("pen:1", "0x000000", "0xffffff", Block(style, "DrawText"))}));
    }
  }
}

TEST_F(PaintedText, OnPaperAStringThatAnOperandPicksIsOneConstantText) { ExpectPickedStringInOneOnPaper(); }

TEST_F(PaintedText, OnPaperNothingToReadIsAWhiteBox) {
  for (const Long style : {0, 1, 3, 4}) {
    EXPECT_EQ(CallsOfPrinting(*Make(style, "")), kPaper);
    EXPECT_EQ(CallsOfPrinting(*Make(style, "  ", 5)), kPaper);
  }
}

TEST_F(PaintedText, OnPaperTheAliasDoesNotMatter) {
  const auto text = Make(0, "ab");
  EXPECT_EQ(CallsOf([&](Long dc) { text->DrawToPrinter(dc, ""); }), CallsOfPrinting(*text));
}

// --- What goes wrong ---

TEST_F(PaintedText, AServiceThatFailsLeavesNothingBehind) {
  for (const Long style : {0, 1, 2, 3, 4}) {
    for (const Long string : {-1, 5}) {
      const auto text = Make(style, "ab\r\ncde", string);
      ExpectToLeaveNothingBehind([&](Long dc) { text->Draw(dc, false); });
      ExpectToLeaveNothingBehind([&](Long dc) { text->DrawToPrinter(dc, ""); });
    }
    const auto empty = Make(style, "");
    ExpectToLeaveNothingBehind([&](Long dc) { empty->Draw(dc, false); }, 0xffffff);
  }
}

TEST_F(PaintedText, AFarEdgeBeyond32BitsOverflowsAndLeavesNothingBehind) {
  for (const Long style : {0, 1, 3, 4}) {
    for (const bool across : {true, false}) {
      const auto text = Make(style, "");
      across ? text->Xs(kMost) : text->Ys(kMost);
      CallsOf([&](Long dc) { EXPECT_EQ(ErrorOf([&] { text->Draw(dc, false); }), 6); });
      CallsOf([&](Long dc) { EXPECT_EQ(ErrorOf([&] { text->DrawToPrinter(dc, ""); }), 6); });
    }
  }
}

TEST_F(PaintedText, OnAWrongContextPaintsNothing) {
  const std::size_t before = gdi::LiveObjects();
  for (const Long style : {0, 1, 3, 4}) {
    for (const char* shown : {"ab", ""}) {
      for (const Long dc : {0, 12345}) {
        Make(style, shown)->Draw(dc, false);
        Make(style, shown)->DrawToPrinter(dc, "");
      }
    }
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
}

// --- Pixels ---

using PixelsOfText = test::LetterTest<clsText>;

TEST_F(PixelsOfText, RaisedIsLightAboveAndDarkBelow) {
  EXPECT_EQ(LettersOf(*Make(1, 14, 12), 16, 14), (Calls{"................",  //
                                                        ".55555555555555.",  //
                                                        ".56666666666661.",  //
                                                        ".56777777777721.",  //
                                                        ".56788888888321.",  //
                                                        ".5678ffffff4321.",  //
                                                        ".5678ffffff4321.",  //
                                                        ".5678ffffff4321.",  //
                                                        ".5678ffffff4321.",  //
                                                        ".56784444444321.",  //
                                                        ".56733333333321.",  //
                                                        ".56222222222221.",  //
                                                        ".51111111111111.",  //
                                                        "................"}));
}

TEST_F(PixelsOfText, SunkenIsTheOtherWayRoundWithAFaceAPixelLarger) {
  EXPECT_EQ(LettersOf(*Make(3, 14, 12), 16, 14), (Calls{"................",  //
                                                        ".11111111111111.",  //
                                                        ".12222222222225.",  //
                                                        ".12333333333365.",  //
                                                        ".12344444444765.",  //
                                                        ".1234fffffff765.",  //
                                                        ".1234fffffff765.",  //
                                                        ".1234fffffff765.",  //
                                                        ".1234fffffff765.",  //
                                                        ".1234fffffff765.",  //
                                                        ".12377777777765.",  //
                                                        ".12666666666665.",  //
                                                        ".15555555555555.",  //
                                                        "................"}));
}

TEST_F(PixelsOfText, EmptyIsHatchedOnWhite) {
  EXPECT_EQ(LettersOf(*Make(0, 14, 12), 16, 14), (Calls{"................",  //
                                                        ".AAAAAAAAAAAAAA.",  //
                                                        ".AwwwCwwwwwwwCA.",  //
                                                        ".AwwCwwwwwwwCwA.",  //
                                                        ".AwCwwwwwwwCwwA.",  //
                                                        ".ACwwwwwwwCwwwA.",  //
                                                        ".AwwwwwwwCwwwwA.",  //
                                                        ".AwwwwwwCwwwwwA.",  //
                                                        ".AwwwwwCwwwwwwA.",  //
                                                        ".AwwwwCwwwwwwwA.",  //
                                                        ".AwwwCwwwwwwwCA.",  //
                                                        ".AwwCwwwwwwwCwA.",  //
                                                        ".AAAAAAAAAAAAAA.",  //
                                                        "................"}));
}

TEST_F(PixelsOfText, InALowPlaceIsHatchedWhateverItIs) {
  EXPECT_EQ(LettersOf(*Make(4, 14, 15, "I"), 16, 14), LettersOf(*Make(4, 14, 15, ""), 16, 14));
}

TEST_F(PixelsOfText, FlatStandsOnItsColour) {
  EXPECT_EQ(LettersOf(*Make(0, 10, 16, "I"), 12, 18), (Calls{"............",  //
                                                             ".HHHHHHHHHH.",  //
                                                             ".HHHHHHHHHH.",  //
                                                             ".HHHHHHHHHH.",  //
                                                             ".HHHHHHHHHH.",  //
                                                             ".HHGGGGGHHH.",  //
                                                             ".HHHHGHHHHH.",  //
                                                             ".HHHHGHHHHH.",  //
                                                             ".HHHHGHHHHH.",  //
                                                             ".HHHHGHHHHH.",  //
                                                             ".HHHHGHHHHH.",  //
                                                             ".HHHHGHHHHH.",  //
                                                             ".HHHHGHHHHH.",  //
                                                             ".HHHHGHHHHH.",  //
                                                             ".HHGGGGGHHH.",  //
                                                             ".HHHHHHHHHH.",  //
                                                             ".HHHHHHHHHH.",  //
                                                             "............"}));
}

TEST_F(PixelsOfText, TransparentLeavesTheGround) {
  EXPECT_EQ(LettersOf(*Make(4, 10, 16, "I"), 12, 18), (Calls{"............",  //
                                                             "............",  //
                                                             "............",  //
                                                             "............",  //
                                                             "............",  //
                                                             "...GGGGG....",  //
                                                             ".....G......",  //
                                                             ".....G......",  //
                                                             ".....G......",  //
                                                             ".....G......",  //
                                                             ".....G......",  //
                                                             ".....G......",  //
                                                             ".....G......",  //
                                                             ".....G......",  //
                                                             "...GGGGG....",  //
                                                             "............",  //
                                                             "............",  //
                                                             "............"}));
}

}  // namespace
}  // namespace quenzel7
