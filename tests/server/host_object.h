#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "server/abi/bstr.h"
#include "server/quenzel7_automation.h"
#include "tests/server/host.h"

namespace quenzel7::server::test {

/// An object that a host brings: members by name, each with what it does, and a note of every call.
class HostObject : public IDispatch {
 public:
  struct Call {
    std::string member;
    WORD flags = 0;
    std::vector<Value> arguments = {};
    std::vector<DISPID> names = {};
  };
  /// Does the call: gives a result, into `result`, and tells what went wrong in the EXCEPINFO.
  using Action = std::function<HRESULT(std::vector<VARIANT*> arguments, VARIANT* result, EXCEPINFO*)>;

  HostObject() : IDispatch{&kCalls} {}
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;

  void Has(const std::string& member, Action action) {
    members.push_back(member);
    actions.push_back(std::move(action));
  }
  /// A counted pointer to it; the object itself lives where the test has it.
  Pointer Handed() {
    ++references;
    return Pointer(this);
  }

  std::vector<std::string> members;
  std::vector<Action> actions;
  std::vector<Call> calls;
  int references = 0;
  int asked = 0;
  /// What asking for an interface gives where it has none.
  bool isDispatch = true;
  HRESULT namesFail = S_OK;

 private:
  static HostObject& Self(IDispatch* self) { return *static_cast<HostObject*>(self); }

  static HRESULT Query(IDispatch* self, REFIID iid, void** face) {
    const bool isUnknown = std::memcmp(iid, &IID_IUnknown, sizeof(GUID)) == 0;
    const bool isDispatch = std::memcmp(iid, &IID_IDispatch, sizeof(GUID)) == 0 && Self(self).isDispatch;
    *face = isUnknown || isDispatch ? self : nullptr;
    if (!*face) return E_NOINTERFACE;
    ++Self(self).references;
    return S_OK;
  }
  static ULONG AddRef(IDispatch* self) { return static_cast<ULONG>(++Self(self).references); }
  static ULONG Release(IDispatch* self) { return static_cast<ULONG>(--Self(self).references); }
  static HRESULT Count(IDispatch*, UINT*) { return E_NOTIMPL; }
  static HRESULT Info(IDispatch*, UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }
  static HRESULT Names(IDispatch* self, REFIID, OLECHAR** names, UINT count, LCID language, DISPID* ids) {
    HostObject& object = Self(self);
    // A name alone, in no language.
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(language, 0u);
    ++object.asked;
    if (object.namesFail != S_OK) return object.namesFail;
    const std::string asked = FromUtf16(names[0]);
    for (std::size_t place = 0; place < object.members.size(); ++place) {
      if (object.members[place] == asked) {
        ids[0] = static_cast<DISPID>(100 + place);
        return S_OK;
      }
    }
    ids[0] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
  }
  static HRESULT Invoke(IDispatch* self, DISPID id, REFIID, LCID language, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* info, UINT*) {
    HostObject& object = Self(self);
    EXPECT_EQ(language, 0u);
    const auto place = static_cast<std::size_t>(id - 100);
    Call call{object.members[place], flags, {}, {}};
    std::vector<VARIANT*> arguments;
    for (UINT count = parameters->cArgs; count > 0; --count) {
      VARIANT& argument = parameters->rgvarg[count - 1];
      Value seen;
      VariantCopy(&seen.Raw(), &argument);
      call.arguments.push_back(seen.Kind() == (VT_BYREF | VT_VARIANT) ? [&] {
        Value value;
        VariantCopy(&value.Raw(), argument.value.pvarVal);
        return value;
      }()
                                                                      : seen);
      arguments.push_back(&argument);
    }
    call.names.assign(parameters->rgdispidNamedArgs, parameters->rgdispidNamedArgs + parameters->cNamedArgs);
    object.calls.push_back(call);
    return object.actions[place](arguments, result, info);
  }

  static constexpr IDispatchVtbl kCalls = {&Query, &AddRef, &Release, &Count, &Info, &Names, &Invoke};
};

}  // namespace quenzel7::server::test
