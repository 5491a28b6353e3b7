#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "framework/operands.h"
#include "framework/project.h"
#include "tests/support/project_fixture.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7::test {

/// What saving Distinct writes, in order, as it is noted: "put Column=value:Kind". `changes` tells in what
/// the class differs from the rectangle, by column: "value:Kind", or nothing for a column that it does not
/// write.
inline CallLog PutsOfDistinct(const std::string& type,
                              const std::map<std::string, std::string>& changes = {}) {
  static const char* const kOfRectangle[][2] = {
      {"Xs", "12:Long"},
      {"Ys", "13:Long"},
      {"Dx", "14:Long"},
      {"Dy", "15:Long"},
      {"DisplayID", "7:Long"},
      {"GroupID", "11:Long"},
      {"ColorBack", "16:Long"},
      {"ColorFore", "17:Long"},
      {"ColorBackTouch", "18:Long"},
      {"ColorForeTouch", "19:Long"},
      {"ColorHatch", "20:Long"},
      {"PenStyle", "3:Long"},
      {"PenWidth", "21:Long"},
      {"HatchStyle", "4:Long"},
      {"TouchOprndAddr", "22:Long"},
      {"VisibleOpAddr", "23:Long"},
      {"FontNumber", "0:Integer"},
      {"DescriptionFontNumber", "0:Integer"},
      {"Alignment", "0:Integer"},
      {"Flat3D", "0:Integer"},
      {"VarType", "0:Integer"},
      {"VarKeyPadEntry", "0:Integer"},
      {"VarOprndType", "0:Integer"},
      {"VarOprndAddr", "0:Integer"},
      {"GlobalVarID", "0:Integer"},
      {"DefaultDisplay", "0:Integer"},
      {"KeypadSuccessOpAddr", "-1:Long"},
      {"EnabledOpAddr", "-1:Long"},
      {"HighlightOpAddr", "-1:Long"},
      {"TabIndex", "255:Byte"},
  };
  CallLog puts = {"put Type=" + type + ":Long"};
  for (const auto& [column, value] : kOfRectangle) {
    const auto change = changes.find(column);
    const std::string written = change == changes.end() ? value : change->second;
    if (!written.empty()) puts.push_back("put " + std::string(column) + "=" + written);
  }
  return puts;
}

/// The calls of several logs in a row.
inline CallLog Joined(std::initializer_list<CallLog> parts) {
  CallLog all;
  for (const CallLog& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

/// What opens a new row of SavedShape's before its columns are written, and an old one.
inline const CallLog kNewRow = {
    "open SELECT * FROM HMI_ELEMENTS WHERE ID=-1 [3,3,1]",
    "AddNew",
    "put GUID=9:Long",
    "open SELECT MAX(OrderIndex) AS MaxOrderIndex FROM HMI_ELEMENTS WHERE DisplayID=7 [3,1,1]",
    "get MaxOrderIndex",
    "Close",
};
inline const CallLog kOldRow = {"open SELECT * FROM HMI_ELEMENTS WHERE ID=5 [3,3,1]"};

/// Shapes of one class in a project file on disk.
template <class Shape>
class SavedShape : public ProjectTest {
 protected:
  static constexpr bool kHasBody = std::is_base_of_v<FilledShape, Shape>;

  /// The next element gets the ID 5 and the GUID 9, so that no number is taken for another.
  void SetUp() override {
    ProjectTest::SetUp();
    for (int row = 0; row < 4; ++row) Connection().Execute("INSERT INTO HMI_Elements (DisplayID) VALUES (1)");
    Connection().Execute("DELETE FROM HMI_Elements");
    Connection().Execute("INSERT INTO Numbers (Name,Next) VALUES ('GUID',9)");
    TakeLog();
  }

  /// A shape in which every field that is kept has a value of its own.
  static std::shared_ptr<Shape> Distinct() {
    auto shape = std::make_shared<Shape>();
    shape->GroupID(11);
    shape->Xs(12);
    shape->Ys(13);
    shape->Dx(14);
    shape->Dy(15);
    shape->ColorBack(16);
    shape->ColorFore(17);
    shape->ColorBackTouch(18);
    shape->ColorForeTouch(19);
    shape->ColorHatch(20);
    shape->PenStyle(ePS_Dash_Dot);
    shape->PenWidth(21);
    shape->HatchStyle(eHS_Cross);
    shape->FillStyle(eFS_Solid);
    shape->TouchOprndAddr(22);
    shape->VisibleOpAddr(23);
    shape->OrderIndex(24);
    return shape;
  }

  std::shared_ptr<Shape> Loaded(Long id) { return LoadedFrom<Shape>(id); }

  std::vector<std::string> Elements() { return Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID"}); }

  /// Whether the project has the operand, which is a memory bit unless the type says otherwise.
  static bool IsDefined(Long address, Long type = kMemoryBit) {
    return !OperandDescription(type, address, kLocalNetwork).empty();
  }

  static void Define(Long address, const std::string& comment = "", Long type = kMemoryBit) {
    fennick1::Operand operand(Platform::Current().operands);
    operand.OperandType(type);
    operand.OperandAddress(address);
    operand.OperandComment(comment);
    operand.AddToProject();
  }

  /// The address in a bag of the shape's, which holds a memory bit.
  static Long AddressInBag(const PositionedElement& element, Long place) {
    fennick1::Operand operand(Platform::Current().operands);
    operand.PropBag(element.OperandBags()->ObjectAt<automation::PropertyBag>(place));
    EXPECT_EQ(operand.OperandType(), kMemoryBit);
    return operand.OperandAddress();
  }
};

/// The operands of another store, what happens to them noted in the log of a connection.
class NotingStore final : public fennick1::OperandStore {
 public:
  NotingStore(std::shared_ptr<fennick1::OperandStore> inner, RecordingConnection& recorder)
      : inner_(std::move(inner)), recorder_(recorder) {}
  std::optional<fennick1::OperandContent> Load(const fennick1::OperandKey& key) override {
    return inner_->Load(key);
  }
  void Add(const fennick1::OperandKey& key, const fennick1::OperandContent& content) override {
    recorder_.Note("add operand " + std::to_string(key.address));
    inner_->Add(key, content);
  }
  void Remove(const fennick1::OperandKey& key) override {
    recorder_.Note("remove operand " + std::to_string(key.address));
    inner_->Remove(key);
  }
  Long FreeAddress(Long type, Long network) override { return inner_->FreeAddress(type, network); }

 private:
  std::shared_ptr<fennick1::OperandStore> inner_;
  RecordingConnection& recorder_;
};

/// An empty store that notes which operands are looked for.
class AskedStore final : public fennick1::OperandStore {
 public:
  std::optional<fennick1::OperandContent> Load(const fennick1::OperandKey& key) override {
    if (asked.empty() || asked.back() != key.address) asked.push_back(key.address);
    return {};
  }
  void Add(const fennick1::OperandKey&, const fennick1::OperandContent&) override {}
  void Remove(const fennick1::OperandKey&) override {}
  Long FreeAddress(Long, Long) override { return 0; }

  /// Addresses in order, repeats of the same one left out.
  std::vector<Long> asked;
};

}  // namespace quenzel7::test
