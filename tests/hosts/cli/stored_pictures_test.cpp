#include "hosts/cli/stored_pictures.h"

#include <gtest/gtest.h>

#include "hosts/cli/element_picture.h"
#include "tests/hosts/cli/picture_fixture.h"

namespace quenzel7::cli {
namespace {

class StoredPicturesTest : public test::PictureTest {
 protected:
  void SetUp() override {
    PictureTest::SetUp();
    ImportElements({Bitmap(0, 0, 4, 2, {"\"TransparencyLevel\": 1", "\"Picture\": \"pump.bmp\""})});
    crc_ = PictureCrcOf(*Load().elements[0]);
  }
  void LinkToPage(Long page, Long type, Long transparency, Long crc) {
    Connection().Execute(
        "INSERT INTO PagesAndImages (Page_ID, Image_Type, TransparencyLevel, Image_CRC) VALUES (" +
        std::to_string(page) + ", " + std::to_string(type) + ", " + std::to_string(transparency) + ", " +
        std::to_string(crc) + ")");
  }
  Long crc_ = 0;
};

TEST_F(StoredPicturesTest, RowsAreToldByTheirIndex) {
  Connection().Execute(
      "INSERT INTO ProjectImages (CRC, LibCRC, Dx, Dy, DxORG, DyORG, RecordStatus) VALUES "
      "(7, -1, 1, 2, 3, 4, 2)");
  const std::vector<StoredPicture> pictures = StoredPictures(Connection());
  ASSERT_EQ(pictures.size(), 2u);
  EXPECT_EQ(pictures[0].index, 1);
  EXPECT_EQ(pictures[0].crc, crc_);
  EXPECT_EQ(pictures[0].status, 3);
  EXPECT_EQ(pictures[0].dx, 4);
  EXPECT_EQ(pictures[0].dy, 2);
  EXPECT_EQ(pictures[0].path, "pump.bmp;" + File("pump.bmp"));
  EXPECT_EQ(pictures[1].index, 2);
  EXPECT_EQ(pictures[1].crc, 7);
  EXPECT_EQ(pictures[1].status, 2);
  EXPECT_EQ(pictures[1].dxOrg, 3);
  EXPECT_EQ(pictures[1].dyOrg, 4);
  EXPECT_EQ(pictures[1].bits, 0);
  EXPECT_EQ(pictures[1].path, "");
}

TEST_F(StoredPicturesTest, StatesHaveNames) {
  EXPECT_EQ(StateText(0), "system");
  EXPECT_EQ(StateText(1), "system");
  EXPECT_EQ(StateText(2), "free");
  EXPECT_EQ(StateText(3), "in use");
  EXPECT_EQ(StateText(4), "4");
}

TEST_F(StoredPicturesTest, LinksOfElementsComeBeforeThoseOfPages) {
  LinkToPage(2, 1, 0, 5);
  LinkToPage(2, 0, 3, crc_);
  LinkToPage(1, 9, 0, 5);
  std::vector<std::vector<Long>> links;
  for (const auto& [isOfPage, owner, place, crc, transparency] : PictureLinks(Connection())) {
    links.push_back({isOfPage, owner, place, crc, transparency});
  }
  EXPECT_EQ(links, (std::vector<std::vector<Long>>{
                       {0, 1, 0, crc_, 1}, {1, 1, 9, 5, 0}, {1, 2, 0, crc_, 3}, {1, 2, 1, 5, 0}}));
  ASSERT_EQ(PageLinks(Connection(), 2).size(), 2u);
  EXPECT_EQ(PageLinks(Connection(), 2)[0].place, 0);
  EXPECT_EQ(PageLinks(Connection(), 3).size(), 0u);
}

TEST_F(StoredPicturesTest, OfAPageThoseInUseAreRead) {
  LinkToPage(2, 4, 0, 5);
  LinkToPage(2, 1, 3, crc_);
  const std::vector<BackPicture> pictures = PicturesBehind(Connection(), 2);
  ASSERT_EQ(pictures.size(), 1u);
  EXPECT_EQ(pictures[0].dx, 4);
  EXPECT_EQ(pictures[0].dy, 2);
  EXPECT_EQ(pictures[0].bits, 0);
  EXPECT_EQ(pictures[0].transparency, 3);
  EXPECT_EQ(pictures[0].pixels, (PixelBytes{kRed, kRed, kWhite, kWhite, kBlack, kBlack, kBlue, kBlue}));
  EXPECT_EQ(PicturesBehind(Connection(), 1).size(), 0u);
}

TEST_F(StoredPicturesTest, AProjectWithoutTheTablesHasNone) {
  for (const char* table : {"ProjectImages", "ElementsAndImages", "PagesAndImages"}) {
    Connection().Execute(std::string("DROP TABLE ") + table);
  }
  EXPECT_EQ(StoredPictures(Connection()).size(), 0u);
  EXPECT_EQ(PictureLinks(Connection()).size(), 0u);
  EXPECT_EQ(PicturesBehind(Connection(), 1).size(), 0u);
}

}  // namespace
}  // namespace quenzel7::cli
