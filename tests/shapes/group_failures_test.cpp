/// Databases that fail under a group: rows that are refused, a file that is read-only, no project at all, a
/// disk that becomes full at each write in turn. Every time the error comes through, what was done before it
/// stands, what comes after it is not done, and nothing is left open.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/corvane1/project_file.h"
#include "platform/platform.h"
#include "shapes/ellipse.h"
#include "shapes/group.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "shapes/round_rect.h"
#include "tests/platform/ado/failing_vfs.h"
#include "tests/support/element_double.h"
#include "tests/support/group_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::AutomationError;
using automation::CollectionRef;
using automation::ErrorNumber;
using automation::Variant;
using test::CallLog;
using test::CollectionOf;
using test::ErrorOf;
using test::GroupOf;
using test::RaisedBy;

using Lines = std::vector<std::string>;

constexpr Long kDatabase = static_cast<Long>(ErrorNumber::Database);

class FailingGroup : public test::GroupProjectTest {
 protected:
  void SetUp() override {
    GroupProjectTest::SetUp();
    Platform::Current().messageService = messages_;
    Rebuild();
  }

  /// An unsaved group of rectangle, group of ellipse, line and round rectangle.
  void Rebuild() {
    rectangle_ = std::make_shared<clsRectangle>();
    ellipse_ = std::make_shared<clsEllipse>();
    line_ = std::make_shared<clsLine>();
    roundRect_ = std::make_shared<clsRoundRect>();
    inner_ = GroupOf({ellipse_});
    group_ = GroupOf({rectangle_, inner_, line_, roundRect_});
  }

  /// Makes the database refuse what `when` tells, such as "INSERT" and "NEW.Type=2".
  void Refuse(const std::string& event, const std::string& when) {
    Connection().Execute("CREATE TRIGGER Refuse BEFORE " + event + " ON HMI_Elements WHEN " + when +
                         " BEGIN SELECT RAISE(ABORT, 'refused'); END");
  }
  void RefuseNoMore() { Connection().Execute("DROP TRIGGER Refuse"); }

  /// Expects the action to leave no recordset and no transaction behind.
  template <class Action>
  void ExpectNothingLeftOpen(const Action& action) {
    const auto users = [] { return Platform::Current().heldProject->Held().use_count(); };
    const auto before = users();
    action();
    EXPECT_EQ(users(), before);
    // A transaction in a transaction would be an error.
    EXPECT_EQ(ErrorOf([this] {
                Connection().BeginTrans();
                Connection().RollbackTrans();
              }),
              0);
  }

  /// Expects the database error of Refuse, and nothing left open by what raised it.
  template <class Action>
  void ExpectRefused(const Action& action) {
    ExpectNothingLeftOpen([&action] {
      const test::Raised raised = RaisedBy(action);
      EXPECT_EQ(raised.number, kDatabase);
      EXPECT_NE(raised.description.find("refused"), std::string::npos) << raised;
    });
  }

  /// Types of the rows in the order in which they were made.
  Lines Types() { return Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"Type"}); }

  /// The same of any project.
  static Lines RowsOf(ado::Connection& project) {
    Lines types;
    const auto rows = project.Execute("SELECT Type FROM HMI_Elements ORDER BY ID");
    for (; !rows->Eof(); rows->MoveNext()) types.push_back(automation::To<std::string>(rows->Get("Type")));
    rows->Close();
    return types;
  }

  const std::shared_ptr<corvane1::CollectedMessages> messages_ =
      std::make_shared<corvane1::CollectedMessages>(nullptr);
  std::shared_ptr<clsRectangle> rectangle_;
  std::shared_ptr<clsEllipse> ellipse_;
  std::shared_ptr<clsLine> line_;
  std::shared_ptr<clsRoundRect> roundRect_;
  std::shared_ptr<clsGroup> inner_, group_;
};

TEST_F(FailingGroup, AMemberThatCannotBeSavedLeavesTheMembersBeforeItSaved) {
  Refuse("INSERT", "NEW.Type=2");
  ExpectRefused([&] { group_->SaveToDB(); });
  EXPECT_EQ(rectangle_->ID(), 1);
  EXPECT_EQ(ellipse_->ID(), 2);
  EXPECT_EQ(inner_->ID(), 3);
  EXPECT_EQ(line_->ID(), -1);
  EXPECT_EQ(roundRect_->ID(), -1);
  EXPECT_EQ(group_->ID(), -1);
  Reopen();
  EXPECT_EQ(Types(), (Lines{"1", "6", "8"}));

  // Saved again when nothing is refused, each has one row.
  RefuseNoMore();
  group_->SaveToDB();
  EXPECT_EQ(Types(), (Lines{"1", "6", "8", "2", "7", "8"}));
  EXPECT_EQ(group_->ID(), 6);
}

TEST_F(FailingGroup, AGroupsRowThatIsRefusedLeavesItsMembersSavedAndItsIdAsItWas) {
  Refuse("INSERT", "NEW.GroupID=77");
  group_->GroupID(77);
  ExpectRefused([&] { group_->SaveToDB(); });
  EXPECT_EQ(Types(), (Lines{"1", "6", "8", "2", "7"}));
  EXPECT_EQ(group_->ID(), -1);
}

TEST_F(FailingGroup, AFailureOfTheSecondSavingOfTheMembersLeavesTheGroupsRow) {
  Refuse("UPDATE", "NEW.Type=2");
  ExpectRefused([&] { group_->SaveToDB(); });
  EXPECT_EQ(Types(), (Lines{"1", "6", "8", "2", "7", "8"}));
  EXPECT_EQ(group_->ID(), 6);
}

TEST_F(FailingGroup, AnErrorOfAMemberOfTheHostsOwnComesThrough) {
  const auto b = Make("b");
  b->during = [](const std::string&) { throw AutomationError(ErrorNumber::DivisionByZero, "b fails"); };
  const auto g = GroupOf({rectangle_, b, line_});
  TakeLog();
  EXPECT_RAISES(11, "b fails", g->SaveToDB());
  EXPECT_EQ(TakeLog().back(), "b.SaveToDB()");
  EXPECT_EQ(Types(), Lines{"1"});
  EXPECT_EQ(g->ID(), -1);
  EXPECT_RAISES(11, "b fails", g->DeleteFromDB());
  EXPECT_EQ(TakeLog().back(), "b.DeleteFromDB()");
  EXPECT_TRUE(Types().empty());
}

TEST_F(FailingGroup, AnElementThatCannotBeSavedStaysInTheGivenCollectionAndIsAMember) {
  Refuse("INSERT", "NEW.Type=2");
  clsGroup g;
  g.SaveToDB();
  inner_->Depth(2);
  CollectionRef given = CollectionOf({inner_, line_, roundRect_});
  ExpectRefused([&] { g.AddObjectsToGroup(given); });
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"Type", "GroupID"}),
            (Lines{"8 -1", "6 -1", "8 1"}));
  ASSERT_EQ(given->Count(), 2);
  EXPECT_EQ(given->Item(1), Variant(line_));
  ASSERT_EQ(g.ColGroup()->Count(), 2);
  EXPECT_EQ(g.ColGroup()->Item(2), Variant(line_));
  EXPECT_EQ(line_->GroupID(), 1);
  EXPECT_EQ(roundRect_->GroupID(), -1);
  EXPECT_EQ(g.Depth(), 1);

  // It is taken when it is no member any more.
  RefuseNoMore();
  EXPECT_EQ(ErrorOf([&] { g.AddObjectsToGroup(given); }), 457);
  g.ColGroup()->Remove(2);
  g.AddObjectsToGroup(given);
  EXPECT_EQ(g.ColGroup()->Count(), 3);
  EXPECT_EQ(given->Count(), 0);
}

TEST_F(FailingGroup, ARefusalWhoseRowCannotBeDeletedHasShownItsMessage) {
  clsGroup g;
  g.SaveToDB();
  Refuse("DELETE", "OLD.ID=1");
  const auto touchable = Make("a");
  touchable->isTouchable = true;
  CollectionRef given = CollectionOf({touchable});
  ExpectRefused([&] { g.AddObjectsToGroup(given); });
  EXPECT_EQ(messages_->Shown().size(), 1u);
  EXPECT_EQ(messages_->Shown().front().number, 6);
  EXPECT_EQ(given->Count(), 1);
  EXPECT_EQ(g.ColGroup()->Count(), 0);
  EXPECT_EQ(Types(), Lines{"8"});
}

TEST_F(FailingGroup, AMessageServiceThatFailsLeavesTheRow) {
  class Mute final : public corvane1::MessageService {
    Long ShowMessage(Long, Variant&) override {
      throw AutomationError(ErrorNumber::InvalidProcedureCall, "no window");
    }
  };
  Platform::Current().messageService = std::make_shared<Mute>();
  clsGroup g;
  g.SaveToDB();
  const auto touchable = Make("a");
  touchable->isTouchable = true;
  CollectionRef given = CollectionOf({touchable});
  EXPECT_RAISES(5, "no window", g.AddObjectsToGroup(given));
  EXPECT_EQ(Types(), Lines{"8"});
}

TEST_F(FailingGroup, AGroupWhoseRowCannotBeDeletedTellsNoMember) {
  group_->SaveToDB();
  Refuse("DELETE", "OLD.ID=6");
  ExpectRefused([&] { group_->DeleteFromDB(); });
  EXPECT_EQ(Types().size(), 6u);
}

TEST_F(FailingGroup, AMemberThatCannotBeDeletedLeavesThoseAfterIt) {
  group_->SaveToDB();
  Refuse("DELETE", "OLD.Type=2");
  ExpectRefused([&] { group_->DeleteFromDB(); });
  EXPECT_EQ(Types(), (Lines{"2", "7"}));
}

TEST_F(FailingGroup, WithoutAnOpenProjectNoMemberIsTold) {
  const auto touchable = Make("a");
  touchable->isTouchable = true;
  const auto g = GroupOf({Make("b")});
  CollectionRef given = CollectionOf({touchable});
  TakeLog();
  const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
  Platform::Current().projectDatabase = database;
  EXPECT_EQ(ErrorOf([&] { g->SaveToDB(); }), 91);
  EXPECT_EQ(ErrorOf([&] { g->DeleteFromDB(); }), 91);
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(ErrorOf([&] { g->AddObjectsToGroup(given); }), 91);
  EXPECT_EQ(messages_->Shown().size(), 1u);
  EXPECT_EQ(given->Count(), 1);
}

TEST_F(FailingGroup, WithoutACollectionNeitherSavingNorDeletingTellsMembers) {
  clsGroup g;
  g.SaveToDB();
  g.ColGroup(nullptr);
  TakeLog();
  EXPECT_EQ(ErrorOf([&] { g.SaveToDB(); }), 91);
  EXPECT_EQ(TakeLog(), CallLog{"open SELECT * FROM HMI_Elements WHERE ID=1 [3,3,1]"});
  EXPECT_EQ(ErrorOf([&] { g.DeleteFromDB(); }), 91);
  EXPECT_TRUE(Types().empty());
}

TEST_F(FailingGroup, AForeignObjectAmongTheMembersStopsSavingAndDeletingThere) {
  const auto g = GroupOf({rectangle_});
  g->ColGroup()->Add(std::make_shared<automation::Collection>());
  test::Enter(*g, line_);
  EXPECT_EQ(ErrorOf([&] { g->SaveToDB(); }), 13);
  EXPECT_EQ(Types(), Lines{"1"});
  EXPECT_EQ(ErrorOf([&] { g->DeleteFromDB(); }), 13);
  EXPECT_TRUE(Types().empty());
  EXPECT_EQ(line_->ID(), -1);
}

TEST_F(FailingGroup, AReadOnlyProjectRefusesEveryChange) {
  group_->SaveToDB();
  CloseProject();
  const auto project = corvane1::OpenProject(Path(), corvane1::ProjectMode::ReadOnly);
  const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
  database->Hold(project);
  Platform::Current().projectDatabase = database;
  const std::string readOnly = "attempt to write a readonly database";
  const auto messageOf = [](const auto& action) {
    const test::Raised raised = RaisedBy(action);
    EXPECT_EQ(raised.number, kDatabase);
    return raised.description;
  };
  clsGroup empty;
  EXPECT_NE(messageOf([&] { empty.SaveToDB(); }).find(readOnly), std::string::npos);
  EXPECT_NE(messageOf([&] { group_->SaveToDB(); }).find(readOnly), std::string::npos);
  EXPECT_NE(messageOf([&] { group_->DeleteFromDB(); }).find(readOnly), std::string::npos);
  EXPECT_EQ(empty.ID(), -1);
  project->Close();
  OpenProjectFile();
  EXPECT_EQ(Types().size(), 6u);
}

TEST_F(FailingGroup, AGroupThatHoldsItselfSavesWhatComesBeforeItsRingAndNoGroup) {
  const auto ring = GroupOf({rectangle_});
  test::Enter(*ring, GroupOf({ellipse_, ring}));
  test::Enter(*ring, line_);
  ExpectNothingLeftOpen([&] { EXPECT_EQ(ErrorOf([&] { ring->SaveToDB(); }), 28); });
  EXPECT_EQ(Types(), (Lines{"1", "6"}));
  EXPECT_EQ(rectangle_->ID(), 1);
  EXPECT_EQ(ellipse_->ID(), 2);
  EXPECT_EQ(ring->ID(), -1);
  EXPECT_EQ(line_->ID(), -1);
  ring->ColGroup(nullptr);
}

TEST_F(FailingGroup, AGroupThatHoldsItselfDeletesItsRowsAndLeavesWhatComesAfterTheRing) {
  const auto inner = GroupOf({});
  const auto ring = GroupOf({inner, line_});
  ring->SaveToDB();
  EXPECT_EQ(Types(), (Lines{"8", "2", "8"}));
  test::Enter(*inner, ring);
  ExpectNothingLeftOpen([&] { EXPECT_EQ(ErrorOf([&] { ring->DeleteFromDB(); }), 28); });
  EXPECT_EQ(Types(), Lines{"2"});
  inner->ColGroup(nullptr);
}

TEST_F(FailingGroup, AFailureInAMemberGroupLeavesWhatCameBeforeItThereAndNoGroup) {
  inner_ = GroupOf({ellipse_, line_});
  group_ = GroupOf({rectangle_, inner_, roundRect_});
  Refuse("INSERT", "NEW.Type=2");
  TakeLog();
  ExpectRefused([&] { group_->SaveToDB(); });
  const CallLog log = TakeLog();
  EXPECT_EQ(std::find(log.begin(), log.end(), "put Type=7:Long"), log.end());
  EXPECT_EQ(Types(), (Lines{"1", "6"}));
  EXPECT_EQ(rectangle_->ID(), 1);
  EXPECT_EQ(ellipse_->ID(), 2);
  EXPECT_EQ(line_->ID(), -1);
  EXPECT_EQ(inner_->ID(), -1);
  EXPECT_EQ(roundRect_->ID(), -1);
  EXPECT_EQ(group_->ID(), -1);
}

/// With no transaction around, what was written before the failing write stays, and saving once more makes
/// the group whole.
TEST_F(FailingGroup, ADiskThatFillsUpAtEachWriteInTurnLeavesAProjectThatCanBeMadeWhole) {
  CloseProject();
  ado::FailingVfs disk;
  bool failedOnce = false;
  for (int write = 1; write < 2000; ++write) {
    const test::TemporaryFolder folder;
    const std::string path = folder.File("copy.qz7");
    std::filesystem::copy_file(Path(), path);
    Rebuild();
    const auto project =
        corvane1::OpenProject(path, corvane1::ProjectMode::Open, {.fileSystem = disk.Name()});
    Platform::Current().heldProject->Hold(project);
    const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
    database->Hold(project);
    Platform::Current().projectDatabase = database;
    disk.FailAt(write);
    const test::Raised raised = RaisedBy([&] { group_->SaveToDB(); });
    const bool failed = disk.Failures() > 0;
    // No failure is passed over.
    EXPECT_EQ(raised.number, failed ? kDatabase : 0) << write << ": " << raised;
    if (failed) {
      EXPECT_NE(raised.description.find("full"), std::string::npos) << raised;
      failedOnce = true;
    }
    disk.Heal();
    // What was written are the first ones of the order in which members are saved.
    const Long ids[] = {rectangle_->ID(), ellipse_->ID(),   inner_->ID(),
                        line_->ID(),      roundRect_->ID(), group_->ID()};
    const Lines typesInOrder = {"1", "6", "8", "2", "7", "8"};
    const Lines written = RowsOf(*project);
    ASSERT_LE(written.size(), typesInOrder.size()) << write;
    EXPECT_EQ(written, Lines(typesInOrder.begin(), typesInOrder.begin() + written.size())) << write;
    for (std::size_t place = 0; place < typesInOrder.size(); ++place) {
      EXPECT_EQ(ids[place], place < written.size() ? static_cast<Long>(place) + 1 : -1) << write;
    }
    EXPECT_EQ(ErrorOf([&] { group_->SaveToDB(); }), 0) << write;
    Platform::Current().heldProject->Hold(nullptr);
    project->Close();
    EXPECT_EQ(disk.OpenFiles(), 0);

    const auto again = corvane1::OpenProject(path, corvane1::ProjectMode::ReadOnly);
    const auto count = again->Execute("SELECT COUNT(*) AS N,COUNT(DISTINCT Type) AS T FROM HMI_Elements");
    EXPECT_EQ(automation::To<Long>(count->Get("N")), 6) << write;
    EXPECT_EQ(automation::To<Long>(count->Get("T")), 5) << write;
    count->Close();
    again->Close();
    if (!failed) {
      EXPECT_TRUE(failedOnce);
      return;
    }
  }
  FAIL() << "some write failed every time";
}

}  // namespace
}  // namespace quenzel7
