/// What texts and frames share: their properties and what each writer does beyond storing, fitting, and what
/// of the element contract they do not carry.
#include "shapes/text_bearing_element.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/touch_style.h"
#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "tests/support/font_double.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"
#include "tests/support/text_fixture.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::Interface;
using automation::InvokeByName;
using automation::PutByName;
using automation::Variant;
using test::CallLog;
using test::DescriptorOf;
using test::ErrorOf;
using test::Placed;

template <class Element>
using TextBearing = test::TextBearing<Element>;
TYPED_TEST_SUITE(TextBearing, test::TextBearingTypes, test::ClassNameOfShape);

const Interface& Contract() { return ItfHmiElement::InterfaceOf(); }

// --- The classes and their members ---

TYPED_TEST(TextBearing, PublishesItsDefaultInterfaceInSlotOrder) {
  constexpr bool kIsText = std::is_same_v<TypeParam, clsText>;
  CallLog expected;
  const auto property = [&](const std::string& name, const std::string& type) {
    expected.push_back("get " + name + "() As " + type);
    expected.push_back("put " + name + "(" + type + ")");
  };
  for (const char* name : {"ID", "GroupID", "Xs", "Ys", "Dx", "Dy", "ColorBack", "ColorFore",
                           "ColorBackTouch", "ColorForeTouch", "TouchOprndAddr"}) {
    property(name, "Long");
  }
  property("Txt", "String");
  property("ActualText", "String");
  property("FontNumber", "Long");
  if (kIsText) property("VisibleOpAddr", "Long");
  expected.push_back("get ColOpPropBag() As Collection");
  expected.push_back("putref ColOpPropBag(Collection)");
  property("Alignment", "Integer");
  for (const char* name : {"Flat3D", "StorageStringType", "StorageStringID", "TabIndex", "OrderIndex"}) {
    property(name, "Long");
  }
  if (kIsText) {
    property("IsCanceled", "Boolean");
  } else {
    expected.push_back("call DrawTransparent(Long)");
  }
  expected.push_back("call GetOptimalDimensions(ByRef Long, ByRef Long)");
  expected.push_back("call SaveToDB() As Boolean");
  expected.push_back("call ItfHmiElement_CreateStaticElementPrinterReport(Object)");
  EXPECT_EQ(TypeParam::ClassOf().Default().Slots(), expected);
  EXPECT_EQ(TypeParam::ClassOf().Default().Name(), kIsText ? "_clsText" : "_clsFrame");
  EXPECT_EQ(TypeParam::ClassOf().name, kIsText ? "clsText" : "clsFrame");
  ASSERT_EQ(TypeParam::ClassOf().interfaces.size(), 2u);
  EXPECT_EQ(TypeParam::ClassOf().interfaces[1], &Contract());
  EXPECT_EQ(TypeParam().ElementType(), kIsText ? 4 : 12);
}

TYPED_TEST(TextBearing, DocumentsItsMembersAsTheContractDoesWhereTheyAreTheSame) {
  for (const automation::Member& member : TypeParam::ClassOf().Default().Members()) {
    EXPECT_FALSE(member.documentation.empty()) << member.name;
  }
  const Interface& own = TypeParam::ClassOf().Default();
  for (const char* name : {"ID", "Xs", "ColorForeTouch", "TouchOprndAddr", "FontNumber", "Alignment",
                           "TabIndex", "OrderIndex"}) {
    EXPECT_EQ(own.Find(name)->documentation, Contract().Find(name)->documentation) << name;
  }
  EXPECT_EQ(own.Find("Flat3D")->documentation, TypeParam::kStyles);
}

TYPED_TEST(TextBearing, MarksWhatIsNotKeptAndWhatSaysWhichElementItIs) {
  using automation::Mark;
  const Interface& own = TypeParam::ClassOf().Default();
  for (const char* name : {"ID", "GroupID", "OrderIndex"}) {
    EXPECT_EQ(own.Find(name)->mark, Mark::Identity) << name;
  }
  EXPECT_EQ(own.Find("ActualText")->mark, Mark::Transient);
  const automation::Member* canceled = own.Find("IsCanceled");
  EXPECT_EQ(canceled != nullptr, (std::is_same_v<TypeParam, clsText>));
  if (canceled) {
    EXPECT_EQ(canceled->mark, Mark::Transient);
  }
  for (const char* name : {"Txt", "Flat3D", "StorageStringType", "StorageStringID", "TabIndex"}) {
    EXPECT_EQ(own.Find(name)->mark, Mark::None) << name;
  }
}

TYPED_TEST(TextBearing, StartsAsANewElementWithoutPlaceOperandsAndString) {
  TypeParam element;
  EXPECT_EQ(element.ID(), -1);
  EXPECT_EQ(element.GroupID(), -1);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(element, location), Descriptor{}) << location;
  }
  EXPECT_EQ(element.TouchOprndAddr(), -1);
  EXPECT_EQ(element.FontNumber(), 4);
  EXPECT_EQ(element.StorageStringType(), 0);
  EXPECT_EQ(element.StorageStringID(), -1);
  EXPECT_EQ(element.TabIndex(), 255);
  EXPECT_EQ(element.OrderIndex(), 0);
  EXPECT_FALSE(element.IsCanceled());
  EXPECT_FALSE(element.IsTouchable());
  ASSERT_NE(element.ColOpPropBag(), nullptr);
  EXPECT_EQ(element.ColOpPropBag()->Count(), 0);
  EXPECT_EQ(this->services_.ShownBy(element), "");
  EXPECT_NE(TypeParam().ColOpPropBag(), element.ColOpPropBag());
}

TYPED_TEST(TextBearing, TakesItsServicesWhenItIsMade) {
  CallLog log;
  this->services_.NoteInto([&](const std::string& call) { log.push_back(call); });
  int painters = 0;
  std::weak_ptr<corvane1::TextPainter> painter;
  Platform::Current().newTextPainter = [&] {
    ++painters;
    const auto made = std::make_shared<test::KeepingPainter>(std::make_shared<CallLog>());
    painter = made;
    return made;
  };
  auto colors = std::make_shared<test::TracedColors>();
  const std::weak_ptr<test::TracedColors> heldColors = colors;
  Platform::Current().colorService = colors;
  auto element = std::make_shared<TypeParam>();
  EXPECT_EQ(log, CallLog{"default font"});
  EXPECT_EQ(painters, 1);
  EXPECT_TRUE(colors->asked.empty());
  Platform::Current().colorService = std::make_shared<corvane1::PaletteColorService>();
  colors.reset();
  element->Dx(40);
  element->Dy(40);
  const gdi::Surface surface(8, 8);
  element->Draw(surface.Dc(), false);
  EXPECT_EQ(painters, 1);
  EXPECT_FALSE(painter.expired());
  EXPECT_FALSE(heldColors.expired());
  element.reset();
  EXPECT_TRUE(painter.expired());
  EXPECT_TRUE(heldColors.expired());
}

TYPED_TEST(TextBearing, CannotBeMadeWithoutATextPainter) {
  Platform::Current().newTextPainter = nullptr;
  EXPECT_RAISES(429, "the host makes no text painter", TypeParam());
  Platform::Current().newTextPainter = [] { return nullptr; };
  EXPECT_RAISES(429, "the host makes no text painter", TypeParam());
}

TYPED_TEST(TextBearing, PaintsAllLinesOfATextThatTheHostSetsAnewMeanwhile) {
  class Meddling final : public test::FontDouble {
   public:
    explicit Meddling(std::shared_ptr<TypeParam>& element)
        : FontDouble(std::make_shared<CallLog>()), element_(element) {}
    Long GetCharHeight(Long) override {
      element_->ActualText("");
      return 1;
    }

   private:
    std::shared_ptr<TypeParam>& element_;
  };
  auto element = std::make_shared<TypeParam>();
  element->ActualText("the first of three lines\r\nand the second\r\nand the third");
  Platform::Current().fontService = std::make_shared<Meddling>(element);
  EXPECT_EQ(this->services_.ShownBy(*element), "the first of three lines|and the second|and the third");
  EXPECT_EQ(this->services_.ShownBy(*element), "");
}

TYPED_TEST(TextBearing, PaintsAStringOfTheLibraryThatTheHostSetsAnewMeanwhile) {
  class Meddling final : public test::FontDouble {
   public:
    explicit Meddling(std::shared_ptr<TypeParam>& element)
        : FontDouble(std::make_shared<CallLog>()), element_(element) {}
    corvane1::TextPosition GetTextPosition(const std::string&, Long, Long, Long, Long, Long, Long,
                                           Long) override {
      element_->ActualText("");
      return {};
    }

   private:
    std::shared_ptr<TypeParam>& element_;
  };
  auto element = std::make_shared<TypeParam>();
  element->ActualText("a string of the library of some length");
  element->StorageStringID(5);
  Platform::Current().fontService = std::make_shared<Meddling>(element);
  EXPECT_EQ(this->services_.ShownBy(*element), "a string of the library of some length");
  EXPECT_EQ(this->services_.ShownBy(*element), "");
}

TYPED_TEST(TextBearing, KeepsNoFontServiceAndFitsWithTheOneOfTheTime) {
  const auto element = this->Small("abcdef");
  EXPECT_EQ(element->ActualText(), "abcdef");
  class Wide final : public test::FontDouble {
   public:
    Wide() : FontDouble(std::make_shared<CallLog>()) {}
    std::array<Long, 256> GetCharWidths(Long) override {
      std::array<Long, 256> widths;
      widths.fill(20);
      return widths;
    }
  };
  Platform::Current().fontService = std::make_shared<Wide>();
  EXPECT_EQ(element->ActualText(), "ab");
  EXPECT_EQ(element->FontNumber(), 0);
}

TYPED_TEST(TextBearing, CannotBeMadeFromASettingThatIsNoNumber) {
  const auto settings = std::make_shared<test::TracedSettings>();
  settings->answer = "thick";
  Platform::Current().settings = settings;
  EXPECT_EQ(ErrorOf([] { TypeParam(); }), 13);
}

// --- Properties ---

TYPED_TEST(TextBearing, KeepsWhatIsWrittenThroughEitherInterface) {
  struct Case {
    const char* name;
    Variant own, contract;
  };
  const Case cases[] = {
      {"ID", Long{70}, Long{71}},
      {"GroupID", Long{72}, Long{73}},
      {"Xs", Long{74}, Long{75}},
      {"Ys", Long{76}, Long{77}},
      {"Dx", Long{78}, Long{79}},
      {"Dy", Long{80}, Long{81}},
      {"ColorBack", Long{82}, Long{83}},
      {"ColorFore", Long{84}, Long{85}},
      {"ColorBackTouch", Long{86}, Long{87}},
      {"ColorForeTouch", Long{88}, Long{89}},
      {"Txt", "first", "second"},
      {"FontNumber", Long{3}, Long{2}},
      {"Alignment", Integer{8}, Integer{0}},
      {"TabIndex", Long{90}, Long{91}},
      {"OrderIndex", Long{92}, Long{93}},
  };
  TypeParam element;
  for (const Case& c : cases) {
    PutByName(element, c.name, c.own);
    EXPECT_EQ(GetByName(element, c.name), c.own) << c.name;
    EXPECT_EQ(GetByName(element, Contract(), c.name), c.own) << c.name;
    PutByName(element, Contract(), c.name, c.contract);
    EXPECT_EQ(GetByName(element, Contract(), c.name), c.contract) << c.name;
    EXPECT_EQ(GetByName(element, c.name), c.contract) << c.name;
  }
  // Each in a field of its own.
  for (const Case& c : cases) EXPECT_EQ(GetByName(element, c.name), c.contract) << c.name;
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(element, location), (Descriptor{75, 77, 79, 81})) << location;
  }
}

TYPED_TEST(TextBearing, TheMarkOfTheHostsIsThatOfTheContract) {
  TypeParam element;
  PutByName(element, Contract(), "IsCanceled", true);
  EXPECT_TRUE(element.IsCanceled());
  EXPECT_EQ(GetByName(element, Contract(), "IsCanceled"), Variant(true));
  if (std::is_same_v<TypeParam, clsText>) {
    EXPECT_EQ(GetByName(element, "IsCanceled"), Variant(true));
    PutByName(element, "IsCanceled", false);
    EXPECT_FALSE(element.IsCanceled());
  } else {
    EXPECT_EQ(ErrorOf([&] { GetByName(element, "IsCanceled"); }), 438);
  }
}

TYPED_TEST(TextBearing, ItsStyleIsWiderThanTheContractTells) {
  TypeParam element;
  element.Flat3D(Long{70000});
  EXPECT_EQ(element.Flat3D(), 70000);
  ItfHmiElement& contract = element;
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(contract.Flat3D()); }), 6);
  contract.Flat3D(Integer{-3});
  EXPECT_EQ(element.Flat3D(), -3);
  EXPECT_EQ(contract.Flat3D(), -3);
  element.Flat3D(Long{32767});
  EXPECT_EQ(contract.Flat3D(), 32767);
  element.Flat3D(Long{32768});
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(contract.Flat3D()); }), 6);
}

TYPED_TEST(TextBearing, ItsAlignmentIsA16BitNumber) {
  TypeParam element;
  EXPECT_EQ(ErrorOf([&] { PutByName(element, "Alignment", Long{32768}); }), 6);
  PutByName(element, "Alignment", Long{32767});
  EXPECT_EQ(element.Alignment(), 32767);
}

// --- What is shown ---

TYPED_TEST(TextBearing, OnlySomeWritersFitTheTextAnew) {
  struct Case {
    const char* name;
    Variant value;
    bool fits;
  };
  const std::vector<Case> cases = {
      {"ID", Long{7}, false},
      {"GroupID", Long{7}, false},
      {"Xs", Long{7}, false},
      {"Ys", Long{7}, false},
      {"Dx", Long{90}, true},
      {"Dy", Long{90}, true},
      {"ColorBack", Long{7}, false},
      {"ColorFore", Long{7}, false},
      {"ColorBackTouch", Long{7}, false},
      {"ColorForeTouch", Long{7}, false},
      {"Txt", "kept", true},
      {"FontNumber", Long{1}, true},
      {"Alignment", Integer{7}, false},
      {"Flat3D", Integer{1}, true},
      {"TabIndex", Long{7}, false},
      {"OrderIndex", Long{7}, false},
      {"IsCanceled", true, false},
      {"VisibleOpAddr", Long{7}, false},
  };
  CallLog log;
  this->services_.NoteInto([&](const std::string& call) { log.push_back(call); });
  for (const Interface* face : {&TypeParam::ClassOf().Default(), &Contract()}) {
    for (const Case& c : cases) {
      if (!face->Find(c.name)) continue;
      const auto element = this->Small("kept");
      element->ActualText("seen");
      log.clear();
      PutByName(*element, *face, c.name, c.value);
      const std::string font = std::to_string(element->FontNumber());
      EXPECT_EQ(log, c.fits ? (CallLog{"height of font " + font, "widths of font " + font}) : CallLog())
          << c.name;
      EXPECT_EQ(this->services_.ShownBy(*element), c.fits ? "kept" : "seen") << c.name;
    }
  }
}

TYPED_TEST(TextBearing, WritersOfStringAndOperandsFitNothing) {
  const auto element = this->Small("kept");
  element->ActualText("seen");
  element->StorageStringType(24);
  element->StorageStringID(25);
  element->StorageStringType(0);
  element->ColOpPropBag(nullptr);
  element->TouchOprndAddr(-1);
  EXPECT_EQ(this->services_.ShownBy(*element), "seen");
}

TYPED_TEST(TextBearing, ADragFitsNothingUntilWhatIsShownIsRead) {
  const auto element = this->Small("abcdef");
  element->SaveInitialPosition();
  element->Stretch(-46, 0, ePD_Right);
  element->SaveLastLegalPosition();
  element->UpdateDisplayWithTransx();
  EXPECT_EQ(this->services_.ShownBy(*element), "abcdef");
  // Fitted to the place on display, 4 pixels wide.
  EXPECT_EQ(element->ActualText(), "abcd");
  EXPECT_EQ(this->services_.ShownBy(*element), "abcd");
  EXPECT_EQ(element->Dx(), 50);
}

TYPED_TEST(TextBearing, WhatIsShownStandsAsWrittenUntilItIsRead) {
  const auto element = this->Small("own");
  const std::string value(200, 'x');
  element->ActualText(value);
  EXPECT_EQ(this->services_.ShownBy(*element), value);
  EXPECT_EQ(element->Txt(), "own");
  EXPECT_EQ(element->ActualText(), "own");
  EXPECT_EQ(this->services_.ShownBy(*element), "own");
  PutByName(*element, "ActualText", "again");
  EXPECT_EQ(this->services_.ShownBy(*element), "again");
  EXPECT_EQ(GetByName(*element, "ActualText"), Variant("own"));
  EXPECT_EQ(this->services_.ShownBy(*element), "own");
}

TYPED_TEST(TextBearing, BothFacesReadTheWholeTextAsItWasWritten) {
  const auto element = this->Small("one\r\ntwo \r\n");
  element->Dx(1);
  EXPECT_EQ(element->ActualText(), "o\r\nt\r\n");
  EXPECT_EQ(element->Txt(), "one\r\ntwo \r\n");
  EXPECT_EQ(static_cast<ItfHmiElement&>(*element).Txt(), "one\r\ntwo \r\n");
  element->ActualText("other");
  EXPECT_EQ(element->Txt(), "one\r\ntwo \r\n");
}

TYPED_TEST(TextBearing, FitsWithItsInsetKeptAtTheFarEdgesOnly) {
  constexpr bool kIsText = std::is_same_v<TypeParam, clsText>;
  const struct {
    Long style, inset;
  } kStyles[] = {{0, 0}, {1, 7}, {2, kIsText ? 2 : 0}, {3, 7}, {4, 0}, {5, 0}, {-1, 0}};
  for (const auto& [style, inset] : kStyles) {
    const auto element = this->Small("abcd\r\nefgh");
    element->Xs(100);
    element->Ys(200);
    element->Flat3D(style);
    // Exactly as large as the text needs, one pixel narrower, one pixel lower.
    element->Dx(4 + inset);
    element->Dy(4 + inset);
    EXPECT_EQ(element->ActualText(), "abcd\r\nefgh") << style;
    element->Dx(3 + inset);
    EXPECT_EQ(element->ActualText(), "abc\r\nefg") << style;
    element->Dx(4 + inset);
    element->Dy(3 + inset);
    EXPECT_EQ(element->ActualText(), "abcd") << style;
    element->Dy(1 + inset);
    EXPECT_EQ(element->ActualText(), "") << style;
    element->Dx(Long{0} + inset);
    element->Dy(2 + inset);
    EXPECT_EQ(element->ActualText(), "") << style;
  }
}

TYPED_TEST(TextBearing, KeepsWhatIsShownWhenRightAndBottomEdgeSumUpTo0) {
  struct Case {
    Long style;
    Descriptor place;
    bool isKept;
  };
  const Case cases[] = {
      {0, {0, 0, 0, 0}, true},
      {0, {-50, 10, 20, 20}, true},
      {0, {-51, 10, 20, 20}, false},
      {0, {-49, 10, 20, 20}, false},
      {0, {-50, 10, 21, 20}, false},
      {0, {-50, 10, 20, 21}, false},
      // Behind the inset, not before it.
      {1, {-50, 10, 27, 27}, true},
      {1, {-50, 10, 20, 20}, false},
      {3, {-50, 10, 27, 27}, true},
      {3, {0, 0, 7, 7}, true},
      {3, {0, 0, 0, 0}, false},
      {4, {0, 0, 0, 0}, true},
  };
  for (const Case& c : cases) {
    const auto element = this->Small("own");
    element->Flat3D(c.style);
    element->Xs(c.place.xs);
    element->Ys(c.place.ys);
    element->Dx(c.place.dx);
    element->Dy(c.place.dy);
    element->ActualText("seen");
    static_cast<void>(element->ActualText());
    EXPECT_EQ(this->services_.ShownBy(*element) == "seen", c.isKept)
        << c.style << ' ' << c.place.xs << ' ' << c.place.dx << ' ' << c.place.dy;
  }
}

TYPED_TEST(TextBearing, AnEmptyTextShowsNothing) {
  const auto element = this->Small("own");
  element->Txt("");
  EXPECT_EQ(this->services_.ShownBy(*element), "");
  EXPECT_EQ(element->ActualText(), "");
}

TYPED_TEST(TextBearing, AFarEdgeBeyond32BitsIsAnErrorAndLeavesTheTextOfTheMoment) {
  constexpr Long kMost = 2147483647;
  const auto element = this->Small("own");
  element->Xs(kMost);
  EXPECT_EQ(ErrorOf([&] { element->ActualText(); }), 6);
  EXPECT_EQ(ErrorOf([&] { element->Txt("other"); }), 6);
  // Stored before it is fitted.
  EXPECT_EQ(element->Txt(), "other");
  element->Xs(0);
  element->Ys(kMost);
  EXPECT_EQ(ErrorOf([&] { element->ActualText(); }), 6);
  EXPECT_EQ(ErrorOf([&] { element->FontNumber(9); }), 6);
  EXPECT_EQ(element->FontNumber(), 9);
  EXPECT_EQ(ErrorOf([&] { element->Flat3D(Long{3}); }), 6);
  EXPECT_EQ(element->Flat3D(), 3);
  EXPECT_EQ(ErrorOf([&] { element->Dx(60); }), 6);
  EXPECT_EQ(element->Dx(), 60);
  EXPECT_EQ(ErrorOf([&] { element->Dy(60); }), 6);
  EXPECT_EQ(element->Dy(), 60);
}

TYPED_TEST(TextBearing, WhatIsShownStaysWhereFittingFails) {
  const auto element = this->Small("own");
  element->ActualText("seen");
  element->Xs(2147483647);
  EXPECT_EQ(ErrorOf([&] { element->Txt("other"); }), 6);
  element->Xs(0);
  EXPECT_EQ(this->services_.ShownBy(*element), "seen");
}

TYPED_TEST(TextBearing, TheInsetAndTheSumOfTheEdgesCanBeTooMuchAsWell) {
  constexpr Long kLeast = -2147483647 - 1;
  const auto element = this->Small("own");
  element->Flat3D(Long{1});
  element->Dx(7);
  element->Xs(kLeast);
  element->Ys(1);
  static_cast<void>(element->ActualText());
  EXPECT_EQ(ErrorOf([&] { element->Dx(6); }), 6);
  EXPECT_EQ(ErrorOf([&] { element->Dx(0); }), 6);
  // Each edge fits, their sum does not.
  element->Xs(1500000000);
  element->Ys(1500000000);
  EXPECT_EQ(ErrorOf([&] { element->Dx(50); }), 6);
  element->Ys(0);
  EXPECT_NO_THROW(element->Dx(50));
}

TYPED_TEST(TextBearing, AsksForNothingWhereTheEdgesSumUpToZero) {
  const auto boxes = std::make_shared<corvane1::CollectedMessageBoxes>(nullptr);
  Platform::Current().messageBoxes = boxes;
  TypeParam element;
  element.Flat3D(Long{0});
  CallLog log;
  this->services_.NoteInto([&](const std::string& call) { log.push_back(call); });
  element.Txt("\xE4\xBD\xA0");
  element.FontNumber(3);
  static_cast<void>(element.ActualText());
  EXPECT_EQ(log, CallLog{});
  EXPECT_TRUE(boxes->Shown().empty());
  element.Dx(1);
  EXPECT_EQ(log, (CallLog{"height of font 3", "widths of font 3"}));
  EXPECT_EQ(boxes->Shown().size(), 1u);
  this->services_.NoteInto(nullptr);
}

TYPED_TEST(TextBearing, MeasuresItsSizeInThePlaceOnDisplay) {
  const auto element = this->Small("own");
  element->Dx(1);
  element->SaveInitialPosition();
  element->Move(2147483647, 0);
  element->UpdateDisplayWithTransx();
  Long dx = 5, dy = 6;
  EXPECT_EQ(ErrorOf([&] { element->GetOptimalDimensions(dx, dy); }), 6);
  EXPECT_EQ(dx, 5);
  EXPECT_EQ(dy, 6);
}

TYPED_TEST(TextBearing, AHostMaySetTheTextWhileItIsShownABox) {
  /// Sets a long text while it tells of a short one.
  class Meddling final : public corvane1::MessageBoxes {
   public:
    Long Show(const std::string&, Long, const std::string&) override {
      if (++shown == 1) element->Txt("a text that is longer than the one that it takes the place of");
      return corvane1::kAnswerOk;
    }
    std::shared_ptr<TypeParam> element;
    int shown = 0;
  };
  const auto boxes = std::make_shared<Meddling>();
  Platform::Current().messageBoxes = boxes;
  boxes->element = this->Small("own");
  boxes->element->Txt("\xE4\xBD\xA0 the first of two lines of some length\r\nsecond");
  EXPECT_EQ(boxes->element->Txt(), "a text that is longer than the one that it takes the place of");
  // What was being fitted is shown until the next fit.
  EXPECT_EQ(this->services_.ShownBy(*boxes->element), "|second");
  EXPECT_EQ(boxes->element->ActualText(), "a text that is longer than the one that it takes t");
  EXPECT_EQ(boxes->shown, 1);
  boxes->element.reset();
}

TYPED_TEST(TextBearing, TellsOfAForeignCharacterAtEveryFit) {
  const auto boxes = std::make_shared<corvane1::CollectedMessageBoxes>(nullptr);
  Platform::Current().messageBoxes = boxes;
  const auto element = this->Small("\xE4\xBD\xA0\r\nmid\r\n\xE5\xA5\xBD");
  EXPECT_EQ(boxes->Shown().size(), 2u);
  EXPECT_EQ(this->services_.ShownBy(*element), "|mid|");
  element->Dx(60);
  EXPECT_EQ(boxes->Shown().size(), 4u);
  static_cast<void>(element->ActualText());
  EXPECT_EQ(boxes->Shown().size(), 6u);
  element->Xs(1);
  EXPECT_EQ(boxes->Shown().size(), 6u);
  Long dx = 0, dy = 0;
  element->GetOptimalDimensions(dx, dy);
  EXPECT_EQ(boxes->Shown().size(), 8u);
  // Text, font and style are set on the copy after its place.
  static_cast<void>(element->Replica());
  EXPECT_EQ(boxes->Shown().size(), 14u);
}

// --- What is not carried, and what is the reference element's own ---

TYPED_TEST(TextBearing, ReadsTheStubsOfWhatItDoesNotCarryAndIgnoresWrites) {
  TypeParam element;
  for (const char* name :
       {"EnabledOpAddr", "HighlightOpAddr", "KeypadSuccessOpAddr", "ColorHatch", "PenWidth", "PenStyle",
        "FillStyle", "HatchStyle", "hBmp", "hBmpCRC", "TransparencyLevel"}) {
    EXPECT_EQ(GetByName(element, Contract(), name), Variant(Long{0})) << name;
    PutByName(element, Contract(), name, Long{3});
    EXPECT_EQ(GetByName(element, Contract(), name), Variant(Long{0})) << name;
  }
}

TYPED_TEST(TextBearing, OperationsForOtherClassesHaveNoEffect) {
  const auto element = this->Small("own");
  element->ActualText("seen");
  CallLog log;
  this->services_.NoteInto([&](const std::string& call) { log.push_back(call); });
  const gdi::Surface surface(8, 8);
  gdi::Recorder recorder;
  automation::Array fonts(automation::VariantKind::Long, automation::Bounds{0, 9});
  Variant table = fonts;
  for (Long font = 0; font < 9; ++font) {
    InvokeByName(*element, Contract(), "InvertColors");
    InvokeByName(*element, Contract(), "Rotate");
    InvokeByName(*element, Contract(), "GetSizeFromBoundingRect");
    InvokeByName(*element, Contract(), "SetImageSystem", {Long{font}});
    element->SetNewFontNumberByLookUpTBL(table);
  }
  element->DrawNonVarsInGroup(surface.Dc(), true);
  element->DrawVarsInGroup(surface.Dc(), true);
  EXPECT_EQ(element->FontNumber(), 0);
  EXPECT_TRUE(recorder.Calls().empty());
  EXPECT_TRUE(log.empty());
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(*element, location), (Descriptor{0, 0, 50, 20})) << location;
  }
  EXPECT_EQ(this->services_.ShownBy(*element), "seen");
}

TYPED_TEST(TextBearing, KeepsItsFontWhenALookUpTableHasAnother) {
  const auto element = this->Small("own");
  for (const Long font : {0, 1, 2}) {
    element->FontNumber(font);
    Variant table = automation::From(std::vector<Byte>{7, 8, 9});
    element->SetNewFontNumberByLookUpTBL(table);
    EXPECT_EQ(element->FontNumber(), font);
  }
}

TYPED_TEST(TextBearing, IsHitOnItsBodyAtRest) {
  const auto element = Placed<TypeParam>(10, 20, 30, 40);
  element->Move(100, 100);
  element->UpdateDisplayWithTransx();
  EXPECT_TRUE(element->HitTestByPoint(10, 20));
  EXPECT_TRUE(element->HitTestByPoint(39, 59));
  for (const auto& [x, y] : {std::pair<Long, Long>{9, 20}, {10, 19}, {40, 59}, {39, 60}}) {
    EXPECT_FALSE(element->HitTestByPoint(x, y)) << x << ' ' << y;
  }
  EXPECT_TRUE(element->HitTestByRect(39, 59, 5, 5));
  EXPECT_FALSE(element->HitTestByRect(40, 20, 5, 5));
  EXPECT_FALSE(element->HitTestByRect(10, 60, 5, 5));
  EXPECT_TRUE(element->HitTestByRect(5, 15, 5, 5));
  EXPECT_FALSE(element->HitTestByRect(5, 15, 4, 5));
  EXPECT_EQ(element->GetPupDirection(10, 20, 4), ePD_UpLeft);
  EXPECT_EQ(element->GetPupDirection(40, 60, 4), ePD_DownRight);
  EXPECT_EQ(element->GetPupDirection(15, 30, 4), ePD_None);
}

TYPED_TEST(TextBearing, ItsToolTipTellsOfItsTouchAndItsPlaceOnDisplay) {
  const auto element = Placed<TypeParam>(1, -2, 30, 40);
  EXPECT_EQ(element->GetToolTipText(), "Pos: 1, -2 ; Size: 30, 40");
  element->Move(5, 5);
  EXPECT_EQ(element->GetToolTipText(), "Pos: 1, -2 ; Size: 30, 40");
  element->UpdateDisplayWithTransx();
  EXPECT_EQ(element->GetToolTipText(), "Pos: 6, 3 ; Size: 30, 40");
}

TYPED_TEST(TextBearing, ItsTransformStateLooksAtTheBoundsOfTheMapAlone) {
  const auto element = Placed<TypeParam>(0, 0, 3, 3);
  automation::Array cells(automation::VariantKind::Byte, automation::Bounds{0, 9}, automation::Bounds{0, 9});
  Variant map = cells;
  element->Move(6, 6);
  EXPECT_EQ(element->GetTransformState(map), eCS_Legall);
  element->Move(8, 6);
  EXPECT_EQ(element->GetTransformState(map), eCS_OutOfRAnge);
  element->Stretch(-3, 0, ePD_Right);
  EXPECT_EQ(element->GetTransformState(map), eCS_Overlap);
}

// --- Report ---

TYPED_TEST(TextBearing, ReportsTheFirstLineOfItsTextAndMarksThatThereAreMore) {
  const struct {
    const char* text;
    const char* line;
  } kCases[] = {{"", "Text: "},
                {"one", "Text: one"},
                {"one\r\n", "Text: one ..."},
                {"one\r\ntwo\r\nthree", "Text: one ..."},
                {"\r\ntwo", "Text:  ..."},
                {"one\ntwo", "Text: one\ntwo"},
                {" ", "Text:  "}};
  for (const auto& [text, line] : kCases) {
    const auto element = this->Small(text);
    element->Dx(1);
    test::ReportDouble report;
    element->CreateStaticElementPrinterReport(report);
    EXPECT_EQ(report.Lines().at(1), line);
  }
}

TYPED_TEST(TextBearing, ReportsPlaceAtRestTextFontAlignmentAndStyleInThisOrder) {
  const auto element = Placed<TypeParam>(1, 2, 30, 40);
  element->Txt("one\r\ntwo");
  element->FontNumber(5);
  element->Alignment(Integer{3});
  element->Flat3D(Long{1});
  element->Move(9, 9);
  element->SaveLastLegalPosition();
  element->UpdateDisplayWithTransx();
  const CallLog expected = {"Coordinates (Left,Top,Width,Height): (1,2,30,40)", "Text: one ...",
                            "Font: no. 5", "Alignment: Center Left", "Style: 3D (Unpressed)"};
  test::ReportDouble report;
  element->CreateStaticElementPrinterReport(report);
  EXPECT_EQ(report.Lines(), expected);
  test::ReportDouble byName;
  InvokeByName(*element, "ItfHmiElement_CreateStaticElementPrinterReport",
               {Variant(std::shared_ptr<automation::Object>(&byName, [](automation::Object*) {}))});
  EXPECT_EQ(byName.Lines(), expected);
}

TYPED_TEST(TextBearing, ReportsAnEmptyLineForAStyleWithoutAName) {
  const struct {
    Long style;
    const char* line;
  } kCases[] = {{0, "Style: Flat"},
                {1, "Style: 3D (Unpressed)"},
                {2, ""},
                {3, "Style: 3D (Pressed)"},
                {4, ""},
                {5, ""},
                {-1, ""}};
  for (const auto& [style, line] : kCases) {
    const auto element = this->Small("own");
    element->Flat3D(style);
    test::ReportDouble report;
    element->CreateStaticElementPrinterReport(report);
    ASSERT_EQ(report.Lines().size(), 5u) << style;
    EXPECT_EQ(report.Lines().back(), line) << style;
  }
}

TYPED_TEST(TextBearing, ReportsEveryAlignmentByItsWord) {
  const char* const kWords[] = {"Top Left",    "Top Center",    "Top Right",
                                "Center Left", "Center Center", "Center Right",
                                "Bottom Left", "Bottom Center", "Bottom Right"};
  for (Integer alignment = -1; alignment <= 9; ++alignment) {
    const auto element = this->Small("own");
    element->Alignment(alignment);
    test::ReportDouble report;
    element->CreateStaticElementPrinterReport(report);
    const bool isNamed = alignment >= 0 && alignment <= 8;
    EXPECT_EQ(report.Lines().at(3), std::string("Alignment: ") + (isNamed ? kWords[alignment] : ""));
  }
}

}  // namespace
}  // namespace quenzel7
