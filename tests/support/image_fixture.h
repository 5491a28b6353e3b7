#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/library_state.h"
#include "images/grp_elmnts_srv.h"
#include "images/image_saving.h"
#include "images/var_image_element.h"
#include "tests/support/noting_image_library.h"
#include "tests/support/project_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7::test {

using loomis2::LibraryPicture;

/// Panel pixels of that size in one colour of the palette.
inline PixelBytes PixelsOf(Long dx, Long dy, Byte color) {
  return PixelBytes(static_cast<std::size_t>((dx + dx % 2) * dy), color);
}

/// The calls that begin with "open" or "execute": what the database was asked.
inline CallLog StatementsIn(const CallLog& log) {
  CallLog statements;
  std::copy_if(log.begin(), log.end(), std::back_inserter(statements), [](const std::string& call) {
    return call.compare(0, 5, "open ") == 0 || call.compare(0, 8, "execute ") == 0;
  });
  return statements;
}

/// What is asked for a trim that looks at these highest indexes in turn; the last one twice, since it stays.
inline CallLog TrimStatements(const std::vector<std::string>& highest) {
  CallLog log;
  for (const std::string& index : highest) {
    log.push_back("open SELECT Max(Index) AS MaxIndex FROM ProjectImages [0,3,1]");
    if (index != "Null") {
      log.push_back("execute DELETE * FROM ProjectImages WHERE Index=" + index + " AND RecordStatus=2");
    }
  }
  return log;
}

/// Two logs in a row.
inline CallLog operator+(CallLog first, const CallLog& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

/// A project of pictures: the image library is set up on the panel's palette, and what the host is told is
/// kept and printed nowhere.
class ImageProjectTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    LibraryState::Current() = {};
    Platform& platform = Platform::Current();
    platform.errorLog = errors_ = std::make_shared<corvane1::CollectedErrors>(nullptr);
    platform.messageBoxes = boxes_ = std::make_shared<corvane1::CollectedMessageBoxes>(nullptr);
    platform.hostFrame = frame_ = std::make_shared<corvane1::CollectedHostFrame>(nullptr);
    automation::Variant palette = platform.colorService->GetPalette();
    clsGrpElmntsSrv().InitImageLibrary("pictures", palette);
    TakeLog();
  }
  void TearDown() override {
    LibraryState::Current() = {};
    ProjectTest::TearDown();
  }

  /// Has the library note what it is asked from now on.
  std::shared_ptr<NotingImageLibrary> UseNotingLibrary() {
    auto library = std::make_shared<NotingImageLibrary>();
    LibraryState::Current().ImageLibrary = library;
    return library;
  }

  const std::deque<corvane1::ErrorReport>& Errors() const { return errors_->Reports(); }
  const std::deque<corvane1::ShownBox>& Boxes() const { return boxes_->Shown(); }
  corvane1::CollectedHostFrame& Frame() { return *frame_; }

  /// What the database was asked since the log was last looked at, and what was also done with the rows but
  /// for reading them.
  CallLog Statements() { return StatementsIn(TakeLog()); }
  CallLog Writes() {
    CallLog log = TakeLog();
    log.erase(std::remove_if(log.begin(), log.end(),
                             [](const std::string& call) { return call.compare(0, 4, "get ") == 0; }),
              log.end());
    return log;
  }

  /// A valid picture of 3 x 2 panel pixels in one colour whose own size is 4 x 3: its values all differ.
  static LibraryPicture Picture(Long crc, Byte color = 8) {
    return {"C:\\p\\" + std::to_string(crc) + ".png",
            crc + 1000,
            4,
            3,
            PixelsOf(4, 3, color),
            crc,
            3,
            2,
            PixelsOf(3, 2, color)};
  }
  static ImageToSave ToSave(LibraryPicture& picture) {
    return {picture.crc, picture.libCrc, picture.dxOrg, picture.dyOrg, picture.dataOrg,
            picture.dx,  picture.dy,     picture.data,  picture.path,  picture.bits};
  }
  /// The picture as an entry of a list, or as whatever else holds one.
  template <class Record = clsVarImageElement>
  static std::shared_ptr<Record> RecordOf(const LibraryPicture& picture, Long transparency = 0) {
    auto record = std::make_shared<Record>();
    record->CRC8bpp(picture.crc);
    record->SourceCRC(picture.libCrc);
    record->DxORG(picture.dxOrg);
    record->DyORG(picture.dyOrg);
    record->SetData8bppORG(picture.dataOrg);
    record->SetData8bpp(picture.data);
    record->Path(picture.path);
    record->Bits(picture.bits);
    record->TransparencyLevel(transparency);
    return record;
  }

  /// Puts a row into a table as it stands.
  void PutRow(const std::string& table, const std::vector<std::pair<std::string, automation::Variant>>& row) {
    const auto rows = ado::OpenRecordset(Connection(), "SELECT * FROM " + table + " WHERE 1=0",
                                         ado::adOpenStatic, ado::adLockOptimistic);
    rows->AddNew();
    for (const auto& [column, value] : row) rows->Put(column, value);
    rows->Update();
    rows->Close();
  }
  /// A row of a picture of that index and state; a picture in use has the values of `Picture`.
  void PutImage(Long index, Long crc, Long status, const automation::Variant& bits = Long{0}) {
    const LibraryPicture picture = Picture(crc);
    const bool isFree = status == kFreeImage;
    const automation::Variant none = automation::NullValue{};
    const auto numberOr0 = [&](Long number) { return automation::Variant(isFree ? Long{0} : number); };
    PutRow("ProjectImages", {{"Index", index},
                             {"CRC", crc},
                             {"LibCRC", isFree ? Long{-1} : picture.libCrc},
                             {"Dx", numberOr0(picture.dx)},
                             {"Dy", numberOr0(picture.dy)},
                             {"DxORG", numberOr0(picture.dxOrg)},
                             {"DyORG", numberOr0(picture.dyOrg)},
                             {"Data8bpp", isFree ? none : Block(picture.data)},
                             {"Data8bppORG", isFree ? none : Block(picture.dataOrg)},
                             {"ImagePath", isFree ? none : automation::Variant(picture.path)},
                             {"RecordStatus", status},
                             {"Bits", bits}});
  }
  void Link(Long element, Long index, Long crc, Long transparency = 0) {
    PutRow("ElementsAndImages", {{"Element_ID", element},
                                 {"Image_Index", index},
                                 {"TransparencyLevel", transparency},
                                 {"Image_CRC", crc}});
  }
  void LinkPage(Long page, Long type, Long crc, Long transparency = 0) {
    PutRow(
        "PagesAndImages",
        {{"Page_ID", page}, {"Image_Type", type}, {"TransparencyLevel", transparency}, {"Image_CRC", crc}});
  }

  /// Index, CRC and state of all rows.
  std::vector<std::string> Images() {
    return Rows("SELECT * FROM ProjectImages ORDER BY [Index]", {"Index", "CRC", "RecordStatus"});
  }
  /// The other columns of a row but for the pixels, and then those: length and first value, or Null.
  std::string ImageAt(Long index) {
    const auto rows =
        ado::OpenRecordset(Connection(), "SELECT * FROM ProjectImages WHERE [Index]=" + std::to_string(index),
                           ado::adOpenStatic, ado::adLockReadOnly);
    if (rows->Eof()) return "none";
    std::string line;
    for (const char* column : {"LibCRC", "Dx", "Dy", "DxORG", "DyORG", "ImagePath"}) {
      const automation::Variant value = rows->Get(column);
      line += (value.IsNull() ? std::string("Null") : automation::To<std::string>(value)) + " ";
    }
    return line + Pixels(*rows, "Data8bpp") + " " + Pixels(*rows, "Data8bppORG");
  }
  /// Element, index, transparency and CRC of all links; those of pages likewise.
  std::vector<std::string> Links() {
    return Rows("SELECT * FROM ElementsAndImages ORDER BY Element_ID, Image_Index",
                {"Element_ID", "Image_Index", "TransparencyLevel", "Image_CRC"});
  }
  std::vector<std::string> PageLinks() {
    return Rows("SELECT * FROM PagesAndImages ORDER BY Page_ID, Image_Type",
                {"Page_ID", "Image_Type", "TransparencyLevel", "Image_CRC"});
  }

  /// Makes of the project's pictures those of a project from before pictures told their bits.
  void ForgetBits() { Connection().Execute("ALTER TABLE ProjectImages DROP COLUMN Bits"); }

  /// Takes all pictures and links away; rows that come later have other indexes.
  void EmptyTables() {
    for (const char* table : {"ProjectImages", "ElementsAndImages", "PagesAndImages"}) {
      Connection().Execute(std::string("DELETE FROM ") + table);
    }
    TakeLog();
  }

  /// Lets each of the calls that an action makes to the database fail in turn, after the tables were prepared
  /// anew. The error passes up and ends the action, and running it again makes good what failed. Gives the
  /// number of calls.
  template <class Prepare, class Action, class Check>
  int FailAtEachCall(Prepare prepare, Action action, Check check) {
    for (int call = 1;; ++call) {
      EmptyTables();
      prepare();
      TakeLog();
      Recorder().FailAt(call);
      const Raised raised = RaisedBy(action);
      Recorder().FailAt(0);
      const CallLog log = TakeLog();
      if (raised.number == 0) {
        check();
        return call - 1;
      }
      EXPECT_EQ(raised.number, static_cast<Long>(automation::ErrorNumber::Database)) << call;
      EXPECT_NE(raised.description.find("failed at " + log.back()), std::string::npos) << raised;
      EXPECT_EQ(log.size(), static_cast<std::size_t>(call));
      action();
      check();
    }
  }

  static automation::Variant Block(const PixelBytes& pixels) {
    PixelBytes block;
    EXPECT_EQ(Platform::Current().newCompressor()->Compress(pixels, block), 0);
    return automation::From(block);
  }

 private:
  static std::string Pixels(const ado::Recordset& row, const char* column) {
    const automation::Variant value = row.Get(column);
    if (value.IsNull()) return "Null";
    const auto block = automation::To<PixelBytes>(value);
    if (block.empty()) return "empty";
    PixelBytes pixels;
    EXPECT_EQ(Platform::Current().newCompressor()->UnCompress(block, pixels), 0);
    return std::to_string(pixels.size()) + "x" + (pixels.empty() ? "-" : std::to_string(pixels.front()));
  }

  std::shared_ptr<corvane1::CollectedErrors> errors_;
  std::shared_ptr<corvane1::CollectedMessageBoxes> boxes_;
  std::shared_ptr<corvane1::CollectedHostFrame> frame_;
};

}  // namespace quenzel7::test
