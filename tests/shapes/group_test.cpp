#include "shapes/group.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/ado/recordset.h"
#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/platform.h"
#include "shapes/rectangle.h"
#include "tests/support/element_double.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"

namespace quenzel7 {
namespace {

using automation::Array;
using automation::AutomationError;
using automation::Bounds;
using automation::CallKind;
using automation::CollectionRef;
using automation::ErrorNumber;
using automation::Variant;
using automation::VariantKind;
using test::CollectionOf;
using test::ElementDouble;
using test::Enter;
using test::ErrorOf;
using test::GroupOf;
using test::MemberAt;
using test::OfDepth;

using Log = std::vector<std::string>;

const automation::Interface& Contract() { return ItfHmiElement::InterfaceOf(); }

/// CallOnMembers within reach.
class OpenGroup final : public clsGroup {
 public:
  using clsGroup::CallOnMembers;
};

Variant Map(Long width, Long height) { return Array(VariantKind::Byte, Bounds{0, width}, Bounds{0, height}); }

Variant Table(const std::vector<Long>& numbers) {
  Array table = Array::OfSize(VariantKind::Long, static_cast<Long>(numbers.size()));
  for (std::size_t index = 0; index < numbers.size(); ++index) {
    table.Set(static_cast<Long>(index), numbers[index]);
  }
  return table;
}

class Group : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    Platform::Current().messageService = messages_;
  }
  void TearDown() override { Platform::Current() = Platform(); }

  std::shared_ptr<ElementDouble> Make(const std::string& name, Long type = kRectangleElement) {
    return std::make_shared<ElementDouble>(name, type,
                                           [this](const std::string& note) { log_->push_back(note); });
  }
  /// A member of type 8, by class another than a group.
  std::shared_ptr<ElementDouble> FalseGroup() { return Make("false", kGroupElement); }

  /// Gives the log so far and begins a new one.
  Log Take() { return std::exchange(*log_, {}); }

  /// a, a group of b and a group of c, d.
  std::shared_ptr<clsGroup> Nested() {
    return GroupOf({Make("a"), GroupOf({Make("b"), GroupOf({Make("c")})}), Make("d")});
  }

  const std::shared_ptr<corvane1::CollectedMessages> messages_ =
      std::make_shared<corvane1::CollectedMessages>(nullptr);
  const std::shared_ptr<Log> log_ = std::make_shared<Log>();
};

// --- Fields and interface ---

TEST_F(Group, StartsWithItsDefaults) {
  const clsGroup g;
  EXPECT_EQ(g.ID(), -1);
  EXPECT_EQ(g.GroupID(), -1);
  EXPECT_EQ(g.Depth(), 1);
  ASSERT_NE(g.ColGroup(), nullptr);
  EXPECT_EQ(g.ColGroup()->Count(), 0);
  EXPECT_EQ(g.ElementType(), 8);
}

TEST_F(Group, EveryGroupHasACollectionOfItsOwn) {
  const clsGroup a, b;
  EXPECT_NE(a.ColGroup(), b.ColGroup());
}

TEST_F(Group, PublishesItsDefaultInterfaceInSlotOrder) {
  const std::vector<std::string> expected = {
      "get ID() As Long",
      "put ID(Long)",
      "put GroupID(Long)",
      "get GroupID() As Long",
      "put Depth(Long)",
      "get Depth() As Long",
      "putref ColGroup(Collection)",
      "get ColGroup() As Collection",
      "get Props() As Byte()",
      "put Props(Byte())",
      "call IsContainsGlobalVars() As Boolean",
      "call AddObjectsToGroup(ByRef Collection)",
      "call IsMaxDepth(ByRef Collection) As Boolean",
      "call DrawFramesInGroup(Long, Boolean)",
      "call DrawTransparentFramesInGroup(Long)",
      "call LoadFromDB(Recordset) As Boolean",
      "call SetElementsID(Long)",
      "call SaveToDB() As Boolean",
      "call ItfHmiElement_CreateStaticElementPrinterReport(Object)",
  };
  EXPECT_EQ(clsGroup::ClassOf().Default().Slots(), expected);
  EXPECT_EQ(clsGroup::ClassOf().Default().Name(), "_clsGroup");
  EXPECT_EQ(clsGroup::ClassOf().name, "clsGroup");
  ASSERT_EQ(clsGroup::ClassOf().interfaces.size(), 2u);
  EXPECT_EQ(clsGroup::ClassOf().interfaces[1], &Contract());
  EXPECT_EQ(&clsGroup().Class(), &clsGroup::ClassOf());
  EXPECT_NE(std::dynamic_pointer_cast<clsGroup>(clsGroup::ClassOf().create()), nullptr);
}

TEST_F(Group, MarksItsNumbersAsWhatSaysWhoItIs) {
  for (const automation::Member& member : clsGroup::ClassOf().Default().Members()) {
    const bool number =
        member.name == "ID" || member.name == "GroupID" || member.name == "Depth" || member.name == "Props";
    EXPECT_EQ(member.mark, number ? automation::Mark::Identity : automation::Mark::None) << member.name;
    EXPECT_FALSE(member.documentation.empty()) << member.name;
  }
}

TEST_F(Group, KeepsItsNumbersThroughBothFacesAndByName) {
  clsGroup g;
  ItfHmiElement& element = g;
  g.ID(3);
  g.GroupID(4);
  g.Depth(2);
  EXPECT_EQ(element.ID(), 3);
  EXPECT_EQ(element.GroupID(), 4);
  EXPECT_EQ(g.Depth(), 2);
  automation::PutByName(g, Contract(), "id", Long{5});
  automation::PutByName(g, Contract(), "groupid", Long{6});
  EXPECT_EQ(automation::GetByName(g, "ID"), Variant(Long{5}));
  EXPECT_EQ(automation::GetByName(g, "GroupID"), Variant(Long{6}));
  automation::PutByName(g, "ID", Long{7});
  automation::PutByName(g, "GroupID", Long{8});
  automation::PutByName(g, "depth", Long{9});
  EXPECT_EQ(automation::GetByName(g, Contract(), "ID"), Variant(Long{7}));
  EXPECT_EQ(automation::GetByName(g, Contract(), "GroupID"), Variant(Long{8}));
  EXPECT_EQ(automation::GetByName(g, "DEPTH"), Variant(Long{9}));
  EXPECT_EQ(automation::GetByName(g, Contract(), "ElementType"), Variant(Long{8}));
}

TEST_F(Group, ItsCollectionIsReadAndReplacedByReference) {
  clsGroup g;
  const CollectionRef others = CollectionOf({Make("a")});
  automation::PutByName(g, "colgroup", others);
  EXPECT_EQ(g.ColGroup(), others);
  EXPECT_EQ(automation::GetByName(g, "ColGroup"), Variant(others));
  std::vector<Variant> value = {others};
  EXPECT_EQ(ErrorOf([&] { automation::CallByName(g, "ColGroup", CallKind::Put, value); }), 438);
  g.SetElementsID(3);
  EXPECT_EQ(Take(), Log{"a.ID=3"});
}

TEST_F(Group, KeyIsTheDecimalTextOfTheObjectsAddress) {
  const auto a = Make("a");
  EXPECT_EQ(clsGroup::KeyOf(*a), std::to_string(reinterpret_cast<std::uintptr_t>(a.get())));
}

// --- Props ---

using Bytes = std::vector<Byte>;

TEST_F(Group, PropsAreIdGroupIdAndDepthLowByteFirst) {
  clsGroup g;
  EXPECT_EQ(g.Props(), (Bytes{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 1, 0, 0, 0}));
  g.ID(0x01020304);
  g.GroupID(-2);
  g.Depth(0x7FA0B0C0);
  EXPECT_EQ(g.Props(), (Bytes{4, 3, 2, 1, 0xFE, 0xFF, 0xFF, 0xFF, 0xC0, 0xB0, 0xA0, 0x7F}));
}

TEST_F(Group, WritingPropsTakesThreeNumbersOutOfTwelveBytes) {
  clsGroup g;
  g.Props({0xC0, 0xB0, 0xA0, 0x80, 0x10, 0x20, 0x30, 0x40, 3, 0, 0, 0});
  EXPECT_EQ(g.ID(), -2136952640);
  EXPECT_EQ(g.GroupID(), 0x40302010);
  EXPECT_EQ(g.Depth(), 3);
}

TEST_F(Group, PropsTakesTheFirst12BytesOfALongerArray) {
  clsGroup g;
  g.Props({1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0, 9});
  EXPECT_EQ(g.Props(), (Bytes{1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0}));
}

TEST_F(Group, PropsRefusesFewerThan12BytesAndStaysAsItWas) {
  clsGroup g;
  for (const std::size_t size : {0, 11}) {
    EXPECT_RAISES(9, "Props takes 12 bytes, " + std::to_string(size) + " were given",
                  g.Props(Bytes(size, 7)));
  }
  EXPECT_EQ(g.Props(), clsGroup().Props());
}

TEST_F(Group, ReadingPropsByNameMakesANewArray) {
  clsGroup g;
  Variant bytes = automation::GetByName(g, "Props");
  EXPECT_EQ(bytes.Elements().LowerBound(1), 0);
  EXPECT_EQ(bytes.Elements().UpperBound(1), 11);
  bytes.MutableElements().Set(0, Long{5});
  EXPECT_EQ(g.ID(), -1);
  automation::PutByName(g, "props", bytes);
  EXPECT_EQ(g.ID(), -251);
  bytes.MutableElements().Set(0, Long{6});
  EXPECT_EQ(g.ID(), -251);
}

// --- What a group does not carry ---

TEST_F(Group, ReadsNothingOfWhatItDoesNotCarryAndIgnoresWrites) {
  const std::map<VariantKind, Variant> nothing = {{VariantKind::Long, Long{0}},
                                                  {VariantKind::Integer, Integer{0}},
                                                  {VariantKind::Boolean, false},
                                                  {VariantKind::String, ""}};
  clsGroup g;
  Enter(g, Make("a"));
  int looked = 0;
  for (const automation::Member& member : Contract().Members()) {
    if (member.IsMethod() || !member.put || member.name == "ID" || member.name == "GroupID") continue;
    EXPECT_EQ(member.get(g), nothing.at(member.type.kind)) << member.name;
    member.put(g, "7");
    EXPECT_EQ(member.get(g), nothing.at(member.type.kind)) << member.name;
    ++looked;
  }
  EXPECT_EQ(looked, 29);
  EXPECT_EQ(g.FontNumber(), 0);
  EXPECT_EQ(g.TabIndex(), 0);
  EXPECT_TRUE(Take().empty());
}

TEST_F(Group, DoesNotPassOnWhatIsTheMembersOwnAffair) {
  clsGroup g;
  const auto a = Make("a");
  a->isTouchable = true;
  Enter(g, a);
  Enter(g, GroupOf({Make("b")}));
  g.Stretch(1, 2, ePD_Right);
  Long xs = 11, ys = 12, dx = 13, dy = 14;
  g.GetBoundingRect(xs, ys, dx, dy);
  for (const Long location : {1, 4, 5}) g.GetBoundingRect(xs, ys, dx, dy, location);
  g.GetOptimalDimensions(xs, ys, dx, dy);
  EXPECT_EQ((std::vector<Long>{xs, ys, dx, dy}), (std::vector<Long>{11, 12, 13, 14}));
  EXPECT_EQ(g.GetPupDirection(0, 0, 100), ePD_None);
  EXPECT_EQ(g.GetToolTipText(), "");
  EXPECT_TRUE(g.UpdateBoundingRectangle(1, 2, ePD_Right).IsEmpty());
  g.GetSizeFromBoundingRect();
  g.SetImageSystem(1);
  EXPECT_FALSE(g.IsTouchable());
  EXPECT_TRUE(Take().empty());
}

TEST_F(Group, ByReferenceStubsLeaveTheirArgumentsByNameToo) {
  clsGroup g;
  Enter(g, std::make_shared<clsRectangle>());
  for (const char* name : {"GetBoundingRect", "GetOptimalDimensions"}) {
    std::vector<Variant> arguments = {Long{11}, Long{12}, Long{13}, Long{14}};
    automation::CallByName(g, Contract(), name, CallKind::Method, arguments);
    EXPECT_EQ(arguments, (std::vector<Variant>{Long{11}, Long{12}, Long{13}, Long{14}})) << name;
  }
  EXPECT_EQ(automation::InvokeByName(g, Contract(), "GetPupDirection", {Long{0}, Long{0}, Long{9}}),
            Variant(Long{0}));
  EXPECT_EQ(automation::InvokeByName(g, Contract(), "GetToolTipText"), Variant(""));
  EXPECT_TRUE(automation::InvokeByName(g, Contract(), "UpdateBoundingRectangle", {Long{1}, Long{2}, Long{3}})
                  .IsEmpty());
}

TEST_F(Group, WritesNothingIntoAReport) {
  clsGroup g;
  Enter(g, std::make_shared<clsRectangle>());
  Enter(g, Make("a"));
  const auto report = std::make_shared<test::ReportDouble>();
  g.CreateStaticElementPrinterReport(*report);
  automation::InvokeByName(g, "ItfHmiElement_CreateStaticElementPrinterReport", {report});
  automation::InvokeByName(g, Contract(), "CreateStaticElementPrinterReport", {report});
  EXPECT_TRUE(report->Lines().empty());
  EXPECT_TRUE(Take().empty());
}

// --- Broadcasts ---

/// An operation that groups pass on, how a host calls it, and how it stands in a member's notes.
struct Broadcast {
  std::string name;
  std::function<void(ItfHmiElement&)> call;
  std::vector<Variant> arguments;
  std::string noted;
};

std::vector<Broadcast> Broadcasts() {
  return {
      {"Move", [](ItfHmiElement& e) { e.Move(3, -4); }, {Long{3}, Long{-4}}, "Move(3, -4)"},
      {"Draw", [](ItfHmiElement& e) { e.Draw(5, true); }, {Long{5}, true}, "Draw(5, True)"},
      {"DrawToPrinter",
       [](ItfHmiElement& e) { e.DrawToPrinter(5, "alias"); },
       {Long{5}, "alias"},
       "DrawToPrinter(5, \"alias\")"},
      {"SaveInitialPosition", &ItfHmiElement::SaveInitialPosition, {}, "SaveInitialPosition()"},
      {"SaveLastLegalPosition", &ItfHmiElement::SaveLastLegalPosition, {}, "SaveLastLegalPosition()"},
      {"UpdateDisplayWithTransx", &ItfHmiElement::UpdateDisplayWithTransx, {}, "UpdateDisplayWithTransx()"},
      {"UpdateDisplayWithLastLegal",
       &ItfHmiElement::UpdateDisplayWithLastLegal,
       {},
       "UpdateDisplayWithLastLegal()"},
      {"UpdateInitialDescriptor", &ItfHmiElement::UpdateInitialDescriptor, {}, "UpdateInitialDescriptor()"},
      {"RestoreAllOperands", &ItfHmiElement::RestoreAllOperands, {}, "RestoreAllOperands()"},
      {"InvertColors", &ItfHmiElement::InvertColors, {}, "InvertColors()"},
      {"Rotate", &ItfHmiElement::Rotate, {}, "Rotate()"},
      {"SetNewFontNumberByLookUpTBL",
       [](ItfHmiElement& e) {
         Variant table = Table({4, 6});
         e.SetNewFontNumberByLookUpTBL(table);
       },
       {Table({4, 6})},
       "SetNewFontNumberByLookUpTBL([4 6])"},
  };
}

TEST_F(Group, PassesTheseOperationsOnToAllMembersInTheirOrder) {
  const auto g = Nested();
  for (const Broadcast& broadcast : Broadcasts()) {
    const Log expected = {"a." + broadcast.noted, "b." + broadcast.noted, "c." + broadcast.noted,
                          "d." + broadcast.noted};
    broadcast.call(*g);
    EXPECT_EQ(Take(), expected) << broadcast.name;
    std::vector<Variant> arguments = broadcast.arguments;
    automation::CallByName(*g, Contract(), broadcast.name, CallKind::Method, arguments);
    EXPECT_EQ(Take(), expected) << broadcast.name;
  }
}

TEST_F(Group, AnEmptyGroupPassesNothingOn) {
  clsGroup g;
  Enter(g, std::make_shared<clsGroup>());
  for (const Broadcast& broadcast : Broadcasts()) {
    EXPECT_EQ(ErrorOf([&] { broadcast.call(g); }), 0) << broadcast.name;
  }
}

TEST_F(Group, DrawPassesEitherValueOfTheFrameOn) {
  const auto g = GroupOf({Make("a")});
  g->Draw(7, false);
  EXPECT_EQ(Take(), Log{"a.Draw(7, False)"});
}

TEST_F(Group, AMemberThatFailsEndsTheBroadcast) {
  const auto b = Make("b");
  b->during = [](const std::string&) { throw AutomationError(ErrorNumber::DivisionByZero, "b fails"); };
  const auto g = GroupOf({Make("a"), b, Make("c")});
  for (const Broadcast& broadcast : Broadcasts()) {
    EXPECT_RAISES(11, "b fails", broadcast.call(*g));
    EXPECT_EQ(Take(), (Log{"a." + broadcast.noted, "b." + broadcast.noted})) << broadcast.name;
  }
}

TEST_F(Group, TheFontTableGoesThroughTheMembersByReference) {
  const auto increase = [](Variant& table) {
    table.MutableElements().Set(0, automation::To<Long>(table.Elements().At(0)) + 1);
  };
  const auto a = Make("a"), b = Make("b");
  a->change = b->change = increase;
  const auto g = GroupOf({a, GroupOf({b})});
  Variant table = Table({4, 6});
  g->SetNewFontNumberByLookUpTBL(table);
  EXPECT_EQ(Take(), (Log{"a.SetNewFontNumberByLookUpTBL([4 6])", "b.SetNewFontNumberByLookUpTBL([5 6])"}));
  EXPECT_EQ(table, Table({6, 6}));
}

TEST_F(Group, CallOnMembersTakesNamesInAnyCaseAndAtMostTwoArguments) {
  OpenGroup g;
  Enter(g, Make("a"));
  Enter(g, Make("b"));
  g.CallOnMembers("rOTATE");
  EXPECT_EQ(Take(), (Log{"a.Rotate()", "b.Rotate()"}));
  Variant one[] = {Long{4}};
  g.CallOnMembers("SETIMAGESYSTEM", one);
  EXPECT_EQ(Take(), (Log{"a.SetImageSystem(4)", "b.SetImageSystem(4)"}));
  Variant two[] = {Long{4}, Long{5}};
  g.CallOnMembers("move", two);
  EXPECT_EQ(Take(), (Log{"a.Move(4, 5)", "b.Move(4, 5)"}));
  Variant three[] = {Long{4}, Long{5}, Long{6}};
  EXPECT_EQ(ErrorOf([&] { g.CallOnMembers("Stretch", three); }), 0);
  EXPECT_EQ(ErrorOf([&] { g.CallOnMembers("NoSuchOperation", three); }), 0);
  EXPECT_TRUE(Take().empty());
}

TEST_F(Group, CallOnMembersWritesArgumentsBack) {
  OpenGroup g;
  const auto a = Make("a");
  a->change = [](Variant& value) { value = Long{8}; };
  Enter(g, a);
  Variant argument[] = {Long{7}};
  g.CallOnMembers("SetNewFontNumberByLookUpTBL", argument);
  EXPECT_EQ(Take(), Log{"a.SetNewFontNumberByLookUpTBL(7)"});
  EXPECT_EQ(argument[0], Variant(Long{8}));
}

TEST_F(Group, CallOnMembersTakesTextsForNumbers) {
  OpenGroup g;
  Enter(g, Make("a"));
  Variant texts[] = {"3", "-4"};
  g.CallOnMembers("Move", texts);
  EXPECT_EQ(Take(), Log{"a.Move(3, -4)"});
  Variant comma[] = {"1,5", Long{1}};
  EXPECT_EQ(ErrorOf([&] { g.CallOnMembers("Move", comma); }), 13);
  EXPECT_TRUE(Take().empty());
}

TEST_F(Group, CallOnMembersRaisesWhatACallByNameRaises) {
  OpenGroup g;
  EXPECT_EQ(ErrorOf([&] { g.CallOnMembers("Mowe"); }), 0);
  Enter(g, Make("a"));
  EXPECT_EQ(ErrorOf([&] { g.CallOnMembers("Mowe"); }), 438);
  EXPECT_EQ(ErrorOf([&] { g.CallOnMembers("Xs"); }), 438);
  EXPECT_EQ(ErrorOf([&] { g.CallOnMembers("Move"); }), 449);
  Variant one[] = {Long{1}};
  EXPECT_EQ(ErrorOf([&] { g.CallOnMembers("Rotate", one); }), 450);
  Variant texts[] = {"far", Long{1}};
  EXPECT_EQ(ErrorOf([&] { g.CallOnMembers("Move", texts); }), 13);
  EXPECT_TRUE(Take().empty());
}

// --- Taking elements in ---

TEST_F(Group, AddObjectsToGroupTakesEachElementInThisOrder) {
  clsGroup g;
  g.ID(40);
  CollectionRef given;
  const auto look = [&](const std::string& asked) {
    if (asked == "GroupID" || asked == "SaveToDB") {
      log_->push_back(std::to_string(g.ColGroup()->Count()) + " members, " + std::to_string(given->Count()) +
                      " left, depth " + std::to_string(g.Depth()));
    }
  };
  const auto a = Make("a"), b = Make("b");
  a->during = b->during = look;
  given = CollectionOf({a, b});
  const CollectionRef same = given;
  g.AddObjectsToGroup(given);
  EXPECT_EQ(Take(), (Log{"a.IsTouchable?", "b.IsTouchable?",            //
                         "a.GroupID=40", "1 members, 2 left, depth 1",  //
                         "a.SaveToDB()", "1 members, 2 left, depth 1",  //
                         "b.GroupID=40", "2 members, 1 left, depth 1",  //
                         "b.SaveToDB()", "2 members, 1 left, depth 1"}));
  EXPECT_EQ(given, same);
  EXPECT_EQ(given->Count(), 0);
  EXPECT_EQ(g.ColGroup()->Count(), 2);
  EXPECT_EQ(g.ColGroup()->Item(clsGroup::KeyOf(*a)), Variant(a));
  EXPECT_EQ(g.ColGroup()->Item(clsGroup::KeyOf(*b)), Variant(b));
  EXPECT_EQ(g.ColGroup()->Item(1), Variant(a));
  EXPECT_EQ(g.ColGroup()->Item(2), Variant(b));
  EXPECT_EQ(g.Depth(), 1);
  EXPECT_TRUE(messages_->Shown().empty());
}

TEST_F(Group, AddObjectsToGroupReadsTheCountOnce) {
  clsGroup g;
  const auto a = Make("a"), late = Make("late");
  CollectionRef given = CollectionOf({a});
  a->during = [&](const std::string& asked) {
    if (asked == "SaveToDB") given->Add(late);
  };
  g.AddObjectsToGroup(given);
  EXPECT_EQ(g.ColGroup()->Count(), 1);
  ASSERT_EQ(given->Count(), 1);
  EXPECT_EQ(given->Item(1), Variant(late));
}

TEST_F(Group, AddObjectsToGroupWorksByNameAndAddsToWhatIsThere) {
  clsGroup g;
  Enter(g, Make("a"));
  const CollectionRef given = CollectionOf({Make("b")});
  EXPECT_TRUE(automation::InvokeByName(g, "AddObjectsToGroup", {given}).IsEmpty());
  EXPECT_EQ(given->Count(), 0);
  EXPECT_EQ(g.ColGroup()->Count(), 2);
  EXPECT_EQ(MemberAt<ElementDouble>(g, 2)->Name(), "b");
}

TEST_F(Group, AddObjectsToGroupOfNothingChangesNothing) {
  clsGroup g;
  CollectionRef given = CollectionOf({});
  g.AddObjectsToGroup(given);
  EXPECT_EQ(g.ColGroup()->Count(), 0);
  EXPECT_EQ(g.Depth(), 1);
}

/// An element that is added twice is refused the second time, when it is a member already.
TEST_F(Group, AnElementAddedTwiceIsAnErrorAndWhatWasTakenStays) {
  clsGroup g;
  g.ID(40);
  const auto a = Make("a"), b = Make("b"), c = Make("c");
  CollectionRef given = CollectionOf({a, b, a, c});
  EXPECT_EQ(ErrorOf([&] { g.AddObjectsToGroup(given); }), 457);
  Log log = Take();
  log.erase(log.begin(), log.begin() + 4);
  EXPECT_EQ(log, (Log{"a.GroupID=40", "a.SaveToDB()", "b.GroupID=40", "b.SaveToDB()"}));
  EXPECT_EQ(g.ColGroup()->Count(), 2);
  ASSERT_EQ(given->Count(), 2);
  EXPECT_EQ(given->Item(1), Variant(a));
  EXPECT_EQ(given->Item(2), Variant(c));

  // A second call is refused likewise.
  CollectionRef again = CollectionOf({b});
  EXPECT_EQ(ErrorOf([&] { g.AddObjectsToGroup(again); }), 457);
  EXPECT_EQ(again->Count(), 1);
  EXPECT_EQ(g.ColGroup()->Count(), 2);
}

TEST_F(Group, CannotBecomeAMemberOfItself) {
  const auto inner = GroupOf({Make("a")});
  const auto outer = GroupOf({Make("b"), GroupOf({inner})});
  Take();
  inner->ID(8);
  for (const auto& cycle : {inner, outer}) {
    for (const bool isFirst : {true, false}) {
      CollectionRef given = isFirst ? CollectionOf({cycle, Make("c")}) : CollectionOf({Make("c"), cycle});
      EXPECT_RAISES(5, "group 8 cannot become a member of itself", inner->AddObjectsToGroup(given));
      EXPECT_EQ(given->Count(), 2);
      EXPECT_EQ(inner->ColGroup()->Count(), 1);
      EXPECT_EQ(inner->Depth(), 1);
      EXPECT_EQ(Take(), Log{"c.IsTouchable?"});
    }
  }
  EXPECT_TRUE(messages_->Shown().empty());
}

/// What cannot be looked into is no cycle: it fails where it is saved, and what came before it is taken.
TEST_F(Group, AMemberGroupThatCannotBeSavedFailsWhenItsTurnComes) {
  for (const bool isCollection : {false, true}) {
    clsGroup g;
    const auto broken = std::make_shared<clsGroup>();
    broken->ColGroup(isCollection ? std::make_shared<automation::Collection>() : nullptr);
    if (isCollection) broken->ColGroup()->Add(Variant(7));
    CollectionRef given = CollectionOf({Make("a"), broken});
    // There is no project: saving a group is an error anyway; it must not come before the first is saved.
    EXPECT_NE(ErrorOf([&] { g.AddObjectsToGroup(given); }), 0);
    EXPECT_EQ(Take(), (Log{"a.IsTouchable?", "a.GroupID=-1", "a.SaveToDB()"}));
    EXPECT_EQ(given->Count(), 1);
    EXPECT_EQ(g.ColGroup()->Count(), 2);
  }
}

/// A ring that does not hold the group itself is no ring of the group's: it fails where its turn comes.
TEST_F(Group, ARingAmongTheGivenIsNotWalkedWithoutEnd) {
  clsGroup g;
  const auto a = GroupOf({Make("a")}), b = GroupOf({a});
  a->ColGroup()->Add(b);
  Take();
  CollectionRef given = CollectionOf({Make("c"), a});
  // There is no project.
  EXPECT_EQ(ErrorOf([&] { g.AddObjectsToGroup(given); }), 91);
  EXPECT_EQ(Take(), (Log{"c.IsTouchable?", "c.GroupID=-1", "c.SaveToDB()"}));
  EXPECT_EQ(given->Count(), 1);
  a->ColGroup()->Remove(2);
}

/// A host can hang a group into itself all the same.
TEST_F(Group, AGroupThatHoldsItselfRaisesAnErrorInsteadOfNeverEnding) {
  const auto g = GroupOf({Make("a")});
  g->ColGroup()->Add(GroupOf({g}));
  Variant map = Map(9, 9);
  Variant table = Table({1});
  EXPECT_RAISES(28, "groups are nested more than 100 deep: one of them is a member of itself", g->Move(1, 1));
  EXPECT_EQ(ErrorOf([&] { g->Draw(1, false); }), 28);
  EXPECT_EQ(ErrorOf([&] { g->DrawNonVarsInGroup(1, false); }), 28);
  EXPECT_EQ(ErrorOf([&] { g->DrawVarsInGroup(1, false); }), 28);
  EXPECT_EQ(ErrorOf([&] { g->DrawFramesInGroup(1, false); }), 28);
  EXPECT_EQ(ErrorOf([&] { g->DrawTransparentFramesInGroup(1); }), 28);
  EXPECT_EQ(ErrorOf([&] { g->HitTestByPoint(1, 1); }), 28);
  EXPECT_EQ(ErrorOf([&] { g->HitTestByRect(1, 1, 1, 1); }), 28);
  EXPECT_EQ(ErrorOf([&] { g->GetTransformState(map); }), 28);
  EXPECT_EQ(ErrorOf([&] { g->SetNewFontNumberByLookUpTBL(table); }), 28);
  EXPECT_EQ(ErrorOf([&] { g->SetElementsID(5); }), 28);
  EXPECT_EQ(ErrorOf([&] { g->Replica(); }), 28);
  // Out of itself it works as before.
  g->ColGroup()->Remove(2);
  Take();
  g->Move(1, 1);
  EXPECT_EQ(Take(), Log{"a.Move(1, 1)"});
}

TEST_F(Group, ARingOfManyGroupsEndsLikeARingOfOne) {
  std::vector<std::shared_ptr<clsGroup>> ring;
  for (int index = 0; index < 5000; ++index) {
    ring.push_back(std::make_shared<clsGroup>());
    if (index > 0) ring[index - 1]->ColGroup()->Add(ring[index]);
  }
  EXPECT_EQ(ErrorOf([&] { ring[0]->Move(1, 1); }), 28);
  ring.back()->ColGroup()->Add(ring[0]);
  EXPECT_EQ(ErrorOf([&] { ring[0]->Move(1, 1); }), 28);
  EXPECT_EQ(ErrorOf([&] { ring[4000]->Replica(); }), 28);
  // The last hundred of a chain are not too deep.
  ring.back()->ColGroup()->Remove(1);
  EXPECT_EQ(ErrorOf([&] { ring[4899]->Move(1, 1); }), 28);
  EXPECT_EQ(ErrorOf([&] { ring[4900]->Move(1, 1); }), 0);
  // Taken apart from the beginning: the last of a chain is held by the one before, and the release of the
  // first would release them all, one within the other.
  for (auto& group : ring) group.reset();
}

TEST_F(Group, TheCountIsReadAfterTheTouchTest) {
  clsGroup g;
  const auto a = Make("a"), late = Make("late");
  CollectionRef given = CollectionOf({a});
  a->during = [&](const std::string& asked) {
    if (asked == "IsTouchable") given->Add(late);
  };
  g.AddObjectsToGroup(given);
  EXPECT_EQ(Take(), (Log{"a.IsTouchable?", "late.IsTouchable?", "a.GroupID=-1", "a.SaveToDB()",
                         "late.GroupID=-1", "late.SaveToDB()"}));
}

TEST_F(Group, TheGivenCollectionOutlivesTheHostsHoldOnIt) {
  clsGroup g;
  const auto a = Make("a"), b = Make("b");
  CollectionRef given = CollectionOf({a, b});
  a->during = [&](const std::string& asked) {
    if (asked == "SaveToDB") given.reset();
  };
  g.AddObjectsToGroup(given);
  EXPECT_EQ(g.ColGroup()->Count(), 2);
}

TEST_F(Group, CanBeAskedWhileItTellsItsMembersNinetyNineDeep) {
  const auto a = Make("a");
  const auto g = GroupOf({a});
  int left = 0;
  a->during = [&](const std::string& asked) {
    if (asked == "Move" && left-- > 0) g->Move(0, 0);
  };
  left = 99;
  g->Move(0, 0);
  EXPECT_EQ(Take().size(), 100u);
  left = 100;
  EXPECT_EQ(ErrorOf([&] { g->Move(0, 0); }), 28);
  Take();
  left = 99;
  g->Move(0, 0);
  EXPECT_EQ(Take().size(), 100u);
}

TEST_F(Group, GoesOnWithItsMembersWhenOneOfThemHasThemReplaced) {
  const auto a = Make("a");
  const auto g = GroupOf({a, Make("b")});
  Take();
  a->during = [&](const std::string&) { g->ColGroup(CollectionOf({Make("c")})); };
  g->SaveInitialPosition();
  EXPECT_EQ(Take(), (Log{"a.SaveInitialPosition()", "b.SaveInitialPosition()"}));
}

TEST_F(Group, AddingFailsWithoutTheDepthGrowing) {
  clsGroup g;
  const auto a = Make("a");
  CollectionRef given = CollectionOf({a, OfDepth(2), a});
  // The group of depth 2 cannot be saved without a project.
  EXPECT_EQ(ErrorOf([&] { g.AddObjectsToGroup(given); }), 91);
  EXPECT_EQ(g.Depth(), 1);
  EXPECT_EQ(g.ColGroup()->Count(), 2);
  EXPECT_EQ(given->Count(), 2);
}

TEST_F(Group, AFailureOfASaveLeavesWhatWasTakenAndTheElementInBothCollections) {
  clsGroup g;
  g.ID(40);
  const auto a = Make("a"), b = Make("b"), c = Make("c");
  b->during = [](const std::string& asked) {
    if (asked == "SaveToDB") throw AutomationError(ErrorNumber::Database, "disk full");
  };
  CollectionRef given = CollectionOf({a, b, c});
  EXPECT_RAISES(-2147467259, "disk full", g.AddObjectsToGroup(given));
  EXPECT_EQ(g.ColGroup()->Count(), 2);
  EXPECT_EQ(given->Count(), 2);
  EXPECT_EQ(given->Item(1), Variant(b));
  EXPECT_EQ(b->groupId, 40);
  EXPECT_EQ(c->groupId, -1);
}

TEST_F(Group, AFalseGroupIsRefusedBeforeItIsAMember) {
  clsGroup g;
  CollectionRef given = CollectionOf({FalseGroup()});
  EXPECT_EQ(ErrorOf([&] { g.AddObjectsToGroup(given); }), 13);
  EXPECT_EQ(g.ColGroup()->Count(), 0);
  EXPECT_EQ(given->Count(), 1);
  EXPECT_EQ(Take(), Log{"false.IsTouchable?"});
}

TEST_F(Group, EveryElementIsTestedForTouchBeforeTheFirstIsTaken) {
  clsGroup g;
  const auto c = Make("c");
  c->during = [](const std::string&) { throw AutomationError(ErrorNumber::Overflow, "c fails"); };
  CollectionRef given = CollectionOf({Make("a"), Make("b"), c, Make("d")});
  EXPECT_EQ(ErrorOf([&] { g.AddObjectsToGroup(given); }), 6);
  EXPECT_EQ(Take(), (Log{"a.IsTouchable?", "b.IsTouchable?", "c.IsTouchable?"}));
  EXPECT_EQ(g.ColGroup()->Count(), 0);
  EXPECT_EQ(given->Count(), 4);
}

TEST_F(Group, AddObjectsToGroupWithoutACollectionIsAnError) {
  clsGroup g;
  CollectionRef none;
  EXPECT_EQ(ErrorOf([&] { g.AddObjectsToGroup(none); }), 91);
  EXPECT_EQ(ErrorOf([&] { g.IsMaxDepth(none); }), 91);
  g.ColGroup(nullptr);
  CollectionRef given = CollectionOf({Make("a")});
  EXPECT_EQ(ErrorOf([&] { g.AddObjectsToGroup(given); }), 91);
  EXPECT_EQ(Take(), Log{"a.IsTouchable?"});
  EXPECT_EQ(given->Count(), 1);
  EXPECT_FALSE(g.IsMaxDepth(given));
}

// --- Depth ---

TEST_F(Group, IsMaxDepthWithAGroupOfDepth3OrMore) {
  const clsGroup g;
  const auto isMaxDepth = [&](CollectionRef given) { return g.IsMaxDepth(given); };
  EXPECT_FALSE(isMaxDepth(CollectionOf({})));
  EXPECT_FALSE(isMaxDepth(CollectionOf({Make("a"), Make("b")})));
  EXPECT_FALSE(isMaxDepth(CollectionOf({OfDepth(1)})));
  EXPECT_FALSE(isMaxDepth(CollectionOf({OfDepth(2)})));
  EXPECT_TRUE(isMaxDepth(CollectionOf({OfDepth(3)})));
  EXPECT_TRUE(isMaxDepth(CollectionOf({OfDepth(4)})));
}

TEST_F(Group, IsMaxDepthLooksForTheDeepestGroupNotForTheirSum) {
  const clsGroup g;
  CollectionRef shallow = CollectionOf({OfDepth(2), OfDepth(1), OfDepth(2), Make("a")});
  EXPECT_FALSE(g.IsMaxDepth(shallow));
  EXPECT_EQ(shallow->Count(), 4);
  for (const auto& deep :
       {CollectionOf({OfDepth(3), OfDepth(1), Make("a")}), CollectionOf({Make("a"), OfDepth(3), OfDepth(1)}),
        CollectionOf({OfDepth(1), Make("a"), OfDepth(3)})}) {
    CollectionRef given = deep;
    EXPECT_TRUE(g.IsMaxDepth(given));
  }
}

TEST_F(Group, IsMaxDepthAsksTheGivenElementsOnly) {
  // Neither the group's own depth nor that of its members counts, nor what stands in a given group.
  const auto g = GroupOf({OfDepth(5)});
  g->Depth(6);
  CollectionRef given = CollectionOf({GroupOf({OfDepth(5)})});
  EXPECT_FALSE(g->IsMaxDepth(given));
  EXPECT_EQ(automation::InvokeByName(*g, "IsMaxDepth", {g->ColGroup()}), Variant(true));
}

TEST_F(Group, IsMaxDepthRefusesWhatIsNoGroupOrNoElement) {
  const clsGroup g;
  CollectionRef falseGroup = CollectionOf({FalseGroup()});
  EXPECT_EQ(ErrorOf([&] { g.IsMaxDepth(falseGroup); }), 13);
  auto foreign = std::make_shared<automation::Collection>();
  foreign->Add(std::make_shared<test::ReportDouble>());
  EXPECT_EQ(ErrorOf([&] { g.IsMaxDepth(foreign); }), 13);
}

// --- Painting ---

class PaintedGroup : public Group {
 protected:
  /// One member of each class, named after its type, with a group of variable, ellipse and frame inside.
  std::shared_ptr<clsGroup> OfAllTypes() {
    const auto inner = GroupOf({Make("in5", 5), Make("in6", 6), Make("in12", 12)});
    const auto middle = GroupOf({Make("mid12", 12), inner, Make("mid1", 1), Make("mid5", 5)});
    return GroupOf({Make("12", 12), Make("1", 1), Make("2", 2), Make("3", 3), Make("4", 4), Make("5", 5),
                    Make("6", 6), Make("7", 7), middle, Make("11", 11)});
  }
};

TEST_F(PaintedGroup, DrawNonVarsPaintsWhatIsNeitherVariableNorFrame) {
  const auto g = OfAllTypes();
  g->DrawNonVarsInGroup(9, true);
  EXPECT_EQ(Take(), (Log{"1.Draw(9, True)", "2.Draw(9, True)", "3.Draw(9, True)", "4.Draw(9, True)",
                         "6.Draw(9, True)", "7.Draw(9, True)", "in6.Draw(9, True)", "mid1.Draw(9, True)",
                         "11.Draw(9, True)"}));
  g->DrawNonVarsInGroup(8, false);
  EXPECT_EQ(Take()[6], "in6.Draw(8, False)");
}

TEST_F(PaintedGroup, DrawVarsPaintsVariables) {
  const auto g = OfAllTypes();
  g->DrawVarsInGroup(9, true);
  EXPECT_EQ(Take(), (Log{"5.Draw(9, True)", "in5.Draw(9, True)", "mid5.Draw(9, True)"}));
  g->DrawVarsInGroup(8, false);
  EXPECT_EQ(Take(), (Log{"5.Draw(8, False)", "in5.Draw(8, False)", "mid5.Draw(8, False)"}));
}

TEST_F(PaintedGroup, DrawFramesPaintsFrames) {
  const auto g = OfAllTypes();
  g->DrawFramesInGroup(9, true);
  EXPECT_EQ(Take(), (Log{"12.Draw(9, True)", "mid12.Draw(9, True)", "in12.Draw(9, True)"}));
  automation::InvokeByName(*g, "drawframesingroup", {Long{8}, false});
  EXPECT_EQ(Take(), (Log{"12.Draw(8, False)", "mid12.Draw(8, False)", "in12.Draw(8, False)"}));
}

TEST_F(PaintedGroup, DrawTransparentFramesCallsTheFramesOwnOperation) {
  const auto g = OfAllTypes();
  g->DrawTransparentFramesInGroup(9);
  EXPECT_EQ(Take(), (Log{"12.DrawTransparent(9)", "mid12.DrawTransparent(9)", "in12.DrawTransparent(9)"}));
  automation::InvokeByName(*g, "DrawTransparentFramesInGroup", {Long{8}});
  EXPECT_EQ(Take(), (Log{"12.DrawTransparent(8)", "mid12.DrawTransparent(8)", "in12.DrawTransparent(8)"}));
}

TEST_F(PaintedGroup, DrawPaintsAllMembersOnceInTheirOrder) {
  OfAllTypes()->Draw(9, false);
  EXPECT_EQ(Take(),
            (Log{"12.Draw(9, False)", "1.Draw(9, False)", "2.Draw(9, False)", "3.Draw(9, False)",
                 "4.Draw(9, False)", "5.Draw(9, False)", "6.Draw(9, False)", "7.Draw(9, False)",
                 "mid12.Draw(9, False)", "in5.Draw(9, False)", "in6.Draw(9, False)", "in12.Draw(9, False)",
                 "mid1.Draw(9, False)", "mid5.Draw(9, False)", "11.Draw(9, False)"}));
}

TEST_F(PaintedGroup, LayersPaintEveryMemberOnce) {
  const auto g = OfAllTypes();
  g->DrawFramesInGroup(9, false);
  g->DrawNonVarsInGroup(9, false);
  g->DrawVarsInGroup(9, false);
  EXPECT_EQ(Take().size(), 15u);
}

TEST_F(PaintedGroup, ALayerTellsAFalseGroupOfItsLayerOrRefusesIt) {
  const auto g = GroupOf({FalseGroup()});
  g->DrawNonVarsInGroup(9, true);
  g->DrawVarsInGroup(8, false);
  EXPECT_EQ(Take(), (Log{"false.DrawNonVarsInGroup(9, True)", "false.DrawVarsInGroup(8, False)"}));
  EXPECT_EQ(ErrorOf([&] { g->DrawFramesInGroup(9, true); }), 13);
  EXPECT_EQ(ErrorOf([&] { g->DrawTransparentFramesInGroup(9); }), 13);
  EXPECT_TRUE(Take().empty());
}

// --- Global variables ---

class GroupOfVariables : public Group {
 protected:
  std::shared_ptr<ElementDouble> Variable(const std::string& name, Long globalVarId) {
    auto variable = Make(name, kVariableElement);
    variable->globalVarId = globalVarId;
    return variable;
  }
};

TEST_F(GroupOfVariables, ContainsGlobalVarsWhenOneHasAnIdAbove0) {
  EXPECT_FALSE(clsGroup().IsContainsGlobalVars());
  EXPECT_FALSE(GroupOf({Variable("a", -1)})->IsContainsGlobalVars());
  EXPECT_FALSE(GroupOf({Variable("a", 0)})->IsContainsGlobalVars());
  EXPECT_TRUE(GroupOf({Variable("a", 1)})->IsContainsGlobalVars());
  // In 32 bits.
  EXPECT_TRUE(GroupOf({Variable("a", 40000)})->IsContainsGlobalVars());
  EXPECT_TRUE(GroupOf({Variable("a", 2147483647)})->IsContainsGlobalVars());
  EXPECT_FALSE(GroupOf({Variable("a", -2147483647 - 1)})->IsContainsGlobalVars());
  const auto g = GroupOf({Variable("a", 7)});
  EXPECT_EQ(automation::InvokeByName(*g, "IsContainsGlobalVars"), Variant(true));
}

TEST_F(GroupOfVariables, TheSearchStopsAtTheFirstGlobalOne) {
  const auto g =
      GroupOf({Variable("a", 0), Make("b"), Variable("c", 1), Variable("d", 2), Make("e", kFrameElement)});
  EXPECT_TRUE(g->IsContainsGlobalVars());
  EXPECT_EQ(Take(), (Log{"a.GlobalVarID?", "c.GlobalVarID?"}));
}

TEST_F(GroupOfVariables, TheSearchLeavesMemberGroupsAndOtherClassesAlone) {
  const auto g = GroupOf({GroupOf({Variable("a", 1)}), Variable("b", 0)});
  for (const Long type : {1, 2, 3, 4, 6, 7, 8, 11, 12}) {
    const auto other = Make("other", type);
    other->globalVarId = 1;
    Enter(*g, other);
  }
  EXPECT_FALSE(g->IsContainsGlobalVars());
  EXPECT_EQ(Take(), Log{"b.GlobalVarID?"});
}

// --- Transform state ---

class JudgedGroup : public Group {
 protected:
  std::shared_ptr<ElementDouble> Member(const std::string& name, enCollisionStatus state) {
    auto member = Make(name);
    member->state = state;
    return member;
  }
  /// The state of a group of members a, b, c... that give these states.
  enCollisionStatus StateOf(const std::vector<enCollisionStatus>& states) {
    clsGroup g;
    std::string name = "a";
    for (const enCollisionStatus state : states) {
      Enter(g, Member(name, state));
      ++name[0];
    }
    Variant map = Map(10, 10);
    return g.GetTransformState(map);
  }
  /// The names of the members that were asked, in order.
  std::string Asked() {
    std::string names;
    for (const std::string& note : Take()) {
      EXPECT_EQ(note.substr(1), ".GetTransformState(map)");
      names += note[0];
    }
    return names;
  }
};

TEST_F(JudgedGroup, IsLegalWhenNoMemberIsOutOfRangeOrOverlaps) {
  EXPECT_EQ(StateOf({}), eCS_Legall);
  EXPECT_EQ(Asked(), "");
  EXPECT_EQ(StateOf({eCS_Legall, eCS_Legall}), eCS_Legall);
  EXPECT_EQ(Asked(), "abab");
  EXPECT_EQ(StateOf({eCS_BadSize}), eCS_Legall);
  EXPECT_EQ(Asked(), "aa");
}

TEST_F(JudgedGroup, TheFirstMemberOutOfRangeEndsTheFirstPass) {
  EXPECT_EQ(StateOf({eCS_OutOfRAnge, eCS_Overlap}), eCS_OutOfRAnge);
  EXPECT_EQ(Asked(), "a");
  EXPECT_EQ(StateOf({eCS_Overlap, eCS_OutOfRAnge, eCS_Legall}), eCS_OutOfRAnge);
  EXPECT_EQ(Asked(), "ab");
  EXPECT_EQ(StateOf({eCS_Legall, eCS_BadSize, eCS_OutOfRAnge}), eCS_OutOfRAnge);
  EXPECT_EQ(Asked(), "abc");
}

TEST_F(JudgedGroup, TheFirstOverlapEndsTheSecondPass) {
  EXPECT_EQ(StateOf({eCS_Overlap, eCS_Legall}), eCS_Overlap);
  EXPECT_EQ(Asked(), "aba");
  EXPECT_EQ(StateOf({eCS_Legall, eCS_Overlap, eCS_Overlap}), eCS_Overlap);
  EXPECT_EQ(Asked(), "abcab");
  EXPECT_EQ(StateOf({eCS_BadSize, eCS_Overlap}), eCS_Overlap);
  EXPECT_EQ(Asked(), "abab");
}

TEST_F(JudgedGroup, JudgesThroughMemberGroups) {
  Variant map = Map(10, 10);
  const auto g = GroupOf({GroupOf({Member("a", eCS_Overlap)}), GroupOf({Member("b", eCS_OutOfRAnge)})});
  EXPECT_EQ(g->GetTransformState(map), eCS_OutOfRAnge);
  // Each member group judges its own in two passes.
  EXPECT_EQ(Asked(), "aab");
  const auto legal = GroupOf({GroupOf({Member("a", eCS_Legall)})});
  EXPECT_EQ(legal->GetTransformState(map), eCS_Legall);
  EXPECT_EQ(Asked(), "aaaa");
}

TEST_F(JudgedGroup, TheMapGoesToTheMembersByReference) {
  const auto a = Member("a", eCS_Legall);
  a->change = [](Variant& map) { map.MutableElements().Set(3, 4, Long{7}); };
  const auto g = GroupOf({a});
  Variant map = Map(10, 10);
  EXPECT_EQ(g->GetTransformState(map), eCS_Legall);
  EXPECT_EQ(map.Elements().At(3, 4), Variant(Byte{7}));
}

TEST_F(JudgedGroup, IsJudgedByNameToo) {
  const auto g = GroupOf({Member("a", eCS_Overlap)});
  EXPECT_EQ(automation::InvokeByName(*g, Contract(), "GetTransformState", {Map(5, 5)}), Variant(Long{1}));
}

// --- Hit tests ---

TEST_F(Group, AnEmptyGroupIsNeverHit) {
  clsGroup g;
  Enter(g, std::make_shared<clsGroup>());
  EXPECT_FALSE(g.HitTestByPoint(0, 0));
  EXPECT_FALSE(g.HitTestByRect(-100, -100, 200, 200));
}

TEST_F(Group, IsHitWhereAMemberIsHitAndAsksNoFurther) {
  const auto a = Make("a"), b = Make("b"), c = Make("c");
  const auto g = GroupOf({a, GroupOf({b}), c});
  EXPECT_FALSE(g->HitTestByPoint(3, 4));
  EXPECT_EQ(Take(), (Log{"a.HitTestByPoint(3, 4)", "b.HitTestByPoint(3, 4)", "c.HitTestByPoint(3, 4)"}));
  EXPECT_FALSE(g->HitTestByRect(3, 4, 5, 6));
  EXPECT_EQ(Take(), (Log{"a.HitTestByRect(3, 4, 5, 6)", "b.HitTestByRect(3, 4, 5, 6)",
                         "c.HitTestByRect(3, 4, 5, 6)"}));
  b->isHitByPoint = true;
  EXPECT_TRUE(g->HitTestByPoint(3, 4));
  EXPECT_EQ(Take(), (Log{"a.HitTestByPoint(3, 4)", "b.HitTestByPoint(3, 4)"}));
  EXPECT_FALSE(g->HitTestByRect(3, 4, 5, 6));
  Take();
  b->isHitByRect = true;
  EXPECT_TRUE(g->HitTestByRect(3, 4, 5, 6));
  EXPECT_EQ(Take(), (Log{"a.HitTestByRect(3, 4, 5, 6)", "b.HitTestByRect(3, 4, 5, 6)"}));
  a->isHitByPoint = true;
  EXPECT_TRUE(g->HitTestByPoint(3, 4));
  EXPECT_EQ(Take(), Log{"a.HitTestByPoint(3, 4)"});
}

// --- IDs ---

TEST_F(Group, SetElementsIDReachesAllMembersButNotTheGroupItself) {
  const auto inner = GroupOf({Make("b")});
  const auto middle = GroupOf({inner, Make("c")});
  const auto g = GroupOf({Make("a"), middle, Make("d")});
  g->ID(40);
  inner->GroupID(3);
  g->SetElementsID(-1);
  EXPECT_EQ(Take(), (Log{"a.ID=-1", "b.ID=-1", "c.ID=-1", "d.ID=-1"}));
  automation::InvokeByName(*g, "setelementsid", {Long{5}});
  EXPECT_EQ(Take(), (Log{"a.ID=5", "b.ID=5", "c.ID=5", "d.ID=5"}));
  EXPECT_EQ(middle->ID(), 5);
  EXPECT_EQ(inner->ID(), 5);
  EXPECT_EQ(inner->GroupID(), 3);
  EXPECT_EQ(g->ID(), 40);
}

TEST_F(Group, SetElementsIDGivesAFalseGroupItsIdBeforeItRefusesIt) {
  const auto g = GroupOf({FalseGroup(), Make("a")});
  EXPECT_EQ(ErrorOf([&] { g->SetElementsID(5); }), 13);
  EXPECT_EQ(Take(), Log{"false.ID=5"});
}

// --- Replica ---

TEST_F(Group, ReplicaIsADeepCopyWithTheSameNumbers) {
  const auto a = Make("a"), b = Make("b");
  a->id = 11;
  const auto inner = GroupOf({b});
  inner->Props({21, 0, 0, 0, 31, 0, 0, 0, 1, 0, 0, 0});
  const auto g = GroupOf({a, inner});
  g->Props({22, 0, 0, 0, 32, 0, 0, 0, 2, 0, 0, 0});
  const auto copy = std::dynamic_pointer_cast<clsGroup>(g->Replica());
  EXPECT_EQ(Take(), (Log{"a.Replica()", "b.Replica()"}));
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, g);
  EXPECT_EQ(copy->Props(), g->Props());
  EXPECT_NE(copy->ColGroup(), g->ColGroup());
  ASSERT_EQ(copy->ColGroup()->Count(), 2);

  const auto aCopy = MemberAt<ElementDouble>(*copy, 1);
  ASSERT_NE(aCopy, nullptr);
  EXPECT_EQ(aCopy->Name(), "a'");
  EXPECT_EQ(aCopy->id, 11);
  EXPECT_EQ(copy->ColGroup()->Item(clsGroup::KeyOf(*aCopy)), Variant(aCopy));

  const auto innerCopy = MemberAt<clsGroup>(*copy, 2);
  ASSERT_NE(innerCopy, nullptr);
  EXPECT_NE(innerCopy, inner);
  EXPECT_EQ(innerCopy->Props(), inner->Props());
  EXPECT_EQ(copy->ColGroup()->Item(clsGroup::KeyOf(*innerCopy)), Variant(innerCopy));
  ASSERT_EQ(innerCopy->ColGroup()->Count(), 1);
  EXPECT_EQ(MemberAt<ElementDouble>(*innerCopy, 1)->Name(), "b'");
}

TEST_F(Group, ReplicaAndSourceAreIndependent) {
  const auto inner = GroupOf({Make("b")});
  const auto g = GroupOf({Make("a"), inner});
  const auto copy = std::dynamic_pointer_cast<clsGroup>(g->Replica());
  const auto innerCopy = MemberAt<clsGroup>(*copy, 2);
  Take();
  g->Move(1, 1);
  EXPECT_EQ(Take(), (Log{"a.Move(1, 1)", "b.Move(1, 1)"}));
  copy->Move(2, 2);
  EXPECT_EQ(Take(), (Log{"a'.Move(2, 2)", "b'.Move(2, 2)"}));
  copy->ID(5);
  innerCopy->Depth(6);
  innerCopy->ColGroup()->Remove(1);
  EXPECT_EQ(g->ID(), -1);
  EXPECT_EQ(inner->Depth(), 1);
  EXPECT_EQ(inner->ColGroup()->Count(), 1);
}

TEST_F(Group, ReplicaCopiesAnEmptyGroupAndGivesTheReplicasThroughCallByName) {
  clsGroup g;
  g.ID(7);
  const Variant result = automation::InvokeByName(g, Contract(), "Replica");
  const auto copy = std::dynamic_pointer_cast<clsGroup>(result.Object());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->ID(), 7);
  EXPECT_EQ(copy->ColGroup()->Count(), 0);
}

TEST_F(Group, AMemberWithoutAReplicaIsAnError) {
  const auto b = Make("b");
  b->hasReplica = false;
  const auto g = GroupOf({Make("a"), b, Make("c")});
  EXPECT_EQ(ErrorOf([&] { g->Replica(); }), 91);
  EXPECT_EQ(Take(), (Log{"a.Replica()", "b.Replica()"}));
}

// --- Members that are no elements ---

struct Operation {
  std::string name;
  std::function<void(clsGroup&)> run;
};

/// All that is done on members and needs no project.
std::vector<Operation> OperationsOnMembers() {
  std::vector<Operation> operations = {
      {"IsContainsGlobalVars", [](clsGroup& g) { g.IsContainsGlobalVars(); }},
      {"DrawFramesInGroup", [](clsGroup& g) { g.DrawFramesInGroup(1, false); }},
      {"DrawTransparentFramesInGroup", [](clsGroup& g) { g.DrawTransparentFramesInGroup(1); }},
      {"DrawNonVarsInGroup", [](clsGroup& g) { g.DrawNonVarsInGroup(1, false); }},
      {"DrawVarsInGroup", [](clsGroup& g) { g.DrawVarsInGroup(1, false); }},
      {"SetElementsID", [](clsGroup& g) { g.SetElementsID(1); }},
      {"GetTransformState",
       [](clsGroup& g) {
         Variant map = Map(1, 1);
         g.GetTransformState(map);
       }},
      {"HitTestByPoint", [](clsGroup& g) { g.HitTestByPoint(1, 1); }},
      {"HitTestByRect", [](clsGroup& g) { g.HitTestByRect(1, 1, 1, 1); }},
      {"Replica", [](clsGroup& g) { g.Replica(); }},
  };
  for (const Broadcast& broadcast : Broadcasts()) {
    operations.push_back({broadcast.name, broadcast.call});
  }
  return operations;
}

TEST_F(Group, AForeignObjectAmongTheMembersIsAnErrorAfterThoseBeforeIt) {
  for (const Operation& operation : OperationsOnMembers()) {
    const auto g = GroupOf({Make("a")});
    g->ColGroup()->Add(std::make_shared<test::ReportDouble>());
    Enter(*g, Make("c"));
    EXPECT_RAISES(13, "type mismatch: an object of class ReportDouble does not fit here", operation.run(*g))
        << operation.name;
    for (const std::string& note : Take()) EXPECT_EQ(note[0], 'a') << operation.name;
  }
}

TEST_F(Group, NoObjectAmongTheMembersOrATextIsAnError) {
  for (const Operation& operation : OperationsOnMembers()) {
    clsGroup g;
    g.ColGroup()->Add(ElementRef());
    EXPECT_EQ(ErrorOf([&] { operation.run(g); }), 91) << operation.name;
    g.ColGroup(std::make_shared<automation::Collection>());
    g.ColGroup()->Add("element");
    EXPECT_EQ(ErrorOf([&] { operation.run(g); }), 13) << operation.name;
  }
}

TEST_F(Group, WithoutACollectionEveryOperationOnMembersIsAnError) {
  clsGroup g;
  automation::PutByName(g, "ColGroup", automation::ObjectRef());
  EXPECT_EQ(g.ColGroup(), nullptr);
  for (const Operation& operation : OperationsOnMembers()) {
    EXPECT_RAISES(91, "an object was expected and none was given", operation.run(g)) << operation.name;
  }
}

}  // namespace
}  // namespace quenzel7
