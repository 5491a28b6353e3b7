#include "server/stub.h"

#include <unordered_map>
#include <utility>

#include "platform/automation/enumerator.h"
#include "server/face_calls.h"
#include "server/types/identifiers.h"

namespace quenzel7::server {

using automation::Interface;

namespace {

/// The number of an interface, worked out once for each thread.
const GUID& IdOf(const Interface& interface) {
  thread_local std::unordered_map<const Interface*, GUID> ids;
  const auto known = ids.find(&interface);
  return known != ids.end() ? known->second
                            : ids.emplace(&interface, InterfaceId(interface.Name())).first->second;
}

}  // namespace

Stub::Stub(automation::ObjectRef object, std::shared_ptr<Apartment> apartment)
    : object_(std::move(object)), apartment_(std::move(apartment)) {
  for (const Interface* interface : object_->Class().interfaces) {
    faces_.push_back({{&kDispatchCalls}, this, interface});
  }
  if (std::dynamic_pointer_cast<automation::Enumerator>(object_)) {
    enumerator_ = std::make_unique<EnumeratorFace>(EnumeratorFace{{&kEnumeratorCalls}, this});
  }
}

ULONG Stub::Release() {
  if (apartment_->IsCurrent()) return apartment_->Release(this);
  // The apartment outlives the stub that goes with this.
  const std::shared_ptr<Apartment> apartment = apartment_;
  return apartment->Release(this);
}

HRESULT Stub::QueryInterface(REFIID iid, void** face) {
  void* found = nullptr;
  if (IsSameGuid(*iid, IID_IUnknown) || IsSameGuid(*iid, IID_IDispatch)) {
    found = Default();
  } else if (enumerator_ && IsSameGuid(*iid, IID_IEnumVARIANT)) {
    found = enumerator_.get();
  } else {
    for (Face& own : faces_) {
      if (IsSameGuid(*iid, IdOf(*own.interface))) found = static_cast<IDispatch*>(&own);
    }
  }
  *face = found;
  if (!found) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

Stub* StubOf(IUnknown* pointer) {
  const void* calls = pointer->lpVtbl;
  if (calls == &kDispatchCalls) return static_cast<Face*>(reinterpret_cast<IDispatch*>(pointer))->stub;
  if (calls == &kEnumeratorCalls) {
    return static_cast<EnumeratorFace*>(reinterpret_cast<IEnumVARIANT*>(pointer))->stub;
  }
  return nullptr;
}

}  // namespace quenzel7::server
