#include "shapes/element_setting.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

/// Settings that answer one text, whatever is asked.
class OneText final : public corvane1::Settings {
 public:
  explicit OneText(std::string text) : text_(std::move(text)) {}
  std::string GetSetting(Long, Long, const std::string&) override { return text_; }

 private:
  std::string text_;
};

class ElementSettings : public ::testing::Test {
 protected:
  void SetUp() override { Platform::Current() = Platform(); }
  void TearDown() override { Platform::Current() = Platform(); }

  static Long Taken(const std::string& text) {
    Platform::Current().settings = std::make_shared<OneText>(text);
    return ElementSetting(ElementDefault::EllipseColor, "0");
  }
};

TEST_F(ElementSettings, AreTheFallBackWhereNothingIsSet) {
  EXPECT_EQ(ElementSetting(ElementDefault::LineWidth, "1"), 1);
  EXPECT_EQ(ElementSetting(ElementDefault::LineWidth, "-7"), -7);
}

TEST_F(ElementSettings, AreWholeNumbersHalvesRoundedToTheEvenOne) {
  EXPECT_EQ(Taken("3.5"), 4);
  EXPECT_EQ(Taken("2.5"), 2);
  EXPECT_EQ(Taken("-2.5"), -2);
  EXPECT_EQ(Taken("2147483647"), 2147483647);
}

TEST_F(ElementSettings, AnErrorTellsSectionAndKey) {
  EXPECT_RAISES(6, "setting 6000/6053: overflow: 3000000000.000000 does not fit 32 bits",
                Taken("3000000000"));
  EXPECT_EQ(test::ErrorOf([] { Taken("2147483648"); }), 6);
  const test::Raised raised = test::RaisedBy([] { Taken("thick"); });
  EXPECT_EQ(raised.number, 13);
  EXPECT_EQ(raised.description.find("setting 6000/6053: "), 0u) << raised;
  EXPECT_NE(raised.description.find("thick"), std::string::npos) << raised;
}

TEST_F(ElementSettings, AsA16BitNumberGoFromTheLeastToTheMostOfThose) {
  const auto taken = [](const std::string& text) {
    Platform::Current().settings = std::make_shared<OneText>(text);
    const auto value = ElementSetting<Integer>(ElementDefault::TextAlignment, "4");
    static_assert(std::is_same_v<decltype(value), const Integer>);
    return value;
  };
  EXPECT_EQ(taken("32767"), 32767);
  EXPECT_EQ(taken("-32768"), -32768);
  EXPECT_EQ(taken("2.5"), 2);
  EXPECT_RAISES(6, "setting 6000/6040: overflow: 32768 does not fit 16 bits", taken("32768"));
  EXPECT_RAISES(6, "setting 6000/6040: overflow: -32769 does not fit 16 bits", taken("-32769"));
  EXPECT_RAISES(6, "setting 6000/6040: overflow: 3000000000.000000 does not fit 32 bits",
                taken("3000000000"));
  EXPECT_EQ(test::ErrorOf([&] { taken("centre"); }), 13);
}

TEST_F(ElementSettings, AsA16BitNumberAreTheFallBackWhereNothingIsSet) {
  EXPECT_EQ(ElementSetting<Integer>(ElementDefault::TextAlignment, "-7"), -7);
  EXPECT_RAISES(6, "setting 6000/6039: overflow: 70000 does not fit 16 bits",
                ElementSetting<Integer>(ElementDefault::FrameAlignment, "70000"));
}

TEST_F(ElementSettings, AskForTheirKeyInTheSectionOfDefaultsWithTheFallBack) {
  const auto settings = std::make_shared<test::TracedSettings>();
  Platform::Current().settings = settings;
  ElementSetting(ElementDefault::TextStyle, "3");
  ElementSetting<Integer>(ElementDefault::FrameAlignment, "1");
  EXPECT_EQ(settings->asked, (std::vector<std::string>{"6000/6043/3", "6000/6039/1"}));
}

TEST_F(ElementSettings, HaveTheseKeys) {
  using enum ElementDefault;
  struct Row {
    ElementDefault key;
    Long number;
  };
  const std::vector<Row> rows{Row{ButtonColorBack, 6016},
                              Row{ButtonColorFore, 6017},
                              Row{FrameColorBack, 6018},
                              Row{FrameColorFore, 6019},
                              Row{TextColorBack, 6020},
                              Row{TextColorFore, 6021},
                              Row{LineColor, 6022},
                              Row{ButtonAlignment, 6038},
                              Row{FrameAlignment, 6039},
                              Row{TextAlignment, 6040},
                              Row{ButtonStyle, 6041},
                              Row{FrameStyle, 6042},
                              Row{TextStyle, 6043},
                              Row{FlatButtonColorBack, 6044},
                              Row{FlatFrameColorBack, 6045},
                              Row{FlatTextColorBack, 6046},
                              Row{ButtonTransparency, 6047},
                              Row{BitmapTransparency, 6048},
                              Row{LineWidth, 6049},
                              Row{RectangleWidth, 6050},
                              Row{RectangleColor, 6051},
                              Row{RoundRectColor, 6052},
                              Row{EllipseColor, 6053},
                              Row{FlatButtonColorBackTouch, 6054},
                              Row{ButtonColorBackTouch, 6055},
                              Row{ButtonColorForeTouch, 6056},
                              Row{FlatTextColorBackTouch, 6057},
                              Row{TextColorBackTouch, 6058},
                              Row{TextColorForeTouch, 6059},
                              Row{BinaryTextColorBack, 6060},
                              Row{BinaryTextColorFore, 6061},
                              Row{ListTextColorBack, 6062},
                              Row{ListTextColorFore, 6063},
                              Row{RangeTextColorBack, 6064},
                              Row{RangeTextColorFore, 6065},
                              Row{NumericColorBack, 6066},
                              Row{NumericColorFore, 6067},
                              Row{NumericRangeColorBack, 6068},
                              Row{StringColorBack, 6070},
                              Row{StringColorFore, 6071},
                              Row{PasswordColorBack, 6072},
                              Row{PasswordColorFore, 6073},
                              Row{PassStringColorBack, 6074},
                              Row{MeterColorBack, 6076},
                              Row{TankGraphColorBack, 6077},
                              Row{ThermometerColorBack, 6078},
                              Row{LedColorBack, 6079},
                              Row{TimeFunctionsColorBack, 6082},
                              Row{UtcColorBack, 6084},
                              Row{TimerColorBack, 6086},
                              Row{CounterColorBack, 6088},
                              Row{SdBrowserColorBack, 6090},
                              Row{DateTimeColorBack, 6092}};
  ASSERT_EQ(std::size(kElementDefaultKeys), rows.size());
  for (std::size_t index = 0; index < rows.size(); ++index) {
    EXPECT_EQ(static_cast<Long>(rows[index].key), rows[index].number);
    EXPECT_EQ(kElementDefaultKeys[index].key, rows[index].key);
  }
  EXPECT_EQ(kElementDefaults, 6000);
}

TEST_F(ElementSettings, AreAllRequiredAsTheyAreRead) {
  for (const auto& [key, require] : kElementDefaultKeys) {
    const auto settings = std::make_shared<test::TracedSettings>();
    Platform::Current().settings = settings;
    require();
    const std::string number = std::to_string(static_cast<Long>(key));
    EXPECT_EQ(settings->asked, std::vector<std::string>{"6000/" + number + "/0"});
    // Only alignments are numbers of 16 bits.
    Platform::Current().settings = std::make_shared<OneText>("32768");
    const bool isAlignment = key == ElementDefault::ButtonAlignment ||
                             key == ElementDefault::FrameAlignment || key == ElementDefault::TextAlignment;
    EXPECT_EQ(test::ErrorOf(require), isAlignment ? 6 : 0) << number;
    Platform::Current().settings = std::make_shared<OneText>("x");
    EXPECT_EQ(test::ErrorOf(require), 13) << number;
  }
}

TEST_F(ElementSettings, AnErrorOfTheServiceComesThroughAsItIs) {
  class Failing final : public corvane1::Settings {
    std::string GetSetting(Long, Long, const std::string&) override {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no settings");
    }
  };
  Platform::Current().settings = std::make_shared<Failing>();
  EXPECT_RAISES(5, "no settings", ElementSetting(ElementDefault::LineWidth, "1"));
}

}  // namespace
}  // namespace quenzel7
