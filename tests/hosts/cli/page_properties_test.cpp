#include "hosts/cli/page_properties.h"

#include <gtest/gtest.h>

#include "shapes/bitmap.h"
#include "shapes/button.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "tests/hosts/cli/every_kind_element.h"

namespace quenzel7::cli {
namespace {

std::vector<std::string_view> NamesOf(const automation::ClassInfo& elementClass) {
  std::vector<std::string_view> names;
  for (const automation::Member* property : PageProperties(elementClass)) names.push_back(property->name);
  return names;
}

TEST(PageProperties, ListPositionThenSlots) {
  EXPECT_EQ(NamesOf(clsRectangle::ClassOf()),
            (std::vector<std::string_view>{"Xs", "Ys", "Dx", "Dy", "VisibleOpAddr", "TouchOprndAddr",
                                           "HatchStyle", "PenWidth", "PenStyle", "FillStyle", "ColorHatch",
                                           "ColorFore", "ColorBack", "ColorForeTouch", "ColorBackTouch"}));
}

TEST(PageProperties, LeaveOutIdentityUnfitTypesAndWhatIsReadOrWriteOnly) {
  EXPECT_EQ(NamesOf(test::EveryKindElement::ClassOf()),
            (std::vector<std::string_view>{"Xs", "Dx", "Label", "Small", "Middle", "Ratio", "Fine", "Shown",
                                           "Style", "Body"}));
}

TEST(PageProperties, LeaveOutTheSlotsThatAClassDoesNotCarry) {
  EXPECT_EQ(NamesOf(clsLine::ClassOf()),
            (std::vector<std::string_view>{"Xs", "Ys", "Dx", "Dy", "VisibleOpAddr", "TouchOprndAddr",
                                           "PenWidth", "PenStyle", "ColorFore", "ColorBack", "ColorForeTouch",
                                           "ColorBackTouch"}));
}

TEST(PageProperties, OfAPictureTellTransparencyAndNothingThatFollowsFromIt) {
  EXPECT_EQ(NamesOf(clsBitmap::ClassOf()),
            (std::vector<std::string_view>{"Xs", "Ys", "Dx", "Dy", "VisibleOpAddr", "TouchOprndAddr",
                                           "ColorBack", "TransparencyLevel"}));
  EXPECT_EQ(NamesOf(clsButton::ClassOf()), (std::vector<std::string_view>{"Xs",
                                                                          "Ys",
                                                                          "Dx",
                                                                          "Dy",
                                                                          "ColorBack",
                                                                          "ColorBackTouch",
                                                                          "ColorFore",
                                                                          "ColorForeTouch",
                                                                          "TouchOprndAddr",
                                                                          "Txt",
                                                                          "FontNumber",
                                                                          "EnabledOpAddr",
                                                                          "VisibleOpAddr",
                                                                          "HighlightOpAddr",
                                                                          "Alignment",
                                                                          "Flat3D",
                                                                          "StorageStringType",
                                                                          "StorageStringID",
                                                                          "TabIndex",
                                                                          "TransparencyLevel"}));
  for (const char* name : {"ImageCRC", "Bits", "ImageIndexInVar"}) {
    EXPECT_TRUE(IsOfPicture(clsBitmap::ClassOf(), *clsBitmap::ClassOf().Default().Find(name))) << name;
  }
  EXPECT_FALSE(IsOfPicture(clsBitmap::ClassOf(), *clsBitmap::ClassOf().Default().Find("ColorBack")));
}

TEST(PageProperties, PositionIsXsYsDxDy) {
  for (const auto* property : PageProperties(clsRectangle::ClassOf())) {
    const bool expected =
        property->name == "Xs" || property->name == "Ys" || property->name == "Dx" || property->name == "Dy";
    EXPECT_EQ(IsPositionProperty(property->name), expected) << property->name;
  }
}

}  // namespace
}  // namespace quenzel7::cli
