#include <malloc.h>

#include <array>
#include <memory>
#include <stdexcept>

#include "bench/open_page.h"
#include "bench/ratios.h"
#include "bench/sqlite_by_hand.h"
#include "platform/automation/call_by_name.h"
#include "shapes/rectangle.h"

namespace quenzel7::bench {
namespace {

constexpr int kElements = 10000;

/// Saving and loading by hand: the same reads and writes as the element's, with prepared statements.
class HandWritten {
 public:
  explicit HandWritten(const std::string& path) : database_(path) {
    database_.Run("INSERT INTO Numbers (Name,Next) VALUES ('GUID',1)");
  }

  void Save() {
    HandStatement row(database_, "SELECT * FROM HMI_Elements WHERE ID=?");
    HandStatement number(database_, "SELECT Next FROM Numbers WHERE Name='GUID'");
    HandStatement counted(database_, "UPDATE Numbers SET Next=? WHERE Name='GUID'");
    HandStatement highest(database_, "SELECT MAX(OrderIndex) FROM HMI_Elements WHERE DisplayID=?");
    HandStatement insert(
        database_,
        "INSERT INTO HMI_Elements (GUID,Type,Xs,Ys,Dx,Dy,DisplayID,GroupID,ColorBack,ColorFore,"
        "ColorBackTouch,ColorForeTouch,ColorHatch,PenStyle,PenWidth,HatchStyle,TouchOprndAddr,"
        "VisibleOpAddr,FontNumber,DescriptionFontNumber,Alignment,Flat3D,VarType,VarKeyPadEntry,"
        "VarOprndType,VarOprndAddr,GlobalVarID,DefaultDisplay,KeypadSuccessOpAddr,EnabledOpAddr,"
        "HighlightOpAddr,TabIndex,OrderIndex) VALUES "
        "(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    database_.Run("BEGIN");
    for (int index = 0; index < kElements; ++index) {
      row.Bind(1, -1).Step();
      row.Reset();
      number.Step();
      const int guid = number.Int(0);
      number.Reset();
      counted.Bind(1, guid + 1).Step();
      counted.Reset();
      highest.Bind(1, OpenPage::kNumber).Step();
      const int order = highest.Int(0) + 1;
      highest.Reset();
      const int values[] = {guid, 1,  index, index, 10,   10, OpenPage::kNumber,
                            -1,   -1, 0,     -1,    0,    96, 0,
                            1,    99, -1,    -1,    0,    0,  0,
                            0,    0,  0,     0,     0,    0,  0,
                            -1,   -1, -1,    255,   order};
      int place = 1;
      for (const int value : values) insert.Bind(place++, value);
      insert.Step();
      insert.Reset();
      ids_.push_back(static_cast<int>(sqlite3_last_insert_rowid(database_.Handle())));
    }
    database_.Run("COMMIT");
  }

  void Load() {
    HandStatement row(database_, "SELECT * FROM HMI_Elements WHERE ID=?");
    std::vector<int> places;
    for (const std::string_view column : kColumnsRead) {
      places.push_back(row.Place(column));
    }
    database_.Run("BEGIN");
    for (const int id : ids_) {
      row.Bind(1, id).Step();
      auto loaded = std::make_shared<std::array<int, std::size(kColumnsRead)>>();
      for (std::size_t field = 0; field < loaded->size(); ++field) (*loaded)[field] = row.Int(places[field]);
      loaded_.push_back(std::move(loaded));
      row.Reset();
    }
    database_.Run("COMMIT");
  }

 private:
  HandDatabase database_;
  std::vector<int> ids_;
  /// A program that loads elements keeps what it read.
  std::vector<std::shared_ptr<std::array<int, std::size(kColumnsRead)>>> loaded_;
};

std::shared_ptr<clsRectangle> MakeRectangle(Long index) {
  auto rectangle = std::make_shared<clsRectangle>();
  rectangle->Xs(index);
  rectangle->Ys(index);
  rectangle->Dx(10);
  rectangle->Dy(10);
  return rectangle;
}

void AddSavingAndLoading(std::vector<Ratio>& ratios) {
  std::vector<double> save, load, handSave, handLoad;
  for (int turn = 0; turn < 7; ++turn) {
    const Folder folder;
    const OpenPage page(folder.File("elements.qz7"));
    std::vector<std::shared_ptr<clsRectangle>> rectangles;
    for (Long index = 0; index < kElements; ++index) rectangles.push_back(MakeRectangle(index));
    save.push_back(ProcessorSeconds([&] {
      ado::Transaction transaction(page.Connection());
      for (const auto& rectangle : rectangles) rectangle->SaveToDB();
      transaction.Commit();
    }));
    std::vector<std::shared_ptr<clsRectangle>> loaded;
    load.push_back(ProcessorSeconds([&] {
      ado::Transaction transaction(page.Connection());
      for (const auto& rectangle : rectangles) {
        const auto row = ado::OpenRecordset(
            page.Connection(), "SELECT * FROM HMI_Elements WHERE ID=" + std::to_string(rectangle->ID()),
            ado::adOpenStatic, ado::adLockReadOnly);
        loaded.push_back(std::make_shared<clsRectangle>());
        loaded.back()->LoadFromDB(*row);
      }
      transaction.Commit();
    }));

    corvane1::OpenProject(folder.File("hand.qz7"), corvane1::ProjectMode::Create)->Close();
    HandWritten hand(folder.File("hand.qz7"));
    handSave.push_back(ProcessorSeconds([&] { hand.Save(); }));
    handLoad.push_back(ProcessorSeconds([&] { hand.Load(); }));
  }
  ratios.push_back({"SaveToDB of 10,000 new rectangles, one transaction", Median(save) / Median(handSave),
                    2.0, "prepared statements by hand"});
  ratios.push_back({"LoadFromDB of 10,000 rectangles, one transaction", Median(load) / Median(handLoad), 2.0,
                    "prepared statements by hand"});
}

void AddCallByName(std::vector<Ratio>& ratios) {
  constexpr int kCalls = 200000;
  const auto rectangle = MakeRectangle(1);
  std::vector<double> put, get;
  automation::Variant value(Long{5});
  for (int turn = 0; turn < 9; ++turn) {
    put.push_back(ProcessorSeconds([&] {
      for (int call = 0; call < kCalls; ++call) {
        automation::CallByName(*rectangle, "PenWidth", automation::CallKind::Put,
                               automation::Arguments(&value, 1));
      }
    }));
    get.push_back(ProcessorSeconds([&] {
      for (int call = 0; call < kCalls; ++call) {
        if (automation::GetByName(*rectangle, "PenWidth").IsEmpty()) std::abort();
      }
    }));
  }
  ratios.push_back({"call by name, writing a number", Median(put) / kCalls * 1e9, 100, "nanoseconds a call"});
  ratios.push_back({"call by name, reading a number", Median(get) / kCalls * 1e9, 100, "nanoseconds a call"});
}

void AddMemory(std::vector<Ratio>& ratios) {
  std::vector<std::shared_ptr<clsRectangle>> rectangles;
  rectangles.reserve(kElements);
  const auto before = mallinfo2().uordblks;
  for (Long index = 0; index < kElements; ++index) rectangles.push_back(MakeRectangle(index));
  const auto after = mallinfo2().uordblks;
  ratios.push_back(
      {"memory of a rectangle", static_cast<double>(after - before) / kElements, 400, "bytes each"});
}

}  // namespace

std::vector<Ratio> ElementRatios() {
  std::vector<Ratio> ratios;
  AddSavingAndLoading(ratios);
  AddCallByName(ratios);
  AddMemory(ratios);
  return ratios;
}

}  // namespace quenzel7::bench
