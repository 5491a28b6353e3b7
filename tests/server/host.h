#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "server/abi/bstr.h"
#include "server/quenzel7_automation.h"

/// What a host in another language does, for tests of the binary interface.
namespace quenzel7::server::test {

/// A VARIANT that is cleared in the end.
class Value {
 public:
  Value() { VariantInit(&variant_); }
  Value(LONG number) : Value() {
    variant_.vt = VT_I4;
    variant_.value.lVal = number;
  }
  Value(const char* text) : Value() {
    variant_.vt = VT_BSTR;
    variant_.value.bstrVal = ToBstr(text);
  }
  Value(const Value& other) : Value() { VariantCopy(&variant_, &other.variant_); }
  Value& operator=(Value other) {
    std::swap(variant_, other.variant_);
    return *this;
  }
  ~Value() { VariantClear(&variant_); }

  /// A value whose kind and contents are told.
  template <class Content>
  static Value Of(VARTYPE kind, Content content) {
    Value value;
    value.variant_.vt = kind;
    std::memcpy(&value.variant_.value, &content, sizeof content);
    return value;
  }
  /// A reference to a place of that kind.
  static Value Place(VARTYPE kind, void* place) { return Of(static_cast<VARTYPE>(VT_BYREF | kind), place); }
  static Value Place(Value& variant) { return Place(VT_VARIANT, &variant.variant_); }
  /// An argument that is left out.
  static Value LeftOut() { return Of(VT_ERROR, DISP_E_PARAMNOTFOUND); }

  VARTYPE Kind() const { return variant_.vt; }
  LONG Number() const { return variant_.value.lVal; }
  std::string Text() const { return FromBstr(variant_.value.bstrVal); }
  VARIANT& Raw() { return variant_; }
  const VARIANT& Raw() const { return variant_; }

 private:
  VARIANT variant_;
};

/// How a call ended, with what was told of an error.
struct Outcome {
  HRESULT result = S_OK;
  Value value = {};
  LONG scode = 0;
  std::string description = {}, source = {};
  /// The argument that is to blame, if one was named.
  std::optional<UINT> argument = {};
};

/// A counted pointer to an object.
class Pointer {
 public:
  Pointer() = default;
  /// Takes the reference over.
  explicit Pointer(IDispatch* dispatch) : dispatch_(dispatch) {}
  Pointer(const Pointer& other) : dispatch_(other.dispatch_) {
    if (dispatch_) dispatch_->lpVtbl->AddRef(dispatch_);
  }
  Pointer& operator=(Pointer other) {
    std::swap(dispatch_, other.dispatch_);
    return *this;
  }
  ~Pointer() { Reset(); }

  /// A new object of a class; its interface of that name, the default one when there is none.
  static Pointer Create(const char* className, const char* interfaceName = nullptr);
  /// The object that a value holds, with a reference of its own.
  static Pointer In(const Value& value) {
    if (value.Raw().value.pdispVal) value.Raw().value.pdispVal->lpVtbl->AddRef(value.Raw().value.pdispVal);
    return Pointer(value.Raw().value.pdispVal);
  }
  static Pointer HostServices();

  IDispatch* Get() const { return dispatch_; }
  explicit operator bool() const { return dispatch_ != nullptr; }
  /// A value that holds the object.
  Value AsValue() const {
    if (dispatch_) dispatch_->lpVtbl->AddRef(dispatch_);
    return Value::Of(VT_DISPATCH, dispatch_);
  }
  void Reset() {
    IDispatch* held = std::exchange(dispatch_, nullptr);
    if (held) held->lpVtbl->Release(held);
  }

  /// The same object's interface of that name; none when it has none.
  Pointer Face(const char* interfaceName) const;
  /// The identity, not counted.
  const void* Identity() const;

  /// The number of a member, DISPID_UNKNOWN when there is none.
  DISPID Id(const char* name) const;
  Outcome Invoke(DISPID id, WORD flags, std::vector<Value> arguments = {},
                 std::vector<DISPID> names = {}) const;
  /// Arguments in the order of the parameters.
  Outcome Call(const char* name, std::vector<Value> arguments = {}) const {
    return Invoke(Id(name), DISPATCH_METHOD, std::move(arguments));
  }
  Outcome Read(const char* name) const { return Invoke(Id(name), DISPATCH_PROPERTYGET); }
  Outcome Write(const char* name, Value value) const {
    return Invoke(Id(name), DISPATCH_PROPERTYPUT, {std::move(value)}, {DISPID_PROPERTYPUT});
  }
  Outcome WriteReference(const char* name, Value value) const {
    return Invoke(Id(name), DISPATCH_PROPERTYPUTREF, {std::move(value)}, {DISPID_PROPERTYPUT});
  }

 private:
  IDispatch* dispatch_ = nullptr;
};

/// A text of the interface as long as this lives.
class Utf16 {
 public:
  explicit Utf16(const std::string& text) : text_(ToBstr(text)) {}
  Utf16(const Utf16&) = delete;
  Utf16& operator=(const Utf16&) = delete;
  ~Utf16() { SysFreeString(text_); }
  BSTR Get() const { return text_; }

 private:
  BSTR text_;
};

}  // namespace quenzel7::server::test
