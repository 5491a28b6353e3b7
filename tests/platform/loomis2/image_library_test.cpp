#include "platform/loomis2/image_library.h"

#include <gtest/gtest.h>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

using automation::Array;
using automation::Variant;
using automation::VariantKind;

Variant Colors(Long first) {
  Array colors = Array::OfSize(VariantKind::Long, 2);
  colors.Set(0, first);
  colors.Set(1, Long{0xFFFFFF});
  return colors;
}

TEST(ImageLibrary, IsEmptyAtFirst) {
  const HeldImageLibrary library;
  EXPECT_EQ(library.Name(), "");
  EXPECT_EQ(library.Folder(), "");
  EXPECT_EQ(library.Palette(), Variant());
}

TEST(ImageLibrary, HoldsWhatItIsGiven) {
  HeldImageLibrary library;
  library.Name("plant");
  library.Folder("C:\\Images\\");
  library.Palette(Colors(5));
  EXPECT_EQ(library.Name(), "plant");
  EXPECT_EQ(library.Folder(), "C:\\Images\\");
  EXPECT_EQ(library.Palette(), Colors(5));
}

TEST(ImageLibrary, KeepsThePaletteAsItWasGiven) {
  HeldImageLibrary library;
  Variant colors = Colors(5);
  library.Palette(colors);
  colors.MutableElements().Set(0, Long{6});
  EXPECT_EQ(library.Palette(), Colors(5));
}

TEST(ImageLibrary, TakesNothingElseForAPalette) {
  HeldImageLibrary library;
  library.Palette(Colors(5));
  for (const Variant& other :
       {Variant(), Variant(Long{1}), Variant("5"), Variant(Array::OfSize(VariantKind::Byte, 2)),
        Variant(Array::OfSize(VariantKind::Variant, 2)), Variant(Array(VariantKind::Long, {0, 1}, {0, 1}))}) {
    EXPECT_RAISES(13, "a palette is an array of 32-bit integers of one dimension", library.Palette(other));
    EXPECT_EQ(library.Palette(), Colors(5));
  }
}

TEST(ImageLibrary, IsReachedByName) {
  HeldImageLibrary library;
  automation::PutByName(library, "name", "plant");
  automation::PutByName(library, "FOLDER", "here");
  automation::PutByName(library, "Palette", Colors(7));
  EXPECT_EQ(automation::GetByName(library, "Name"), Variant("plant"));
  EXPECT_EQ(automation::GetByName(library, "Folder"), Variant("here"));
  EXPECT_EQ(automation::GetByName(library, "Palette"), Colors(7));
  EXPECT_EQ(library.Name(), "plant");
  EXPECT_EQ(library.Folder(), "here");
  EXPECT_EQ(library.Palette(), Colors(7));
}

TEST(ImageLibrary, HasThisSurfaceAndIsNotCreatedByHosts) {
  const automation::ClassInfo& info = HeldImageLibrary().Class();
  EXPECT_EQ(info.name, "ImageLibrary");
  EXPECT_EQ(info.create, nullptr);
  EXPECT_EQ(info.Default().Name(), "_ImageLibrary");
  EXPECT_EQ(
      info.Default().Slots(),
      (std::vector<std::string>{"get Name() As String", "put Name(String)", "get Folder() As String",
                                "put Folder(String)", "get Palette() As Variant", "put Palette(Variant)"}));
}

TEST(ImageLibrary, ItsMembersAreDocumentedAndUnmarked) {
  std::vector<std::string> words;
  for (const automation::Member& member : HeldImageLibrary().Class().Default().Members()) {
    words.push_back(std::string(member.name) + ": " + std::string(member.documentation));
    EXPECT_EQ(member.mark, automation::Mark::None) << member.name;
  }
  EXPECT_EQ(words,
            (std::vector<std::string>{"Name: The library's name.",
                                      "Folder: The folder of the picture files, with a separator at its end.",
                                      "Palette: The panel's colours, an array of 32-bit integers."}));
}

}  // namespace
}  // namespace quenzel7::loomis2
