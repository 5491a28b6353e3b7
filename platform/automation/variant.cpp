#include "platform/automation/variant.h"

#include <array>
#include <utility>

#include "platform/automation/array.h"
#include "platform/automation/automation_error.h"

namespace quenzel7::automation {
namespace {

[[noreturn]] void RaiseMismatch(VariantKind found, VariantKind wanted) {
  throw AutomationError(ErrorNumber::TypeMismatch, std::string("type mismatch: ") + KindName(found) +
                                                       " where " + KindName(wanted) + " was expected");
}

}  // namespace

const char* KindName(VariantKind kind) {
  switch (kind) {
    case VariantKind::Empty:
      return "Empty";
    case VariantKind::Null:
      return "Null";
    case VariantKind::Integer:
      return "Integer";
    case VariantKind::Long:
      return "Long";
    case VariantKind::Single:
      return "Single";
    case VariantKind::Double:
      return "Double";
    case VariantKind::Currency:
      return "Currency";
    case VariantKind::String:
      return "String";
    case VariantKind::Object:
      return "Object";
    case VariantKind::Boolean:
      return "Boolean";
    case VariantKind::Variant:
      return "Variant";
    case VariantKind::Byte:
      return "Byte";
    case VariantKind::Array:
      return "Array";
  }
  return "unknown";
}

Variant::Variant(Array value) : value_(std::make_shared<Array>(std::move(value))) {}

VariantKind Variant::Kind() const {
  // In the order of the alternatives of value_.
  static constexpr std::array kKinds = {VariantKind::Empty,  VariantKind::Null,    VariantKind::Boolean,
                                        VariantKind::Byte,   VariantKind::Integer, VariantKind::Long,
                                        VariantKind::Single, VariantKind::Double,  VariantKind::Currency,
                                        VariantKind::String, VariantKind::Object,  VariantKind::Array};
  static_assert(kKinds.size() == std::variant_size_v<decltype(value_)>);
  return kKinds[value_.index()];
}

const std::string& Variant::Text() const {
  if (const auto* text = std::get_if<std::shared_ptr<const std::string>>(&value_)) return **text;
  RaiseMismatch(Kind(), VariantKind::String);
}

const ObjectRef& Variant::Object() const {
  if (const auto* object = std::get_if<ObjectRef>(&value_)) return *object;
  RaiseMismatch(Kind(), VariantKind::Object);
}

const Array& Variant::Elements() const {
  if (const auto* array = std::get_if<std::shared_ptr<Array>>(&value_)) return **array;
  RaiseMismatch(Kind(), VariantKind::Array);
}

Array& Variant::MutableElements() {
  auto* array = std::get_if<std::shared_ptr<Array>>(&value_);
  if (!array) RaiseMismatch(Kind(), VariantKind::Array);
  if (array->use_count() > 1) *array = std::make_shared<Array>(**array);
  return **array;
}

bool operator==(const Variant& a, const Variant& b) {
  if (a.Kind() != b.Kind()) return false;
  if (a.IsText()) return a.Text() == b.Text();
  if (a.IsArray()) return a.Elements() == b.Elements();
  return a.value_ == b.value_;
}

}  // namespace quenzel7::automation
