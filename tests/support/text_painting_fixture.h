#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/gdi/gdi.h"
#include "platform/platform.h"
#include "tests/support/painting_doubles.h"
#include "tests/support/placed_shape.h"
#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"

/// What the tests of painting elements that bear a text share.
namespace quenzel7::test {

using Calls = std::vector<std::string>;

/// Several parts of a log in a row.
inline Calls InARow(std::initializer_list<Calls> parts) {
  Calls all;
  for (const Calls& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

/// Whether a log begins with another.
inline bool BeginsWith(const Calls& calls, const Calls& beginning) {
  return calls.size() >= beginning.size() && std::equal(beginning.begin(), beginning.end(), calls.begin());
}

/// The calls of the services in a log.
inline int ServiceCalls(const Calls& calls) {
  int count = 0;
  for (const std::string& call : calls) {
    for (const char* service : {"GetColor(", "Get3D", "DrawPressed3DRect(", "GetTextPosition(",
                                "GetCharHeight(", "DrawText", "DrawStorageText"}) {
      if (call.rfind(service, 0) == 0) ++count;
    }
  }
  return count;
}

/// The log of a raised frame at (10, 20), 100 by 50, in panel colour 7.
inline Calls RaisedGround() {
  struct Lines {
    const char *level, *corner, *across, *down;
  };
  static const Lines kLines[] = {
      {"1", "109, 69", "9, 69", "109, 19"},  {"2", "108, 68", "10, 68", "108, 20"},
      {"3", "107, 67", "11, 67", "107, 21"}, {"4", "106, 66", "12, 66", "106, 22"},
      {"5", "10, 20", "110, 20", "10, 70"},  {"6", "11, 21", "109, 21", "11, 69"},
      {"7", "12, 22", "108, 22", "12, 68"},  {"8", "13, 23", "107, 23", "13, 67"},
  };
  Calls calls;
  for (const auto& [number, corner, across, down] : kLines) {
    const std::string level = number, pen = "pen:" + level;
    for (const std::string& call : {
             "Get3DShadeColor(" + level + ", 7)",
             "CreatePenIndirect({0, 1, 0x0b0" + level + "07}) -> " + pen,
             "SelectObject(dc:1, " + pen + ")",
             "MoveToEx(dc:1, " + std::string(corner) + ")",
             "LineTo(dc:1, " + std::string(across) + ")",
             "MoveToEx(dc:1, " + std::string(corner) + ")",
             "LineTo(dc:1, " + std::string(down) + ")",
             std::string("SelectObject(dc:1, stock:7)"),
             "DeleteObject(" + pen + ")",
         }) {
      calls.push_back(call);
    }
  }
  return InARow({calls,
                 {"Get3DFaceColor(7)", "CreateSolidBrush(0x0c0007) -> brush:1",
                  "FillRect(dc:1, {14, 24, 106, 66}, brush:1)", "DeleteObject(brush:1)"}});
}

/// The log of a sunken frame at the same place.
inline const Calls kSunkenGround = {
    "CreateCompatibleDC(dc:1) -> dc:2",
    "CreateCompatibleBitmap(dc:1, 100, 50) -> bitmap:1",
    "SelectObject(dc:2, bitmap:1)",
    "DrawPressed3DRect(0, 0, 100, 50, 7, 1, dc:2)",
    "BitBlt(dc:1, 10, 20, 100, 50, dc:2, 0, 0, 0xcc0020)",
    "DeleteDC(dc:2)",
    "DeleteObject(bitmap:1)",
    "Get3DFaceColor(7)",
    "CreateSolidBrush(0x0c0007) -> brush:1",
    "FillRect(dc:1, {14, 24, 107, 67}, brush:1)",
    "DeleteObject(brush:1)",
};

/// The log of the clean page on which a printer paints the same place.
inline const Calls kPaper = {
    "CreateSolidBrush(0xffffff) -> brush:1",
    "SelectObject(dc:1, brush:1)",
    "Rectangle(dc:1, 10, 20, 110, 70)",
    "SelectObject(dc:1, stock:0)",
    "DeleteObject(brush:1)",
};

/// A part of a log between colours of a text, in a pen of that name, and what was there before; with the
/// questions for the colours.
inline Calls InColors(const std::string& pen, const std::string& text, const std::string& back,
                      const Calls& calls, const Calls& textAsked = {}, const Calls& backAsked = {}) {
  return InARow({{"GetCurrentObject(dc:1, 1)", "GetObjectA(stock:7, 16)"},
                 textAsked,
                 {"CreatePenIndirect({0, 0, " + text + "}) -> " + pen, "SelectObject(dc:1, " + pen + ")"},
                 backAsked,
                 {"SetBkColor(dc:1, " + back + ")"},
                 calls,
                 {"SetBkColor(dc:1, 0x00ff00)", "SelectObject(dc:1, stock:7)", "DeleteObject(" + pen + ")"}});
}

/// The same in the colours 6 on 7 of the element.
inline Calls InOwnColors(const std::string& pen, const Calls& calls) {
  return InColors(pen, "0x0a0006", "0x0a0007", calls, {"GetColor(6)"}, {"GetColor(7)"});
}

/// A question for the place of a text.
inline std::string PositionAsked(const std::string& text, Long frameFlag) {
  return "GetTextPosition(" + Quoted(text) + ", 3, 10, 20, 100, 50, 5, " + std::to_string(frameFlag) + ")";
}

/// The log of painting the text "ab" by an operation of the painter.
inline Calls OneLine(Long frameFlag, const std::string& operation, const std::string& option = "") {
  return {PositionAsked("ab", frameFlag), PositionAsked("ab", frameFlag),
          operation + "(102, 202, \"ab\", dc:1, 3" + option + ")", "GetCharHeight(3)"};
}

/// The log of painting the lines of "ab\r\ncde", each where its own place across is.
inline Calls TwoLines(Long frameFlag, const std::string& operation, const std::string& option = "") {
  return {PositionAsked("ab\r\ncde", frameFlag),
          PositionAsked("ab", frameFlag),
          operation + "(102, 207, \"ab\", dc:1, 3" + option + ")",
          "GetCharHeight(3)",
          PositionAsked("cde", frameFlag),
          operation + "(103, 215, \"cde\", dc:1, 3" + option + ")",
          "GetCharHeight(3)"};
}

/// The log of painting the same text in one call.
inline Calls Block(Long frameFlag, const std::string& operation) {
  return {PositionAsked("ab\r\ncde", frameFlag), operation + "(107, 207, \"ab\\r\\ncde\", dc:1, 3)"};
}

inline constexpr Long kMost = 2147483647;

/// Elements of one class whose services note what they are asked.
template <class Element>
class TextPaintingTest : public ::testing::Test {
 protected:
  static constexpr std::uint32_t kBackgroundBefore = 0x00ff00;

  void SetUp() override {
    Platform::Current() = Platform();
    Platform::Current().fontService = std::make_shared<PaintingFonts>(notes_);
    Platform::Current().colorService = std::make_shared<PaintingColors>(notes_);
    Platform::Current().newTextPainter = [this] { return std::make_shared<PaintingPainter>(notes_); };
  }
  void TearDown() override { Platform::Current() = Platform(); }

  /// At (10, 20), 100 by 50, in font 3 and colours 6 on 7, centre right.
  static std::shared_ptr<Element> Make(Long style, const std::string& text, Long string = -1) {
    auto element = Placed<Element>(10, 20, 100, 50);
    element->FontNumber(3);
    element->ColorFore(6);
    element->ColorBack(7);
    element->ColorBackTouch(8);
    element->ColorForeTouch(9);
    element->Alignment(5);
    element->Flat3D(style);
    element->StorageStringID(string);
    element->Txt(text);
    return element;
  }

  /// The calls of platform and services of what paints into a context whose background colour is
  /// kBackgroundBefore. The colour that the context has afterwards is kept.
  template <class Paint>
  Calls CallsOf(Paint paint) {
    return CallsOfPainting([&](Long dc, gdi::Recorder& recorder) {
      gdi::SetBkColor(dc, kBackgroundBefore);
      recorder.Take();
      notes_->Into(&recorder);
      paint(dc);
      notes_->Into(nullptr);
      const Calls calls = recorder.Take();
      backgroundAfter_ = gdi::GetBkColor(dc);
      recorder.Take();
      for (const std::string& call : calls) recorder.Add(call);
    });
  }
  Calls CallsOf(Long style, const std::string& text, Long string = -1) {
    return CallsOfDrawing(*Make(style, text, string));
  }
  Calls CallsOfDrawing(ItfHmiElement& element) {
    return CallsOf([&](Long dc) { element.Draw(dc, false); });
  }
  Calls CallsOfPrinting(ItfHmiElement& element) {
    return CallsOf([&](Long dc) { element.DrawToPrinter(dc, "alias"); });
  }

  /// On paper a string that an operand picks is one constant text, black on white, whatever the style.
  void ExpectPickedStringInOneOnPaper() {
    for (const Long style : {0, 1, 2, 3, 4}) {
      for (const Long type : {3, -1}) {
        const auto element = Make(style, "ab\r\ncde", 5);
        element->StorageStringType(type);
        EXPECT_EQ(CallsOfPrinting(*element),
                  InARow({kPaper, InColors("pen:1", "0x000000", "0xffffff", Block(style, "DrawText"))}))
            << style << ", " << type;
      }
    }
  }

  /// Lets each call of a service fail in turn: error 5 every time, what was done before it the same, the
  /// context left as it was but for its background colour, which is the given one once what was expected to
  /// change it did.
  template <class Paint>
  void ExpectToLeaveNothingBehind(Paint paint, std::uint32_t background = kBackgroundBefore) {
    const Calls whole = CallsOf(paint);
    const int count = ServiceCalls(whole);
    ASSERT_GT(count, 0);
    std::size_t at = 0;
    for (int call = 1; call <= count; ++call) {
      notes_->FailAt(call);
      const Calls calls = CallsOf([&](Long dc) { EXPECT_EQ(ErrorOf([&] { paint(dc); }), 5) << call; });
      while (ServiceCalls({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(at)}) < call) ++at;
      const auto failed = static_cast<std::ptrdiff_t>(at);
      EXPECT_TRUE(BeginsWith(calls, {whole.begin(), whole.begin() + failed})) << call;
      // What follows only puts back and deletes.
      EXPECT_EQ(ServiceCalls(calls), call);
      const bool isSet = std::find(calls.begin(), calls.end(), "SetBkColor(dc:1, 0xffffff)") != calls.end();
      EXPECT_EQ(backgroundAfter_, isSet ? background : kBackgroundBefore) << call;
    }
    notes_->FailAt(0);
    EXPECT_EQ(CallsOf(paint), whole);
  }

  const PaintingNotesRef notes_ = std::make_shared<PaintingNotes>();
  std::uint32_t backgroundAfter_ = 0;
};

}  // namespace quenzel7::test

/// The words in which a test of painting is written, to be taken over as a whole.
namespace quenzel7::test::text_painting {

using test::Block;
using test::Calls;
using test::ErrorOf;
using test::InARow;
using test::InColors;
using test::InOwnColors;
using test::kMost;
using test::kPaper;
using test::kSunkenGround;
using test::OneLine;
using test::PositionAsked;
using test::RaisedGround;
using test::TwoLines;

}  // namespace quenzel7::test::text_painting
