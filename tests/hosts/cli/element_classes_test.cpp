#include "hosts/cli/element_classes.h"

#include <gtest/gtest.h>

#include "shapes/rectangle.h"
#include "shapes/shape_classes.h"
#include "tests/hosts/cli/every_kind_element.h"
#include "tests/hosts/cli/messages.h"
#include "variables/var_element.h"

namespace quenzel7::cli {
namespace {

TEST(ElementClasses, AllAreThoseOfTheLibrary) {
  const auto all = ElementClasses::All().Classes();
  std::vector<const automation::ClassInfo*> expected(ShapeClasses().begin(), ShapeClasses().end());
  expected.push_back(&clsVar::ClassOf());
  EXPECT_EQ(std::vector(all.begin(), all.end()), expected);
}

TEST(ElementClasses, AreFoundByNameInAnyCase) {
  EXPECT_EQ(&ElementClasses::All().Named("clsRectangle"), &clsRectangle::ClassOf());
  EXPECT_EQ(&ElementClasses::All().Named("CLSRECTANGLE"), &clsRectangle::ClassOf());
}

TEST(ElementClasses, SuggestTheNearestName) {
  EXPECT_EQ(test::MessageOf([] { ElementClasses::All().Named("clsRectangel"); }),
            "class \"clsRectangel\" does not exist; nearest is \"clsRectangle\"");
}

TEST(ElementClasses, EveryClassIsFoundByTheTypeThatItsElementsTell) {
  for (const auto* known : ElementClasses::All().Classes()) {
    const ElementRef element = ElementClasses::Create(*known);
    ASSERT_TRUE(element);
    EXPECT_EQ(&element->Class(), known);
    EXPECT_EQ(ElementClasses::All().OfType(element->ElementType()), known);
  }
  EXPECT_EQ(ElementClasses::All().OfType(1), &clsRectangle::ClassOf());
}

TEST(ElementClasses, AnUnknownTypeHasNoClass) { EXPECT_EQ(ElementClasses::All().OfType(99), nullptr); }

TEST(ElementClasses, LooksThroughTheWholeList) {
  const automation::ClassInfo* const list[] = {&clsRectangle::ClassOf(), &test::EveryKindElement::ClassOf()};
  const ElementClasses classes(list);
  EXPECT_EQ(classes.OfType(250), list[1]);
  EXPECT_EQ(&classes.Named("clsEveryKind"), list[1]);
}

}  // namespace
}  // namespace quenzel7::cli
