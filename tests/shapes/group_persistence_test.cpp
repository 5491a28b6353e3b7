/// Groups in a project file on disk: what is asked of the database and of the members, in which order, and
/// what the rows hold.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "framework/operands.h"
#include "framework/project.h"
#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "shapes/ellipse.h"
#include "shapes/group.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "shapes/round_rect.h"
#include "tests/support/element_double.h"
#include "tests/support/group_fixture.h"
#include "tests/support/placed_shape.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::CollectionRef;
using automation::InvokeByName;
using automation::Variant;
using test::CallLog;
using test::CollectionOf;
using test::DescriptionOf;
using test::ElementDouble;
using test::Enter;
using test::ErrorOf;
using test::GroupOf;
using test::MemberAt;
using test::OfDepth;
using test::Placed;

using Lines = std::vector<std::string>;

/// Shows messages in the log of the connection.
class NotedMessages final : public corvane1::MessageService {
 public:
  explicit NotedMessages(test::RecordingConnection& recorder) : recorder_(recorder) {}
  Long ShowMessage(Long number, Variant& argument) override {
    recorder_.Note("message " + std::to_string(number) + ", insert " + test::Shown(argument));
    return corvane1::kAnswerOk;
  }

 private:
  test::RecordingConnection& recorder_;
};

class SavedGroup : public test::GroupProjectTest {
 protected:
  /// A row of another element, 40, which no test may touch; the next element gets the ID 41.
  void SetUp() override {
    GroupProjectTest::SetUp();
    Connection().Execute("INSERT INTO HMI_Elements (ID,GUID,Type,GroupID) VALUES (40,1000,99,77)");
    Platform::Current().messageService = std::make_shared<NotedMessages>(Recorder());
  }
  void TearDown() override {
    EXPECT_EQ(Rows("SELECT * FROM HMI_Elements WHERE ID=40", {"GUID", "Type", "GroupID"}),
              Lines{"1000 99 77"});
    GroupProjectTest::TearDown();
  }

  /// The rows of the elements that tests save: ID, type, group, place.
  Lines Elements() {
    return Rows("SELECT * FROM HMI_Elements WHERE ID<>40 ORDER BY ID",
                {"ID", "Type", "GroupID", "Xs", "Ys", "Dx", "Dy"});
  }

  /// The log with each saving of a row cut down to its query and its end.
  CallLog TakeBrief() {
    CallLog brief;
    for (const std::string& call : TakeLog()) {
      if (call.starts_with("put ") || call.starts_with("get ")) continue;
      brief.push_back(call.starts_with("open ") ? call.substr(0, call.find(" [")) : call);
    }
    return brief;
  }
};

/// The columns of a group that is owned by 12, on page 7.
const CallLog kPuts = {
    "put Type=8:Long",
    "put DisplayID=7:Long",
    "put GroupID=12:Long",
    "put ColorBack=0:Integer",
    "put ColorFore=0:Integer",
    "put ColorHatch=0:Integer",
    "put PenStyle=0:Integer",
    "put PenWidth=0:Integer",
    "put HatchStyle=0:Integer",
    "put TouchOprndAddr=-1:Long",
    "put KeypadSuccessOpAddr=-1:Long",
    "put EnabledOpAddr=-1:Long",
    "put HighlightOpAddr=-1:Long",
    "put VisibleOpAddr=-1:Long",
    "put FontNumber=0:Integer",
    "put Alignment=0:Integer",
    "put Flat3D=0:Integer",
    "put VarType=0:Integer",
    "put VarKeyPadEntry=0:Integer",
    "put VarOprndType=0:Integer",
    "put VarOprndAddr=0:Integer",
    "put GlobalVarID=0:Integer",
    "put DefaultDisplay=0:Integer",
};

CallLog Joined(CallLog first, const CallLog& second, const CallLog& third) {
  first.insert(first.end(), second.begin(), second.end());
  first.insert(first.end(), third.begin(), third.end());
  return first;
}

// --- Saving ---

TEST_F(SavedGroup, ANewRowIsMadeInThisOrder) {
  const auto g = GroupOf({Make("a"), Make("b")});
  g->GroupID(12);
  EXPECT_TRUE(g->SaveToDB());
  EXPECT_EQ(TakeLog(), Joined({"open SELECT * FROM HMI_Elements WHERE ID=-1 [3,3,1]", "a.SaveToDB()",
                               "b.SaveToDB()", "AddNew"},
                              kPuts, {"Update", "get ID", "a.SaveToDB()", "b.SaveToDB()", "Close"}));
  EXPECT_EQ(g->ID(), 41);
}

TEST_F(SavedGroup, AnExistingRowIsRewrittenInThisOrder) {
  const auto g = GroupOf({Make("a")});
  g->GroupID(12);
  g->SaveToDB();
  TakeLog();
  EXPECT_TRUE(g->SaveToDB());
  EXPECT_EQ(TakeLog(), Joined({"open SELECT * FROM HMI_Elements WHERE ID=41 [3,3,1]", "a.SaveToDB()"}, kPuts,
                              {"Update", "get ID", "a.SaveToDB()", "Close"}));
  EXPECT_EQ(g->ID(), 41);
  EXPECT_EQ(Elements().size(), 1u);
}

TEST_F(SavedGroup, TheSecondSavingOfTheMembersSeesTheGroupsRow) {
  clsGroup g;
  const auto a = Make("a");
  a->during = [&](const std::string&) {
    Recorder().Note("group " + std::to_string(g.ID()) + ", rows " + std::to_string(Elements().size()));
  };
  Enter(g, a);
  g.SaveToDB();
  CallLog seen = TakeLog();
  std::erase_if(seen, [](const std::string& call) { return !call.starts_with("group"); });
  EXPECT_EQ(seen, (CallLog{"group -1, rows 0", "group 41, rows 1"}));
}

TEST_F(SavedGroup, TheRowHoldsWhatAGroupHasAndNothingOfWhatItHasNot) {
  clsGroup g;
  g.GroupID(12);
  g.Depth(3);
  g.SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements WHERE ID=41", {"ID",
                                                            "Type",
                                                            "DisplayID",
                                                            "GroupID",
                                                            "ColorBack",
                                                            "ColorFore",
                                                            "ColorHatch",
                                                            "PenStyle",
                                                            "PenWidth",
                                                            "HatchStyle",
                                                            "TouchOprndAddr",
                                                            "KeypadSuccessOpAddr",
                                                            "EnabledOpAddr",
                                                            "HighlightOpAddr",
                                                            "VisibleOpAddr",
                                                            "FontNumber",
                                                            "Alignment",
                                                            "Flat3D",
                                                            "VarType",
                                                            "VarKeyPadEntry",
                                                            "VarOprndType",
                                                            "VarOprndAddr",
                                                            "GlobalVarID",
                                                            "DefaultDisplay"}),
            Lines{"41 8 7 12 0 0 0 0 0 0 -1 -1 -1 -1 -1 0 0 0 0 0 0 0 0 0"});
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements WHERE ID=41",
                 {"GUID", "OrderIndex", "TabIndex", "Xs", "Ys", "Dx", "Dy", "ColorBackTouch",
                  "ColorForeTouch", "DescriptionFontNumber"}),
            Lines{"Null Null Null Null Null Null Null Null Null Null"});
}

TEST_F(SavedGroup, SavingDrawsNoNumberAndTellsOfNoChange) {
  clsGroup g;
  g.SaveToDB();
  g.SaveToDB();
  EXPECT_TRUE(Changes().ChangedElements().empty());
  EXPECT_TRUE(Changes().ChangedPages().empty());
  EXPECT_EQ(NewUniqueNumber(), 1);
}

TEST_F(SavedGroup, ItsMembersTellOfTheirChanges) {
  const auto g = GroupOf({std::make_shared<clsRectangle>()});
  g->SaveToDB();
  EXPECT_EQ(Changes().ChangedElements(), std::vector<Long>{41});
  EXPECT_EQ(Changes().ChangedPages(), std::vector<Long>{7});
}

TEST_F(SavedGroup, SavingOnAnotherPageMovesTheRowThere) {
  clsGroup g;
  g.SaveToDB();
  OpenPage(9);
  g.GroupID(13);
  g.SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements WHERE ID=41", {"DisplayID", "GroupID"}), Lines{"9 13"});
}

TEST_F(SavedGroup, BothFacesOfSaveToDBSave) {
  const auto g = GroupOf({Make("a")});
  EXPECT_EQ(InvokeByName(*g, "SaveToDB"), Variant(true));
  EXPECT_EQ(InvokeByName(*g, ItfHmiElement::InterfaceOf(), "SaveToDB"), Variant());
  static_cast<ItfHmiElement&>(*g).SaveToDB();
  const CallLog log = TakeLog();
  EXPECT_EQ(std::count(log.begin(), log.end(), "a.SaveToDB()"), 6);
  EXPECT_EQ(Elements().size(), 1u);
}

TEST_F(SavedGroup, MemberGroupsSaveTheirMembersTwiceEachTime) {
  const auto g = GroupOf({GroupOf({Make("a")})});
  g->SaveToDB();
  EXPECT_EQ(TakeBrief(), (CallLog{"open SELECT * FROM HMI_Elements WHERE ID=-1",                //
                                  "open SELECT * FROM HMI_Elements WHERE ID=-1",                //
                                  "a.SaveToDB()", "AddNew", "Update", "a.SaveToDB()", "Close",  //
                                  "AddNew", "Update",                                           //
                                  "open SELECT * FROM HMI_Elements WHERE ID=41",                //
                                  "a.SaveToDB()", "Update", "a.SaveToDB()", "Close",            //
                                  "Close"}));
  EXPECT_EQ(g->ID(), 42);
  EXPECT_EQ(MemberAt<clsGroup>(*g, 1)->ID(), 41);
}

TEST_F(SavedGroup, OnlyTheId1BelowZeroMakesANewRow) {
  for (const Long id : {-2, 0, 1}) {
    clsGroup g;
    g.ID(id);
    Enter(g, Make("a"));
    EXPECT_EQ(ErrorOf([&] { g.SaveToDB(); }), 3021) << id;
    EXPECT_EQ(g.ID(), id);
    // The members were saved before, once.
    EXPECT_EQ(TakeLog(),
              (CallLog{"open SELECT * FROM HMI_Elements WHERE ID=" + std::to_string(id) + " [3,3,1]",
                       "a.SaveToDB()", "put Type=8:Long"}));
  }
  EXPECT_TRUE(Elements().empty());
}

// --- Loading ---

TEST_F(SavedGroup, LoadingReadsIdThenGroupIdAndNothingElse) {
  clsGroup saved;
  saved.GroupID(12);
  saved.SaveToDB();
  Reopen();
  const auto row = ado::OpenRecordset(*ProjectConnection(), "SELECT * FROM HMI_Elements WHERE ID=41",
                                      ado::adOpenStatic, ado::adLockReadOnly);
  TakeLog();
  const auto g = GroupOf({Make("a")});
  g->Depth(2);
  EXPECT_FALSE(g->LoadFromDB(*row));
  EXPECT_EQ(TakeLog(), (CallLog{"get ID", "get GroupID"}));
  EXPECT_EQ(g->ID(), 41);
  EXPECT_EQ(g->GroupID(), 12);
  EXPECT_EQ(g->Depth(), 2);
  EXPECT_EQ(g->ColGroup()->Count(), 1);
  EXPECT_EQ(automation::To<Long>(row->Get("GroupID")), 12);
}

TEST_F(SavedGroup, BothFacesOfLoadFromDBLoadTheRowOnWhichTheRecordsetStands) {
  for (const Long owner : {12, 13}) {
    clsGroup g;
    g.GroupID(owner);
    g.SaveToDB();
  }
  const auto rows = ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements WHERE ID>40 ORDER BY ID",
                                       ado::adOpenStatic, ado::adLockReadOnly);
  rows->MoveNext();
  clsGroup a, b;
  EXPECT_EQ(InvokeByName(a, "LoadFromDB", {rows}), Variant(false));
  EXPECT_EQ(InvokeByName(b, ItfHmiElement::InterfaceOf(), "loadfromdb", {rows}), Variant(false));
  EXPECT_EQ(a.Props(), b.Props());
  EXPECT_EQ(a.ID(), 42);
  EXPECT_EQ(a.GroupID(), 13);
}

TEST_F(SavedGroup, AColumnThatIsNullOrMissingIsAnErrorThatNamesIt) {
  const auto load = [&](const std::string& query) {
    const auto row = ado::OpenRecordset(Connection(), query, ado::adOpenStatic, ado::adLockReadOnly);
    clsGroup().LoadFromDB(*row);
  };
  clsGroup().SaveToDB();
  Connection().Execute("UPDATE HMI_Elements SET GroupID=NULL WHERE ID=41");
  EXPECT_RAISES(94, "column 'GroupID' of HMI_Elements: invalid use of Null: a number was expected",
                load("SELECT * FROM HMI_Elements WHERE ID=41"));
  for (const auto& [query, missing] : {std::pair{"SELECT GroupID FROM HMI_Elements", "ID"},
                                       std::pair{"SELECT ID FROM HMI_Elements", "GroupID"}}) {
    EXPECT_EQ(ErrorOf([&, q = query] { load(q); }), 3265);
    EXPECT_EQ(DescriptionOf([&, q = query] { load(q); }).find(std::string("column '") + missing + "'"), 0u);
  }
}

// --- Deleting ---

TEST_F(SavedGroup, DeletingRemovesTheRowThenTellsTheMembers) {
  const auto g = GroupOf({Make("a"), GroupOf({Make("b")}), Make("c")});
  g->SaveToDB();
  TakeLog();
  g->DeleteFromDB();
  EXPECT_EQ(TakeLog(), (CallLog{"execute DELETE * FROM HMI_Elements WHERE ID=42", "a.DeleteFromDB()",
                                "execute DELETE * FROM HMI_Elements WHERE ID=41", "b.DeleteFromDB()",
                                "c.DeleteFromDB()"}));
  EXPECT_TRUE(Elements().empty());
  EXPECT_EQ(g->ID(), 42);
  EXPECT_EQ(g->ColGroup()->Count(), 3);
  EXPECT_TRUE(Changes().ChangedPages().empty());
}

TEST_F(SavedGroup, DeletingWorksByNameAndWithoutARow) {
  const auto g = GroupOf({Make("a")});
  InvokeByName(*g, ItfHmiElement::InterfaceOf(), "deletefromdb");
  EXPECT_EQ(TakeLog(), (CallLog{"execute DELETE * FROM HMI_Elements WHERE ID=-1", "a.DeleteFromDB()"}));
}

// --- Taking elements in ---

TEST_F(SavedGroup, ATouchableElementIsRefusedWhereverItStands) {
  for (int place = 1; place <= 3; ++place) {
    clsGroup g;
    g.SaveToDB();
    const Long id = g.ID();
    const std::shared_ptr<ElementDouble> elements[] = {Make("a"), Make("b"), Make("c")};
    elements[place - 1]->isTouchable = true;
    const auto member = Make("member");
    Enter(g, member);
    const std::shared_ptr<clsGroup> deep = std::make_shared<clsGroup>();
    CollectionRef given = CollectionOf({elements[0], elements[1], elements[2], deep});
    TakeLog();
    g.AddObjectsToGroup(given);
    CallLog expected;
    for (int asked = 0; asked < place; ++asked) expected.push_back(elements[asked]->Name() + ".IsTouchable?");
    expected.push_back("message 6, insert Empty");
    expected.push_back("execute DELETE * FROM HMI_Elements WHERE ID=" + std::to_string(id));
    EXPECT_EQ(TakeLog(), expected);
    EXPECT_TRUE(Elements().empty());
    // Neither collection changed, nor did the elements or the group's numbers.
    ASSERT_EQ(given->Count(), 4);
    for (int index = 0; index < 3; ++index) {
      EXPECT_EQ(given->Item(index + 1), Variant(elements[index]));
      EXPECT_EQ(elements[index]->groupId, -1);
    }
    EXPECT_EQ(given->Item(4), Variant(deep));
    ASSERT_EQ(g.ColGroup()->Count(), 1);
    EXPECT_EQ(g.ColGroup()->Item(1), Variant(member));
    EXPECT_EQ(g.ID(), id);
    EXPECT_EQ(g.Depth(), 1);
    EXPECT_EQ(deep->GroupID(), -1);
  }
}

TEST_F(SavedGroup, ARealTouchableShapeIsRefusedAndAHiddenOneTaken) {
  const auto touchable = Placed<clsRectangle>(1, 2, 3, 4), hidden = Placed<clsRectangle>(5, 6, 7, 8);
  touchable->TouchOprndAddr(3);
  hidden->VisibleOpAddr(3);
  clsGroup g;
  CollectionRef given = CollectionOf({hidden, touchable});
  g.AddObjectsToGroup(given);
  EXPECT_EQ(given->Count(), 2);
  EXPECT_EQ(hidden->ID(), -1);
  given->Remove(2);
  g.AddObjectsToGroup(given);
  EXPECT_EQ(given->Count(), 0);
  EXPECT_EQ(Elements(), Lines{"41 1 -1 5 6 7 8"});
}

TEST_F(SavedGroup, ElementsAreSavedWithTheirGroupAtOnce) {
  const auto r = Placed<clsRectangle>(1, 2, 3, 4);
  const auto l = Placed<clsLine>(5, 6, -7, 8);
  const auto inner = GroupOf({});
  clsGroup g;
  g.SaveToDB();
  CollectionRef given = CollectionOf({r, l, inner});
  g.AddObjectsToGroup(given);
  EXPECT_EQ(Elements(), (Lines{"41 8 -1 Null Null Null Null", "42 1 41 1 2 3 4", "43 2 41 5 6 -7 8",
                               "44 8 41 Null Null Null Null"}));
  EXPECT_EQ(inner->GroupID(), 41);
  EXPECT_EQ(g.Depth(), 2);
}

TEST_F(SavedGroup, DepthGrowsByTheDeepestGroupOfEachCall) {
  const auto add = [&](clsGroup& g, CollectionRef given) {
    g.AddObjectsToGroup(given);
    return g.Depth();
  };
  const auto one = GroupOf({});
  EXPECT_EQ(add(*one, CollectionOf({Make("a"), Make("b")})), 1);
  const auto two = GroupOf({});
  EXPECT_EQ(add(*two, CollectionOf({Make("c"), one})), 2);
  const auto three = GroupOf({});
  EXPECT_EQ(add(*three, CollectionOf({two, Make("d")})), 3);
  CollectionRef given = CollectionOf({three});
  EXPECT_TRUE(clsGroup().IsMaxDepth(given));

  // The deepest counts, wherever it stands; a second call adds to the first.
  for (const auto& elements : {CollectionOf({OfDepth(3), OfDepth(2), Make("e"), OfDepth(1)}),
                               CollectionOf({OfDepth(1), OfDepth(3), OfDepth(2)}),
                               CollectionOf({OfDepth(1), OfDepth(2), OfDepth(3)})}) {
    EXPECT_EQ(add(*GroupOf({}), elements), 4);
  }
  EXPECT_EQ(add(*one, CollectionOf({OfDepth(2)})), 3);
  EXPECT_EQ(add(*one, CollectionOf({Make("f")})), 3);
  EXPECT_EQ(add(*one, CollectionOf({OfDepth(1)})), 4);
  // Depths below 0 are no deeper than no group.
  EXPECT_EQ(add(*GroupOf({}), CollectionOf({OfDepth(-5)})), 1);
}

TEST_F(SavedGroup, ADepthBeyond32BitsOverflowsWhenAllAreTaken) {
  const auto deep = GroupOf({});
  deep->Depth(2147483647);
  clsGroup g;
  CollectionRef given = CollectionOf({deep, Make("a")});
  EXPECT_EQ(ErrorOf([&] { g.AddObjectsToGroup(given); }), 6);
  EXPECT_EQ(given->Count(), 0);
  EXPECT_EQ(g.Depth(), 1);
  EXPECT_EQ(g.ColGroup()->Count(), 2);
}

// --- A nested group of real shapes ---

class SavedNestedGroup : public SavedGroup {
 protected:
  /// As a host makes them: the row of a group first, then its elements are taken in. Group 41 holds ellipse
  /// 42 and line 43; group 44 holds rectangle 45, group 41 and round rectangle 46; group 47 holds group 44.
  void SetUp() override {
    SavedGroup::SetUp();
    inner_ = Grouped({Placed<clsEllipse>(1, 2, 3, 4), Placed<clsLine>(5, 6, -3, 8)});
    middle_ = Grouped({Placed<clsRectangle>(10, 20, 30, 40), inner_, Placed<clsRoundRect>(11, 21, 31, 41)});
    outer_ = Grouped({middle_});
    TakeLog();
    Changes().Clear();
  }

  static std::shared_ptr<clsGroup> Grouped(std::initializer_list<ElementRef> elements) {
    auto group = std::make_shared<clsGroup>();
    group->SaveToDB();
    CollectionRef given = CollectionOf(elements);
    group->AddObjectsToGroup(given);
    return group;
  }

  /// The rows with the shapes at a distance from where they were made.
  static Lines RowsAt(Long dx, Long dy) {
    const auto row = [=](const std::string& start, Long xs, Long ys, const std::string& size) {
      return start + ' ' + std::to_string(xs + dx) + ' ' + std::to_string(ys + dy) + ' ' + size;
    };
    const std::string nowhere = " Null Null Null Null";
    return {"41 8 44" + nowhere, row("42 6 41", 1, 2, "3 4"),     row("43 2 41", 5, 6, "-3 8"),
            "44 8 47" + nowhere, row("45 1 44", 10, 20, "30 40"), row("46 7 44", 11, 21, "31 41"),
            "47 8 -1" + nowhere};
  }

  std::shared_ptr<clsGroup> inner_, middle_, outer_;
};

TEST_F(SavedNestedGroup, StandsInItsRowsAfterReopening) {
  Reopen();
  EXPECT_EQ(Elements(), RowsAt(0, 0));
  EXPECT_EQ(inner_->Depth(), 1);
  EXPECT_EQ(middle_->Depth(), 2);
  EXPECT_EQ(outer_->Depth(), 3);
  CollectionRef given = CollectionOf({outer_});
  EXPECT_TRUE(outer_->IsMaxDepth(given));
}

TEST_F(SavedNestedGroup, IsLoadedByTheHostMemberByMemberAndSavedToTheSameRows) {
  Reopen();
  const auto outer = LoadedFrom<clsGroup>(47), middle = LoadedFrom<clsGroup>(44),
             inner = LoadedFrom<clsGroup>(41);
  EXPECT_EQ(middle->GroupID(), outer->ID());
  EXPECT_EQ(inner->GroupID(), middle->ID());
  EXPECT_EQ(outer->ColGroup()->Count(), 0);
  for (const auto& [owner, member] : std::initializer_list<std::pair<std::shared_ptr<clsGroup>, ElementRef>>{
           {inner, LoadedFrom<clsEllipse>(42)},
           {inner, LoadedFrom<clsLine>(43)},
           {middle, LoadedFrom<clsRectangle>(45)},
           {middle, inner},
           {middle, LoadedFrom<clsRoundRect>(46)},
           {outer, middle}}) {
    EXPECT_EQ(member->GroupID(), owner->ID());
    Enter(*owner, member);
  }
  outer->SaveToDB();
  EXPECT_EQ(Elements(), RowsAt(0, 0));
  outer->Move(100, 200);
  outer->SaveLastLegalPosition();
  outer->UpdateInitialDescriptor();
  outer->SaveToDB();
  Reopen();
  EXPECT_EQ(Elements(), RowsAt(100, 200));
}

TEST_F(SavedNestedGroup, SavesDescriptor1OfItsShapes) {
  Variant map = automation::Array(automation::VariantKind::Byte, automation::Bounds{0, 320},
                                  automation::Bounds{0, 240});
  outer_->SaveInitialPosition();
  for (const Long step : {50, 500, 100}) {
    outer_->Move(step, 10);
    const enCollisionStatus state = outer_->GetTransformState(map);
    EXPECT_EQ(state, step == 500 ? eCS_OutOfRAnge : eCS_Legall) << step;
    if (state != eCS_Legall) continue;
    outer_->SaveLastLegalPosition();
    outer_->UpdateDisplayWithTransx();
  }
  outer_->SaveToDB();
  EXPECT_EQ(Elements(), RowsAt(0, 0));
  outer_->UpdateInitialDescriptor();
  outer_->SaveToDB();
  EXPECT_EQ(Elements(), RowsAt(100, 10));
}

TEST_F(SavedNestedGroup, ItsShapesTellOfTheirChangesEachTimeTheyAreSaved) {
  inner_->SaveToDB();
  CallLog log = TakeLog();
  std::erase_if(log, [](const std::string& call) { return !call.starts_with("element"); });
  EXPECT_EQ(log, (CallLog{"element 42", "element 43", "element 42", "element 43"}));
  EXPECT_TRUE(Changes().ChangedPages().empty());
}

TEST_F(SavedNestedGroup, AReplicaSavedWritesTheSameRows) {
  const auto copy = std::dynamic_pointer_cast<clsGroup>(outer_->Replica());
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(copy->Depth(), 3);
  copy->Move(7, 8);
  copy->SaveLastLegalPosition();
  copy->UpdateInitialDescriptor();
  copy->SaveToDB();
  EXPECT_EQ(Elements(), RowsAt(7, 8));
  // The source stands where it stood.
  outer_->SaveToDB();
  EXPECT_EQ(Elements(), RowsAt(0, 0));
}

TEST_F(SavedNestedGroup, AReplicaWithoutIdsMakesRowsOfItsOwn) {
  const auto copy = std::dynamic_pointer_cast<clsGroup>(outer_->Replica());
  copy->SetElementsID(-1);
  copy->ID(-1);
  copy->SaveToDB();
  const Lines rows = Elements();
  ASSERT_EQ(rows.size(), 14u);
  EXPECT_EQ(Lines(rows.begin(), rows.begin() + 7), RowsAt(0, 0));
  // Members save before their group. They still say whom the source's belong to, until the host tells them.
  EXPECT_EQ(
      Lines(rows.begin() + 7, rows.end()),
      (Lines{"48 1 44 10 20 30 40", "49 6 41 1 2 3 4", "50 2 41 5 6 -3 8", "51 8 44 Null Null Null Null",
             "52 7 44 11 21 31 41", "53 8 47 Null Null Null Null", "54 8 -1 Null Null Null Null"}));
}

TEST_F(SavedNestedGroup, DeletingRemovesAllItsRowsAndOperands) {
  MemberAt<clsLine>(*inner_, 2)->VisibleOpAddr(23);
  AddOperandRow(43, kMemoryBit, 23, eOP_VisibleOperand, kLocalNetwork);
  AddOperandRow(40, kMemoryBit, 24, eOP_TouchOperand, kLocalNetwork);
  outer_->DeleteFromDB();
  EXPECT_TRUE(Elements().empty());
  EXPECT_EQ(OperandRows(), Lines{"40 1 24 0 2"});

  // The undo: the operands of all shapes are there again.
  outer_->RestoreAllOperands();
  EXPECT_EQ(OperandRows(), (Lines{"40 1 24 0 2", "43 1 23 0 5"}));
  // And their rows, when the host gives them up first.
  outer_->SetElementsID(-1);
  outer_->ID(-1);
  outer_->SaveToDB();
  EXPECT_EQ(Elements().size(), 7u);
}

}  // namespace
}  // namespace quenzel7
