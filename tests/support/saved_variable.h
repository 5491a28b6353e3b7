#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/element_types.h"
#include "platform/automation/member.h"
#include "tests/support/element_double.h"
#include "tests/support/recording_connection.h"
#include "tests/support/text_fixture.h"
#include "variables/var_element.h"

/// What the tests of a variable's row share: variables in a project file on disk, and a handler that notes
/// its part in the log of the project's connection.
namespace quenzel7::test {

/// What a noted handler paints with, an element of any type: "drawing.Dx=140".
class DrawingInRow final : public NotingElement {
 public:
  DrawingInRow(Long type, Notes notes) : NotingElement("drawing", std::move(notes)), type_(type) {}

  const automation::ClassInfo& Class() const override {
    static const automation::Interface* const interfaces[] = {&InterfaceOf()};
    static const automation::ClassInfo info{"DrawingInRow", interfaces, nullptr};
    return info;
  }

 private:
  // Asked on every save, so not noted.
  Long ItfHmiElement_ElementType() const override { return type_; }

  Long type_;
};

/// Stands for a handler of any type and notes what of a row it is asked: "handler.SaveToDB 5 22". Its
/// settings are three bytes.
class HandlerInRow final : public BinaryHandler {
 public:
  using Notes = NotingElement::Notes;

  HandlerInRow(Notes notes, ElementRef drawing) : notes_(std::move(notes)), drawing_(std::move(drawing)) {}

  std::vector<Byte> data = {1, 2, 3};
  bool isSwitch = false;
  /// Runs while it is saved.
  std::function<void()> whileSaved;

  bool Switch() const { return isSwitch; }
  // No calendar.
  Long FormatType() const { return 0; }

  const automation::ClassInfo& Class() const override {
    static const automation::Member members[] = {
        automation::Property<bool>("Switch", "", AUTOMATION_GETTER(HandlerInRow, Switch), nullptr),
        automation::Property<Long>("FormatType", "", AUTOMATION_GETTER(HandlerInRow, FormatType), nullptr)};
    static const automation::Interface own("_HandlerInRow", members);
    static const automation::Interface* const interfaces[] = {&own, &InterfaceOf()};
    static const automation::ClassInfo info{"HandlerInRow", interfaces, nullptr};
    return info;
  }

  void ReSyncDrawingElementParams(Long state, Long font) override {
    Note("ReSync " + std::to_string(state) + " " + std::to_string(font));
  }

 private:
  void Note(const std::string& call) const { notes_("handler." + call); }

  // Never asked: the settings do not come from a table.
  const HandlerKeys& Keys() const override {
    throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no table");
  }
  std::shared_ptr<BinaryHandler> NewOfClass() const override {
    return std::make_shared<HandlerInRow>(notes_, drawing_);
  }
  void ReleaseOwned() override {}

  ElementRef ItfVarBinaryHandler_DrawingElement() const override { return drawing_; }
  std::vector<Byte> ItfVarBinaryHandler_BinaryData() const override {
    Note("BinaryData?");
    return data;
  }
  void ItfVarBinaryHandler_BinaryData(std::vector<Byte> pValue) override {
    Note("BinaryData=" + std::to_string(pValue.size()));
    data = std::move(pValue);
  }
  void ItfVarBinaryHandler_DeleteAllOperands() override { Note("DeleteAllOperands"); }
  void ItfVarBinaryHandler_RestoreAllOperands(Long pVarID) override {
    Note("RestoreAllOperands " + std::to_string(pVarID));
  }
  void ItfVarBinaryHandler_BuildOpPropBag() override { Note("BuildOpPropBag"); }
  void ItfVarBinaryHandler_BuildImageList(Long pElementID) override {
    Note("BuildImageList " + std::to_string(pElementID));
  }
  void ItfVarBinaryHandler_SaveToDB(Long pElementID, enVarType pVarType) override {
    Note("SaveToDB " + std::to_string(pElementID) + " " + std::to_string(pVarType));
    if (whileSaved) whileSaved();
  }
  HandlerRef ItfVarBinaryHandler_Replica() override {
    Note("Replica");
    auto copy = std::make_shared<HandlerInRow>(notes_, drawing_);
    copy->data = data;
    return copy;
  }

  Notes notes_;
  ElementRef drawing_;
};

/// Variables in a project file on disk. The next one gets the ID 5 and the GUID 9.
class SavedVariable : public SavedTextBearing<clsVar> {
 protected:
  /// A variable of the type in which every field that is kept has a value of its own.
  static std::shared_ptr<clsVar> Distinct(enVarType type = eVT_Numeric) {
    auto variable = std::make_shared<clsVar>();
    variable->VarType(type);
    Fill(*variable);
    if (variable->BinaryHandlers(type)) {
      variable->OperandType(24);
      variable->OperandAddress(25);
    }
    return variable;
  }
  /// The same with a handler that notes its part, whose drawing element is of that type.
  std::shared_ptr<clsVar> WithNotedHandler(enVarType type, Long drawingType = kBitmapElement) {
    auto variable = std::make_shared<clsVar>();
    variable->SetBinaryHandler(type, NotedHandler(drawingType));
    variable->VarType(type);
    Fill(*variable);
    variable->OperandType(24);
    variable->OperandAddress(25);
    return variable;
  }
  std::shared_ptr<HandlerInRow> NotedHandler(Long drawingType = kBitmapElement) {
    const auto note = [this](const std::string& call) { Recorder().Note(call); };
    return std::make_shared<HandlerInRow>(note, std::make_shared<DrawingInRow>(drawingType, note));
  }

  CallLog LogOfSaving(clsVar& variable) {
    TakeLog();
    EXPECT_TRUE(variable.SaveToDB());
    return TakeLog();
  }
  CallLog LogOfDeleting(clsVar& variable) {
    TakeLog();
    static_cast<ItfHmiElement&>(variable).DeleteFromDB();
    return TakeLog();
  }
  /// The row, opened through the connection that notes.
  ado::RecordsetRef RowOf(Long id, const std::string& columns = "*") {
    auto row = ado::OpenRecordset(*ProjectConnection(),
                                  "SELECT " + columns + " FROM HMI_Elements WHERE ID=" + std::to_string(id),
                                  ado::adOpenStatic, ado::adLockReadOnly);
    TakeLog();
    return row;
  }
  std::shared_ptr<clsVar> Loaded(Long id) {
    auto variable = std::make_shared<clsVar>();
    EXPECT_TRUE(variable->LoadFromDB(*RowOf(id)));
    return variable;
  }

  /// Gives an element a picture at an index.
  void Link(Long element, Long index, Long crc, Long transparency = 0) {
    Connection().Execute(
        "INSERT INTO ElementsAndImages (Element_ID,Image_Index,Image_CRC,TransparencyLevel) VALUES (" +
        std::to_string(element) + "," + std::to_string(index) + "," + std::to_string(crc) + "," +
        std::to_string(transparency) + ")");
  }

  /// What a log tells of one column, in order: "140:Long".
  static CallLog PutsInto(const std::string& column, const CallLog& log) {
    const std::string beginning = "put " + column + "=";
    CallLog values;
    for (const std::string& call : log) {
      if (call.starts_with(beginning)) values.push_back(call.substr(beginning.size()));
    }
    return values;
  }
  static bool Has(const CallLog& log, const std::string& call) {
    return std::find(log.begin(), log.end(), call) != log.end();
  }
  /// The place of the first call that begins so; the size of the log when there is none.
  static int PlaceOf(const std::string& beginning, const CallLog& log) {
    return static_cast<int>(
        std::find_if(log.begin(), log.end(),
                     [&](const std::string& call) { return call.starts_with(beginning); }) -
        log.begin());
  }

 private:
  static void Fill(clsVar& variable) {
    variable.GroupID(11);
    variable.Xs(12);
    variable.Ys(13);
    variable.Dx(140);
    variable.Dy(150);
    variable.ColorBack(16);
    variable.ColorBackTouch(18);
    variable.HatchStyle(static_cast<enHatchStyle>(3));
    variable.Alignment(7);
    variable.Flat3D(2);
    variable.FontNumber(5);
    variable.DescriptionFontNumber(6);
    variable.TouchOprndAddr(22);
    variable.EnabledOpAddr(28);
    variable.VisibleOpAddr(23);
    variable.HighlightOpAddr(29);
    variable.KeypadSuccessOpAddr(30);
    variable.KeypadEntry(true);
    variable.TabIndex(26);
    variable.VarName("level");
    variable.DefaultDisplay(1);
    variable.StorageText(31);
    variable.StorageLibNum(32);
    variable.ListText()->StorageStringType(33);
    variable.ListText()->StorageStringID(34);
    variable.ListText()->StorageFont(35);
  }
};

}  // namespace quenzel7::test
