#include "shapes/element_setting.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/raises.h"

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
