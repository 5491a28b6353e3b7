#pragma once

#include <string>
#include <vector>

#include "platform/automation/automation_error.h"
#include "platform/automation/types.h"
#include "platform/automation/variant.h"

/// Conversions between variants and C++ types, as the automation run-time does them:
/// Empty is 0, False or ""; True is -1; a number that has to become an integer goes to the nearest, a half to
/// the even neighbour; text is read as a decimal number, blanks around it allowed.
/// Errors: 94 for Null, 6 when the value does not fit, 13 when the value is of no fitting kind, 91 when an
/// object is needed and there is none.
namespace quenzel7::automation {

namespace detail {

Byte ToByte(const Variant& value);
Integer ToInteger16(const Variant& value);
Long ToLong(const Variant& value);
Single ToSingle(const Variant& value);
Double ToDouble(const Variant& value);
Currency ToCurrency(const Variant& value);
bool ToBoolean(const Variant& value);
std::string ToText(const Variant& value);
const ObjectRef& ToObject(const Variant& value);
std::vector<Byte> ToBytes(const Variant& value);
[[noreturn]] void RaiseObjectNotSet();
[[noreturn]] void RaiseWrongClass(const Object& found);

template <class T>
struct IsSharedPointer : std::false_type {};
template <class T>
struct IsSharedPointer<std::shared_ptr<T>> : std::true_type {};

}  // namespace detail

/// The value as a T: a number type, bool, std::string, an enumeration, a byte block (std::vector<Byte>),
/// Variant itself, or a shared pointer to a class of objects (none stays none; error 13 when it is of another
/// class).
template <class T>
T To(const Variant& value) {
  if constexpr (std::is_same_v<T, Variant>) {
    return value;
  } else if constexpr (std::is_same_v<T, bool>) {
    return detail::ToBoolean(value);
  } else if constexpr (std::is_same_v<T, Byte>) {
    return detail::ToByte(value);
  } else if constexpr (std::is_same_v<T, Integer>) {
    return detail::ToInteger16(value);
  } else if constexpr (std::is_same_v<T, Long>) {
    return detail::ToLong(value);
  } else if constexpr (std::is_enum_v<T>) {
    return static_cast<T>(detail::ToLong(value));
  } else if constexpr (std::is_same_v<T, Single>) {
    return detail::ToSingle(value);
  } else if constexpr (std::is_same_v<T, Double>) {
    return detail::ToDouble(value);
  } else if constexpr (std::is_same_v<T, Currency>) {
    return detail::ToCurrency(value);
  } else if constexpr (std::is_same_v<T, std::string>) {
    return detail::ToText(value);
  } else if constexpr (std::is_same_v<T, std::vector<Byte>>) {
    return detail::ToBytes(value);
  } else if constexpr (std::is_same_v<T, ObjectRef>) {
    return detail::ToObject(value);
  } else {
    static_assert(detail::IsSharedPointer<T>::value, "no conversion from a variant to this type");
    const ObjectRef& object = detail::ToObject(value);
    auto result = std::dynamic_pointer_cast<typename T::element_type>(object);
    if (object && !result) detail::RaiseWrongClass(*object);
    return result;
  }
}

/// A text as To<Long> reads it; errors 13 and 6.
Long LongFromText(const std::string& text);

/// The object; error 91 when there is none.
template <class C>
C& Required(const std::shared_ptr<C>& object) {
  if (!object) detail::RaiseObjectNotSet();
  return *object;
}

/// What `take` makes of the argument at a place from 0; its errors tell that place.
template <class Take>
auto FromArgument(std::size_t place, Take take) {
  try {
    return take();
  } catch (const AutomationError& error) {
    throw error.OfArgument(place);
  }
}

/// The object of a variant as a C&; error 91 when there is none, 13 when it is of another class.
template <class C>
C& ToReference(const Variant& value) {
  const ObjectRef& object = detail::ToObject(value);
  if (!object) detail::RaiseObjectNotSet();
  if constexpr (std::is_same_v<C, Object>) {
    return *object;
  } else {
    auto* result = dynamic_cast<C*>(object.get());
    if (!result) detail::RaiseWrongClass(*object);
    return *result;
  }
}

/// A byte block as a variant that holds an array of bytes, indices from 0.
Variant FromBytes(const std::vector<Byte>& bytes);
/// 32-bit numbers as a variant that holds an array of them, indices from 0.
Variant FromLongs(const std::vector<Long>& numbers);
/// Texts as a variant that holds an array of them, indices from 0.
Variant FromTexts(const std::vector<std::string>& texts);

/// A C++ value as a variant; an enumeration becomes its number, a byte block an array of bytes, a vector of
/// 32-bit numbers or of texts an array of those.
template <class T>
Variant From(const T& value) {
  if constexpr (std::is_enum_v<T>) {
    return Variant(static_cast<Long>(value));
  } else if constexpr (std::is_same_v<T, std::vector<Byte>>) {
    return FromBytes(value);
  } else if constexpr (std::is_same_v<T, std::vector<Long>>) {
    return FromLongs(value);
  } else if constexpr (std::is_same_v<T, std::vector<std::string>>) {
    return FromTexts(value);
  } else {
    return Variant(value);
  }
}

}  // namespace quenzel7::automation
