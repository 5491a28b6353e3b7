#include "hosts/cli/row_loader.h"

#include <gtest/gtest.h>

#include "shapes/ellipse.h"
#include "shapes/rectangle.h"
#include "tests/hosts/cli/cli_project.h"

namespace quenzel7::cli {
namespace {

class RowLoaderTest : public test::CliProjectTest {
 protected:
  ElementRef LoadRow(const ElementClasses& classes = ElementClasses::All()) {
    const auto rows = ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic,
                                         ado::adLockReadOnly);
    return RowLoader(Connection(), classes).Load(rows);
  }
};

TEST_F(RowLoaderTest, GivesTheElementOfTheRowWithWhatTheHostKeeps) {
  Import(PageText(1, {ElementText(1, 2, 30, 40, "\"FillStyle\": \"eFS_Solid\"")}));
  const ElementRef element = LoadRow();
  EXPECT_EQ(&element->Class(), &clsRectangle::ClassOf());
  EXPECT_EQ(element->Dx(), 30);
  EXPECT_EQ(element->FillStyle(), eFS_Solid);
}

TEST_F(RowLoaderTest, TextsAreThoseOfTheLibraryOrOfTheRows) {
  Import(R"({"page": 1, "panel": {"type": 1, "width": 9, "height": 9}, "elements": [
    {"class": "clsText", "Txt": "own", "StorageStringID": 5}]})");
  EXPECT_EQ(LoadRow()->Txt(), "EMPTY STRING");
  const auto rows =
      ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic, ado::adLockReadOnly);
  EXPECT_EQ(RowLoader(Connection(), ElementClasses::All(), TextsFrom::Rows).Load(rows)->Txt(), "own");
}

TEST_F(RowLoaderTest, ATypeWithoutAClassIsTold) {
  Import(PageText(1, {ElementText(1, 2, 30, 40)}));
  const automation::ClassInfo* const ellipseOnly[] = {&clsEllipse::ClassOf()};
  EXPECT_EQ(test::MessageOf([&] { LoadRow(ElementClasses(ellipseOnly)); }),
            "there is no class of element type 1");
}

TEST_F(RowLoaderTest, AClassIsFoundByTypeAlsoTheSecondTime) {
  RowLoader loader(Connection(), ElementClasses::All());
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(loader.ClassOf(1), &clsRectangle::ClassOf());
    EXPECT_EQ(loader.ClassOf(6), &clsEllipse::ClassOf());
    EXPECT_EQ(loader.ClassOf(99), nullptr);
  }
}

TEST_F(RowLoaderTest, TellsTheRowOfAFinding) {
  EXPECT_EQ(RowPlace(3, "7", &clsRectangle::ClassOf()), "page 3, row 7 (clsRectangle)");
  EXPECT_EQ(RowPlace({}, "", nullptr), "no page, row ");
  Import(PageText(1, {ElementText(1, 2, 30, 40)}));
  const auto place = [this] {
    const auto rows = ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic,
                                         ado::adLockReadOnly);
    return RowLoader(Connection(), ElementClasses::All()).PlaceOf(4, *rows);
  };
  EXPECT_EQ(place(), "page 4, row 1 (clsRectangle)");
  Connection().Execute("UPDATE HMI_Elements SET Type=99");
  EXPECT_EQ(place(), "page 4, row 1");
  Connection().Execute("UPDATE HMI_Elements SET Type='x'");
  EXPECT_EQ(place(), "page 4, row 1");
}

}  // namespace
}  // namespace quenzel7::cli
