#include <gtest/gtest.h>

#include "hosts/cli/element_tree.h"
#include "hosts/cli/page_file.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/member.h"
#include "shapes/group.h"
#include "shapes/rectangle.h"
#include "tests/hosts/cli/every_kind_element.h"
#include "tests/hosts/cli/messages.h"

namespace quenzel7::cli {
namespace {

const ElementClasses& Classes() {
  static const automation::ClassInfo* const list[] = {
      &clsRectangle::ClassOf(), &test::EveryKindElement::ClassOf(), &clsGroup::ClassOf()};
  static const ElementClasses classes(list);
  return classes;
}

PageFile ReadPage(const std::string& text) { return ReadPageFile(text, "page file x.json", Classes()); }

std::string ErrorIn(const std::string& text) {
  return test::MessageOf([&text] { ReadPage(text); });
}

std::string WithElements(const std::string& elements) {
  return R"({"page": 1, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [)" + elements + "]}";
}

std::string ErrorInElement(const std::string& element) { return ErrorIn(WithElements(element)); }

TEST(PageFileReader, ReadsThePageAndItsPanel) {
  const PageFile page = ReadPage(
      R"({"page": 12, "name": "Boiler", "panel": {"type": 3, "width": 480, "height": 272}, "elements": []})");
  EXPECT_EQ(page.info.number, 12);
  EXPECT_EQ(page.info.name, "Boiler");
  EXPECT_EQ(page.info.panel, (Panel{3, 480, 272}));
  EXPECT_TRUE(page.elements.empty());
}

TEST(PageFileReader, ReadsKeysInAnyCaseAndOrder) {
  const PageFile page =
      ReadPage(R"({"ELEMENTS": [], "Panel": {"HEIGHT": 2, "Width": 1, "tyPe": 0}, "Name": "n", "PAGE": 1})");
  EXPECT_EQ(page.info.panel, (Panel{0, 1, 2}));
  EXPECT_EQ(page.info.name, "n");
}

TEST(PageFileReader, ANameMayBeLeftOut) { EXPECT_EQ(ReadPage(WithElements("")).info.name, ""); }

TEST(PageFileReader, APlaceInTheTabOrderIsANumberFrom0To255) {
  const auto read = [](const std::string& place) {
    const PageFile page = ReadPageFile(
        WithElements(R"({"class": "clsText", "Dx": 256}, {"class": "clsFrame", "tabINDEX": )" + place + "}"),
        "page file x.json");
    return page.elements.at(1).values.at(0).value;
  };
  EXPECT_EQ(read("0"), automation::Variant(Long{0}));
  EXPECT_EQ(read("255"), automation::Variant(Long{255}));
  for (const std::string place : {"-1", "256"}) {
    EXPECT_EQ(
        test::MessageOf([&] { read(place); }),
        "page file x.json, element 2 (clsFrame): property \"TabIndex\" must be a whole number from 0 to "
        "255, " +
            place + " was given");
  }
}

TEST(PageFileReader, ReadsElementsInTheirOrder) {
  const PageFile page =
      ReadPage(WithElements(R"({"class": "clsRectangle"}, {"Xs": 4, "CLASS": "CLSEVERYKIND"})"));
  ASSERT_EQ(page.elements.size(), 2u);
  EXPECT_EQ(page.elements[0].elementClass, &clsRectangle::ClassOf());
  EXPECT_TRUE(page.elements[0].values.empty());
  EXPECT_EQ(page.elements[1].elementClass, &test::EveryKindElement::ClassOf());
  ASSERT_EQ(page.elements[1].values.size(), 1u);
  EXPECT_EQ(page.elements[1].values[0].property->name, "Xs");
  EXPECT_EQ(page.elements[1].values[0].value, automation::Variant(Long{4}));
}

TEST(PageFileReader, SortsPropertiesIntoTheOrderOfSetting) {
  const PageFile page =
      ReadPage(WithElements(R"({"colorback": 3, "penwidth": 2, "class": "clsRectangle", "DY": 4, "Xs": 1})"));
  std::vector<std::string_view> names;
  for (const PropertyValue& value : page.elements.at(0).values) names.push_back(value.property->name);
  EXPECT_EQ(names, (std::vector<std::string_view>{"Xs", "Dy", "PenWidth", "ColorBack"}));
}

TEST(PageFileReader, AppliesEveryKindOfPropertyByName) {
  const PageFile page = ReadPage(WithElements(
      R"({"class": "clsEveryKind", "Label": "a", "Small": 255, "Middle": -5, "Ratio": 0.5, "Fine": 0.1,
          "Shown": true, "Style": "ePS_Dot", "Body": 1, "Xs": 7})"));
  const auto element = std::dynamic_pointer_cast<test::EveryKindElement>(MakeElement(page.elements.at(0)));
  ASSERT_TRUE(element);
  EXPECT_EQ(element->Label(), "a");
  EXPECT_EQ(element->Small(), 255);
  EXPECT_EQ(element->Middle(), -5);
  EXPECT_EQ(element->Ratio(), 0.5f);
  EXPECT_EQ(element->Fine(), 0.1);
  EXPECT_TRUE(element->Shown());
  EXPECT_EQ(element->Style(), ePS_Dot);
  EXPECT_EQ(element->Body(), eFS_Solid);
  EXPECT_EQ(element->Xs(), 7);
  EXPECT_EQ(element->Dx(), 0);
}

TEST(PageFileReader, NamesTheLineOfMalformedJson) {
  EXPECT_EQ(ErrorIn("{\n\"page\": 1,,\n}"),
            "page file x.json, line 2, column 11: malformed JSON: syntax error while parsing object key - "
            "unexpected "
            "','; expected string literal");
}

TEST(PageFileReader, ThePageMustBeAnObject) {
  EXPECT_EQ(ErrorIn("[1]"), "page file x.json: must be an object, [1] was given");
}

TEST(PageFileReader, NamesWhatIsMissingInThePage) {
  const std::string panel = R"("panel": {"type": 1, "width": 320, "height": 240})";
  EXPECT_EQ(ErrorIn("{" + panel + R"(, "elements": []})"), "page file x.json: \"page\" is missing");
  EXPECT_EQ(ErrorIn(R"({"page": 1, "elements": []})"), "page file x.json: \"panel\" is missing");
  EXPECT_EQ(ErrorIn(R"({"page": 1, )" + panel + "}"), "page file x.json: \"elements\" is missing");
}

TEST(PageFileReader, NamesWhatIsMissingInThePanel) {
  const auto error = [](const std::string& panel) {
    return ErrorIn(R"({"page": 1, "panel": )" + panel + R"(, "elements": []})");
  };
  const std::string place = "page file x.json: \"panel\": ";
  EXPECT_EQ(error(R"({"width": 1, "height": 1})"), place + "\"type\" is missing");
  EXPECT_EQ(error(R"({"type": 1, "height": 1})"), place + "\"width\" is missing");
  EXPECT_EQ(error(R"({"type": 1, "width": 1})"), place + "\"height\" is missing");
  EXPECT_EQ(error("5"), place + "must be an object, 5 was given");
  EXPECT_EQ(error(R"({"typ": 1, "width": 1, "height": 1})"),
            place + "\"typ\" does not exist; nearest is \"type\"");
  EXPECT_EQ(error(R"({"type": 1, "width": 1, "Width": 1, "height": 1})"), place + "\"Width\" is given twice");
}

TEST(PageFileReader, KnowsTheLimitsOfPageAndPanel) {
  const auto page = [](const std::string& number, const std::string& type, const std::string& width,
                       const std::string& height) {
    return R"({"page": )" + number + R"(, "panel": {"type": )" + type + R"(, "width": )" + width +
           R"(, "height": )" + height + R"(}, "elements": []})";
  };
  EXPECT_EQ(ErrorIn(page("1", "0", "1", "1")), "");
  EXPECT_EQ(ErrorIn(page("2147483647", "2147483647", "4096", "4096")), "");
  EXPECT_EQ(ErrorIn(page("0", "1", "1", "1")), "");
  EXPECT_EQ(ErrorIn(page("-1", "1", "1", "1")),
            "page file x.json: \"page\" must be a whole number from 0 to 2147483647, -1 was given");
  EXPECT_EQ(ErrorIn(page("\"1\"", "1", "1", "1")),
            "page file x.json: \"page\" must be a whole number from 0 to 2147483647, \"1\" was given");
  EXPECT_EQ(
      ErrorIn(page("1", "-1", "1", "1")),
      "page file x.json: \"panel\": \"type\" must be a whole number from 0 to 2147483647, -1 was given");
  EXPECT_EQ(ErrorIn(page("1", "1", "0", "1")),
            "page file x.json: \"panel\": \"width\" must be a whole number from 1 to 4096, 0 was given");
  EXPECT_EQ(ErrorIn(page("1", "1", "4097", "1")),
            "page file x.json: \"panel\": \"width\" must be a whole number from 1 to 4096, 4097 was given");
  EXPECT_EQ(ErrorIn(page("1", "1", "1", "0")),
            "page file x.json: \"panel\": \"height\" must be a whole number from 1 to 4096, 0 was given");
  EXPECT_EQ(ErrorIn(page("1", "1", "1", "4097")),
            "page file x.json: \"panel\": \"height\" must be a whole number from 1 to 4096, 4097 was given");
}

TEST(PageFileReader, RefusesUnknownAndRepeatedMembersOfThePage) {
  EXPECT_EQ(ErrorIn(R"({"paeg": 1})"), "page file x.json: \"paeg\" does not exist; nearest is \"page\"");
  EXPECT_EQ(ErrorIn(R"({"page": 1, "PAGE": 1})"), "page file x.json: \"PAGE\" is given twice");
  EXPECT_EQ(ErrorIn(R"({"page": 1, "name": 5})"), "page file x.json: \"name\" must be a text, 5 was given");
}

TEST(PageFileReader, ElementsMustBeAnArrayOfObjects) {
  EXPECT_EQ(ErrorIn(R"({"page": 1, "panel": {"type": 1, "width": 1, "height": 1}, "elements": {}})"),
            "page file x.json: \"elements\" must be an array, {} was given");
  EXPECT_EQ(ErrorInElement(R"({"class": "clsRectangle"}, 5)"),
            "page file x.json, element 2: must be an object, 5 was given");
}

TEST(PageFileReader, NamesTheElementWhoseClassIsWrong) {
  EXPECT_EQ(
      ErrorInElement(R"({"class": "clsRectangle"}, {"class": "clsRectangel"})"),
      "page file x.json, element 2: class \"clsRectangel\" does not exist; nearest is \"clsRectangle\"");
  EXPECT_EQ(ErrorInElement(R"({"Xs": 1})"), "page file x.json, element 1: \"class\" is missing");
  EXPECT_EQ(ErrorInElement(R"({"class": 5})"),
            "page file x.json, element 1: \"class\" must be a text, 5 was given");
}

TEST(PageFileReader, NamesElementClassAndPropertyOfAnUnknownProperty) {
  std::string elements;
  for (int index = 1; index < 7; ++index) elements += R"({"class": "clsRectangle"}, )";
  EXPECT_EQ(ErrorInElement(elements + R"({"class": "clsRectangle", "PenWidht": 1})"),
            "page file x.json, element 7 (clsRectangle): property \"PenWidht\" does not exist; nearest is "
            "\"PenWidth\"");
}

TEST(PageFileReader, SuggestsOnlyWhatAPageFileCanSet) {
  EXPECT_EQ(ErrorInElement(R"({"class": "clsRectangle", "IDD": 1})"),
            "page file x.json, element 1 (clsRectangle): property \"IDD\" does not exist; nearest is \"Dx\"");
}

TEST(PageFileReader, SaysThatTheProjectGivesIdentity) {
  for (const char* name : {"ID", "GroupID", "OrderIndex", "orderindex"}) {
    EXPECT_EQ(ErrorInElement(std::string(R"({"class": "clsRectangle", ")") + name + R"(": 1})"),
              std::string("page file x.json, element 1 (clsRectangle): property \"") + name +
                  "\" cannot be set: it is given by the project and the element's place in the file");
  }
}

TEST(PageFileReader, RefusesMembersThatAreNoPageProperties) {
  const std::string place = "page file x.json, element 1 (clsRectangle): ";
  EXPECT_EQ(ErrorInElement(R"({"class": "clsRectangle", "SaveToDB": 1})"),
            place + "\"SaveToDB\" is a method, not a property");
  EXPECT_EQ(ErrorInElement(R"({"class": "clsRectangle", "ColOpPropBag": 1})"),
            place + "property \"ColOpPropBag\" cannot be set in a page file");
  EXPECT_EQ(ErrorInElement(R"({"class": "clsEveryKind", "Locked": 1})"),
            "page file x.json, element 1 (clsEveryKind): property \"Locked\" cannot be set in a page file");
  EXPECT_EQ(ErrorInElement(R"({"class": "clsEveryKind", "SlotOnly": 1})"),
            "page file x.json, element 1 (clsEveryKind): property \"SlotOnly\" cannot be set in a page file");
}

TEST(PageFileReader, NamesThePropertyOfAWrongValue) {
  EXPECT_EQ(ErrorInElement(R"({"class": "clsRectangle", "xs": 1.5})"),
            "page file x.json, element 1 (clsRectangle): property \"Xs\" must be a whole number from "
            "-2147483648 to "
            "2147483647, 1.5 was given");
}

TEST(PageFileReader, RefusesAPropertyThatIsThereTwice) {
  EXPECT_EQ(ErrorInElement(R"({"class": "clsRectangle", "Xs": 1, "Ys": 2, "xs": 1})"),
            "page file x.json, element 1 (clsRectangle): property \"xs\" is given twice");
  EXPECT_EQ(ErrorInElement(R"({"class": "clsRectangle", "class": "clsRectangle"})"),
            "page file x.json, element 1 (clsRectangle): \"class\" is given twice");
  EXPECT_EQ(ErrorInElement(R"({"CLASS": "clsGroup", "class": "clsGroup"})"),
            "page file x.json, element 1 (clsGroup): \"class\" is given twice");
}

TEST(PageFileReader, NamesThePropertyThatTheClassRefuses) {
  static const automation::Member members[] = {automation::Property<Long>(
      "Moody", {}, [](automation::Object&) -> automation::Variant { return Long{0}; },
      [](automation::Object&, const automation::Variant&) {
        throw automation::AutomationError(automation::ErrorNumber::InvalidPropertyValue, "not today");
      })};
  static const automation::Interface interface("_clsMoody", members);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{"clsMoody", interfaces, []() -> automation::ObjectRef {
                                            struct Moody final : ItfHmiElement {
                                              const automation::ClassInfo& Class() const override {
                                                return info;
                                              }
                                            };
                                            return std::make_shared<Moody>();
                                          }};
  const PageElement element{&info, {{&members[0], Long{1}}}};
  EXPECT_EQ(test::MessageOf([&element] { MakeElement(element); }), "property \"Moody\": not today");
}

std::string Group(const std::string& elements) {
  return R"({"class": "clsGroup", "elements": [)" + elements + "]}";
}

const std::string kRectangle = R"({"class": "clsRectangle"})";

TEST(PageFileReader, ReadsTheMembersOfGroups) {
  const PageFile page =
      ReadPage(WithElements(R"({"Elements": [{"class": "clsRectangle", "Xs": 4}, )" + Group(kRectangle) +
                            R"(], "class": "CLSGROUP"}, {"class": "clsGroup"}, )" + Group("")));
  ASSERT_EQ(page.elements.size(), 3u);
  const PageElement& group = page.elements[0];
  EXPECT_EQ(group.elementClass, &clsGroup::ClassOf());
  EXPECT_TRUE(group.values.empty());
  ASSERT_EQ(group.elements.size(), 2u);
  EXPECT_EQ(group.elements[0].values.at(0).value, automation::Variant(Long{4}));
  EXPECT_EQ(group.elements[1].elementClass, &clsGroup::ClassOf());
  EXPECT_EQ(group.elements[1].elements.size(), 1u);
  EXPECT_TRUE(page.elements[1].elements.empty());
  EXPECT_TRUE(page.elements[2].elements.empty());
  EXPECT_EQ(CountElements(page.elements), 6u);
}

TEST(PageFileReader, MakesGroupsWithTheirMembers) {
  const PageFile page = ReadPage(WithElements(Group(Group(kRectangle) + ", " + kRectangle)));
  const auto group = std::dynamic_pointer_cast<clsGroup>(MakeElement(page.elements[0]));
  ASSERT_TRUE(group);
  const std::vector<ElementRef> members = MembersOf(*group);
  ASSERT_EQ(members.size(), 2u);
  EXPECT_EQ(MembersOf(*members[0]).size(), 1u);
  EXPECT_EQ(&members[1]->Class(), &clsRectangle::ClassOf());
  EXPECT_EQ(group->Depth(), 2);
}

TEST(PageFileReader, NamesTheWholePlaceOfAMember) {
  EXPECT_EQ(
      ErrorInElement(kRectangle + ", " +
                     Group(kRectangle + ", " + Group(R"({"class": "clsRectangle", "Xs": ""})"))),
      "page file x.json, element 2 (clsGroup), element 2 (clsGroup), element 1 (clsRectangle): property "
      "\"Xs\" must be a whole number from -2147483648 to 2147483647, \"\" was given");
  EXPECT_EQ(ErrorInElement(Group("5")),
            "page file x.json, element 1 (clsGroup), element 1: must be an object, 5 was given");
  EXPECT_EQ(ErrorInElement(Group(kRectangle) + R"(, {"class": "clsGroup", "elements": [{"Xs": 1}]})"),
            "page file x.json, element 2 (clsGroup), element 1: \"class\" is missing");
}

TEST(PageFileReader, OnlyAGroupHasElements) {
  EXPECT_EQ(ErrorInElement(R"({"class": "clsRectangle", "Elements": []})"),
            "page file x.json, element 1 (clsRectangle): \"elements\" can be given for a clsGroup only");
}

TEST(PageFileReader, AGroupHasNothingButElements) {
  const std::string place = "page file x.json, element 1 (clsGroup): ";
  EXPECT_EQ(ErrorInElement(R"({"class": "clsGroup", "Xs": 1})"),
            place + "property \"Xs\" does not exist: a clsGroup has no properties, only \"elements\"");
  for (const char* name : {"ID", "GroupID", "Depth", "Props"}) {
    EXPECT_EQ(ErrorInElement(std::string(R"({"class": "clsGroup", ")") + name + R"(": 1})"),
              place + "property \"" + name +
                  "\" cannot be set: it is given by the project and the element's place in the file");
  }
  EXPECT_EQ(ErrorInElement(R"({"class": "clsGroup", "ColGroup": []})"),
            place + "property \"ColGroup\" cannot be set in a page file");
  EXPECT_EQ(ErrorInElement(R"({"class": "clsGroup", "elements": {}})"),
            place + "\"elements\" must be an array, {} was given");
  EXPECT_EQ(ErrorInElement(R"({"class": "clsGroup", "elements": [], "ELEMENTS": []})"),
            place + "\"ELEMENTS\" is given twice");
}

TEST(PageFileReader, RefusesATouchableMember) {
  const auto touched = [](const std::string& address) {
    return R"({"class": "clsRectangle", "Xs": 1, "touchoprndaddr": )" + address + "}";
  };
  EXPECT_EQ(ErrorInElement(touched("5")), "");
  EXPECT_EQ(ErrorInElement(Group(touched("-1"))), "");
  const std::string refused =
      "property \"TouchOprndAddr\" must be -1 in a group, which holds no touchable element; ";
  EXPECT_EQ(ErrorInElement(Group(touched("0"))),
            "page file x.json, element 1 (clsGroup), element 1 (clsRectangle): " + refused + "0 was given");
  EXPECT_EQ(ErrorInElement(Group(Group(touched("-2")))),
            "page file x.json, element 1 (clsGroup), element 1 (clsGroup), element 1 (clsRectangle): " +
                refused + "-2 was given");
}

TEST(PageFileReader, GroupsNestThreeDeep) {
  EXPECT_EQ(ErrorInElement(Group(Group(Group(kRectangle)))), "");
  EXPECT_EQ(ErrorInElement(Group(Group(Group(kRectangle + R"(, {"class": "clsGroup"})")))),
            "page file x.json, element 1 (clsGroup), element 1 (clsGroup), element 1 (clsGroup), element 2 "
            "(clsGroup): groups nest at most 3 deep");
}

TEST(PageFileReader, NoNestingExhaustsTheStack) {
  std::string nested;
  for (int depth = 0; depth < 100'000; ++depth) nested += R"({"class": "clsGroup", "elements": [)";
  EXPECT_EQ(ErrorInElement(nested), "page file x.json: nests more than 16 deep");
}

}  // namespace
}  // namespace quenzel7::cli
