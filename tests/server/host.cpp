#include "tests/server/host.h"

#include <algorithm>

namespace quenzel7::server::test {

Pointer Pointer::Create(const char* className, const char* interfaceName) {
  CLSID clsid;
  const Utf16 programmatic(std::string("Quenzel7.") + className);
  if (Quenzel7ClassIdFromName(programmatic.Get(), &clsid) != S_OK) return {};
  IClassFactory* factory = nullptr;
  if (DllGetClassObject(&clsid, &IID_IClassFactory, reinterpret_cast<void**>(&factory)) != S_OK) return {};
  IDispatch* made = nullptr;
  factory->lpVtbl->CreateInstance(factory, nullptr, &IID_IDispatch, reinterpret_cast<void**>(&made));
  factory->lpVtbl->Release(factory);
  const Pointer object(made);
  return interfaceName && object ? object.Face(interfaceName) : object;
}

Pointer Pointer::HostServices() {
  IDispatch* services = nullptr;
  Quenzel7GetHostServices(&services);
  return Pointer(services);
}

Pointer Pointer::Face(const char* interfaceName) const {
  IID iid;
  const Utf16 name(interfaceName);
  if (Quenzel7InterfaceIdFromName(name.Get(), &iid) != S_OK) return {};
  IDispatch* face = nullptr;
  dispatch_->lpVtbl->QueryInterface(dispatch_, &iid, reinterpret_cast<void**>(&face));
  return Pointer(face);
}

const void* Pointer::Identity() const {
  IUnknown* identity = nullptr;
  dispatch_->lpVtbl->QueryInterface(dispatch_, &IID_IUnknown, reinterpret_cast<void**>(&identity));
  identity->lpVtbl->Release(identity);
  return identity;
}

DISPID Pointer::Id(const char* name) const {
  const Utf16 asked(name);
  OLECHAR* names[] = {asked.Get()};
  DISPID id = 12345;
  const HRESULT result = dispatch_->lpVtbl->GetIDsOfNames(dispatch_, &IID_NULL, names, 1, 0, &id);
  EXPECT_TRUE(result == S_OK || (result == DISP_E_UNKNOWNNAME && id == DISPID_UNKNOWN)) << name;
  return id;
}

Outcome Pointer::Invoke(DISPID id, WORD flags, std::vector<Value> arguments,
                        std::vector<DISPID> names) const {
  std::vector<VARIANT> raw;
  for (const Value& argument : arguments) raw.push_back(argument.Raw());
  // Without names the last argument comes first; those with names stand in the order of these.
  if (names.empty()) std::reverse(raw.begin(), raw.end());
  DISPPARAMS parameters{raw.data(), names.data(), static_cast<UINT>(raw.size()),
                        static_cast<UINT>(names.size())};
  constexpr UINT kNone = 999;
  UINT argument = kNone;
  EXCEPINFO info{};
  Outcome outcome;
  outcome.result = dispatch_->lpVtbl->Invoke(dispatch_, id, &IID_NULL, 0, flags, &parameters,
                                             &outcome.value.Raw(), &info, &argument);
  if (argument != kNone) outcome.argument = argument;
  outcome.scode = info.scode;
  outcome.description = FromBstr(info.bstrDescription);
  outcome.source = FromBstr(info.bstrSource);
  for (BSTR text : {info.bstrSource, info.bstrDescription, info.bstrHelpFile}) SysFreeString(text);
  return outcome;
}

}  // namespace quenzel7::server::test
