#include "server/foreign_object.h"

#include <cstring>
#include <vector>

#include "platform/automation/automation_error.h"
#include "server/abi/bstr.h"
#include "server/apartment.h"
#include "server/marshal.h"
#include "server/results.h"

namespace quenzel7::server {

using automation::AutomationError;
using automation::CallKind;
using automation::ErrorNumber;
using automation::Variant;

namespace {

WORD FlagsOf(CallKind kind) {
  switch (kind) {
    case CallKind::Method:
      // A member that takes arguments may be a property of the host's.
      return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    case CallKind::Get:
      return DISPATCH_PROPERTYGET;
    case CallKind::Put:
      return DISPATCH_PROPERTYPUT;
    case CallKind::PutRef:
      break;
  }
  return DISPATCH_PROPERTYPUTREF;
}

/// Values of the interface that are cleared in the end.
class Values {
 public:
  explicit Values(std::size_t count) : values_(count) {
    for (VARIANT& value : values_) VariantInit(&value);
  }
  Values(const Values&) = delete;
  Values& operator=(const Values&) = delete;
  ~Values() {
    for (VARIANT& value : values_) VariantClear(&value);
  }

  VARIANT& operator[](std::size_t place) { return values_[place]; }
  VARIANT* Data() { return values_.data(); }

 private:
  std::vector<VARIANT> values_;
};

}  // namespace

ForeignObject::ForeignObject(IDispatch* dispatch, IUnknown* identity)
    : dispatch_(dispatch), identity_(identity) {
  dispatch_->lpVtbl->AddRef(dispatch_);
}

ForeignObject::~ForeignObject() {
  Apartment::Forget(identity_);
  dispatch_->lpVtbl->Release(dispatch_);
}

const automation::ClassInfo& ForeignObject::Class() const {
  static const automation::Interface interface("HostObject", &ForeignObject::Call);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{kClassName, interfaces};
  return info;
}

const ForeignObject* ForeignObject::Of(const automation::Object& object) {
  return dynamic_cast<const ForeignObject*>(&object);
}

IDispatch* ForeignObject::NewReference() const {
  dispatch_->lpVtbl->AddRef(dispatch_);
  return dispatch_;
}

DISPID ForeignObject::IdOf(std::string_view name) {
  const auto known = ids_.find(automation::Folded(name));
  if (known != ids_.end()) return known->second;
  const BSTR asked = ToBstr(name);
  OLECHAR* names[] = {asked};
  DISPID id = DISPID_UNKNOWN;
  const HRESULT result = dispatch_->lpVtbl->GetIDsOfNames(dispatch_, &IID_NULL, names, 1, 0, &id);
  SysFreeString(asked);
  if (result == DISP_E_UNKNOWNNAME) {
    throw AutomationError(ErrorNumber::NoSuchMember,
                          "the object of the host has no member \"" + std::string(name) + "\"");
  }
  if (FAILED(result)) {
    EXCEPINFO nothing{};
    throw ErrorOf(result, nothing, "asking an object of the host for \"" + std::string(name) + "\"");
  }
  ids_.emplace(automation::Folded(name), id);
  return id;
}

Variant ForeignObject::Call(automation::Object& object, std::string_view name, CallKind kind,
                            automation::Arguments arguments) {
  auto& self = static_cast<ForeignObject&>(object);
  // The host may let go of the object while it is called.
  const automation::ObjectRef keep = self.shared_from_this();
  const DISPID id = self.IdOf(name);

  const std::size_t count = arguments.size();
  const bool isMethod = kind == CallKind::Method;
  Values values(count);
  std::vector<VARIANT> passed(count);
  for (std::size_t place = 0; place < count; ++place) {
    ToVariant(arguments[place], values[place]);
    VARIANT& argument = passed[count - 1 - place];
    argument = values[place];
    if (isMethod) {
      argument.vt = VT_BYREF | VT_VARIANT;
      argument.value.pvarVal = &values[place];
    }
  }
  DISPID put = DISPID_PROPERTYPUT;
  const bool writes = kind == CallKind::Put || kind == CallKind::PutRef;
  DISPPARAMS parameters{passed.data(), writes ? &put : nullptr, static_cast<UINT>(count), writes ? 1u : 0u};

  Values result(1);
  EXCEPINFO info{};
  const HRESULT told = self.dispatch_->lpVtbl->Invoke(self.dispatch_, id, &IID_NULL, 0, FlagsOf(kind),
                                                      &parameters, result.Data(), &info, nullptr);
  if (FAILED(told)) throw ErrorOf(told, info, "\"" + std::string(name) + "\" of an object of the host");
  if (isMethod) {
    for (std::size_t place = 0; place < count; ++place) arguments[place] = FromVariant(values[place]);
  }
  return FromVariant(result[0]);
}

}  // namespace quenzel7::server
