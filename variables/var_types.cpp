#include "variables/var_types.h"

#include <iterator>
#include <memory>

#include "variables/graphs/bargraph.h"
#include "variables/text/binary_text.h"
#include "variables/text/display_string.h"
#include "variables/text/list_text.h"
#include "variables/text/numeric.h"
#include "variables/text/range_text.h"

namespace quenzel7 {
namespace {

struct VarType {
  enVarType type;
  std::string_view name;
  std::optional<ElementDefault> colorBack = {};
  HandlerRef (*make)() = nullptr;
};

template <class Handler>
HandlerRef Make() {
  return std::make_shared<Handler>();
}

/// A number with a colour of its own.
HandlerRef MakePassword() {
  auto password = std::make_shared<clsVarNumeric>();
  password->ColorFore(ElementSetting(ElementDefault::PasswordColorFore, "5"));
  return password;
}

using enum ElementDefault;

/// All types that have something to tell, in the order of their numbers.
constexpr VarType kTypes[] = {
    {eVT_BinaryImage, "Binary Image"},
    {eVT_BinaryText, "Binary Text", BinaryTextColorBack, Make<clsVarBinaryText>},
    {eVT_ListText, "List Of Texts", ListTextColorBack, Make<clsVarListText>},
    {eVT_ListImage, "List Of Images"},
    {eVT_DateTime, "Date/Time", DateTimeColorBack},
    {eVT_TimeFunctions, "Time Functions", TimeFunctionsColorBack},
    {eVT_Timer, "Timer", TimerColorBack},
    {eVT_Numeric, "Numeric", NumericColorBack, Make<clsVarNumeric>},
    {eVT_BarGraph, "Bargraph", {}, Make<clsVarBargraph>},
    {eVT_Float, "Float"},
    {eVT_RangeTexts, "Range of Texts", RangeTextColorBack, Make<clsVarRangeText>},
    {eVT_RangeImages, "Range of Images"},
    {eVT_Password, "Password", PasswordColorBack, MakePassword},
    {eVT_DisplayString, "ASCII String", StringColorBack, Make<clsVarDisplayString>},
    {eVT_Counter, "Counter", CounterColorBack},
    {eVT_DataTable, "Data Table"},
    {eVT_ShapeGraph, "Shape Graph"},
    {eVT_UTC, "UTC", UtcColorBack},
    {eVT_MovingImage, "Moving Image"},
    {eVT_Meter, "Meter", MeterColorBack},
    {eVT_TankGraph, "Tankgraph", TankGraphColorBack},
    {eVT_Trend, "Trend"},
    {eVT_LED, "LED Graph", LedColorBack},
    {eVT_Thermometer, "Thermometer Graph", ThermometerColorBack},
    {eVT_SDTrendViewer, "Trend from SD"},
    {eVT_SDBrowser, "Browse SD", SdBrowserColorBack},
    {eVT_NumericRange, "", NumericRangeColorBack},
    {eVT_PassString, "Password String", PassStringColorBack},
};

/// What is told of a type; nothing for what is none.
const VarType& Of(Long type) {
  static constexpr VarType kNoType = {eVT_None, ""};
  for (const VarType& entry : kTypes) {
    if (entry.type == type) return entry;
  }
  return kNoType;
}

}  // namespace

std::string_view VarTypeName(Long type) { return Of(type).name; }

std::optional<ElementDefault> ColorBackSettingOf(Long type) { return Of(type).colorBack; }

HandlerRef NewHandler(Long type) {
  const auto make = Of(type).make;
  return make ? make() : nullptr;
}

}  // namespace quenzel7
