#include "server/services/late_message_boxes.h"

#include "tests/server/services/late_double.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using automation::Variant;

/// A host's boxes with a table of members, as those of the library have one.
class TabledBoxes final : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "TabledBoxes";

  const automation::ClassInfo& Class() const override;

  Integer Show(const std::string& text, Long buttons, const std::string& caption) {
    shown = text + "/" + std::to_string(buttons) + "/" + caption;
    return 6;
  }

  std::string shown;
};

constexpr automation::Member kMembers[] = {
    automation::Method<TabledBoxes, &TabledBoxes::Show>("Show", "", "text, buttons, caption"),
};

const automation::ClassInfo& TabledBoxes::Class() const {
  static const automation::Interface interface("TabledBoxes", kMembers);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{kClassName, interfaces};
  return info;
}

TEST(LateMessageBoxes, AreShownByTheHost) {
  const auto host = NewHostObject();
  host->Giving("call Show", Long{7});
  LateMessageBoxes boxes(host);
  EXPECT_EQ(boxes.Show("text", 4, "caption"), 7);
  EXPECT_EQ(host->calls, (std::vector<std::string>{"call Show String:text Long:4 String:caption"}));
  EXPECT_EQ(boxes.HostObject(), host);
}

TEST(LateMessageBoxes, AreShownByAHostWithATable) {
  const auto host = std::make_shared<TabledBoxes>();
  EXPECT_EQ(LateMessageBoxes(host).Show("text", 4, "caption"), 6);
  EXPECT_EQ(host->shown, "text/4/caption");
}

TEST(LateMessageBoxes, NeedAnObjectThatShowsThem) {
  EXPECT_EQ(test::ErrorOf([] { LateMessageBoxes{nullptr}; }), 91);
  EXPECT_RAISES(438, "the host's object has no Show", LateMessageBoxes(NewHostObject()).Show("", 0, ""));
}

TEST(LateMessageBoxes, TheAnswerHasToBeANumber) {
  const auto host = NewHostObject();
  host->Giving("call Show", "yes");
  EXPECT_EQ(test::ErrorOf([&] { LateMessageBoxes(host).Show("", 0, ""); }), 13);
}

}  // namespace
}  // namespace quenzel7::server
