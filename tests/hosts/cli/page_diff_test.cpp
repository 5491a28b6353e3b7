#include "hosts/cli/page_diff.h"

#include <gtest/gtest.h>

#include "tests/hosts/cli/snapshots.h"

namespace quenzel7::cli {
namespace {

using Lines = std::vector<std::string>;
using Flags = std::vector<bool>;

class PageDiffTest : public test::SnapshotTest {
 protected:
  static PageDiff Compare(const std::string& a, const std::string& b) {
    return ComparePages(SnapshotOf(a), SnapshotOf(b));
  }
};

TEST_F(PageDiffTest, EqualPagesDoNotDiffer) {
  const std::string page = List({Line(1), Group(List({Line(2), Group("")})), Line(1)});
  const PageDiff diff = Compare(page, page);
  EXPECT_EQ(diff.lines, Lines());
  EXPECT_EQ(diff.differsA, Flags(5, false));
  EXPECT_EQ(diff.differsB, Flags(5, false));
}

TEST_F(PageDiffTest, TellsEachPropertyOnALine) {
  const PageDiff diff =
      Compare(List({Box(1), Line(2)}), List({Box(1), Line(7, "\"PenWidth\": 3, \"PenStyle\": 1")}));
  EXPECT_EQ(diff.lines,
            (Lines{"page 1: element 2 (clsLine): Xs 2 -> 7", "page 1: element 2 (clsLine): PenWidth 1 -> 3",
                   "page 1: element 2 (clsLine): PenStyle \"ePS_Solid\" -> \"ePS_Dash\""}));
  EXPECT_EQ(diff.differsA, (Flags{false, true}));
  EXPECT_EQ(diff.differsB, (Flags{false, true}));
}

TEST_F(PageDiffTest, TellsTheSettingsOfVariablesByTheirPaths) {
  const auto list = [](const std::string& texts) {
    return Shape("Var", 1, R"("VarType": "eVT_ListText", "Handler": {"ListTexts": [)" + texts + "]}");
  };
  EXPECT_EQ(Compare(list(R"({"Txt": "a"}, {"Txt": "b"})"), list(R"({"Txt": "c"}, {"Txt": "b"})")).lines,
            (Lines{"page 1: element 1 (clsVar): Handler.ListTexts[1].Txt \"a\" -> \"c\""}));
  const Lines added{"page 1: element 1 (clsVar): Handler.ListTexts[2].Txt none -> \"b\"",
                    "page 1: element 1 (clsVar): Handler.ListTexts[2].ColorFore none -> 5",
                    "page 1: element 1 (clsVar): Handler.ListTexts[2].ColorBack none -> 103",
                    "page 1: element 1 (clsVar): Handler.ListTexts[2].StorageStringType none -> 0",
                    "page 1: element 1 (clsVar): Handler.ListTexts[2].StorageStringID none -> -1"};
  EXPECT_EQ(Compare(list(R"({"Txt": "a"})"), list(R"({"Txt": "a"}, {"Txt": "b"})")).lines, added);
  const Lines taken = Compare(list(R"({"Txt": "a"}, {"Txt": "b"})"), list(R"({"Txt": "a"})")).lines;
  ASSERT_EQ(taken.size(), added.size());
  EXPECT_EQ(taken.front(), "page 1: element 1 (clsVar): Handler.ListTexts[2].Txt \"b\" -> none");
  EXPECT_EQ(Compare(Shape("Var", 1), Shape("Var", 1, R"("ListText": {"StorageFont": 7})")).lines,
            Lines{"page 1: element 1 (clsVar): ListText.StorageFont 1 -> 7"});
}

TEST_F(PageDiffTest, TellsWhatWentAndCame) {
  const PageDiff diff =
      Compare(List({Line(4, "\"Ys\": 5, \"Dx\": -6, \"Dy\": 7"), Box(1)}),
              List({Box(1), Shape("Ellipse", 8, "\"Dy\": 2"), Group(List({Box(3), Group(Box(4))}))}));
  EXPECT_EQ(diff.lines,
            (Lines{"page 1: element 1 (clsLine) went, at (4, 5) with size (-6, 7)",
                   "page 1: element 2 (clsEllipse) came, at (8, 0) with size (0, 2)",
                   "page 1: element 3 (clsGroup) came, with 3 elements",
                   "page 1: element 3 (clsGroup), element 1 (clsRectangle) came, at (3, 0) with size (0, 0)",
                   "page 1: element 3 (clsGroup), element 2 (clsGroup) came, with 1 element",
                   "page 1: element 3 (clsGroup), element 2 (clsGroup), element 1 (clsRectangle) came, at "
                   "(4, 0) with size (0, 0)"}));
  EXPECT_EQ(diff.differsA, (Flags{true, false}));
  EXPECT_EQ(diff.differsB, (Flags{false, true, true, true, true, true}));
}

TEST_F(PageDiffTest, ChangesInAGroupAreToldWithTheWayToThem) {
  EXPECT_EQ(
      Compare(List({Line(9), Group(List({Box(1), Line(2)}))}), List({Group(List({Box(1), Line(3)}))})).lines,
      (Lines{"page 1: element 1 (clsLine) went, at (9, 0) with size (0, 0)",
             "page 1: element 2 (clsGroup), element 2 (clsLine): Xs 2 -> 3"}));
}

TEST_F(PageDiffTest, TellsAsFewMovesInTheOrderAsThereCanBe) {
  const PageDiff diff =
      Compare(List({Line(1), Line(2), Line(3), Line(4)}), List({Line(4), Line(1), Line(2), Line(3)}));
  EXPECT_EQ(diff.lines,
            (Lines{"page 1: element 4 (clsLine) moved in the drawing order, it is now element 1 (clsLine)"}));
  EXPECT_EQ(diff.differsA, (Flags{false, false, false, true}));
  EXPECT_EQ(diff.differsB, (Flags{true, false, false, false}));
}

TEST_F(PageDiffTest, TellsMovesInTheOrderOfAGroup) {
  EXPECT_EQ(
      Compare(Group(List({Line(1), Line(2), Line(3)})), Group(List({Line(2), Line(3), Line(1)}))).lines,
      (Lines{
          "page 1: element 1 (clsGroup), element 1 (clsLine) moved in the drawing order, it is now element 1 "
          "(clsGroup), element 3 (clsLine)"}));
}

TEST_F(PageDiffTest, AGroupThatMovesTakesItsMembersAlong) {
  EXPECT_EQ(
      Compare(List({Group(Box(1)), Line(1), Line(2)}), List({Line(1), Line(2), Group(Box(1))})).lines,
      (Lines{"page 1: element 1 (clsGroup) moved in the drawing order, it is now element 3 (clsGroup)"}));
}

TEST_F(PageDiffTest, TellsMovesBetweenGroupsAndThePage) {
  EXPECT_EQ(
      Compare(List({Line(1), Group(List({Box(2), Box(3)})), Group(Box(4))}),
              List({Group(List({Box(2), Line(1)})), Group(List({Box(4), Box(3)}))}))
          .lines,
      (Lines{
          "page 1: element 1 (clsLine) moved into another group, it is now element 1 (clsGroup), element 2 "
          "(clsLine)",
          "page 1: element 2 (clsGroup), element 2 (clsRectangle) moved into another group, it is now "
          "element 2 "
          "(clsGroup), element 2 (clsRectangle)"}));
  EXPECT_EQ(Compare(Group(List({Box(2), Box(3)})), List({Group(Box(2)), Box(3)})).lines,
            (Lines{"page 1: element 1 (clsGroup), element 2 (clsRectangle) moved out of its group, it is now "
                   "element 2 "
                   "(clsRectangle)"}));
}

TEST_F(PageDiffTest, MembersOfAGroupThatWentMoveOutOfIt) {
  EXPECT_EQ(Compare(Group(List({Box(2), Box(3)})), List({Box(2), Box(3)})).lines,
            (Lines{"page 1: element 1 (clsGroup) went, with 2 elements",
                   "page 1: element 1 (clsGroup), element 1 (clsRectangle) moved out of its group, it is now "
                   "element 1 "
                   "(clsRectangle)",
                   "page 1: element 1 (clsGroup), element 2 (clsRectangle) moved out of its group, it is now "
                   "element 2 "
                   "(clsRectangle)"}));
}

TEST_F(PageDiffTest, OneThatMovedAndChangedIsToldBoth) {
  EXPECT_EQ(
      Compare(List({Box(1, "\"PenWidth\": 4"), Line(1), Line(2)}),
              List({Line(1), Line(2), Box(1, "\"PenWidth\": 5")}))
          .lines,
      (Lines{
          "page 1: element 1 (clsRectangle) moved in the drawing order, it is now element 3 (clsRectangle)",
          "page 1: element 1 (clsRectangle): PenWidth 4 -> 5"}));
}

TEST_F(PageDiffTest, TellsNameAndPanelOfThePage) {
  const PageSnapshot a = SnapshotOf(Line(1));
  PageSnapshot b = a;
  b.info.name = "Kettle";
  b.info.panel = {2, 480, 240};
  const PageDiff diff = ComparePages(a, b);
  EXPECT_EQ(diff.lines, (Lines{"page 1: name \"Boiler\" -> \"Kettle\"", "page 1: panel type 1 -> 2",
                               "page 1: panel size 320 by 240 -> 480 by 240"}));
  EXPECT_EQ(diff.differsA, (Flags{false}));
  b.info = a.info;
  b.info.panel.height = 241;
  EXPECT_EQ(ComparePages(a, b).lines, (Lines{"page 1: panel size 320 by 240 -> 320 by 241"}));
}

TEST_F(PageDiffTest, TellsPagesThatCameAndWent) {
  const PageSnapshot page = SnapshotOf(Group(Line(1)));
  const PageDiff went = ComparePages(page, {});
  EXPECT_EQ(went.lines, (Lines{"page 1 went: \"Boiler\", 2 elements"}));
  EXPECT_EQ(went.differsA, Flags(2, true));
  EXPECT_EQ(went.differsB, Flags());
  const PageDiff came = ComparePages({}, page);
  EXPECT_EQ(came.lines, (Lines{"page 1 came: \"Boiler\", 2 elements"}));
  EXPECT_EQ(came.differsA, Flags());
  EXPECT_EQ(came.differsB, Flags(2, true));
}

}  // namespace
}  // namespace quenzel7::cli
