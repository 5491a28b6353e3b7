#pragma once

#include <string>
#include <string_view>

#include "platform/automation/class_info.h"
#include "platform/automation/object.h"
#include "variables/operand_pair.h"

namespace quenzel7 {

/// One text of a list with its colours, or the string of the library that a variable shows. A text that is
/// shown for a range of values tells the operands at both ends; all others leave these 0.
class clsVarTextElement final : public automation::Object {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsVarTextElement";

  /// Takes colours from the settings, the font from the font service. Errors of ElementSetting.
  clsVarTextElement();

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// Its lines are parted by CR and LF.
  const std::string& Txt() const { return txt_; }
  void Txt(std::string pValue) { txt_ = std::move(pValue); }
  /// Panel colour numbers.
  Long ColorFore() const { return colorFore_; }
  void ColorFore(Long pValue) { colorFore_ = pValue; }
  Long ColorBack() const { return colorBack_; }
  void ColorBack(Long pValue) { colorBack_ = pValue; }
  /// The operands at which a range begins and ends.
  Long FromOpType() const { return from_.type; }
  void FromOpType(Long pValue) { from_.type = pValue; }
  Long FromOpAddress() const { return from_.address; }
  void FromOpAddress(Long pValue) { from_.address = pValue; }
  Long ToOpType() const { return to_.type; }
  void ToOpType(Long pValue) { to_.type = pValue; }
  Long ToOpAddress() const { return to_.address; }
  void ToOpAddress(Long pValue) { to_.address = pValue; }
  OperandPair& From() { return from_; }
  const OperandPair& From() const { return from_; }
  OperandPair& To() { return to_; }
  const OperandPair& To() const { return to_; }
  /// 0 when StorageStringID is the number of a string.
  Long StorageStringType() const { return storageStringType_; }
  void StorageStringType(Long pValue) { storageStringType_ = pValue; }
  /// Number of a string in the library; -1 none.
  Long StorageStringID() const { return storageStringId_; }
  void StorageStringID(Long pValue) { storageStringId_ = pValue; }
  /// The string as it was when it was chosen.
  const std::string& StorageText() const { return storageText_; }
  void StorageText(std::string pValue) { storageText_ = std::move(pValue); }
  /// Number of the font of the string.
  Long StorageFont() const { return storageFont_; }
  void StorageFont(Long pValue) { storageFont_ = pValue; }

  /// The settings as key tables take them, see text_element_keys.h.
  struct Keys;

 private:
  std::string txt_;
  Long colorFore_;
  Long colorBack_;
  OperandPair from_;
  OperandPair to_;
  Long storageStringType_ = 0;
  Long storageStringId_ = -1;
  std::string storageText_;
  Long storageFont_;
};

using TextElementRef = std::shared_ptr<clsVarTextElement>;

}  // namespace quenzel7
