/// How a variable follows the mouse, and where it may stand.
#include <gtest/gtest.h>

#include <limits>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "shapes/bitmap.h"
#include "tests/support/raises.h"
#include "tests/support/text_fixture.h"
#include "tests/support/variable_fixture.h"

namespace quenzel7 {
namespace {

using automation::Array;
using automation::Bounds;
using automation::Variant;
using automation::VariantKind;
using test::CallLog;
using test::DescriptorOf;
using test::ErrorOf;
using test::TypeOf;

constexpr Long kMost = std::numeric_limits<Long>::max();
constexpr Long kLeast = std::numeric_limits<Long>::min();

bool ShowsPicture(Long type) { return type == 1 || type == 4 || type == 12 || type == 20; }

class DraggedVariable : public test::VariableTest {
 protected:
  /// What a variable answers as another type, with all it has left as it is.
  static Descriptor AnswerAs(clsVar& variable, enVarType other, Long location) {
    const enVarType type = variable.VarType();
    variable.VarType(other);
    const Descriptor answer = DescriptorOf(variable, location);
    variable.VarType(type);
    return answer;
  }
  /// One of the four descriptors, which these types tell.
  static Descriptor At(clsVar& variable, Long location) { return AnswerAs(variable, eVT_DateTime, location); }
  /// The frame of the stretch, which these types tell.
  static Descriptor BoundsOf(clsVar& variable) { return AnswerAs(variable, eVT_MovingImage, 1); }

  static void Drag(clsVar& variable, Long dx, Long dy, Long direction) {
    ItfHmiElement& element = variable;
    EXPECT_EQ(element.UpdateBoundingRectangle(dx, dy, direction), Variant());
  }

  /// What ShowElsewhere shows.
  static constexpr Descriptor kElsewhere{7, 16, 33, 44};

  /// Shows the variable where it is not at rest. All else is as before, and nothing of it is in the log.
  void ShowElsewhere(clsVar& variable) {
    ItfHmiElement& element = variable;
    Drag(variable, -3, -4, ePD_UpLeft);
    element.UpdateDisplayWithTransx();
    element.Move(0, 0);
    TakeLog();
  }
};

// --- The frame of pictures ---

/// Two steps of an edge, and the edges of the frame after each.
struct EdgeSteps {
  Long first, near1, far1;
  Long second, near2, far2;
};

/// Of a frame from 10 to 40, and of one from 20 to 60.
constexpr EdgeSteps kRight[] = {{5, 10, 45, 7, 10, 47}, {-29, 10, 11, -30, 10, 10}, {-30, 10, 10, -31, 9, 10},
                                {-31, 9, 10, 5, 9, 44}, {-31, 9, 10, -30, 9, 9},    {-40, 0, 10, -35, 5, 10}};
constexpr EdgeSteps kLeft[] = {{-5, 5, 40, -7, 3, 40},  {29, 39, 40, 30, 40, 40}, {30, 40, 40, 31, 40, 41},
                               {31, 40, 41, -5, 6, 41}, {31, 40, 41, 30, 41, 41}, {40, 40, 50, 35, 40, 45}};
constexpr EdgeSteps kBottom[] = {{5, 20, 65, 7, 20, 67},     {-39, 20, 21, -40, 20, 20},
                                 {-40, 20, 20, -41, 19, 20}, {-41, 19, 20, 5, 19, 64},
                                 {-41, 19, 20, -40, 19, 19}, {-50, 10, 20, -45, 15, 20}};
constexpr EdgeSteps kTop[] = {{-5, 15, 60, -7, 13, 60}, {39, 59, 60, 40, 60, 60}, {40, 60, 60, 41, 60, 61},
                              {41, 60, 61, -5, 16, 61}, {41, 60, 61, 40, 61, 61}, {50, 60, 70, 45, 60, 65}};
constexpr EdgeSteps kStillX[] = {{5, 10, 40, -50, 10, 40}};
constexpr EdgeSteps kStillY[] = {{5, 20, 60, -50, 20, 60}};

constexpr struct {
  Long direction;
  std::span<const EdgeSteps> x, y;
} kDirections[] = {
    {ePD_UpRight, kRight, kTop},      {ePD_Right, kRight, kStillY},     {ePD_DownRight, kRight, kBottom},
    {ePD_Down, kStillX, kBottom},     {ePD_LeftDown, kLeft, kBottom},   {ePD_Left, kLeft, kStillY},
    {ePD_UpLeft, kLeft, kTop},        {ePD_Up, kStillX, kTop},          {ePD_None, kStillX, kStillY},
    {ePD_LineHead, kStillX, kStillY}, {ePD_LineTail, kStillX, kStillY}, {-1, kStillX, kStillY},
    {kMost, kStillX, kStillY},
};

TEST_F(DraggedVariable, OfAPictureOrAMeterMovesTheEdgesOfItsFrameFromTheLastStep) {
  for (const Long type : {1, 4, 12, 20, 21}) {
    for (const Long global : {0, 5}) {
      for (const auto& drag : kDirections) {
        for (const EdgeSteps& x : drag.x) {
          for (const EdgeSteps& y : drag.y) {
            const auto variable = Of(type);
            variable->GlobalVarID(global);
            ShowElsewhere(*variable);
            const auto expect = [&](Long left, Long top, Long right, Long bottom) {
              const Descriptor frame{left, top, right - left, bottom - top};
              EXPECT_EQ(BoundsOf(*variable), frame)
                  << type << ", " << drag.direction << ": " << x.first << ' ' << y.first;
              EXPECT_EQ(At(*variable, 3), frame);
            };
            Drag(*variable, x.first, y.first, drag.direction);
            expect(x.near1, y.near1, x.far1, y.far1);
            Drag(*variable, x.second, y.second, drag.direction);
            expect(x.near2, y.near2, x.far2, y.far2);
            for (const Long location : {1, 2}) {
              EXPECT_EQ(At(*variable, location), (Descriptor{10, 20, 30, 40}));
            }
            EXPECT_EQ(At(*variable, 4), kElsewhere);
          }
        }
      }
    }
  }
}

TEST_F(DraggedVariable, ThatDoesNotFit32BitsIsAnOverflow) {
  const struct {
    Long dx, dy, direction;
  } kSteps[] = {{kLeast, 0, ePD_Right}, {kMost, 0, ePD_Right}, {kLeast, 0, ePD_Left}, {kMost, 0, ePD_Left},
                {0, kLeast, ePD_Down},  {0, kMost, ePD_Down},  {0, kLeast, ePD_Up},   {0, kMost, ePD_Up}};
  for (const Long type : {1, 5}) {
    for (const auto& [dx, dy, direction] : kSteps) {
      const auto variable = Of(type);
      ItfHmiElement& element = *variable;
      EXPECT_EQ(ErrorOf([&, dx = dx, dy = dy, direction = direction] {
                  element.UpdateBoundingRectangle(dx, dy, direction);
                }),
                6)
          << type << ", " << direction;
    }
  }
}

TEST_F(DraggedVariable, AMeterStopsPaintingBeforeItsFrameOverflows) {
  for (const Long id : {-1, 5}) {
    const auto meter = Of(21);
    meter->ID(id);
    EXPECT_EQ(ErrorOf([&] { Drag(*meter, kMost, 0, ePD_Right); }), 6);
    EXPECT_EQ(TakeLog(), id == -1 ? CallLog{} : CallLog{"handler.SuspendPainting(True)"});
  }
}

TEST_F(DraggedVariable, AMeterWithARowStopsPaintingUntilItIsStretched) {
  for (const Long id : {-1, 0, 5}) {
    const auto meter = Of(21);
    meter->ID(id);
    Drag(*meter, 3, 0, ePD_Right);
    EXPECT_EQ(TakeLog(), id == -1 ? CallLog{} : CallLog{"handler.SuspendPainting(True)"}) << id;
    static_cast<ItfHmiElement&>(*meter).Stretch(0, 0, ePD_Right);
    EXPECT_EQ(TakeLog(), (CallLog{"handler.SuspendPainting(False)",
                                  "handler.ResizeImages(33, 40, " + std::to_string(id) + ", 1)"}));
  }
  for (Long type = 1; type <= 30; ++type) {
    if (type == 21) continue;
    const auto variable = Of(type);
    Drag(*variable, 3, 0, ePD_Right);
    EXPECT_EQ(TakeLog(), CallLog{}) << type;
  }
}

// --- The stretch of all others ---

TEST_F(DraggedVariable, OfOtherTypesIsStretchedFromRestEachTime) {
  const struct {
    Long dx, dy, direction;
    Descriptor expected;
  } kSteps[] = {{5, 6, ePD_DownRight, {10, 20, 35, 46}}, {-35, 0, ePD_Right, {5, 20, 5, 40}},
                {3, 4, ePD_UpLeft, {13, 24, 27, 36}},    {5, 6, ePD_LeftDown, {15, 20, 25, 46}},
                {7, 8, ePD_UpRight, {10, 28, 37, 32}},   {7, 8, ePD_Down, {10, 20, 30, 48}},
                {7, 8, ePD_Up, {10, 28, 30, 32}},        {7, 8, ePD_Left, {17, 20, 23, 40}},
                {7, 8, ePD_None, {10, 20, 30, 40}},      {7, 8, ePD_LineHead, {10, 20, 30, 40}},
                {35, 45, ePD_UpLeft, {40, 60, 5, 5}}};
  for (Long type = 1; type <= 30; ++type) {
    if (ShowsPicture(type) || type == 21) continue;
    const auto variable = Of(type);
    ShowElsewhere(*variable);
    for (const auto& [dx, dy, direction, expected] : kSteps) {
      Drag(*variable, dx, dy, direction);
      EXPECT_EQ(At(*variable, 3), expected) << type << ", " << direction;
      EXPECT_EQ(BoundsOf(*variable), expected) << type << ", " << direction;
    }
    for (const Long location : {1, 2}) EXPECT_EQ(At(*variable, location), (Descriptor{10, 20, 30, 40}));
    EXPECT_EQ(At(*variable, 4), kElsewhere);
  }
}

TEST_F(DraggedVariable, OfAGlobalVariableOfOtherTypesStays) {
  const auto variable = Of(8);
  ItfHmiElement& element = *variable;
  Drag(*variable, 5, 6, ePD_DownRight);
  for (const Long global : {1, 5}) {
    variable->GlobalVarID(global);
    Drag(*variable, -7, -8, ePD_DownRight);
    EXPECT_EQ(At(*variable, 3), (Descriptor{10, 20, 35, 46}));
    EXPECT_EQ(BoundsOf(*variable), (Descriptor{10, 20, 35, 46}));
    TakeLog();
    element.Stretch(0, 0, ePD_UpLeft);
    EXPECT_EQ(At(*variable, 3), (Descriptor{10, 20, 35, 46}));
    EXPECT_EQ(TakeLog(), CallLog{"handler.ResizeImages(35, 46, 5, 1)"});
  }
  for (const Long global : {0, -1}) {
    variable->GlobalVarID(global);
    Drag(*variable, -7, -8, ePD_DownRight);
    EXPECT_EQ(At(*variable, 3), (Descriptor{10, 20, 23, 32}));
  }
}

TEST_F(DraggedVariable, AGlobalMeterIsNotToldToPaintAgain) {
  const auto meter = Of(21);
  meter->GlobalVarID(5);
  static_cast<ItfHmiElement&>(*meter).Stretch(0, 0, ePD_Right);
  EXPECT_EQ(TakeLog(), CallLog{"handler.ResizeImages(30, 40, 5, 1)"});
}

TEST_F(DraggedVariable, StretchedToOnePixelGoesBackToItsLastLegalPlace) {
  const struct {
    Long dx, dy;
    bool back;
  } kSteps[] = {{-29, 0, true}, {-28, 0, false}, {-30, 0, false}, {-31, 0, true},
                {0, -39, true}, {0, -38, false}, {0, -40, false}, {-29, -39, true}};
  for (const auto& [dx, dy, back] : kSteps) {
    const auto variable = Of(5);
    ItfHmiElement& element = *variable;
    element.Move(1, 2);
    element.SaveLastLegalPosition();
    Drag(*variable, dx, dy, ePD_DownRight);
    // The frame has what was asked for all the same.
    const Descriptor asked = dx == -31 ? Descriptor{9, 20, 1, 40} : Descriptor{10, 20, 30 + dx, 40 + dy};
    EXPECT_EQ(BoundsOf(*variable), asked) << dx << ' ' << dy;
    EXPECT_EQ(At(*variable, 3), back ? (Descriptor{11, 22, 30, 40}) : asked) << dx << ' ' << dy;
  }
}

TEST_F(DraggedVariable, AStretchTakesTheSizeOfTheFrameAndHasThePicturesResized) {
  for (Long type = 1; type <= 30; ++type) {
    const auto variable = Of(type);
    variable->DefaultDisplay(3);
    ShowElsewhere(*variable);
    ItfHmiElement& element = *variable;
    Drag(*variable, 5, 6, ePD_DownRight);
    TakeLog();
    // Whatever numbers it is given.
    element.Stretch(99, -99, ePD_DownRight);
    EXPECT_EQ(At(*variable, 3), (Descriptor{10, 20, 35, 46})) << type;
    EXPECT_EQ(BoundsOf(*variable), (Descriptor{10, 20, 35, 46})) << type;
    const std::string resized = "handler.ResizeImages(35, 46, 5, 3)";
    EXPECT_EQ(TakeLog(),
              type == 21 ? (CallLog{"handler.SuspendPainting(False)", resized}) : CallLog{resized});
  }
}

TEST_F(DraggedVariable, AStretchByAPickUpAtTheLeftOrAboveGoesTheOtherWay) {
  const auto variable = Of(1);
  ItfHmiElement& element = *variable;
  Drag(*variable, -5, -6, ePD_UpLeft);
  EXPECT_EQ(BoundsOf(*variable), (Descriptor{5, 14, 35, 46}));
  element.Stretch(-5, -6, ePD_UpLeft);
  EXPECT_EQ(At(*variable, 3), (Descriptor{15, 26, 25, 34}));
  EXPECT_EQ(BoundsOf(*variable), (Descriptor{15, 26, 25, 34}));
  EXPECT_EQ(TakeLog(), CallLog{"handler.ResizeImages(25, 34, 5, 1)"});
}

TEST_F(DraggedVariable, AStretchToOnePixelResizesToTheFrame) {
  const auto variable = Of(1);
  ItfHmiElement& element = *variable;
  element.Move(1, 2);
  element.SaveLastLegalPosition();
  variable->SetBinaryHandler(eVT_DateTime, handler_);
  element.Move(0, 0);
  Drag(*variable, -29, 0, ePD_Right);
  EXPECT_EQ(At(*variable, 3), (Descriptor{10, 20, 1, 40}));
  element.Stretch(0, 0, ePD_Right);
  EXPECT_EQ(At(*variable, 3), (Descriptor{11, 22, 30, 40}));
  EXPECT_EQ(BoundsOf(*variable), (Descriptor{10, 20, 1, 40}));
  EXPECT_EQ(TakeLog(), CallLog{"handler.ResizeImages(1, 40, 5, 1)"});
}

// --- Days and months ---

/// Lines of a file in memory.
class HeldLines final : public scripting::TextStream {
 public:
  std::string ReadLine() override { return lines_[next_++]; }
  bool AtEndOfStream() override { return next_ == lines_.size(); }

 private:
  const CallLog lines_ = {"//Day Of Week//", "abc",     "abcde", "", "//Day Of Month//", "abcd", "",
                          "//Month//",       "abcdefgh"};
  std::size_t next_ = 0;
};

class HeldFiles final : public scripting::Files {
 public:
  std::string asked;

  scripting::TextStreamRef OpenTextFile(const std::string& path) override {
    asked = path;
    return std::make_shared<HeldLines>();
  }
};

class DraggedTimeFunction : public DraggedVariable {
 protected:
  void SetUp() override {
    DraggedVariable::SetUp();
    services_.Install();
    Platform::Current().files = files_;
    // New texts have no frame.
    const auto settings = std::make_shared<corvane1::LayeredSettings>(Platform::Current().heldProject);
    settings->Set(6000, 6043, "0");
    Platform::Current().settings = settings;
  }

  /// A time function whose last legal place is (11, 22), in a font of 4 by 8 pixels.
  std::shared_ptr<clsVar> Make(Long format, Long style) {
    auto variable = Of(6);
    element_->fontNumber = 3;
    element_->flat3D = style;
    handler_->formatType = format;
    handler_->calendarLanguage = 2;
    ItfHmiElement& element = *variable;
    element.Move(1, 2);
    element.SaveLastLegalPosition();
    files_->asked.clear();
    return variable;
  }

  test::CountingServices services_;
  const std::shared_ptr<HeldFiles> files_ = std::make_shared<HeldFiles>();
};

TEST_F(DraggedTimeFunction, KeepsRoomForTheLargestWordOnEachAxisForItself) {
  const struct { Long format, width; } kFormats[] = {{2, 20}, {3, 16}, {4, 32}};
  for (const auto& [format, width] : kFormats) {
    for (const Long style : {-1, 0, 1, 2, 3, 4}) {
      const Long margins = style == 1 || style == 3 ? 16 : 2;
      const Long least = margins + width, leastHeight = margins + 8;
      for (const Long moreDx : {-1, 0, 1}) {
        for (const Long moreDy : {-1, 0, 1}) {
          const auto variable = Make(format, style);
          const Long byX = 30 - least - moreDx, byY = 40 - leastHeight - moreDy;
          Drag(*variable, byX, byY, ePD_UpLeft);
          const Descriptor asked{10 + byX, 20 + byY, 30 - byX, 40 - byY};
          Descriptor expected = asked;
          if (moreDx < 0) expected.xs = 11, expected.dx = 30;
          if (moreDy < 0) expected.ys = 22, expected.dy = 40;
          EXPECT_EQ(At(*variable, 3), expected) << format << ' ' << style << ' ' << moreDx << ' ' << moreDy;
          EXPECT_EQ(BoundsOf(*variable), asked);
        }
      }
    }
  }
}

TEST_F(DraggedTimeFunction, LooksForItsWordsInTheLanguageOfItsHandler) {
  Drag(*Make(2, 0), 1, 1, ePD_Right);
  EXPECT_EQ(files_->asked, Platform::Current().projectDatabase->Path() + "\\..\\Strings\\Calendar_Dutch.txt");
  const auto variable = Make(4, 0);
  handler_->calendarLanguage = 12;
  EXPECT_EQ(ErrorOf([&] { Drag(*variable, 1, 1, ePD_Right); }), 5);
}

TEST_F(DraggedTimeFunction, AsksForNoRoomInOtherFormatsAndTypes) {
  for (const Long format : {-1, 0, 1, 5, 6}) {
    const auto variable = Make(format, 1);
    Drag(*variable, 27, 37, ePD_UpLeft);
    EXPECT_EQ(At(*variable, 3), (Descriptor{37, 57, 3, 3})) << format;
    EXPECT_EQ(files_->asked, "");
  }
  for (Long type = 1; type <= 30; ++type) {
    if (type == 6) continue;
    const auto variable = Of(type);
    handler_->formatType = 2;
    Drag(*variable, 27, 37, ePD_UpLeft);
    static_cast<ItfHmiElement&>(*variable).Stretch(0, 0, ePD_Right);
    EXPECT_EQ(files_->asked, "") << type;
  }
}

TEST_F(DraggedTimeFunction, AGlobalOneIsNotMeasured) {
  const auto variable = Make(2, 1);
  variable->GlobalVarID(1);
  Drag(*variable, 27, 37, ePD_UpLeft);
  EXPECT_EQ(files_->asked, "");
}

TEST_F(DraggedTimeFunction, GoesBackToItsLastLegalPlaceFromOnePixelAfterTheRoomIsKept) {
  const auto variable = Make(2, 0);
  // Too narrow, which is put right; not one pixel high.
  Drag(*variable, -29, 0, ePD_Right);
  EXPECT_EQ(At(*variable, 3), (Descriptor{11, 20, 30, 40}));
  // In a format without words.
  handler_->formatType = 1;
  Drag(*variable, -29, 0, ePD_Right);
  EXPECT_EQ(At(*variable, 3), (Descriptor{11, 22, 30, 40}));
}

// --- Descriptors ---

TEST_F(DraggedVariable, AMoveTakesTheFrameAlong) {
  for (const Long type : {1, 5}) {
    const auto variable = Of(type);
    ItfHmiElement& element = *variable;
    Drag(*variable, 5, 6, ePD_DownRight);
    element.Move(-3, 7);
    EXPECT_EQ(At(*variable, 3), (Descriptor{7, 27, 30, 40}));
    EXPECT_EQ(BoundsOf(*variable), (Descriptor{7, 27, 30, 40}));
    element.Move(1, 1);
    EXPECT_EQ(BoundsOf(*variable), (Descriptor{11, 21, 30, 40}));
    EXPECT_EQ(ErrorOf([&] { element.Move(kMost, 0); }), 6);
  }
}

TEST_F(DraggedVariable, CopiesItsDescriptorsAsAllElementsDo) {
  const auto variable = Of(5);
  ItfHmiElement& element = *variable;
  element.Move(1, 0);
  element.SaveLastLegalPosition();
  element.Move(2, 0);
  element.UpdateDisplayWithTransx();
  element.Move(3, 0);
  for (const Long location : {1, 2, 3, 4}) {
    const Long xs[] = {10, 11, 13, 12};
    EXPECT_EQ(At(*variable, location), (Descriptor{xs[location - 1], 20, 30, 40}));
  }
  EXPECT_EQ(BoundsOf(*variable), (Descriptor{13, 20, 30, 40}));
  element.UpdateInitialDescriptor();
  EXPECT_EQ(At(*variable, 1), (Descriptor{11, 20, 30, 40}));
  EXPECT_EQ(BoundsOf(*variable), (Descriptor{13, 20, 30, 40}));
  element.Move(5, 0);
  element.SaveInitialPosition();
  EXPECT_EQ(At(*variable, 2), (Descriptor{11, 20, 30, 40}));
  EXPECT_EQ(At(*variable, 4), (Descriptor{11, 20, 30, 40}));
  EXPECT_EQ(At(*variable, 3), (Descriptor{16, 20, 30, 40}));
  EXPECT_EQ(BoundsOf(*variable), (Descriptor{16, 20, 30, 40}));
}

TEST_F(DraggedVariable, ShowingTheLastLegalPlaceTakesTheFrameBack) {
  for (const Long type : {1, 5}) {
    const auto variable = Of(type);
    ItfHmiElement& element = *variable;
    Drag(*variable, 5, 6, ePD_DownRight);
    element.SaveLastLegalPosition();
    Drag(*variable, 50, 60, ePD_DownRight);
    element.UpdateDisplayWithTransx();
    const Descriptor far = BoundsOf(*variable);
    EXPECT_NE(far, (Descriptor{10, 20, 35, 46}));
    element.UpdateDisplayWithLastLegal();
    EXPECT_EQ(At(*variable, 4), (Descriptor{10, 20, 35, 46}));
    EXPECT_EQ(BoundsOf(*variable), (Descriptor{10, 20, 35, 46}));
    EXPECT_EQ(At(*variable, 3), far);
  }
}

TEST_F(DraggedVariable, TakesItsPlaceFromTheFrame) {
  for (const Long type : {1, 5}) {
    const auto variable = Of(type);
    ItfHmiElement& element = *variable;
    Drag(*variable, -3, -7, ePD_UpLeft);
    const Descriptor frame{7, 13, 33, 47};
    EXPECT_EQ(BoundsOf(*variable), frame);
    element.GetSizeFromBoundingRect();
    for (Long location = 1; location <= 4; ++location) EXPECT_EQ(At(*variable, location), frame) << location;
    EXPECT_EQ(BoundsOf(*variable), frame);
  }
}

TEST_F(DraggedVariable, OnlyPicturesTellTheFrameForTheirPlace) {
  for (Long type = 1; type <= 30; ++type) {
    const auto variable = Of(type);
    ItfHmiElement& element = *variable;
    element.Move(1, 0);
    element.SaveLastLegalPosition();
    element.Move(2, 0);
    element.UpdateDisplayWithTransx();
    element.Move(3, 0);
    for (const Long location : {1, 2, 3, 4}) {
      const Long xs[] = {10, 11, 13, 12};
      const Long expected = ShowsPicture(type) ? 13 : xs[location - 1];
      EXPECT_EQ(DescriptorOf(*variable, location), (Descriptor{expected, 20, 30, 40})) << type;
    }
    for (const Long location : {-1, 0, 5}) {
      EXPECT_EQ(ErrorOf([&] { DescriptorOf(*variable, location); }), ShowsPicture(type) ? 0 : 9) << type;
    }
  }
}

TEST_F(DraggedVariable, OfAPictureIsHitAtRest) {
  const auto variable = Of(1);
  ItfHmiElement& element = *variable;
  Drag(*variable, 50, 60, ePD_DownRight);
  EXPECT_TRUE(element.HitTestByPoint(39, 59));
  EXPECT_FALSE(element.HitTestByPoint(40, 59));
  EXPECT_FALSE(element.HitTestByRect(41, 61, 5, 5));
  EXPECT_EQ(element.GetPupDirection(42, 62, 3), ePD_DownRight);
}

// --- Where it may stand ---

enCollisionStatus StateOf(clsVar& variable, Variant& map) {
  return static_cast<ItfHmiElement&>(variable).GetTransformState(map);
}

Variant Map(VariantKind kind = VariantKind::Byte) { return Array(kind, Bounds{0, 300}, Bounds{0, 200}); }

void Mark(Variant& map, Long x, Long y, Long mark) { map.MutableElements().Set(x, y, mark); }

TEST_F(DraggedVariable, AShapeIsAtMost128By64) {
  for (Long type = 1; type <= 30; ++type) {
    const struct {
      Long dx, dy;
      bool fits;
    } kSizes[] = {{128, 64, true}, {129, 64, false}, {128, 65, false}, {1, 65, false}, {130, 1, false}};
    for (const auto& [dx, dy, fits] : kSizes) {
      const auto variable = Of(type);
      element_->dx = element_->dy = 0;
      variable->Dx(dx);
      variable->Dy(dy);
      Variant map = Map();
      EXPECT_EQ(StateOf(*variable, map), fits || type != 18 ? eCS_Legall : eCS_OutOfRAnge)
          << type << ' ' << dx;
    }
  }
  // Judged before the map is looked at.
  const auto shape = Of(18);
  shape->Dx(129);
  Variant none;
  EXPECT_EQ(StateOf(*shape, none), eCS_OutOfRAnge);
  shape->Dx(128);
  EXPECT_EQ(ErrorOf([&] { StateOf(*shape, none); }), 13);
}

TEST_F(DraggedVariable, AMovingPictureHasRoomForIt) {
  for (Long type = 1; type <= 30; ++type) {
    const struct {
      Long dx, dy;
      bool fits;
    } kPictures[] = {{30, 40, true}, {31, 40, false}, {30, 41, false}, {29, 39, true}};
    for (const auto& [dx, dy, fits] : kPictures) {
      const auto variable = Of(type);
      element_->dx = dx;
      element_->dy = dy;
      Variant map = Map();
      EXPECT_EQ(StateOf(*variable, map), fits || type != 20 ? eCS_Legall : eCS_OutOfRAnge)
          << type << ' ' << dx;
    }
  }
  const auto moving = Of(20);
  element_->dx = 31;
  Variant none;
  EXPECT_EQ(StateOf(*moving, none), eCS_OutOfRAnge);
  element_->dx = 30;
  EXPECT_EQ(ErrorOf([&] { StateOf(*moving, none); }), 13);
}

TEST_F(DraggedVariable, AMovingPictureIsMeasuredByThePictureOfItsElementWhereThatHoldsOne) {
  const struct {
    Long dx, dy;
    bool fits;
  } kPictures[] = {{30, 40, true}, {31, 40, false}, {30, 41, false}};
  for (const auto& [dx, dy, fits] : kPictures) {
    const auto bitmap = std::make_shared<clsBitmap>();
    static_cast<ItfImage&>(*bitmap).Dx(dx);
    static_cast<ItfImage&>(*bitmap).Dy(dy);
    const auto moving = Of(20);
    moving->SetBinaryHandler(eVT_MovingImage,
                             std::make_shared<test::HandlerDouble>("image", Notes(), bitmap));
    // The size of the element says the opposite.
    const Long other = fits ? 500 : 5;
    static_cast<ItfHmiElement&>(*bitmap).Dx(other);
    static_cast<ItfHmiElement&>(*bitmap).Dy(other);
    Variant map = Map();
    EXPECT_EQ(StateOf(*moving, map), fits ? eCS_Legall : eCS_OutOfRAnge) << dx << ' ' << dy;
  }
}

TEST_F(DraggedVariable, AMovingPictureIsMeasuredByWhatIsProposed) {
  const auto moving = Of(20);
  element_->dx = 20;
  Drag(*moving, -11, 0, ePD_Right);
  // The frame goes back, what is proposed stays.
  static_cast<ItfHmiElement&>(*moving).UpdateDisplayWithLastLegal();
  Variant map = Map();
  EXPECT_EQ(StateOf(*moving, map), eCS_OutOfRAnge);
  element_->dx = 19;
  EXPECT_EQ(StateOf(*moving, map), eCS_Legall);
}

TEST_F(DraggedVariable, MayNotStandOnAMark) {
  for (const VariantKind kind : {VariantKind::Byte, VariantKind::Integer, VariantKind::Long,
                                 VariantKind::Double, VariantKind::Variant}) {
    for (const Long type : {1, 4, 5, 8, 12, 20, 21}) {
      const auto variable = Of(type);
      element_->dx = element_->dy = 0;
      ItfHmiElement& element = *variable;
      // What is proposed is at (50, 60), the frame of the stretch at (10, 20).
      element.Move(40, 40);
      element.UpdateDisplayWithLastLegal();
      const Long x = ShowsPicture(type) ? 10 : 50, y = ShowsPicture(type) ? 20 : 60;
      const struct {
        Long x, y, mark;
        bool meets;
      } kMarks[] = {{x, y, 1, true},           {x + 29, y, 1, true},       {x, y + 39, 1, true},
                    {x + 29, y + 39, 1, true}, {x + 12, y + 17, 1, true},  {x - 1, y, 1, false},
                    {x, y - 1, 1, false},      {x + 30, y + 39, 1, false}, {x + 29, y + 40, 1, false},
                    {x + 5, y + 5, 2, false},  {x + 5, y + 5, 0, false}};
      for (const auto& mark : kMarks) {
        Variant map = Map(kind);
        Mark(map, mark.x, mark.y, mark.mark);
        EXPECT_EQ(StateOf(*variable, map), mark.meets ? eCS_Overlap : eCS_Legall)
            << type << ": " << mark.x << ' ' << mark.y << ' ' << mark.mark;
      }
    }
  }
}

TEST_F(DraggedVariable, OutOfTheMapIsOutOfRangeWhateverItStandsOn) {
  const auto variable = Of(5);
  variable->Dx(290);
  Variant map = Map();
  EXPECT_EQ(StateOf(*variable, map), eCS_Legall);
  Mark(map, 10, 20, Long{1});
  EXPECT_EQ(StateOf(*variable, map), eCS_Overlap);
  variable->Dx(291);
  EXPECT_EQ(StateOf(*variable, map), eCS_OutOfRAnge);
  variable->Dx(0);
  Variant empty = Map();
  EXPECT_EQ(StateOf(*variable, empty), eCS_Overlap);
}

TEST_F(DraggedVariable, OfAPictureIsOutOfRangeByItsFrame) {
  const auto variable = Of(1);
  ItfHmiElement& element = *variable;
  Variant map = Map();
  element.Move(400, 0);
  EXPECT_EQ(StateOf(*variable, map), eCS_OutOfRAnge);
  element.UpdateDisplayWithLastLegal();
  EXPECT_EQ(StateOf(*variable, map), eCS_Legall);
}

// --- What it needs ---

TEST_F(DraggedVariable, NeedsWhatItsHandlerSaysOfItsSizeAtRestInItsFont) {
  for (Long type = 1; type <= 30; ++type) {
    for (const Long storage : {0, -1, 1}) {
      for (const Long global : {-1, 0, 1}) {
        const auto variable = Of(type);
        variable->FontNumber(12);
        variable->GlobalVarID(global);
        handler_->storageText = storage;
        handler_->moreDx = 3;
        handler_->moreDy = 4;
        ItfHmiElement& element = *variable;
        element.Move(100, 100);
        if (global < 1) Drag(*variable, 5, 6, ePD_DownRight);
        element.UpdateDisplayWithTransx();
        TakeLog();
        Descriptor needs{1, 2, 3, 4};
        element.GetOptimalDimensions(needs.xs, needs.ys, needs.dx, needs.dy);
        const bool stops = global > 0 && (type == 1 || type == 4 || type == 12);
        const bool isLibraryText = storage == -1 && (type == 2 || type == 3 || type == 8 || type == 11 ||
                                                     type == 13 || type == 29 || type == 30);
        CallLog expected;
        if (!stops && !isLibraryText) expected.push_back("element.FontNumber=12");
        if (!stops) expected.push_back("handler.GetOptimalDimensions(30, 40)");
        EXPECT_EQ(TakeChanges(), expected) << type << ' ' << storage << ' ' << global;
        EXPECT_EQ(needs, stops ? (Descriptor{10, 20, 30, 40}) : (Descriptor{10, 20, 33, 44})) << type;
      }
    }
  }
}

TEST_F(DraggedVariable, TellsHostsWhatItNeedsByName) {
  const auto variable = Of(8);
  handler_->moreDx = 3;
  handler_->moreDy = 4;
  for (const automation::Interface* const asked :
       {&clsVar::ClassOf().Default(), &ItfHmiElement::InterfaceOf()}) {
    Variant needs[] = {Variant(Long{1}), Variant(Long{2}), Variant(Long{3}), Variant(Long{4})};
    automation::CallByName(*variable, *asked, "GetOptimalDimensions", automation::CallKind::Method, needs);
    const Long expected[] = {10, 20, 33, 44};
    for (std::size_t place = 0; place < 4; ++place)
      EXPECT_EQ(needs[place], Variant(expected[place])) << place;
  }
}

}  // namespace
}  // namespace quenzel7
