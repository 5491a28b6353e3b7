#include "fuzz/settings_checks.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "platform/automation/automation_error.h"
#include "platform/automation/class_info.h"
#include "platform/automation/property_bag.h"
#include "platform/gdi/gdi.h"
#include "platform/platform.h"
#include "tests/support/raises.h"
#include "tests/support/stored_inputs.h"
#include "variables/variable_classes.h"

namespace quenzel7::fuzz {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using Bytes = std::vector<Byte>;

class CheckOfSettings : public ::testing::Test {
 protected:
  void SetUp() override { Platform::Current() = Platform(); }
  void TearDown() override { Platform::Current() = Platform(); }
};

TEST_F(CheckOfSettings, StoredInputsKeepEveryPromise) {
  int bags = 0, others = 0;
  std::map<std::string_view, int> taken;
  for (const auto& input : test::StoredInputs("settings")) {
    const Bytes bytes = test::Contents(input);
    EXPECT_EQ(CheckSettingsOfAllHandlers(bytes), "") << input.filename();
    automation::PropertyBag bag;
    ++(test::ErrorOf([&] { bag.Contents(AsPropertyBag(bytes)); }) == 0 ? bags : others);
    for (const automation::ClassInfo* info : VariableClasses()) {
      const auto handler = std::dynamic_pointer_cast<ItfVarBinaryHandler>(info->create());
      if (!handler) continue;
      for (const Bytes& settings : {bytes, AsPropertyBag(bytes)}) {
        taken[info->name] += test::ErrorOf([&] { handler->BinaryData(settings); }) == 0;
      }
    }
  }
  EXPECT_GE(bags, 6);
  EXPECT_GE(others, 2);
  EXPECT_EQ(taken.size() + 2, VariableClasses().size());
  for (const auto& [name, count] : taken) EXPECT_GE(count, 1) << name;
}

/// Leaves a bitmap wherever a handler of one class of texts takes its colours.
class LeavingSettings final : public corvane1::Settings {
 public:
  explicit LeavingSettings(Long key) : key_(key) {}
  ~LeavingSettings() override {
    for (const gdi::HBITMAP bitmap : left) gdi::DeleteObject(bitmap);
  }
  std::string GetSetting(Long, Long key, const std::string& fallback) override {
    if (key == key_) left.push_back(gdi::CreateBitmap(1, 1, 1, 1, nullptr));
    return fallback;
  }
  std::vector<gdi::HBITMAP> left;

 private:
  Long key_;
};

TEST_F(CheckOfSettings, NamesTheClassThatDoesNotKeepItsPromise) {
  const std::pair<Long, std::string> classes[] = {{6061, "clsVarBinaryText"},
                                                  {6063, "clsVarListText"},
                                                  {6067, "clsVarNumeric"},
                                                  {6065, "clsVarRangeText"},
                                                  {6070, "clsVarDisplayString"}};
  for (const auto& [key, name] : classes) {
    Platform::Current().settings = std::make_shared<LeavingSettings>(key);
    EXPECT_EQ(CheckSettingsOfAllHandlers({}), name + ": no object is left");
  }
}

TEST_F(CheckOfSettings, AsAPropertyBagIsOneOfItsEntries) {
  automation::PropertyBag bag;
  bag.WriteProperty("a", Long{5});
  const Bytes whole = bag.Contents();
  EXPECT_EQ(AsPropertyBag(Bytes(whole.begin() + 5, whole.end() - 4)), whole);
}

/// What a handler does in the place of the real ones: it keeps one byte, and takes data of one byte.
struct Manner {
  std::function<void(const Bytes& data, Byte& kept)> take = [](const Bytes& data, Byte& kept) {
    if (data.size() != 1) throw AutomationError(ErrorNumber::InvalidBagContents, "why");
    kept = data.front();
  };
  std::function<Bytes(Byte kept)> give = [](Byte kept) { return Bytes{kept}; };
  std::function<Bytes(Byte kept)> key = [](Byte kept) { return Bytes{kept}; };
  std::function<Byte(Byte kept)> copy = [](Byte kept) { return kept; };
};

class OneByte final : public ItfVarBinaryHandler {
 public:
  explicit OneByte(Manner manner, Byte kept = 0) : manner_(std::move(manner)), kept_(kept) {}
  const automation::ClassInfo& Class() const override {
    static const automation::Interface* const interfaces[] = {&InterfaceOf()};
    static const automation::ClassInfo info{"OneByte", interfaces, nullptr};
    return info;
  }

 protected:
  Bytes ItfVarBinaryHandler_BinaryData() const override { return manner_.give(kept_); }
  void ItfVarBinaryHandler_BinaryData(Bytes pValue) override { manner_.take(pValue, kept_); }
  Bytes ItfVarBinaryHandler_GetBinaryDataForCRC() const override { return manner_.key(kept_); }
  HandlerRef ItfVarBinaryHandler_Replica() override {
    return std::make_shared<OneByte>(manner_, manner_.copy(kept_));
  }

 private:
  Manner manner_;
  Byte kept_;
};

std::string Complaint(const Manner& manner, const Bytes& bytes = {7}) {
  return CheckSettings([&manner] { return std::make_shared<OneByte>(manner); }, bytes);
}

TEST_F(CheckOfSettings, FindsNothingWhereNothingIsWrong) {
  EXPECT_EQ(Complaint({}), "");
  EXPECT_EQ(Complaint({}, {}), "");
  EXPECT_EQ(Complaint({}, {1, 2}), "");
}

std::string ComplaintOfRefusal(ErrorNumber number, const std::string& description = "why", Byte left = 0) {
  Manner manner;
  manner.take = [&](const Bytes&, Byte& kept) {
    kept = left;
    throw AutomationError(number, description);
  };
  return Complaint(manner);
}

TEST_F(CheckOfSettings, ComplainsOfOtherErrorsAndOfEmptyOnes) {
  for (const ErrorNumber number :
       {ErrorNumber::PropertyNameNotFound, ErrorNumber::InvalidBagContents, ErrorNumber::Overflow,
        ErrorNumber::OutOfMemory, ErrorNumber::TypeMismatch, ErrorNumber::InvalidUseOfNull}) {
    EXPECT_EQ(ComplaintOfRefusal(number), "");
    EXPECT_EQ(ComplaintOfRefusal(number, ""), "an error says what is wrong");
  }
  EXPECT_EQ(ComplaintOfRefusal(ErrorNumber::ObjectNotSet), "settings are refused by a number for them");
}

TEST_F(CheckOfSettings, ComplainsOfSettingsThatChangeThoughTheyAreNoBag) {
  EXPECT_EQ(ComplaintOfRefusal(ErrorNumber::InvalidBagContents, "why", 1),
            "bytes that are no bag leave the settings alone");
  EXPECT_EQ(ComplaintOfRefusal(ErrorNumber::TypeMismatch, "why", 1), "");
}

TEST_F(CheckOfSettings, ComplainsOfSettingsThatChangeWhenTheyAreRead) {
  Manner manner;
  manner.take = [](const Bytes& data, Byte& kept) { kept = static_cast<Byte>(data.front() + 1); };
  EXPECT_EQ(Complaint(manner), "settings are the same when they are read");
}

TEST_F(CheckOfSettings, ComplainsOfReplicasThatDiffer) {
  Manner manner;
  manner.copy = [](Byte kept) { return static_cast<Byte>(kept + 1); };
  EXPECT_EQ(Complaint(manner), "settings are the same in a replica");
}

TEST_F(CheckOfSettings, ComplainsOfChangeKeysThatDiffer) {
  Byte calls = 0;
  Manner manner;
  manner.key = [&calls](Byte) { return Bytes{++calls}; };
  EXPECT_EQ(Complaint(manner), "the same settings have the same change key");
}

TEST_F(CheckOfSettings, ComplainsOfSettingsThatAreOfNoUse) {
  Manner manner;
  manner.key = [](Byte) -> Bytes { throw AutomationError(ErrorNumber::Overflow, "why"); };
  EXPECT_EQ(Complaint(manner), "settings that are taken are of use: why");
}

TEST_F(CheckOfSettings, ComplainsOfObjectsThatAreLeft) {
  static gdi::HBITMAP left = 0;
  Manner manner;
  manner.key = [](Byte kept) {
    if (left == 0) left = gdi::CreateBitmap(1, 1, 1, 1, nullptr);
    return Bytes{kept};
  };
  EXPECT_EQ(Complaint(manner), "no object is left");
  gdi::DeleteObject(left);
}

}  // namespace
}  // namespace quenzel7::fuzz
