#include "hosts/cli/property_values.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include "hosts/cli/user_error.h"
#include "platform/automation/convert.h"

namespace quenzel7::cli {
namespace {

using automation::EnumInfo;
using automation::EnumMember;
using automation::TypeInfo;
using automation::Variant;
using automation::VariantKind;

[[noreturn]] void RaiseWrongValue(const std::string& wanted, const Json& value,
                                  const std::string& hint = {}) {
  throw UserError("must be " + wanted + ", " + Shown(value) + " was given" + hint);
}

/// The number when it is whole and fits 32 bits; JSON knows no difference between 10, 10.0 and 1e1.
std::optional<Long> WholeNumber(const Json& value) {
  constexpr auto kLowest = std::numeric_limits<Long>::min();
  constexpr auto kHighest = std::numeric_limits<Long>::max();
  if (value.is_number_unsigned()) {
    const auto number = value.get<std::uint64_t>();
    if (number <= static_cast<std::uint64_t>(kHighest)) return static_cast<Long>(number);
  } else if (value.is_number_integer()) {
    const auto number = value.get<std::int64_t>();
    if (number >= kLowest && number <= kHighest) return static_cast<Long>(number);
  } else if (value.is_number_float()) {
    const auto number = value.get<double>();
    if (number == std::trunc(number) && number >= kLowest && number <= kHighest)
      return static_cast<Long>(number);
  }
  return {};
}

template <class T>
constexpr bool kIsWhole = std::numeric_limits<T>::is_integer;

template <class T>
Variant NumberFromJson(const Json& value) {
  if constexpr (kIsWhole<T>) {
    return static_cast<T>(
        WholeNumberFromJson(value, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
  } else {
    constexpr double kHighest = std::numeric_limits<T>::max();
    if (!value.is_number()) RaiseWrongValue("a number", value);
    const auto number = value.get<double>();
    if (std::abs(number) > kHighest) {
      RaiseWrongValue("a number from " + Json(-kHighest).dump() + " to " + Json(kHighest).dump(), value);
    }
    return static_cast<T>(number);
  }
}

Variant MemberFromJson(const EnumInfo& enumeration, const Json& value) {
  if (const auto number = WholeNumber(value)) return *number;
  const std::string wanted = "a member of " + std::string(enumeration.name) + " or a whole number";
  if (!value.is_string()) RaiseWrongValue(wanted, value);
  const auto& name = value.get_ref<const std::string&>();
  std::vector<std::string_view> names;
  for (const EnumMember& member : enumeration.members) {
    if (automation::EqualFolded(member.name, name)) return member.value;
    names.push_back(member.name);
  }
  RaiseWrongValue(wanted, value, "; nearest is " + Quoted(automation::NearestName(name, names)));
}

/// The shortest number that reads back as the same single-precision value.
double Shortest(Single value) {
  char text[32];
  const char* end = std::to_chars(text, text + sizeof text, value).ptr;
  double number = 0;
  std::from_chars(text, end, number);
  return number;
}

}  // namespace

bool IsPageFileType(const TypeInfo& type) {
  switch (type.kind) {
    case VariantKind::Byte:
    case VariantKind::Integer:
    case VariantKind::Long:
    case VariantKind::Single:
    case VariantKind::Double:
    case VariantKind::Boolean:
    case VariantKind::String:
      return true;
    default:
      return false;
  }
}

Variant ValueFromJson(const TypeInfo& type, const Json& value) {
  if (type.enumeration) return MemberFromJson(*type.enumeration, value);
  switch (type.kind) {
    case VariantKind::Byte:
      return NumberFromJson<Byte>(value);
    case VariantKind::Integer:
      return NumberFromJson<Integer>(value);
    case VariantKind::Long:
      return NumberFromJson<Long>(value);
    case VariantKind::Single:
      return NumberFromJson<Single>(value);
    case VariantKind::Double:
      return NumberFromJson<Double>(value);
    case VariantKind::Boolean:
      if (!value.is_boolean()) RaiseWrongValue("true or false", value);
      return value.get<bool>();
    case VariantKind::String:
      return TextFromJson(value);
    default:
      throw UserError("cannot be given in a page file");
  }
}

Json JsonFromValue(const TypeInfo& type, const Variant& value) {
  if (type.enumeration) {
    const Long number = automation::To<Long>(value);
    for (const EnumMember& member : type.enumeration->members) {
      if (member.value == number) return member.name;
    }
    return number;
  }
  switch (type.kind) {
    case VariantKind::Boolean:
      return automation::To<bool>(value);
    case VariantKind::String:
      return automation::To<std::string>(value);
    case VariantKind::Single:
      return Shortest(automation::To<Single>(value));
    case VariantKind::Double:
      return automation::To<Double>(value);
    default:
      return automation::To<Long>(value);
  }
}

Long WholeNumberFromJson(const Json& value, Long lowest, Long highest) {
  const auto number = WholeNumber(value);
  if (!number || *number < lowest || *number > highest) {
    RaiseWrongValue("a whole number from " + std::to_string(lowest) + " to " + std::to_string(highest),
                    value);
  }
  return *number;
}

const std::string& TextFromJson(const Json& value) {
  if (!value.is_string()) RaiseWrongValue("a text", value);
  return value.get_ref<const std::string&>();
}

}  // namespace quenzel7::cli
