#include "server/face_calls.h"

#include <new>
#include <string>

#include "platform/automation/automation_error.h"
#include "platform/automation/enumerator.h"
#include "server/abi/bstr.h"
#include "server/invocation.h"
#include "server/marshal.h"
#include "server/results.h"
#include "server/stub.h"
#include "server/types/identifiers.h"
#include "server/types/member_ids.h"

namespace quenzel7::server {
namespace {

using automation::AutomationError;
using automation::Member;
using automation::Variant;

/// Runs a call on a stub's own thread, and lets no exception leave. What is said of arguments has been dealt
/// with; an error that still comes has no other way out than the result.
template <class Work>
HRESULT OnOwnThread(Stub& stub, Work work) {
  if (!stub.Owner().IsCurrent()) return RPC_E_WRONG_THREAD;
  // The object may be given up while it is called.
  stub.AddRef();
  const StubReference held(&stub);
  stub.Owner().Sweep();
  try {
    return work();
  } catch (const AutomationError& error) {
    return ResultOf(error.Number());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

Face& FaceOf(IDispatch* self) { return *static_cast<Face*>(self); }
EnumeratorFace& FaceOf(IEnumVARIANT* self) { return *static_cast<EnumeratorFace*>(self); }

template <class Interface>
HRESULT STDMETHODCALLTYPE QueryInterface(Interface* self, REFIID iid, void** face) {
  if (!face) return E_POINTER;
  *face = nullptr;
  if (!iid) return E_POINTER;
  Stub& stub = *FaceOf(self).stub;
  return OnOwnThread(stub, [&] { return stub.QueryInterface(iid, face); });
}

template <class Interface>
ULONG STDMETHODCALLTYPE AddRef(Interface* self) {
  return FaceOf(self).stub->AddRef();
}

template <class Interface>
ULONG STDMETHODCALLTYPE Release(Interface* self) {
  return FaceOf(self).stub->Release();
}

HRESULT STDMETHODCALLTYPE GetTypeInfoCount(IDispatch*, UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE GetTypeInfo(IDispatch*, UINT, LCID, ITypeInfo** info) {
  if (info) *info = nullptr;
  return E_NOTIMPL;
}

bool IsNone(REFIID iid) { return !iid || IsSameGuid(*iid, IID_NULL); }

HRESULT STDMETHODCALLTYPE GetIDsOfNames(IDispatch* self, REFIID iid, OLECHAR** names, UINT count, LCID,
                                        DISPID* ids) {
  Face& face = FaceOf(self);
  return OnOwnThread(*face.stub, [&]() -> HRESULT {
    if (!IsNone(iid)) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids) return E_POINTER;
    if (count == 0) return E_INVALIDARG;
    const Member* member = names[0] ? face.interface->Find(FromUtf16(names[0])) : nullptr;
    ids[0] = DISPID_UNKNOWN;
    if (member) {
      ids[0] = MemberId(*face.interface, static_cast<std::size_t>(member - face.interface->Members().data()));
    }
    bool areKnown = member != nullptr;
    for (UINT place = 1; place < count; ++place) {
      ids[place] = member && names[place] ? ParameterId(*member, FromUtf16(names[place])) : DISPID_UNKNOWN;
      areKnown = areKnown && ids[place] != DISPID_UNKNOWN;
    }
    return areKnown ? S_OK : DISP_E_UNKNOWNNAME;
  });
}

HRESULT STDMETHODCALLTYPE InvokeMember(IDispatch* self, DISPID id, REFIID iid, LCID, WORD flags,
                                       DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                                       UINT* badArgument) {
  Face& face = FaceOf(self);
  return OnOwnThread(*face.stub, [&]() -> HRESULT {
    if (!IsNone(iid)) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_POINTER;
    const Member* member = MemberOfId(*face.interface, id);
    if (!member) return DISP_E_MEMBERNOTFOUND;
    return Invoke(*face.stub->Object(), *member, *face.interface, flags, *parameters, result, info,
                  badArgument);
  });
}

automation::Enumerator& EnumeratorOf(EnumeratorFace& face) {
  return static_cast<automation::Enumerator&>(*face.stub->Object());
}

HRESULT STDMETHODCALLTYPE Next(IEnumVARIANT* self, ULONG count, VARIANT* values, ULONG* fetched) {
  EnumeratorFace& face = FaceOf(self);
  if (fetched) *fetched = 0;
  return OnOwnThread(*face.stub, [&]() -> HRESULT {
    if (!values || (count != 1 && !fetched)) return E_POINTER;
    Variant value;
    ULONG given = 0;
    try {
      while (given < count && EnumeratorOf(face).Next(value)) {
        ToVariant(value, values[given]);
        ++given;
      }
    } catch (...) {
      // What a call that fails has given is nobody's.
      while (given > 0) VariantClear(&values[--given]);
      throw;
    }
    if (fetched) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  });
}

HRESULT STDMETHODCALLTYPE Skip(IEnumVARIANT* self, ULONG count) {
  EnumeratorFace& face = FaceOf(self);
  return OnOwnThread(*face.stub, [&]() -> HRESULT {
    Variant value;
    for (ULONG skipped = 0; skipped < count; ++skipped) {
      if (!EnumeratorOf(face).Next(value)) return S_FALSE;
    }
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE Reset(IEnumVARIANT* self) {
  EnumeratorFace& face = FaceOf(self);
  return OnOwnThread(*face.stub, [&]() -> HRESULT {
    EnumeratorOf(face).Reset();
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT* self, IEnumVARIANT** clone) {
  EnumeratorFace& face = FaceOf(self);
  if (!clone) return E_POINTER;
  *clone = nullptr;
  return OnOwnThread(*face.stub, [&]() -> HRESULT {
    const StubReference made(Apartment::Current().Hold(EnumeratorOf(face).Clone()));
    return made->QueryInterface(&IID_IEnumVARIANT, reinterpret_cast<void**>(clone));
  });
}

}  // namespace

const IDispatchVtbl kDispatchCalls = {&QueryInterface<IDispatch>,
                                      &AddRef<IDispatch>,
                                      &Release<IDispatch>,
                                      &GetTypeInfoCount,
                                      &GetTypeInfo,
                                      &GetIDsOfNames,
                                      &InvokeMember};

const IEnumVARIANTVtbl kEnumeratorCalls = {&QueryInterface<IEnumVARIANT>,
                                           &AddRef<IEnumVARIANT>,
                                           &Release<IEnumVARIANT>,
                                           &Next,
                                           &Skip,
                                           &Reset,
                                           &Clone};

}  // namespace quenzel7::server
