#pragma once

#include "hosts/cli/json_document.h"
#include "platform/automation/class_info.h"
#include "platform/automation/variant.h"

namespace quenzel7::cli {

/// Whether a page file can hold values of the type: numbers other than Currency, Boolean, String,
/// enumerations.
bool IsPageFileType(const automation::TypeInfo& type);

/// The value of a property that a page file gives: a whole number in the range of an integer type, any number
/// that a floating type holds, true or false, a text, the name (in any case) or the number of an
/// enumeration's member. Throws UserError "must be ..., ... was given" for anything else.
automation::Variant ValueFromJson(const automation::TypeInfo& type, const Json& value);

/// A property's value as a page file writes it: an enumeration's member by name, a number where it has no
/// name.
Json JsonFromValue(const automation::TypeInfo& type, const automation::Variant& value);

/// A whole number between two bounds. Throws UserError as ValueFromJson.
Long WholeNumberFromJson(const Json& value, Long lowest, Long highest);

/// A text. Throws UserError as ValueFromJson.
const std::string& TextFromJson(const Json& value);

}  // namespace quenzel7::cli
