#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/automation/member.h"
#include "tests/support/element_double.h"
#include "tests/support/note_taker.h"
#include "variables/binary_handler.h"
#include "variables/variable_report.h"

/// Handlers and drawing elements that note what a variable tells them.
namespace quenzel7::test {

/// What a handler paints with: keeps colour, font and size, and is of the type that it is told to be.
class DrawnDouble final : public NotingElement {
 public:
  DrawnDouble(Long type, Notes notes) : NotingElement("element", std::move(notes)), type_(type) {}

  // What is kept.
  Long colorBack = 701, fontNumber = 702, flat3D = 0, dx = 0, dy = 0;

  const automation::ClassInfo& Class() const override {
    static const automation::Interface* const interfaces[] = {&InterfaceOf()};
    static const automation::ClassInfo info{"DrawnDouble", interfaces, nullptr};
    return info;
  }

 private:
  Long ItfHmiElement_ElementType() const override {
    NotingElement::ItfHmiElement_ElementType();
    return type_;
  }
#define QUENZEL7_KEPT(name, type, field)            \
  type ItfHmiElement_##name() const override {      \
    NotingElement::ItfHmiElement_##name();          \
    return static_cast<type>(field);                \
  }                                                 \
  void ItfHmiElement_##name(type pValue) override { \
    NotingElement::ItfHmiElement_##name(pValue);    \
    field = pValue;                                 \
  }
  QUENZEL7_KEPT(ColorBack, Long, colorBack)
  QUENZEL7_KEPT(FontNumber, Long, fontNumber)
  QUENZEL7_KEPT(Flat3D, Integer, flat3D)
  QUENZEL7_KEPT(Dx, Long, dx)
  QUENZEL7_KEPT(Dy, Long, dy)
#undef QUENZEL7_KEPT

  Long type_;
};

/// A handler without settings that notes what it is asked through the handler contract, in order:
/// "handler.Rotate()", "handler.LinkOperandType=3".
class NotingHandler : public BinaryHandler, public NoteTaker {
 public:
  using NoteTaker::NoteTaker;

 protected:
#define QUENZEL7_NOTED_BASE BinaryHandler
#define QUENZEL7_IMPLEMENTED(name) ItfVarBinaryHandler_##name
#define QUENZEL7_MEMBERS "variables/handler_members.inc"
#include "tests/support/note_contract.inc"

 private:
  struct NoKeys final : HandlerKeys {
    std::vector<Byte> Data(const BinaryHandler&) const override { return {}; }
    std::vector<Byte> DataForChangeKey(const BinaryHandler&) const override { return {}; }
    void Take(BinaryHandler&, const std::vector<Byte>&) const override {}
    void Copy(BinaryHandler&, const BinaryHandler&) const override {}
  };

  const HandlerKeys& Keys() const override {
    static const NoKeys none;
    return none;
  }
  void ReleaseOwned() override {}
};

/// One that stands for a handler of any type and answers what it is given to answer. What a variable asks of
/// it all the time, its drawing element and its link operand, is not noted.
class HandlerDouble final : public NotingHandler {
 public:
  HandlerDouble(std::string name, Notes notes, ElementRef drawing)
      : NotingHandler(std::move(name), std::move(notes)), drawing_(std::move(drawing)) {}

  // Answers.
  Long storageText = 0;
  Long formatType = 0;
  Long calendarLanguage = 0;
  bool isSwitch = false;
  std::vector<Byte> changeKey;
  /// What its content takes more than it is offered, across and down.
  Long moreDx = 0, moreDy = 0;

  /// The context that a picture was painted for last.
  Long paintedFor = 0;

  Long FormatType() const { return formatType; }
  Long CalendarLanguage() const { return calendarLanguage; }
  bool Switch() const { return isSwitch; }

  const automation::ClassInfo& Class() const override {
    static const automation::Member members[] = {
        automation::Property<Long>("FormatType", "", AUTOMATION_GETTER(HandlerDouble, FormatType), nullptr),
        automation::Property<Long>("CalendarLanguage", "", AUTOMATION_GETTER(HandlerDouble, CalendarLanguage),
                                   nullptr),
        automation::Property<bool>("Switch", "", AUTOMATION_GETTER(HandlerDouble, Switch), nullptr)};
    static const automation::Interface own("_HandlerDouble", members);
    static const automation::Interface* const interfaces[] = {&own, &InterfaceOf()};
    static const automation::ClassInfo info{"HandlerDouble", interfaces, nullptr};
    return info;
  }

  void PaintPicture(const PictureRequest& request) override {
    NoteCall("PaintPicture")(request.dx, request.dy, request.colorBack, request.flat3D, request.fontNumber,
                             request.drawBoundingRect);
    paintedFor = request.hdc;
  }
  void SuspendPainting(bool suspended) override { NoteCall("SuspendPainting")(suspended); }
  void TakeColorFore(Long color) override { NoteCall("TakeColorFore")(color); }
  Long StorageText() const override { return storageText; }
  void ReSyncDrawingElementParams(Long state, Long font) override {
    NoteCall("ReSyncDrawingElementParams")(state, font);
  }
  void ConvertFlatColorToClosestGradientColor() override {
    NoteCall("ConvertFlatColorToClosestGradientColor")();
  }
  void WriteReport(VariableReport& report) const override { report.Line(Name()); }

 private:
  std::shared_ptr<BinaryHandler> NewOfClass() const override {
    return std::make_shared<HandlerDouble>(Name() + '\'', Log(), drawing_);
  }
  ElementRef ItfVarBinaryHandler_DrawingElement() const override { return drawing_; }
  Long ItfVarBinaryHandler_LinkOperandType() const override { return link_.type; }
  Long ItfVarBinaryHandler_LinkOperandAddress() const override { return link_.address; }
  std::vector<Byte> ItfVarBinaryHandler_GetBinaryDataForCRC() const override {
    NotingHandler::ItfVarBinaryHandler_GetBinaryDataForCRC();
    return changeKey;
  }
  void ItfVarBinaryHandler_GetOptimalDimensions(Long& pDx, Long& pDy) override {
    NotingHandler::ItfVarBinaryHandler_GetOptimalDimensions(pDx, pDy);
    pDx += moreDx;
    pDy += moreDy;
  }

  ElementRef drawing_;
};

}  // namespace quenzel7::test
