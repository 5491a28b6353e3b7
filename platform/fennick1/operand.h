#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/automation/object.h"
#include "platform/automation/property_bag.h"
#include "platform/automation/types.h"
#include "platform/fennick1/operand_store.h"

namespace quenzel7::fennick1 {

/// An operand of the controller: its type, address and network say which one it is; comment and value are
/// what it carries. Made anew for each use.
///
/// Comment and value are those that the project keeps for the operand ("" and 0 when it does not have it),
/// until they are written here. Writing goes to the project only with AddToProject. What IsDefined has found
/// they then are, until another operand is named here, or this one is entered or taken out here.
///
/// The value is a Currency: eight bytes, a whole number of ten-thousandths, so that it goes through bags and
/// the database without losing a bit.
class Operand : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "Operand";

  explicit Operand(std::shared_ptr<OperandStore> store);

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// The type's number; 0 means none.
  Long OperandType() const { return key_.type; }
  void OperandType(Long type) { key_.type = type; }
  /// The address within the type.
  Long OperandAddress() const { return key_.address; }
  void OperandAddress(Long address) { key_.address = address; }
  /// The network's number; 0 is the controller's own. Hosts only write it.
  Long OperandNetID() const { return key_.network; }
  void OperandNetID(Long network) { key_.network = network; }
  /// A text of the user's. Hosts only write it.
  std::string OperandComment() const { return Content().comment; }
  void OperandComment(const std::string& comment) { comment_ = comment; }
  /// The value of the types that hold one.
  Currency OperandValue() const { return Content().value; }
  void OperandValue(Currency value) { value_ = value; }

  /// Whether the project has this operand.
  bool IsDefined() const;
  /// The whole operand as a bag: "Type", "Address", "NetID" (Long), "Comment" (String), "Value" (Currency).
  automation::PropertyBagRef PropBag() const;
  /// Takes everything from a bag. Error 327 when a name is missing, 91 when there is no bag; the operand is
  /// then as it was.
  void PropBag(const automation::PropertyBagRef& bag);
  /// The operand as reports show it, see OperandTypes.
  std::string OperandText() const;

  /// Enters the operand in the project; one that is there already takes comment and value.
  void AddToProject();
  /// Takes the operand out of the project; does nothing when it is not there.
  void RemoveFromProject();
  /// The smallest address, from 0, that no operand of this type and network has in the project. Error 6 when
  /// there is none.
  Long GetFreeAddress();

 private:
  OperandContent Content() const;

  std::shared_ptr<OperandStore> store_;
  OperandKey key_;
  std::optional<std::string> comment_;
  std::optional<Currency> value_;
  /// What the project was last asked for, and what it had: comment and value are then not asked for again.
  mutable OperandKey foundKey_;
  mutable std::optional<std::optional<OperandContent>> found_;
};

}  // namespace quenzel7::fennick1
