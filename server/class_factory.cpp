#include "server/class_factory.h"

#include <atomic>

#include "server/apartment.h"
#include "server/live_objects.h"
#include "server/stub.h"
#include "server/surface/last_error.h"
#include "server/types/class_table.h"
#include "server/types/identifiers.h"

namespace quenzel7::server {
namespace {

struct Factory : IClassFactory {
  explicit Factory(const automation::ClassInfo& made);

  const automation::ClassInfo& creatable;
  std::atomic<ULONG> references = 1;
  LiveObject counted;
};

Factory& FactoryOf(IClassFactory* self) { return *static_cast<Factory*>(self); }

HRESULT STDMETHODCALLTYPE QueryInterface(IClassFactory* self, REFIID iid, void** face) {
  if (!face) return E_POINTER;
  *face = nullptr;
  if (!iid) return E_POINTER;
  if (!IsSameGuid(*iid, IID_IUnknown) && !IsSameGuid(*iid, IID_IClassFactory)) return E_NOINTERFACE;
  self->lpVtbl->AddRef(self);
  *face = self;
  return S_OK;
}

ULONG STDMETHODCALLTYPE AddRef(IClassFactory* self) { return ++FactoryOf(self).references; }

ULONG STDMETHODCALLTYPE Release(IClassFactory* self) {
  Factory& factory = FactoryOf(self);
  const ULONG left = --factory.references;
  if (left == 0) delete &factory;
  return left;
}

HRESULT STDMETHODCALLTYPE CreateInstance(IClassFactory* self, IUnknown* outer, REFIID iid, void** face) {
  if (!face) return E_POINTER;
  *face = nullptr;
  if (!iid) return E_POINTER;
  if (outer) return CLASS_E_NOAGGREGATION;
  return Guarded([&] {
    const StubReference made(Apartment::Current().Hold(FactoryOf(self).creatable.create()));
    return made->QueryInterface(iid, face);
  });
}

HRESULT STDMETHODCALLTYPE Lock(IClassFactory*, BOOL lock) {
  LockServer(lock != 0);
  return S_OK;
}

constexpr IClassFactoryVtbl kFactoryCalls = {&QueryInterface, &AddRef, &Release, &CreateInstance, &Lock};

Factory::Factory(const automation::ClassInfo& made) : IClassFactory{&kFactoryCalls}, creatable(made) {}

}  // namespace

HRESULT MakeClassFactory(const automation::ClassInfo& creatable, REFIID iid, void** factory) {
  IClassFactory* made = new Factory(creatable);
  const HRESULT result = QueryInterface(made, iid, factory);
  Release(made);
  return result;
}

const automation::ClassInfo* CreatableOfId(REFCLSID clsid) {
  for (const automation::ClassInfo* published : PublishedClasses()) {
    if (IsCreatable(*published) && IsSameGuid(ClassId(published->name), *clsid)) return published;
  }
  return nullptr;
}

}  // namespace quenzel7::server
