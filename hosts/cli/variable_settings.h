#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/cli/json_document.h"
#include "variables/binary_handler_contract.h"

/// Variables, as this host handles them by call by name: the settings that stand in objects of their own, the
/// type's in its handler and the string of the library that the variable refers to.
namespace quenzel7::cli {

/// What a page file says of the settings of the type, and of the variable's string, under these keys.
inline constexpr std::string_view kHandlerKey = "Handler";
inline constexpr std::string_view kListTextKey = "ListText";
inline constexpr std::string_view kSettingsKeys[] = {kListTextKey, kHandlerKey};

/// The property that says which type a variable has, and so what its other settings are.
inline constexpr std::string_view kTypeProperty = "VarType";

/// Whether the elements of the class are variables.
bool IsVariableClass(const automation::ClassInfo& elementClass);

/// Whether the element is a variable.
bool IsVariable(const ItfHmiElement& element);

/// The key as kSettingsKeys has it when it is one of them in any case; nothing when it is none.
std::string_view SettingsKey(std::string_view key);

/// The handler of a variable's type; none where there is no class for it.
HandlerRef HandlerOf(ItfHmiElement& variable);

/// Requires that there is a class for the variable's type. Throws UserError that tells the types.
void RequireHandler(ItfHmiElement& variable);

/// Requires that, and that a list of texts has the state that is shown. Throws UserError.
void RequireTypeAndState(ItfHmiElement& variable);

/// A new variable of that type, which need not have a handler, as it would come back from its row: where
/// nothing has a font, FontNumber is 0.
ElementRef NewVariable(Long type);

/// The element that paints a variable that shows a text; none for others, which show what follows from their
/// settings.
ElementRef TextDrawingOf(ItfVarBinaryHandler& handler);

/// How many texts a bit has, one for each state.
inline constexpr std::size_t kTextsOfBit = 2;

/// Whether the handler has the texts of a bit; other lists can have any length.
bool IsListOfBit(const ItfVarBinaryHandler& handler);

/// The texts of a handler's list; none where it has no list.
std::vector<automation::ObjectRef> ListTextsOf(ItfVarBinaryHandler& handler);

/// Gives a variable, whose other properties are set, the settings of a page file, an object with any of
/// kSettingsKeys, and brings what it paints up to date. FontNumber becomes 0 as for NewVariable. Throws
/// UserError that names the property by its path: "Handler.ListTexts[2].ColorBack", texts counted from 1;
/// so it does for a number that painting has no room for, for a list of another length than the type has, and
/// for what loading would replace.
void TakeSettings(ItfHmiElement& variable, const Json& settings);

/// Has the element that paints the variable show what its settings say, where the type has that done when it
/// is loaded or changed. Throws UserError for a state that the list does not have.
void BringUpToDate(ItfHmiElement& variable);

/// The settings under one of the keys as a page file gives them: those that differ from `fresh`, a new
/// variable of the same type, or all when that is nullptr. Null when there is nothing to tell. What the
/// element that paints the variable shows is told where it does not follow from the other settings.
Json SettingsOf(ItfHmiElement& variable, std::string_view key, ItfHmiElement* fresh);

/// One setting by its path and its value, as page files write it.
struct Setting {
  std::string path;
  std::string value;
};

/// The settings of such an object one by one, in its order.
std::vector<Setting> SettingsByPath(std::string_view key, const Json& settings);

}  // namespace quenzel7::cli
