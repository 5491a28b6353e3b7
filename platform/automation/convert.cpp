#include "platform/automation/convert.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

#include "platform/automation/arithmetic.h"
#include "platform/automation/array.h"
#include "platform/automation/class_info.h"

namespace quenzel7::automation {
namespace detail {
namespace {

constexpr Double kTenThousand = 10000.0;

[[noreturn]] void RaiseNoConversion(const Variant& value, const char* wanted) {
  if (value.IsNull()) {
    throw AutomationError(ErrorNumber::InvalidUseOfNull,
                          std::string("invalid use of Null: ") + wanted + " was expected");
  }
  throw AutomationError(ErrorNumber::TypeMismatch, std::string("type mismatch: ") + KindName(value.Kind()) +
                                                       " where " + wanted + " was expected");
}

[[noreturn]] void RaiseNoNumber(const std::string& text) {
  throw AutomationError(ErrorNumber::TypeMismatch, "type mismatch: \"" + text + "\" is not a number");
}

Double ParseNumber(const std::string& text) {
  const char* first = text.data();
  const char* last = first + text.size();
  while (first != last && *first == ' ') ++first;
  while (last != first && last[-1] == ' ') --last;
  // One sign at most: behind a plus the number itself must begin.
  if (last - first > 1 && *first == '+' && first[1] != '-') ++first;
  Double number = 0;
  const auto [end, error] = std::from_chars(first, last, number);
  if (error == std::errc::result_out_of_range && end == last) {
    throw AutomationError(ErrorNumber::Overflow, "overflow: \"" + text + "\" does not fit a number");
  }
  if (error != std::errc() || end != last || !std::isfinite(number)) RaiseNoNumber(text);
  return number;
}

std::string CurrencyText(Currency value) {
  // In unsigned arithmetic, so that the smallest number has a magnitude too.
  const bool negative = value.tenThousandths < 0;
  const auto magnitude = negative ? 0 - static_cast<std::uint64_t>(value.tenThousandths)
                                  : static_cast<std::uint64_t>(value.tenThousandths);
  std::string text(negative ? "-" : "");
  text += std::to_string(magnitude / 10000);
  std::string decimals = std::to_string(10000 + magnitude % 10000).substr(1);
  while (!decimals.empty() && decimals.back() == '0') decimals.pop_back();
  if (!decimals.empty()) text += "." + decimals;
  return text;
}

std::string NumberText(Double value, int digits) {
  // Not printf, whose decimal point is that of the process's locale.
  char buffer[40];
  const auto end = std::to_chars(buffer, std::end(buffer), value, std::chars_format::general, digits).ptr;
  return std::string(buffer, end);
}

}  // namespace

Double ToDouble(const Variant& value) {
  switch (value.Kind()) {
    case VariantKind::Empty:
      return 0;
    case VariantKind::Boolean:
      return *value.If<bool>() ? -1 : 0;
    case VariantKind::Byte:
      return *value.If<Byte>();
    case VariantKind::Integer:
      return *value.If<Integer>();
    case VariantKind::Long:
      return *value.If<Long>();
    case VariantKind::Single:
      return *value.If<Single>();
    case VariantKind::Double:
      return *value.If<Double>();
    case VariantKind::Currency:
      return static_cast<Double>(value.If<Currency>()->tenThousandths) / kTenThousand;
    case VariantKind::String:
      return ParseNumber(value.Text());
    default:
      RaiseNoConversion(value, "a number");
  }
}

Long ToLong(const Variant& value) {
  if (const Long* number = value.If<Long>()) return *number;
  return RoundHalfEven(ToDouble(value));
}

Integer ToInteger16(const Variant& value) { return automation::ToInteger(ToLong(value)); }

Byte ToByte(const Variant& value) {
  const Long number = ToLong(value);
  if (number < 0 || number > std::numeric_limits<Byte>::max()) {
    throw AutomationError(ErrorNumber::Overflow,
                          "overflow: " + std::to_string(number) + " does not fit a byte");
  }
  return static_cast<Byte>(number);
}

Single ToSingle(const Variant& value) {
  const Double number = ToDouble(value);
  const auto single = static_cast<Single>(number);
  if (std::isfinite(number) && !std::isfinite(single)) {
    throw AutomationError(ErrorNumber::Overflow,
                          "overflow: " + NumberText(number, 15) + " does not fit a single");
  }
  return single;
}

Currency ToCurrency(const Variant& value) {
  if (const Currency* currency = value.If<Currency>()) return *currency;
  const Double scaled = std::nearbyint(ToDouble(value) * kTenThousand);
  if (!(scaled >= -0x1p63 && scaled < 0x1p63)) {
    throw AutomationError(ErrorNumber::Overflow, "overflow: the value does not fit a currency");
  }
  return Currency{static_cast<std::int64_t>(scaled)};
}

bool ToBoolean(const Variant& value) {
  if (value.IsText()) {
    if (value.Text() == "True") return true;
    if (value.Text() == "False") return false;
  }
  return ToDouble(value) != 0;
}

std::string ToText(const Variant& value) {
  switch (value.Kind()) {
    case VariantKind::Empty:
      return {};
    case VariantKind::String:
      return value.Text();
    case VariantKind::Boolean:
      return *value.If<bool>() ? "True" : "False";
    case VariantKind::Byte:
    case VariantKind::Integer:
    case VariantKind::Long:
      return std::to_string(ToLong(value));
    case VariantKind::Single:
      return NumberText(*value.If<Single>(), 7);
    case VariantKind::Double:
      return NumberText(*value.If<Double>(), 15);
    case VariantKind::Currency:
      return CurrencyText(*value.If<Currency>());
    default:
      RaiseNoConversion(value, "a text");
  }
}

const ObjectRef& ToObject(const Variant& value) {
  static const ObjectRef kNone;
  if (value.IsEmpty()) return kNone;
  if (!value.IsObject()) RaiseNoConversion(value, "an object");
  return value.Object();
}

std::vector<Byte> ToBytes(const Variant& value) {
  if (!value.IsArray()) RaiseNoConversion(value, "an array of bytes");
  const auto cells = value.Elements().Cells<Byte>();
  return {cells.begin(), cells.end()};
}

void RaiseObjectNotSet() {
  throw AutomationError(ErrorNumber::ObjectNotSet, "an object was expected and none was given");
}

void RaiseWrongClass(const Object& found) {
  throw AutomationError(
      ErrorNumber::TypeMismatch,
      "type mismatch: an object of class " + std::string(found.Class().name) + " does not fit here");
}

}  // namespace detail

Long LongFromText(const std::string& text) {
  // Nearly every text is nothing but digits.
  Long number = 0;
  const char* const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, number);
  if (error == std::errc() && end == last) return number;
  return RoundHalfEven(detail::ParseNumber(text));
}

Variant FromBytes(const std::vector<Byte>& bytes) { return Array::OfBytes(bytes); }

namespace {

template <class T>
Variant FromCells(VariantKind kind, const std::vector<T>& values) {
  Array array = Array::OfSize(kind, static_cast<Long>(values.size()));
  std::copy(values.begin(), values.end(), array.Cells<T>().begin());
  return array;
}

}  // namespace

Variant FromLongs(const std::vector<Long>& numbers) { return FromCells(VariantKind::Long, numbers); }

Variant FromTexts(const std::vector<std::string>& texts) { return FromCells(VariantKind::String, texts); }

}  // namespace quenzel7::automation
