#include "framework/library_services.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

#include "framework/mdl_grp_elmnt_utils.h"
#include "platform/automation/automation_error.h"
#include "platform/platform.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::Variant;

// What else of the shared module hosts and elements find in its one include.
static_assert(std::is_same_v<decltype(&NextTabIndex), Long (*)(Long)>);
static_assert(std::is_same_v<decltype(&GetTouchStyle), enTouchStyle (*)(ItfHmiElement&)>);

[[noreturn]] void Fail() {
  throw automation::AutomationError(automation::ErrorNumber::DivisionByZero, "service failed");
}

class LibraryServices : public ::testing::Test {
 protected:
  void SetUp() override { Platform::Current() = Platform(); }
  void TearDown() override { Platform::Current() = Platform(); }
};

TEST_F(LibraryServices, SizesComeFromTheChangeTracker) {
  class Sizes final : public corvane1::ChangeTracker {
    void NotifyElementChanged(Long) override {}
    void NotifyPageChanged(Long) override {}
    Long ElementSize(Long elementId) override {
      if (elementId < 0) Fail();
      return elementId * 10;
    }
  };
  Platform::Current().changeTracker = std::make_shared<Sizes>();
  EXPECT_EQ(GetElementSize(7), 70);
  EXPECT_RAISES(11, "service failed", GetElementSize(-1));
}

TEST_F(LibraryServices, TheDefaultFontIsThatOfTheFontService) {
  class Fonts final : public corvane1::FontService {
    Long GetDefaultFontNumber() override { return 42; }
    Long GetDefaultDescriptionFontNumber() override { return 43; }
    Long GetCharHeight(Long) override { return 0; }
    std::array<Long, 256> GetCharWidths(Long) override { return {}; }
    corvane1::TextExtent GetTextRect(const std::string&, Long) override { return {}; }
    std::string GetFontName(Long) override { return {}; }
  };
  Platform::Current().fontService = std::make_shared<Fonts>();
  EXPECT_EQ(GetDefaultFontNumber(), 42);
}

/// Answers with the number, and writes into the argument.
class Answering final : public corvane1::MessageService {
 public:
  Long ShowMessage(Long number, Variant& argument) override {
    if (number < 0) Fail();
    given = argument;
    argument = "written";
    return number + 1;
  }
  Variant given;
};

TEST_F(LibraryServices, MessagesGoToTheMessageServiceWithTheArgumentByReference) {
  const auto messages = std::make_shared<Answering>();
  Platform::Current().messageService = messages;
  Variant argument("a.bmp");
  EXPECT_EQ(ShowLibraryMessage(377, argument), 378);
  EXPECT_EQ(messages->given, Variant("a.bmp"));
  EXPECT_EQ(argument, Variant("written"));
  EXPECT_RAISES(11, "service failed", ShowLibraryMessage(-1, argument));
}

TEST_F(LibraryServices, AMessageWithoutAnInsertHasAnEmptyArgument) {
  const auto messages = std::make_shared<Answering>();
  messages->given = "before";
  Platform::Current().messageService = messages;
  EXPECT_EQ(ShowLibraryMessage(6), 7);
  EXPECT_EQ(messages->given, Variant());
}

TEST_F(LibraryServices, ErrorsGoToTheErrorLogUnderTheModulesName) {
  const auto log = std::make_shared<corvane1::CollectedErrors>(nullptr);
  Platform::Current().errorLog = log;
  ReportLibraryError("clsBitmap", static_cast<Long>(0x80040257), "no pixels", "first", "second", 9);
  ASSERT_EQ(log->Reports().size(), 1u);
  EXPECT_EQ(log->Reports().front(), (corvane1::ErrorReport{"clsBitmap", -2147220905, "no pixels",
                                                           "Quenzel7.dll", "first", "second", 9}));
}

TEST_F(LibraryServices, TheCrcIsThatOfTheCrcService) {
  const std::vector<Byte> digits = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};
  EXPECT_EQ(CalcDataCRC(digits), static_cast<Long>(0xCBF43926));
  class Length final : public corvane1::CrcService {
    Long Crc(std::span<const Byte> data) override { return static_cast<Long>(data.size()); }
  };
  Platform::Current().crcService = std::make_shared<Length>();
  EXPECT_EQ(CalcDataCRC(digits), 9);
  EXPECT_EQ(CalcDataCRC({}), 0);
}

TEST_F(LibraryServices, BoxesOfTheLibraryHaveOkAloneAndItsName) {
  const auto boxes = std::make_shared<corvane1::CollectedMessageBoxes>(nullptr);
  Platform::Current().messageBoxes = boxes;
  ShowLibraryBox("text");
  ASSERT_EQ(boxes->Shown().size(), 1u);
  EXPECT_EQ(boxes->Shown().front(), (corvane1::ShownBox{"text", corvane1::kOkButton, "Quenzel7"}));
}

}  // namespace
}  // namespace quenzel7
