#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "platform/automation/object.h"
#include "platform/automation/types.h"

namespace quenzel7::automation {

class Array;

/// What a Variant holds. The numbers are those of the binary interface.
enum class VariantKind : std::uint16_t {
  Empty = 0,
  Null = 1,
  Integer = 2,
  Long = 3,
  Single = 4,
  Double = 5,
  Currency = 6,
  String = 8,
  Object = 9,
  Boolean = 11,
  /// Only as the kind of an array's cells.
  Variant = 12,
  Byte = 17,
  Array = 0x2000,
};

/// The name of a kind as messages show it: "Long", "String", "Array".
const char* KindName(VariantKind kind);

/// The database's and the run-time's "no value".
struct NullValue {
  friend bool operator==(NullValue, NullValue) = default;
};

/// One value of any kind. Text and arrays are shared between copies, so copying a variant never copies their
/// contents: text is immutable, an array is copied when a variant that shares it is written through.
class Variant {
 public:
  /// Empty.
  Variant() = default;
  Variant(NullValue) : value_(NullValue{}) {}
  Variant(bool value) : value_(value) {}
  Variant(Byte value) : value_(value) {}
  Variant(Integer value) : value_(value) {}
  Variant(Long value) : value_(value) {}
  Variant(Single value) : value_(value) {}
  Variant(Double value) : value_(value) {}
  Variant(Currency value) : value_(value) {}
  Variant(std::string value) : value_(std::make_shared<const std::string>(std::move(value))) {}
  Variant(std::string_view value) : Variant(std::string(value)) {}
  Variant(const char* value) : Variant(std::string(value)) {}
  Variant(Array value);
  /// An object, or no object at all when the pointer is empty.
  template <class T>
  requires std::is_convertible_v<std::shared_ptr<T>, ObjectRef> Variant(std::shared_ptr<T> value)
      : value_(ObjectRef(std::move(value))) {}
  /// No other pointer silently becomes a Boolean.
  Variant(const void*) = delete;

  VariantKind Kind() const;
  bool IsEmpty() const { return std::holds_alternative<std::monostate>(value_); }
  bool IsNull() const { return std::holds_alternative<NullValue>(value_); }
  bool IsArray() const { return std::holds_alternative<std::shared_ptr<Array>>(value_); }
  bool IsObject() const { return std::holds_alternative<ObjectRef>(value_); }
  bool IsText() const { return std::holds_alternative<std::shared_ptr<const std::string>>(value_); }

  /// The value when it is exactly of type T (bool, Byte, Integer, Long, Single, Double, Currency), else
  /// nullptr.
  template <class T>
  const T* If() const {
    return std::get_if<T>(&value_);
  }

  /// The text; error 13 when the value is no text.
  const std::string& Text() const;
  /// The object, which may be none; error 13 when the value is no object.
  const ObjectRef& Object() const;
  /// The array for reading; error 13 when the value is no array.
  const Array& Elements() const;
  /// The array for writing, unshared first; error 13 when the value is no array.
  Array& MutableElements();

  /// The same kind and the same value; objects are the same when they are one object.
  friend bool operator==(const Variant& a, const Variant& b);

 private:
  std::variant<std::monostate, NullValue, bool, Byte, Integer, Long, Single, Double, Currency,
               std::shared_ptr<const std::string>, ObjectRef, std::shared_ptr<Array>>
      value_;
};

}  // namespace quenzel7::automation
