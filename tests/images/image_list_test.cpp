#include "images/image_list.h"

#include <gtest/gtest.h>

#include "images/image_queries.h"
#include "tests/support/image_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::Collection;
using automation::Variant;
using test::CallLog;
using test::operator+;
using Lines = std::vector<std::string>;
using Pictures = std::vector<std::shared_ptr<clsVarImageElement>>;

class ImageList : public test::ImageProjectTest {
 protected:
  static automation::CollectionRef ListOf(const Pictures& pictures) {
    auto list = std::make_shared<Collection>();
    for (const auto& picture : pictures) list->Add(Variant(picture));
    return list;
  }
  /// A picture of that CRC, with a file of its own.
  static std::shared_ptr<clsVarImageElement> Entry(Long crc) { return RecordOf(Picture(crc), crc + 1); }
  std::vector<Long> Pointers() { return {Frame().Pointers().begin(), Frame().Pointers().end()}; }
  std::vector<corvane1::OutputEntry> Outputs() {
    return {Frame().Outputs().begin(), Frame().Outputs().end()};
  }
};

// Saving.

TEST_F(ImageList, BeginsAtTheIndexOfItsKind) {
  for (Long type = 0; type <= 30; ++type) {
    Connection().Execute("DELETE FROM ElementsAndImages");
    SaveImageList(6, static_cast<enVarType>(type), ListOf({Entry(50)}), 3, 2);
    const bool fromZero = type == eVT_BinaryImage || type == eVT_MovingImage || type == eVT_TankGraph;
    EXPECT_EQ(Links(), Lines{fromZero ? "6 0 51 50" : "6 1 51 50"}) << type;
  }
}

TEST_F(ImageList, APlaceWithoutAPictureKeepsItsNumber) {
  SaveImageList(6, eVT_ListImage, ListOf({Entry(-1), Entry(50), Entry(-1), Entry(60)}), 3, 2);
  EXPECT_EQ(Links(), (Lines{"6 2 51 50", "6 4 61 60"}));
  EXPECT_EQ(Images(), (Lines{"1 50 3", "2 60 3"}));
}

TEST_F(ImageList, IsTrimmedBeforeAndCollectedAfter) {
  PutImage(1, 10, kImageInUse);
  PutImage(2, 50, kImageInUse);
  for (Long i = 0; i < 3; ++i) Link(6, i, 10);
  TakeLog();
  SaveImageList(6, eVT_BinaryImage, ListOf({Entry(50)}), 3, 2);
  const CallLog statements = Statements(), trim = test::TrimStatements({"2", "2"});
  ASSERT_EQ(statements.size(), 14u) << ::testing::PrintToString(statements);
  EXPECT_EQ(statements[0],
            "open SELECT * FROM ElementsAndImages WHERE Element_ID=6 Order By Image_Index [2,3,1]");
  EXPECT_EQ(statements[1],
            "execute SELECT COUNT(*) AS NumberOfImages FROM ProjectImages WHERE CRC=50 AND RecordStatus IN "
            "(3,2)");
  EXPECT_EQ(statements[3],
            "open SELECT * FROM ElementsAndImages WHERE Element_ID=6 AND Image_Index=0 [2,3,1]");
  EXPECT_EQ(CallLog(statements.begin() + 5, statements.end()),
            trim + CallLog{"open " + OrphanImagesQuery() + " [2,3,1]"} + trim);
  EXPECT_EQ(Links(), Lines{"6 0 51 50"});
  EXPECT_EQ(Images(), (Lines{"1 10 2", "2 50 3"}));
}

TEST_F(ImageList, ThatIsEmptyOnlyCollects) {
  PutImage(1, 10, kImageInUse);
  Link(6, 1, 20);
  TakeLog();
  SaveImageList(6, eVT_BinaryImage, ListOf({}), 3, 2);
  EXPECT_EQ(Statements(),
            CallLog{"open " + OrphanImagesQuery() + " [2,3,1]"} + test::TrimStatements({"1", "Null"}));
  EXPECT_EQ(Links(), Lines{"6 1 0 20"});
}

TEST_F(ImageList, OfPicturesThatAreNoneStillLosesLinks) {
  Link(6, 0, 10);
  Link(6, 1, 10);
  SaveImageList(6, eVT_BinaryImage, ListOf({Entry(-1)}), 3, 2);
  EXPECT_EQ(Links(), Lines{"6 0 0 10"});
}

TEST_F(ImageList, IsSavedAtTheSizeAndInTheBitsThatAreGiven) {
  const auto entry = Entry(50);
  entry->Bits(16);
  entry->SetData8bpp(PixelBytes(12, 4));
  SaveImageList(6, eVT_BinaryImage, ListOf({entry}), 5, 2);
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Dx", "Dy", "Bits"}), Lines{"5 2 0"});
  EXPECT_TRUE(Errors().empty());
  entry->SetData8bpp(PixelBytes(24, 4));
  SaveImageList(6, eVT_BinaryImage, ListOf({Entry(-1), entry}), 4, 3, 16);
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Dx", "Dy", "Bits"}), Lines{"4 3 16"});
  EXPECT_EQ(Links(), (Lines{"6 0 51 50", "6 1 51 50"}));
  EXPECT_TRUE(Errors().empty());
}

TEST_F(ImageList, ThatIsNoneOrOfOtherThingsIsAnError) {
  EXPECT_EQ(test::ErrorOf([] { SaveImageList(6, eVT_BinaryImage, nullptr, 3, 2); }), 91);
  EXPECT_EQ(test::ErrorOf([] { SaveImageList(6, eVT_BinaryImage, nullptr, 3, 2, 16); }), 91);
  EXPECT_EQ(TakeLog(), CallLog{});
  auto list = ListOf({Entry(50)});
  list->Add(Variant(Long{5}));
  EXPECT_EQ(test::ErrorOf([&] { SaveImageList(6, eVT_BinaryImage, list, 3, 2); }), 13);
  EXPECT_EQ(Links(), Lines{"6 0 51 50"});
  auto others = std::make_shared<Collection>();
  others->Add(Variant(std::make_shared<Collection>()));
  EXPECT_EQ(test::ErrorOf([&] { SaveImageList(6, eVT_BinaryImage, others, 3, 2, 16); }), 13);
  auto nothing = std::make_shared<Collection>();
  nothing->Add(Variant(std::shared_ptr<clsVarImageElement>()));
  EXPECT_EQ(test::ErrorOf([&] { SaveImageList(6, eVT_BinaryImage, nothing, 3, 2); }), 91);
}

// Resizing.

TEST_F(ImageList, EachPictureOfTheElementIsResizedOnceAndCopied) {
  const auto library = UseNotingLibrary();
  const Pictures pictures = {Entry(50), Entry(60), Entry(50), Entry(70), Entry(50)};
  pictures[2]->Path("never read");
  for (Long i = 0; i < 4; ++i) Link(6, i, i == 1 ? 60 : 50);
  Link(7, 0, 70);
  TakeLog();
  ResizeElementImages(8, 9, ListOf(pictures), 6);
  EXPECT_EQ(Statements(),
            CallLog{"open SELECT DISTINCT Image_CRC FROM ElementsAndImages WHERE Element_ID=6 [0,3,1]"});
  EXPECT_EQ(library->calls, (Lines{"mode of 'C:\\p\\50.png'", "load 'C:\\p\\50.png' 1050 8x9",
                                   "to 8bpp mode 7 #1 of 256 colours 8x9", "mode of 'C:\\p\\60.png'",
                                   "load 'C:\\p\\60.png' 1060 8x9", "to 8bpp mode 7 #2 of 256 colours 8x9"}));
  for (const std::size_t i : {0, 1, 2, 4}) {
    EXPECT_EQ(pictures[i]->CRC8bpp(), 77) << i;
    EXPECT_EQ(pictures[i]->GetData8bpp(), (PixelBytes{1, 2})) << i;
  }
  EXPECT_EQ(pictures[3]->CRC8bpp(), 70);
  EXPECT_EQ(pictures[3]->GetData8bpp(), test::PixelsOf(3, 2, 8));
  EXPECT_EQ(pictures[2]->Path(), "never read");
  EXPECT_EQ(Pointers(), (std::vector<Long>{11, 0}));
  EXPECT_EQ(Outputs().size(), 0u);
  EXPECT_FALSE(LibraryState::Current().ImageResizeFailed);
}

TEST_F(ImageList, PicturesOf16BitsAreResizedAsSuch) {
  const auto library = UseNotingLibrary();
  const Pictures pictures = {Entry(50), Entry(60), Entry(70)};
  pictures[0]->Bits(16);
  pictures[1]->Bits(15);
  pictures[2]->Bits(17);
  for (Long i = 0; i < 3; ++i) Link(6, i, 50 + 10 * i);
  ResizeElementImages(8, 9, ListOf(pictures), 6);
  ASSERT_EQ(library->calls.size(), 9u);
  EXPECT_EQ(library->calls[2], "to 16bpp #1 8x9");
  EXPECT_EQ(library->calls[5], "to 8bpp mode 7 #2 of 256 colours 8x9");
  EXPECT_EQ(library->calls[8], "to 8bpp mode 7 #3 of 256 colours 8x9");
}

TEST_F(ImageList, AFileThatIsLostIsToldAndTheOthersAreStillResized) {
  const auto library = UseNotingLibrary();
  PutRow("HMI_Elements", {{"ID", Long{6}}, {"Text", "Level"}});
  PutRow("HMI_Elements", {{"ID", Long{7}}, {"Text", "Other"}});
  const Pictures pictures = {Entry(50), Entry(50), Entry(60)};
  pictures[0]->Path("x;C:\\p\\lost.png");
  pictures[0]->SourceCRC(-1);
  pictures[0]->SetData8bpp({5});
  Link(6, 0, 50);
  Link(6, 1, 60);
  TakeLog();
  ResizeElementImages(8, 9, ListOf(pictures), 6);
  EXPECT_EQ(Outputs(), (std::vector<corvane1::OutputEntry>{
                           {"During resize of variable : Level, image file: lost.png was not found.", 2}}));
  EXPECT_EQ(Statements()[1], "open SELECT * FROM HMI_Elements WHERE ID= 6 [0,3,1]");
  EXPECT_TRUE(LibraryState::Current().ImageResizeFailed);
  EXPECT_EQ(pictures[0]->CRC8bpp(), 50);
  EXPECT_EQ(pictures[1]->CRC8bpp(), 50);
  EXPECT_EQ(pictures[1]->GetData8bpp(), PixelBytes{5});
  EXPECT_EQ(pictures[2]->CRC8bpp(), 77);
  EXPECT_EQ(Pointers(), (std::vector<Long>{11, 0}));
  EXPECT_EQ(library->Kept(), Lines{});
}

TEST_F(ImageList, APaintedPictureIsPassedOverAndThoseAroundAreResized) {
  const auto library = UseNotingLibrary();
  const Pictures pictures = {Entry(kPaintedImage), Entry(kPaintedImage - 1), Entry(kPaintedImage + 1)};
  for (Long i = 0; i < 3; ++i) Link(6, i, pictures[static_cast<std::size_t>(i)]->CRC8bpp());
  TakeLog();
  ResizeElementImages(8, 9, ListOf(pictures), 6);
  EXPECT_EQ(library->calls.size(), 6u);
  EXPECT_EQ(Statements().size(), 1u);
  EXPECT_EQ(Outputs().size(), 0u);
  EXPECT_FALSE(LibraryState::Current().ImageResizeFailed);
  EXPECT_EQ(pictures[0]->CRC8bpp(), kPaintedImage);
  EXPECT_EQ(pictures[0]->GetData8bpp(), test::PixelsOf(3, 2, 8));
  EXPECT_EQ(pictures[1]->CRC8bpp(), 77);
  EXPECT_EQ(pictures[2]->CRC8bpp(), 77);
}

TEST_F(ImageList, ANewCrcThatAnotherPictureOfTheElementHasMakesThemOne) {
  const auto library = UseNotingLibrary();
  library->crc = 60;
  const Pictures pictures = {Entry(50), Entry(60)};
  Link(6, 0, 50);
  Link(6, 1, 60);
  ASSERT_EQ(GetDistinctElementImageCRCs(6), (std::vector<Long>{50, 60}));
  ResizeElementImages(8, 9, ListOf(pictures), 6);
  // When 60 has its turn, the first picture has that CRC too: it is resized again, and the second is its
  // copy.
  EXPECT_EQ(library->calls, (Lines{"mode of 'C:\\p\\50.png'", "load 'C:\\p\\50.png' 1050 8x9",
                                   "to 8bpp mode 7 #1 of 256 colours 8x9", "mode of 'C:\\p\\50.png'",
                                   "load 'C:\\p\\50.png' 1050 8x9", "to 8bpp mode 7 #2 of 256 colours 8x9"}));
  for (const auto& picture : pictures) {
    EXPECT_EQ(picture->CRC8bpp(), 60);
    EXPECT_EQ(picture->GetData8bpp(), (PixelBytes{1, 2}));
  }
}

TEST_F(ImageList, AVariableWithoutARowOrATextHasNoneToTell) {
  UseNotingLibrary();
  const auto picture = Entry(50);
  picture->SourceCRC(-1);
  Link(6, 0, 50);
  ResizeElementImages(8, 9, ListOf({picture}), 6);
  PutRow("HMI_Elements", {{"ID", Long{6}}, {"Text", automation::NullValue{}}});
  ResizeElementImages(8, 9, ListOf({picture}), 6);
  const corvane1::OutputEntry line{"During resize of variable : , image file: 50.png was not found.", 2};
  EXPECT_EQ(Outputs(), (std::vector<corvane1::OutputEntry>{line, line}));
}

TEST_F(ImageList, ResizingThatSucceedsLeavesTheFlagOfAnEarlierFailure) {
  UseNotingLibrary();
  LibraryState::Current().ImageResizeFailed = true;
  Link(6, 0, 50);
  ResizeElementImages(8, 9, ListOf({Entry(50)}), 6);
  EXPECT_TRUE(LibraryState::Current().ImageResizeFailed);
}

TEST_F(ImageList, ThePointerComesBackWhenAnErrorEndsResizing) {
  UseNotingLibrary();
  EXPECT_EQ(test::ErrorOf([] { ResizeElementImages(8, 9, nullptr, 6); }), 91);
  EXPECT_EQ(Pointers(), (std::vector<Long>{11, 0}));
  Link(6, 0, 50);
  auto list = std::make_shared<Collection>();
  list->Add(Variant(Long{1}));
  EXPECT_EQ(test::ErrorOf([&] { ResizeElementImages(8, 9, list, 6); }), 13);
  EXPECT_EQ(Pointers(), (std::vector<Long>{11, 0, 11, 0}));
}

TEST_F(ImageList, ThePointerIsNotShownWhileTheDatabaseIsAskedFirst) {
  Recorder().FailAt(1);
  EXPECT_NE(test::ErrorOf([] { ResizeElementImages(8, 9, nullptr, 6); }), 0);
  EXPECT_EQ(Pointers(), std::vector<Long>{});
}

}  // namespace
}  // namespace quenzel7
