#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>

#include "framework/enums.h"
#include "shapes/element_setting.h"
#include "variables/binary_handler.h"

/// What the types of variables have in common, and what tells them apart.
namespace quenzel7 {

/// The numbers of types run from 1 to this.
inline constexpr Long kMostVarType = 30;

/// A set of types.
class VarTypes {
 public:
  constexpr VarTypes(std::initializer_list<enVarType> types) {
    for (const enVarType type : types) bits_ |= std::uint32_t{1} << type;
  }
  constexpr bool Has(Long type) const {
    return type >= 0 && type <= kMostVarType && (bits_ >> type & 1) != 0;
  }

 private:
  std::uint32_t bits_ = 0;
};

/// Variables that show a picture of the project: while one is dragged, only a frame follows the mouse.
inline constexpr VarTypes kPictureTypes = {eVT_BinaryImage, eVT_ListImage, eVT_RangeImages, eVT_MovingImage};
/// Of these the ones with a list of pictures: they can be turned and inverted, and have no place in the tab
/// order.
inline constexpr VarTypes kPictureListTypes = {eVT_BinaryImage, eVT_ListImage, eVT_RangeImages};
/// Variables whose element is placed like a picture when they are drawn, and those that paint that picture
/// first, which are placed like texts.
inline constexpr VarTypes kPlacedAsPictureTypes = {eVT_BinaryImage, eVT_ListImage, eVT_RangeImages,
                                                   eVT_MovingImage, eVT_TankGraph};
inline constexpr VarTypes kPlacedAsGraphTypes = {eVT_BarGraph, eVT_Meter,       eVT_Trend,
                                                 eVT_LED,      eVT_Thermometer, eVT_SDTrendViewer};
/// Variables that paint a picture before it is shown.
inline constexpr VarTypes kGraphTypes = {eVT_BarGraph, eVT_Meter,       eVT_TankGraph,    eVT_Trend,
                                         eVT_LED,      eVT_Thermometer, eVT_SDTrendViewer};
/// Texts that can be strings of the library.
inline constexpr VarTypes kLibraryTextTypes = {eVT_BinaryText, eVT_ListText, eVT_Numeric,
                                               eVT_RangeTexts, eVT_Password, eVT_NumericRange,
                                               eVT_PassString};
/// Texts with a background of their own for each state.
inline constexpr VarTypes kStateColorTypes = {eVT_BinaryText, eVT_ListText, eVT_RangeTexts, eVT_NumericRange};
/// Of these the ones that are told at once when the variable's background changes.
inline constexpr VarTypes kToldColorBackTypes = {eVT_BinaryText, eVT_ListText, eVT_RangeTexts};
/// Variables that are flat until something else is chosen.
inline constexpr VarTypes kFlatTypes = {eVT_BinaryImage, eVT_ListImage, eVT_RangeImages,
                                        eVT_MovingImage, eVT_Meter,     eVT_TankGraph};
/// Variables that have no colour of what they show, and those that keep it in the handler.
inline constexpr VarTypes kColorlessTypes = {eVT_BinaryImage, eVT_ListImage, eVT_RangeImages, eVT_ShapeGraph,
                                             eVT_MovingImage};
inline constexpr VarTypes kOwnColorForeTypes = {eVT_BarGraph, eVT_TankGraph, eVT_LED, eVT_Thermometer};
/// Variables that have a font though no text element paints them.
inline constexpr VarTypes kFontedGraphTypes = {eVT_Meter, eVT_Thermometer};
/// Variables whose element takes the size at rest when they are saved.
inline constexpr VarTypes kSizedOnSaveTypes = {eVT_BinaryImage, eVT_ListImage, eVT_RangeImages,
                                               eVT_TankGraph};
inline constexpr VarTypes kSizedOnSaveExTypes = {eVT_TankGraph};
/// Variables whose tool tip does not tell the operand.
inline constexpr VarTypes kUntoldOperandTypes = {eVT_DateTime, eVT_Password, eVT_PassString};

/// The type's name in the tool tip; empty for some, and for what is no type.
std::string_view VarTypeName(Long type);

/// The setting that tells the background of new variables of the type; none where it stays as it was.
std::optional<ElementDefault> ColorBackSettingOf(Long type);

/// A new handler of the type; none where there is no class for it. Errors of the class's constructor.
HandlerRef NewHandler(Long type);

}  // namespace quenzel7
