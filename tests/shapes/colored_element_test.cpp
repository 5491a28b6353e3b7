#include "shapes/colored_element.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/automation/class_info.h"
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using Lines = std::vector<std::string>;

/// The least of an element with colours. Notes its writers in `written` if there is one.
class Lamp final : public ColoredElement {
 public:
  Lamp() : Lamp({.back = 1, .fore = 2, .backTouch = 3, .foreTouch = 4}) {}
  explicit Lamp(const Colors& colors) : ColoredElement(colors) {}

  using ColoredElement::ColorsToPaint;
  using ColoredElement::CopyColors;
  using ColoredElement::Rgb;

  const automation::ClassInfo& Class() const override {
    static const automation::ClassInfo info{"Lamp", {}, nullptr};
    return info;
  }

  Lines* written = nullptr;

 private:
  void WriteRow(ado::Recordset&) override {}
  void ReadRow(const ado::Recordset&) override {}

  void Note(const char* name, Long value) {
    if (written) written->push_back(name + std::to_string(value));
  }
  void ItfHmiElement_ColorBack(Long pValue) override {
    Note("back ", pValue);
    ColoredElement::ItfHmiElement_ColorBack(pValue);
  }
  void ItfHmiElement_ColorFore(Long pValue) override {
    Note("fore ", pValue);
    ColoredElement::ItfHmiElement_ColorFore(pValue);
  }
  void ItfHmiElement_ColorBackTouch(Long pValue) override {
    Note("back touched ", pValue);
    ColoredElement::ItfHmiElement_ColorBackTouch(pValue);
  }
  void ItfHmiElement_ColorForeTouch(Long pValue) override {
    Note("fore touched ", pValue);
    ColoredElement::ItfHmiElement_ColorForeTouch(pValue);
  }
  using ColoredElement::ItfHmiElement_ColorBack;
  using ColoredElement::ItfHmiElement_ColorBackTouch;
  using ColoredElement::ItfHmiElement_ColorFore;
  using ColoredElement::ItfHmiElement_ColorForeTouch;
};

std::vector<Long> ColorsOf(const Lamp& lamp) {
  return {lamp.ColorBack(), lamp.ColorFore(), lamp.ColorBackTouch(), lamp.ColorForeTouch()};
}

class ColoredElements : public ::testing::Test {
 protected:
  void SetUp() override { Platform::Current() = Platform(); }
  void TearDown() override { Platform::Current() = Platform(); }
};

TEST_F(ColoredElements, BeginWithTheColoursOfTheirClass) {
  EXPECT_EQ(ColorsOf(Lamp()), (std::vector<Long>{1, 2, 3, 4}));
  EXPECT_EQ(ColorsOf(Lamp({.back = -1, .fore = 300, .backTouch = -5, .foreTouch = 0})),
            (std::vector<Long>{-1, 300, -5, 0}));
}

TEST_F(ColoredElements, KeepEachColourByItself) {
  Lamp lamp;
  lamp.ColorBack(11);
  EXPECT_EQ(ColorsOf(lamp), (std::vector<Long>{11, 2, 3, 4}));
  lamp.ColorFore(12);
  EXPECT_EQ(ColorsOf(lamp), (std::vector<Long>{11, 12, 3, 4}));
  lamp.ColorBackTouch(13);
  EXPECT_EQ(ColorsOf(lamp), (std::vector<Long>{11, 12, 13, 4}));
  lamp.ColorForeTouch(14);
  EXPECT_EQ(ColorsOf(lamp), (std::vector<Long>{11, 12, 13, 14}));
}

TEST_F(ColoredElements, CopyTheirColoursThroughTheWriters) {
  const Lamp source({.back = 5, .fore = 6, .backTouch = 7, .foreTouch = 8});
  Lamp lamp;
  Lines written;
  lamp.written = &written;
  lamp.CopyColors(source);
  EXPECT_EQ(ColorsOf(lamp), (std::vector<Long>{5, 6, 7, 8}));
  EXPECT_EQ(written, (Lines{"back 5", "fore 6", "back touched 7", "fore touched 8"}));
}

TEST_F(ColoredElements, KeepTheColourServiceOfTheirCreation) {
  const auto first = std::make_shared<test::TracedColors>();
  Platform::Current().colorService = first;
  const Lamp lamp;
  Platform::Current().colorService = std::make_shared<corvane1::PaletteColorService>();
  EXPECT_EQ(lamp.Rgb(103), 0x0a0067u);
  EXPECT_EQ(lamp.Rgb(-1), 0x09ffffu);
  EXPECT_EQ(first->asked, (std::vector<Long>{103, -1}));
  EXPECT_EQ(&lamp.ColorsToPaint(), first.get());
}

TEST_F(ColoredElements, HoldTheColourServiceForTheirLife) {
  std::weak_ptr<corvane1::ColorService> kept;
  {
    const auto service = std::make_shared<test::TracedColors>();
    kept = service;
    Platform::Current().colorService = service;
  }
  {
    const Lamp lamp;
    Platform::Current().colorService = std::make_shared<corvane1::PaletteColorService>();
    EXPECT_FALSE(kept.expired());
  }
  EXPECT_TRUE(kept.expired());
}

}  // namespace
}  // namespace quenzel7
