#include <array>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/ratios.h"
#include "bench/sqlite_by_hand.h"
#include "platform/ado/connection.h"
#include "platform/automation/convert.h"
#include "platform/corvane1/project_file.h"

namespace quenzel7::bench {
namespace {

constexpr int kRows = 10000;
constexpr int kTurns = 9;
constexpr double kLimit = 1.6;

/// The columns that are put, all numbers but two.
constexpr std::string_view kPut[] = {"GUID",
                                     "Type",
                                     "Xs",
                                     "Ys",
                                     "Dx",
                                     "Dy",
                                     "DisplayID",
                                     "GroupID",
                                     "ColorBack",
                                     "ColorFore",
                                     "ColorBackTouch",
                                     "ColorForeTouch",
                                     "ColorHatch",
                                     "PenStyle",
                                     "PenWidth",
                                     "HatchStyle",
                                     "TouchOprndAddr",
                                     "VisibleOpAddr",
                                     "FontNumber",
                                     "DescriptionFontNumber",
                                     "Alignment",
                                     "Flat3D",
                                     "VarType",
                                     "VarKeyPadEntry",
                                     "VarOprndType",
                                     "VarOprndAddr",
                                     "GlobalVarID",
                                     "DefaultDisplay",
                                     "KeypadSuccessOpAddr",
                                     "EnabledOpAddr",
                                     "HighlightOpAddr",
                                     "TabIndex",
                                     "OrderIndex",
                                     "StorageText",
                                     "StorageLibNum",
                                     "StrStorageOprndType",
                                     "StrStorageOprndAddr",
                                     "StrStorageFont"};
static_assert(std::size(kPut) == 38);

/// The columns that are read, with their places in the row.
constexpr std::string_view kGot[] = {"ID",
                                     "GroupID",
                                     "Xs",
                                     "Ys",
                                     "Dx",
                                     "Dy",
                                     "ColorBack",
                                     "ColorFore",
                                     "ColorBackTouch",
                                     "ColorForeTouch",
                                     "ColorHatch",
                                     "PenStyle",
                                     "PenWidth",
                                     "HatchStyle",
                                     "TouchOprndAddr",
                                     "VisibleOpAddr",
                                     "FontNumber",
                                     "Alignment",
                                     "Flat3D",
                                     "OrderIndex"};
static_assert(std::size(kGot) == 20);

int ValueOf(std::size_t column, int row) { return static_cast<int>(column) * 7 + row; }

class Layer {
 public:
  explicit Layer(const std::string& path)
      : connection_(corvane1::OpenProject(path, corvane1::ProjectMode::Create)) {}

  void Save() {
    ado::Transaction transaction(*connection_);
    for (int row = 0; row < kRows; ++row) {
      const auto record = ado::OpenRecordset(*connection_, "SELECT * FROM HMI_ELEMENTS WHERE ID=-1",
                                             ado::adOpenStatic, ado::adLockOptimistic);
      record->AddNew();
      for (std::size_t column = 0; column < std::size(kPut); ++column) {
        record->Put(kPut[column], ValueOf(column, row));
      }
      record->Update();
      ids_.push_back(automation::To<Long>(record->Get("ID")));
      record->Close();
    }
    transaction.Commit();
  }

  long long Load() {
    long long sum = 0;
    for (const Long id : ids_) {
      const auto record =
          ado::OpenRecordset(*connection_, "SELECT * FROM HMI_Elements WHERE ID=" + std::to_string(id),
                             ado::adOpenStatic, ado::adLockReadOnly);
      for (const std::string_view column : kGot) sum += automation::To<Long>(record->Get(column));
    }
    return sum;
  }

 private:
  ado::ConnectionRef connection_;
  std::vector<Long> ids_;
};

class Hand {
 public:
  explicit Hand(const std::string& path)
      : database_((corvane1::OpenProject(path, corvane1::ProjectMode::Create)->Close(), path)) {}

  void Save() {
    std::string names;
    std::string places;
    for (const std::string_view column : kPut) {
      names.append(names.empty() ? "" : ",").append(column);
      places += places.empty() ? "?" : ",?";
    }
    HandStatement look(database_, "SELECT * FROM HMI_Elements WHERE ID=?");
    HandStatement insert(database_, "INSERT INTO HMI_Elements(" + names + ") VALUES(" + places + ")");
    database_.Run("BEGIN IMMEDIATE");
    for (int row = 0; row < kRows; ++row) {
      look.Bind(1, -1).Step();
      look.Reset();
      for (std::size_t column = 0; column < std::size(kPut); ++column) {
        insert.Bind(static_cast<int>(column) + 1, ValueOf(column, row));
      }
      insert.Step();
      insert.Reset();
      ids_.push_back(static_cast<int>(sqlite3_last_insert_rowid(database_.Handle())));
    }
    database_.Run("COMMIT");
  }

  long long Load() {
    HandStatement look(database_, "SELECT * FROM HMI_Elements WHERE ID=?");
    std::array<int, std::size(kGot)> places{};
    for (std::size_t index = 0; index < places.size(); ++index) places[index] = look.Place(kGot[index]);
    long long sum = 0;
    for (const int id : ids_) {
      look.Bind(1, id).Step();
      for (const int place : places) sum += look.Int(place);
      look.Reset();
    }
    return sum;
  }

 private:
  HandDatabase database_;
  std::vector<int> ids_;
};

}  // namespace

std::vector<Ratio> AdoRatios() {
  std::vector<double> save, load, handSave, handLoad;
  for (int turn = 0; turn < kTurns; ++turn) {
    const Folder folder;
    Layer layer(folder.File("layer.qz7"));
    Hand hand(folder.File("hand.qz7"));
    long long sum = 0;
    long long handSum = 0;
    save.push_back(ProcessorSeconds([&] { layer.Save(); }));
    handSave.push_back(ProcessorSeconds([&] { hand.Save(); }));
    load.push_back(ProcessorSeconds([&] { sum = layer.Load(); }));
    handLoad.push_back(ProcessorSeconds([&] { handSum = hand.Load(); }));
    if (sum != handSum) throw std::runtime_error("the layer read other values than the engine");
  }
  const char* const peer = "prepared statements by hand";
  return {{"recordset: 10,000 rows added, 38 columns, one transaction", Median(save) / Median(handSave),
           kLimit, peer},
          {"recordset: 10,000 rows opened one by one, 20 columns read", Median(load) / Median(handLoad),
           kLimit, peer}};
}

}  // namespace quenzel7::bench
