#include "images/var_image_element.h"

#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/image_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::From;
using automation::GetByName;
using automation::InvokeByName;
using automation::PutByName;
using automation::Variant;
using test::CallLog;
using test::operator+;
using Lines = std::vector<std::string>;

class VarImageElement : public test::ImageProjectTest {
 protected:
  /// Picture 50, 4 transparent.
  const std::shared_ptr<clsVarImageElement> element_ = RecordOf(Picture(50), 4);
};

TEST_F(VarImageElement, HasThisSurfaceInSlotOrder) {
  EXPECT_EQ(element_->Class().name, "clsVarImageElement");
  ASSERT_EQ(element_->Class().interfaces.size(), 1u);
  EXPECT_EQ(element_->Class().Default().Name(), "_clsVarImageElement");
  EXPECT_EQ(element_->Class().Default().Slots(), (Lines{"get CRC8bpp() As Long",
                                                        "put CRC8bpp(Long)",
                                                        "call SetData8bpp(Byte())",
                                                        "call GetData8bpp() As Byte()",
                                                        "call SetData8bppORG(Byte())",
                                                        "call GetData8bppORG() As Byte()",
                                                        "get Path() As String",
                                                        "put Path(String)",
                                                        "get SourceCRC() As Long",
                                                        "put SourceCRC(Long)",
                                                        "get FromOpType() As Long",
                                                        "put FromOpType(Long)",
                                                        "get FromOpAddress() As Long",
                                                        "put FromOpAddress(Long)",
                                                        "get ToOpType() As Long",
                                                        "put ToOpType(Long)",
                                                        "get ToOpAddress() As Long",
                                                        "put ToOpAddress(Long)",
                                                        "get DxORG() As Long",
                                                        "put DxORG(Long)",
                                                        "get DyORG() As Long",
                                                        "put DyORG(Long)",
                                                        "get TransparencyLevel() As Long",
                                                        "put TransparencyLevel(Long)",
                                                        "get Bits() As Long",
                                                        "put Bits(Long)",
                                                        "call ResizeImage(Long, Long) As Boolean",
                                                        "call ResizeImage16(Long, Long) As Boolean",
                                                        "call SaveToDB(Long, Long, Long, Long)",
                                                        "call SaveToDBEx(Long, Long, Long, Long, Long)"}));
}

TEST_F(VarImageElement, ItsMembersAreDocumentedAndUnmarked) {
  Lines words;
  for (const automation::Member& member : element_->Class().Default().Members()) {
    words.push_back(std::string(member.name) + ": " + std::string(member.documentation));
    EXPECT_EQ(member.mark, automation::Mark::None) << member.name;
  }
  EXPECT_EQ(
      words,
      (Lines{"CRC8bpp: CRC of the panel pixels, which is the picture's key; -1 none.",
             "SetData8bpp: Takes a copy of panel pixels.", "GetData8bpp: Gives a copy of the panel pixels.",
             "SetData8bppORG: Takes a copy of original pixels.",
             "GetData8bppORG: Gives a copy of the original pixels.", "Path: File that the picture came from.",
             "SourceCRC: CRC of the source in the image library; -1 none.",
             "FromOpType: Type of the operand at which a range begins.",
             "FromOpAddress: Address of the operand at which it begins.",
             "ToOpType: Type of the operand at which a range ends.",
             "ToOpAddress: Address of the operand at which it ends.", "DxORG: Width of the original pixels.",
             "DyORG: Height of the original pixels.", "TransparencyLevel: 0 opaque, otherwise transparent.",
             "Bits: 16 when a pixel takes two bytes.",
             "ResizeImage: Makes pixels of one byte anew at another size.",
             "ResizeImage16: Makes pixels of two bytes anew at another size.",
             "SaveToDB: Saves the picture as one of an element's.",
             "SaveToDBEx: Saves the picture as one of an element's, telling the bits of a pixel."}));
}

TEST_F(VarImageElement, BeginsWithoutAPicture) {
  clsVarImageElement fresh;
  for (const char* name : {"CRC8bpp", "SourceCRC"}) EXPECT_EQ(GetByName(fresh, name), Variant(Long{-1}));
  for (const char* name : {"FromOpType", "FromOpAddress", "ToOpType", "ToOpAddress", "DxORG", "DyORG",
                           "TransparencyLevel", "Bits"}) {
    EXPECT_EQ(GetByName(fresh, name), Variant(Long{0})) << name;
  }
  EXPECT_EQ(fresh.Path(), "");
  EXPECT_EQ(fresh.GetData8bpp(), PixelBytes{});
  EXPECT_EQ(fresh.GetData8bppORG(), PixelBytes{});
}

TEST_F(VarImageElement, KeepsEachValueInAPlaceOfItsOwn) {
  const char* const names[] = {"CRC8bpp",     "SourceCRC", "FromOpType", "FromOpAddress",     "ToOpType",
                               "ToOpAddress", "DxORG",     "DyORG",      "TransparencyLevel", "Bits"};
  Long value = 100;
  for (const char* name : names) PutByName(*element_, name, Variant(Long{value++}));
  PutByName(*element_, "Path", Variant("p"));
  InvokeByName(*element_, "SetData8bpp", {From(PixelBytes{1, 2})});
  InvokeByName(*element_, "SetData8bppORG", {From(PixelBytes{3})});
  value = 100;
  for (const char* name : names) EXPECT_EQ(GetByName(*element_, name), Variant(Long{value++})) << name;
  EXPECT_EQ(GetByName(*element_, "Path"), Variant("p"));
  EXPECT_EQ(automation::To<PixelBytes>(InvokeByName(*element_, "GetData8bpp")), (PixelBytes{1, 2}));
  EXPECT_EQ(automation::To<PixelBytes>(InvokeByName(*element_, "GetData8bppORG")), PixelBytes{3});
  EXPECT_EQ((std::vector<Long>{element_->CRC8bpp(), element_->SourceCRC(), element_->FromOpType(),
                               element_->FromOpAddress(), element_->ToOpType(), element_->ToOpAddress(),
                               element_->DxORG(), element_->DyORG(), element_->TransparencyLevel(),
                               element_->Bits()}),
            (std::vector<Long>{100, 101, 102, 103, 104, 105, 106, 107, 108, 109}));
  EXPECT_EQ(test::ErrorOf([&] { InvokeByName(*element_, "SetData8bpp", {Variant(Long{1})}); }), 13);
}

// Resizing.

TEST_F(VarImageElement, IsResizedFromItsFile) {
  const auto library = UseNotingLibrary();
  EXPECT_TRUE(element_->ResizeImage(8, 9));
  EXPECT_EQ(library->calls, (Lines{"mode of 'C:\\p\\50.png'", "load 'C:\\p\\50.png' 1050 8x9",
                                   "to 8bpp mode 7 #1 of 256 colours 8x9"}));
  EXPECT_EQ(library->Kept(), Lines{});
  EXPECT_EQ(element_->CRC8bpp(), 77);
  EXPECT_EQ(element_->GetData8bpp(), (PixelBytes{1, 2}));
  EXPECT_EQ(element_->GetData8bppORG(), test::PixelsOf(4, 3, 8));
}

TEST_F(VarImageElement, IsResizedFromItsFileIn16Bits) {
  const auto library = UseNotingLibrary();
  EXPECT_TRUE(element_->ResizeImage16(8, 9));
  EXPECT_EQ(library->calls,
            (Lines{"mode of 'C:\\p\\50.png'", "load 'C:\\p\\50.png' 1050 8x9", "to 16bpp #1 8x9"}));
  EXPECT_EQ(element_->CRC8bpp(), 77);
}

TEST_F(VarImageElement, IsResizedFromItsOriginalPixelsWhenTheFileCannotBeRead) {
  for (const Long status : {1, 2, 3, 6, -1}) {
    const auto library = UseNotingLibrary();
    library->loadStatus = status;
    EXPECT_TRUE(element_->ResizeImage(8, 9));
    EXPECT_EQ(library->calls,
              (Lines{"mode of 'C:\\p\\50.png'", "load 'C:\\p\\50.png' 1050 8x9", "from 8bpp 12 bytes 4x3",
                     "stretch #1 8x9", "to 8bpp mode 7 #2 of 256 colours 8x9"}))
        << status;
    EXPECT_EQ(library->Kept(), Lines{});
  }
  const auto library = UseNotingLibrary();
  library->loadStatus = 1;
  EXPECT_TRUE(element_->ResizeImage16(8, 9));
  EXPECT_EQ(library->calls, (Lines{"mode of 'C:\\p\\50.png'", "load 'C:\\p\\50.png' 1050 8x9",
                                   "from 16bpp 12 bytes 4x3", "stretch #1 8x9", "to 16bpp #2 8x9"}));
  EXPECT_EQ(library->Kept(), Lines{});
}

TEST_F(VarImageElement, KeepsEverythingUnlessTheConversionIsDone) {
  const auto library = UseNotingLibrary();
  for (const Long status : {-1, 1, 2, 3, 4, 5, 7}) {
    library->status = status;
    EXPECT_FALSE(element_->ResizeImage(8, 9)) << status;
    EXPECT_FALSE(element_->ResizeImage16(8, 9)) << status;
  }
  EXPECT_EQ(element_->CRC8bpp(), 50);
  EXPECT_EQ(element_->GetData8bpp(), test::PixelsOf(3, 2, 8));
  EXPECT_EQ(library->Kept(), Lines{});
  library->status = 6;
  EXPECT_TRUE(element_->ResizeImage(8, 9));
  EXPECT_EQ(element_->CRC8bpp(), 77);
}

TEST_F(VarImageElement, IsNotResizedWithoutAFileOrASource) {
  const auto library = UseNotingLibrary();
  element_->SourceCRC(-1);
  EXPECT_FALSE(element_->ResizeImage(8, 9));
  EXPECT_FALSE(element_->ResizeImage16(8, 9));
  element_->SourceCRC(1);
  element_->Path("");
  EXPECT_FALSE(element_->ResizeImage(8, 9));
  EXPECT_EQ(library->calls, (Lines{"mode of 'C:\\p\\50.png'", "mode of 'C:\\p\\50.png'", "mode of ''"}));
  EXPECT_EQ(element_->CRC8bpp(), 50);
  EXPECT_EQ(element_->GetData8bpp(), test::PixelsOf(3, 2, 8));
  for (const Long source : {-2, 0}) {
    element_->Path("a");
    element_->SourceCRC(source);
    EXPECT_TRUE(element_->ResizeImage(8, 9)) << source;
  }
}

TEST_F(VarImageElement, APaintedPictureIsNotResizedWhateverThereIs) {
  const auto library = UseNotingLibrary();
  element_->CRC8bpp(kPaintedImage);
  EXPECT_FALSE(element_->ResizeImage(8, 9));
  EXPECT_FALSE(element_->ResizeImage16(8, 9));
  EXPECT_EQ(library->calls, Lines{});
  EXPECT_EQ(element_->CRC8bpp(), kPaintedImage);
  EXPECT_EQ(element_->GetData8bpp(), test::PixelsOf(3, 2, 8));
  for (const Long neighbour : {0x3F3F3F3E, 0x3F3F3F40}) {
    element_->CRC8bpp(neighbour);
    EXPECT_TRUE(element_->ResizeImage(8, 9));
    EXPECT_EQ(element_->CRC8bpp(), 77);
  }
  element_->CRC8bpp(kPaintedImage);
  LibraryState::Current() = {};
  EXPECT_FALSE(element_->ResizeImage(8, 9));
  EXPECT_FALSE(element_->ResizeImage16(8, 9));
}

TEST_F(VarImageElement, IsNotResizedWithoutAnImageLibrary) {
  LibraryState::Current() = {};
  EXPECT_EQ(test::ErrorOf([&] { element_->ResizeImage(8, 9); }), 91);
}

TEST_F(VarImageElement, IsResizedByName) {
  UseNotingLibrary();
  EXPECT_EQ(InvokeByName(*element_, "ResizeImage", {Long{8}, Long{9}}), Variant(true));
  element_->SourceCRC(-1);
  EXPECT_EQ(InvokeByName(*element_, "ResizeImage16", {Long{8}, Long{9}}), Variant(false));
}

TEST_F(VarImageElement, OriginalPixelsGiveARealPicture) {
  // The file is not there; the picture has one colour, so every size of it has the same.
  EXPECT_TRUE(element_->ResizeImage(5, 2));
  EXPECT_EQ(element_->GetData8bpp().size(), 12u);
  EXPECT_EQ(element_->GetData8bpp().front(), 8);
  EXPECT_NE(element_->CRC8bpp(), 50);
}

// Saving.

TEST_F(VarImageElement, IsSavedRowThenLinkThenTheCollection) {
  PutImage(1, 10, kImageInUse);
  PutImage(2, 20, kImageInUse);
  PutImage(3, 30, kImageInUse);
  Link(1, 0, 20);
  TakeLog();
  element_->SaveToDB(6, 2, 3, 2);
  const CallLog log = Writes();
  const auto link = std::find(log.begin(), log.end(),
                              "open SELECT * FROM ElementsAndImages WHERE Element_ID=6 AND Image_Index=2 "
                              "[2,3,1]");
  ASSERT_NE(link, log.end());
  EXPECT_EQ(test::StatementsIn(CallLog(log.begin(), link)).size(), 2u);
  EXPECT_EQ(CallLog(link + 1, link + 8),
            (CallLog{"AddNew", "put Element_ID=6:Long", "put Image_Index=2:Long",
                     "put TransparencyLevel=4:Long", "put Image_CRC=50:Long", "Update", "Close"}));
  EXPECT_EQ((link + 8)->find("execute UPDATE ProjectImages SET LibCRC=-1,Dx=0,"), 0u);
  EXPECT_EQ(test::StatementsIn(CallLog(link + 9, log.end())), test::TrimStatements({"4", "4"}));
  EXPECT_EQ(Images(), (Lines{"1 10 2", "2 20 3", "3 30 2", "4 50 3"}));
  EXPECT_EQ(Links(), (Lines{"1 0 0 20", "6 2 4 50"}));
  EXPECT_EQ(ImageAt(4), "1050 3 2 4 3 C:\\p\\50.png 8x8 12x8");
}

TEST_F(VarImageElement, SavedAgainUpdatesItsRowAndItsLink) {
  element_->SaveToDB(6, 2, 3, 2);
  element_->TransparencyLevel(9);
  element_->Path("q");
  element_->SaveToDB(6, 2, 3, 2);
  EXPECT_EQ(Images(), Lines{"1 50 3"});
  EXPECT_EQ(ImageAt(1), "1050 3 2 4 3 q 8x8 12x8");
  EXPECT_EQ(Links(), Lines{"6 2 9 50"});
}

TEST_F(VarImageElement, SavedInAPlaceFreesThePictureThatWasThere) {
  element_->SaveToDB(6, 2, 3, 2);
  RecordOf(Picture(60))->SaveToDB(6, 2, 3, 2);
  EXPECT_EQ(Images(), (Lines{"1 50 2", "2 60 3"}));
  EXPECT_EQ(Links(), Lines{"6 2 0 60"});
}

TEST_F(VarImageElement, IsSavedInTheBitsThatAreGivenWhateverItsOwn) {
  element_->Bits(16);
  element_->SaveToDB(6, 2, 3, 2);
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Bits"}), Lines{"0"});
  element_->SetData8bpp(PixelBytes(12, 1));
  element_->Bits(0);
  InvokeByName(*element_, "SaveToDBEx", {Long{6}, Long{2}, Long{3}, Long{2}, Long{16}});
  EXPECT_EQ(Rows("SELECT * FROM ProjectImages", {"Bits"}), Lines{"16"});
  EXPECT_EQ(element_->Bits(), 0);
  EXPECT_TRUE(Errors().empty());
}

TEST_F(VarImageElement, TakesOverRepairedPixelsAndTheirCrc) {
  UseNotingLibrary();
  RecordOf(Picture(50))->SaveToDB(1, 0, 3, 2);
  element_->SetData8bpp({1});
  element_->SaveToDB(6, 2, 3, 2);
  EXPECT_EQ(element_->CRC8bpp(), 77);
  EXPECT_EQ(element_->GetData8bpp(), (PixelBytes{1, 2}));
  EXPECT_EQ(Links(), (Lines{"1 0 0 50", "6 2 4 77"}));
  EXPECT_EQ(Images(), (Lines{"1 50 3", "2 77 3"}));
}

TEST_F(VarImageElement, AFailureOfAnyCallOfASavePassesUp) {
  EXPECT_EQ(FailAtEachCall([&] { PutImage(1, 10, kImageInUse); }, [&] { element_->SaveToDB(6, 2, 3, 2); },
                           [&] {
                             EXPECT_EQ(Links(), Lines{"6 2 4 50"});
                             EXPECT_EQ(Images().size(), 2u);
                           }),
            37);
}

}  // namespace
}  // namespace quenzel7
