#include <gtest/gtest.h>

#include "hosts/cli/element_tree.h"
#include "hosts/cli/page_file.h"
#include "shapes/group.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "tests/hosts/cli/every_kind_element.h"

namespace quenzel7::cli {
namespace {

TEST(PageFileWriter, WritesAnEmptyPage) {
  EXPECT_EQ(CanonicalPageText({3, "Boiler", {1, 320, 240}}, {}), R"({
  "page": 3,
  "name": "Boiler",
  "panel": {
    "type": 1,
    "width": 320,
    "height": 240
  },
  "elements": []
}
)");
}

TEST(PageFileWriter, LeavesOutAnEmptyName) {
  EXPECT_EQ(CanonicalPageText({3, "", {1, 2, 4}}, {}).find("name"), std::string::npos);
}

TEST(PageFileWriter, WritesPositionAlwaysAndOtherPropertiesWhereTheyDiffer) {
  const auto plain = std::make_shared<clsRectangle>();
  const auto changed = std::make_shared<clsRectangle>();
  changed->Xs(-10);
  changed->Dy(5);
  changed->ColorBack(8);
  changed->PenStyle(ePS_Dash_Dot);
  changed->HatchStyle(static_cast<enHatchStyle>(50));
  changed->FillStyle(eFS_Solid);
  changed->ID(77);
  EXPECT_EQ(CanonicalPageText({1, "", {1, 320, 240}}, {plain, changed}), R"({
  "page": 1,
  "panel": {
    "type": 1,
    "width": 320,
    "height": 240
  },
  "elements": [
    {
      "class": "clsRectangle",
      "Xs": 0,
      "Ys": 0,
      "Dx": 0,
      "Dy": 0
    },
    {
      "class": "clsRectangle",
      "Xs": -10,
      "Ys": 0,
      "Dx": 0,
      "Dy": 5,
      "HatchStyle": 50,
      "PenStyle": "ePS_Dash_Dot",
      "FillStyle": "eFS_Solid",
      "ColorBack": 8
    }
  ]
}
)");
}

TEST(PageFileWriter, WritesEveryPropertyOfACompletePage) {
  const auto element = std::make_shared<test::EveryKindElement>();
  element->Ratio(0.1f);
  EXPECT_EQ(CompletePageText({1, "", {1, 320, 240}}, {element}), R"({
  "page": 1,
  "panel": {
    "type": 1,
    "width": 320,
    "height": 240
  },
  "elements": [
    {
      "class": "clsEveryKind",
      "Xs": 0,
      "Dx": 0,
      "Label": "",
      "Small": 0,
      "Middle": 0,
      "Ratio": 0.1,
      "Fine": 0.0,
      "Shown": false,
      "Style": "ePS_Solid",
      "Body": "eFS_Hollow"
    }
  ]
}
)");
}

TEST(PageFileWriter, WritesTheMembersOfAGroupLast) {
  const auto line = std::make_shared<clsLine>();
  line->Dy(-3);
  const auto inner = std::make_shared<clsGroup>();
  const auto outer = std::make_shared<clsGroup>();
  outer->ID(4);
  AddMember(*outer, line);
  AddMember(*outer, inner);
  const std::string text = R"({
  "page": 1,
  "panel": {
    "type": 1,
    "width": 320,
    "height": 240
  },
  "elements": [
    {
      "class": "clsGroup",
      "elements": [
        {
          "class": "clsLine",
          "Xs": 0,
          "Ys": 0,
          "Dx": 0,
          "Dy": -3
        },
        {
          "class": "clsGroup",
          "elements": []
        }
      ]
    }
  ]
}
)";
  EXPECT_EQ(CanonicalPageText({1, "", {1, 320, 240}}, {outer}), text);
  // All properties of the line, too.
  const std::string complete = CompletePageText({1, "", {1, 320, 240}}, {outer});
  EXPECT_NE(complete.find("\"Dy\": -3,\n          \"VisibleOpAddr\": -1,"), std::string::npos);
}

TEST(PageFileWriter, WritesTextsAsTheyAre) {
  const std::string text = CanonicalPageText({1, "Käse \"x\"\n", {1, 1, 1}}, {});
  EXPECT_NE(text.find(R"("name": "Käse \"x\"\n",)"), std::string::npos);
}

TEST(PageFileWriter, ReplacesWhatIsNoUtf8) {
  const std::string text = CanonicalPageText({1, "a\xff", {1, 1, 1}}, {});
  EXPECT_NE(text.find("\"name\": \"a\xef\xbf\xbd\""), std::string::npos);
}

}  // namespace
}  // namespace quenzel7::cli
