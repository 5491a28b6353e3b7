#pragma once

#include <string>

#include "framework/enums.h"
#include "platform/automation/property_bag.h"
#include "platform/automation/types.h"

/// The operand side of the elements: rows of the table HMI_Operands, which tell who uses which operand for
/// what, and property bags that hold a full copy of an operand, from which both can be made again.
///
/// Failures of the database or of the operand store raise automation errors; what was done before stays done.
namespace quenzel7 {

/// The operand type of the memory bit ("MB"), to which touch, enabled, visible, highlight and keypad-success
/// operands always belong.
inline constexpr Long kMemoryBit = 1;

/// The network of every operand that elements use.
inline constexpr Long kLocalNetwork = 0;

/// Inserts a row; does nothing for type 0.
void AddOperandRow(Long elementId, Long type, Long address, enOperandPurpose purpose, Long network);

/// Deletes the row and takes the operand of that type and address out of the project if it is defined there.
void RemoveOperandRow(Long elementId, Long type, Long address, Long network, enOperandPurpose purpose);

/// Deletes all rows of an element; the operands stay.
void RemoveAllOperandRows(Long elementId);

/// Takes an operand out of the project, whether it is defined there or not.
void ReleaseOperand(Long type, Long address);

/// A bag with a full copy of the operand.
automation::PropertyBagRef NewOperandBag(Long type, Long address, Long network);

/// Brings an operand back from its bag. A place in memory that the project no longer has is entered again. An
/// operand that holds a value is made anew at a free address, with the types 34 and 35 becoming 37 and 38;
/// `type` and `address` are then set to what it is now. Errors of the bag: 327.
void RestoreOperand(Long& type, Long& address, const automation::PropertyBagRef& bag);

/// The operand's name as reports and tool tips show it; empty for type 0 and for what the project does not
/// have.
std::string OperandDescription(Long type, Long address, Long network);

/// What an operand holds as its value; 0 for what the project does not have.
Currency OperandValueOf(Long type, Long address, Long network);

/// Whether operands of the type hold a value of their own: 15, 34, 35, 37 and 38.
bool IsValueOperandType(Long type);

}  // namespace quenzel7
