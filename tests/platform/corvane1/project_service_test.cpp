#include "platform/corvane1/project_service.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

#include "platform/automation/member.h"
#include "tests/support/raises.h"

namespace quenzel7::corvane1 {
namespace {

using Events = std::vector<ProjectEvent>;
using Kind = ProjectEventKind;

constexpr Long kLeast = std::numeric_limits<Long>::min(), kMost = std::numeric_limits<Long>::max();

/// An element that shows a global variable, or one of a class that cannot.
class Element final : public automation::Object {
 public:
  explicit Element(Long globalVarId, bool isVariable = true)
      : globalVarId_(globalVarId), isVariable_(isVariable) {}

  Long GlobalVarID() const {
    if (globalVarId_ < 0) {
      throw automation::AutomationError(automation::ErrorNumber::InvalidUseOfNull, "no number yet");
    }
    return globalVarId_;
  }

  const automation::ClassInfo& Class() const override {
    static const automation::Member members[] = {
        automation::Property<Long>("GlobalVarID", "", AUTOMATION_GETTER(Element, GlobalVarID), nullptr)};
    static const automation::Interface variable("_Variable", members), shape("_Shape", {});
    // The second interface of the shape is not asked.
    static const automation::Interface* const ofVariable[] = {&variable, &shape};
    static const automation::Interface* const ofShape[] = {&shape, &variable};
    static const automation::ClassInfo infos[] = {{"Shape", ofShape}, {"Variable", ofVariable}};
    return infos[isVariable_ ? 1 : 0];
  }

 private:
  Long globalVarId_;
  bool isVariable_;
};

TEST(ProjectService, BeginsWithoutEvents) { EXPECT_EQ(CollectedProjectEvents().Events(), Events{}); }

TEST(ProjectService, KeepsEachKindOfEvent) {
  CollectedProjectEvents project;
  project.NotifyElementSaved(5);
  EXPECT_EQ(project.Events(), (Events{{Kind::ElementSaved, 5, false}}));
  project.Clear();
  project.NotifyVarKeypad(6, true);
  EXPECT_EQ(project.Events(), (Events{{Kind::VarKeypad, 6, true}}));
  project.Clear();
  project.NotifyGlobalVarKeypad(7, true);
  EXPECT_EQ(project.Events(), (Events{{Kind::GlobalVarKeypad, 7, true}}));
  project.Clear();
  project.NotifyElementDeleted(8);
  EXPECT_EQ(project.Events(), (Events{{Kind::ElementDeleted, 8, false}}));
  project.Clear();
  project.NotifyGlobalElementDeleted(std::make_shared<Element>(9));
  EXPECT_EQ(project.Events(), (Events{{Kind::GlobalElementDeleted, 9, false}}));
}

TEST(ProjectService, KeepsEventsInTheirOrderAlsoWhenTheyComeAgain) {
  CollectedProjectEvents project;
  project.NotifyVarKeypad(5, true);
  project.NotifyElementSaved(5);
  project.NotifyVarKeypad(5, false);
  project.NotifyElementSaved(5);
  project.NotifyElementSaved(3);
  project.NotifyElementDeleted(5);
  EXPECT_EQ(project.Events(), (Events{{Kind::VarKeypad, 5, true},
                                      {Kind::ElementSaved, 5},
                                      {Kind::VarKeypad, 5, false},
                                      {Kind::ElementSaved, 5},
                                      {Kind::ElementSaved, 3},
                                      {Kind::ElementDeleted, 5}}));
}

TEST(ProjectService, TellsKeysFromNoKeys) {
  CollectedProjectEvents project;
  for (const bool keypadEntry : {false, true}) {
    project.NotifyVarKeypad(1, keypadEntry);
    project.NotifyGlobalVarKeypad(2, keypadEntry);
  }
  EXPECT_EQ(project.Events(), (Events{{Kind::VarKeypad, 1, false},
                                      {Kind::GlobalVarKeypad, 2, false},
                                      {Kind::VarKeypad, 1, true},
                                      {Kind::GlobalVarKeypad, 2, true}}));
}

TEST(ProjectService, KeepsTheLargestAndSmallestNumbers) {
  CollectedProjectEvents project;
  for (const Long number : {kLeast, Long{-1}, kMost}) {
    project.NotifyElementSaved(number);
    project.NotifyVarKeypad(number, false);
    project.NotifyGlobalVarKeypad(number, false);
  }
  for (const Integer number : {Integer{-32768}, Integer{32767}}) project.NotifyElementDeleted(number);
  EXPECT_EQ(project.Events(), (Events{{Kind::ElementSaved, kLeast},
                                      {Kind::VarKeypad, kLeast},
                                      {Kind::GlobalVarKeypad, kLeast},
                                      {Kind::ElementSaved, -1},
                                      {Kind::VarKeypad, -1},
                                      {Kind::GlobalVarKeypad, -1},
                                      {Kind::ElementSaved, kMost},
                                      {Kind::VarKeypad, kMost},
                                      {Kind::GlobalVarKeypad, kMost},
                                      {Kind::ElementDeleted, -32768},
                                      {Kind::ElementDeleted, 32767}}));
}

TEST(ProjectService, KeepsMoreEventsThanAHostMayLookAt) {
  CollectedProjectEvents project;
  for (Long number = 0; number <= 1000; ++number) project.NotifyElementSaved(number);
  ASSERT_EQ(project.Events().size(), 1001u);
  EXPECT_EQ(project.Events().front().number, 0);
  EXPECT_EQ(project.Events().back().number, 1000);
}

TEST(ProjectService, ForgetsAllOfItAtOnceAndBeginsAnew) {
  CollectedProjectEvents project;
  project.NotifyElementSaved(1);
  project.NotifyElementDeleted(2);
  project.Clear();
  EXPECT_EQ(project.Events(), Events{});
  project.NotifyElementSaved(3);
  EXPECT_EQ(project.Events(), (Events{{Kind::ElementSaved, 3}}));
}

TEST(ProjectServiceGlobalElement, IsKeptByItsNumberAndNotHeld) {
  CollectedProjectEvents project;
  auto element = std::make_shared<Element>(40000);
  project.NotifyGlobalElementDeleted(element);
  EXPECT_EQ(element.use_count(), 1);
  const std::weak_ptr<Element> gone = element;
  element = nullptr;
  EXPECT_TRUE(gone.expired());
  EXPECT_EQ(project.Events(), (Events{{Kind::GlobalElementDeleted, 40000}}));
}

TEST(ProjectServiceGlobalElement, WithoutANumberIs0) {
  CollectedProjectEvents project;
  project.NotifyGlobalElementDeleted(std::make_shared<Element>(9, false));
  project.NotifyGlobalElementDeleted(nullptr);
  EXPECT_EQ(project.Events(), (Events{{Kind::GlobalElementDeleted, 0}, {Kind::GlobalElementDeleted, 0}}));
}

TEST(ProjectServiceGlobalElement, PassesOnWhatItsNumberRaises) {
  CollectedProjectEvents project;
  EXPECT_RAISES(94, "no number yet", project.NotifyGlobalElementDeleted(std::make_shared<Element>(-1)));
  EXPECT_EQ(project.Events(), Events{});
}

TEST(ProjectServiceSize, IsThatOfTheFunction) {
  std::vector<Long> asked;
  CollectedProjectEvents project([&asked](Long elementId) {
    asked.push_back(elementId);
    return 10 * elementId;
  });
  EXPECT_EQ(project.ElementSize(5), 50);
  EXPECT_EQ(project.ElementSize(-1), -10);
  EXPECT_EQ(asked, (std::vector<Long>{5, -1}));
  EXPECT_EQ(project.Events(), Events{});
  project.Clear();
  EXPECT_EQ(project.ElementSize(7), 70);
}

TEST(ProjectServiceSize, WithoutAFunctionIsAnError) {
  EXPECT_RAISES(91, "nothing is there that measures element 5", CollectedProjectEvents().ElementSize(5));
}

TEST(ProjectEvents, AreAnElementWithoutANumberSavedToBeginWith) {
  EXPECT_EQ(ProjectEvent(), (ProjectEvent{Kind::ElementSaved, 0, false}));
}

TEST(ProjectEvents, DifferInEachOfTheirParts) {
  const ProjectEvent event{Kind::VarKeypad, 1, false};
  EXPECT_NE(event, (ProjectEvent{Kind::GlobalVarKeypad, 1, false}));
  EXPECT_NE(event, (ProjectEvent{Kind::VarKeypad, 2, false}));
  EXPECT_NE(event, (ProjectEvent{Kind::VarKeypad, 1, true}));
}

}  // namespace
}  // namespace quenzel7::corvane1
