// What the shared library exports beside texts, values, arrays and surfaces.

#include <string>
#include <vector>

#include "platform/automation/automation_error.h"
#include "server/abi/bstr.h"
#include "server/apartment.h"
#include "server/class_factory.h"
#include "server/live_objects.h"
#include "server/quenzel7_automation.h"
#include "server/registration/registration.h"
#include "server/registration/this_library.h"
#include "server/services/service_classes.h"
#include "server/stub.h"
#include "server/surface/last_error.h"
#include "server/types/class_table.h"
#include "server/types/identifiers.h"

namespace quenzel7::server {
namespace {

const automation::Interface* InterfaceOfName(const std::string& name) {
  for (const Classes classes : {PublishedClasses(), ServiceClasses()}) {
    for (const automation::ClassInfo* published : classes) {
      if (const automation::Interface* found = published->FindInterface(name)) return found;
    }
  }
  return nullptr;
}

std::vector<RegisteredClass> ClassesToRegister() {
  std::vector<RegisteredClass> classes;
  for (const automation::ClassInfo* published : PublishedClasses()) {
    if (!IsCreatable(*published)) continue;
    classes.push_back({ProgrammaticName(published->name), GuidText(ClassId(published->name))});
  }
  return classes;
}

/// The programmatic name that is nearest to one that is none.
std::string NearestCreatable(const std::string& asked) {
  std::vector<std::string> names;
  for (const RegisteredClass& known : ClassesToRegister()) names.push_back(known.programmaticName);
  return std::string(automation::NearestName(asked, {names.begin(), names.end()}));
}

/// Whoever installs a library asks only whether its classes are known afterwards.
HRESULT OfRegistration(HRESULT result) { return SUCCEEDED(result) ? result : SELFREG_E_CLASS; }

}  // namespace
}  // namespace quenzel7::server

using namespace quenzel7::server;

HRESULT DllGetClassObject(REFCLSID clsid, REFIID iid, void** factory) {
  if (!factory) return E_POINTER;
  *factory = nullptr;
  if (!clsid || !iid) return E_POINTER;
  return Guarded([&]() -> HRESULT {
    const auto* creatable = CreatableOfId(clsid);
    return creatable ? MakeClassFactory(*creatable, iid, factory) : CLASS_E_CLASSNOTAVAILABLE;
  });
}

HRESULT DllCanUnloadNow() {
  Apartment::SweepCurrent();
  return LiveObjects() == 0 ? S_OK : S_FALSE;
}

HRESULT DllRegisterServer() {
  return OfRegistration(Guarded([] {
    Register(ThisLibrary(), ClassesToRegister());
    return S_OK;
  }));
}

HRESULT DllUnregisterServer() {
  return OfRegistration(Guarded([] {
    Unregister();
    return S_OK;
  }));
}

HRESULT Quenzel7ClassIdFromName(const OLECHAR* name, CLSID* clsid) {
  if (!name || !clsid) return E_POINTER;
  return Guarded([&]() -> HRESULT {
    *clsid = IID_NULL;
    const std::string asked = FromUtf16(name);
    const auto* creatable = FindCreatable(ClassOfProgrammaticName(asked));
    if (!creatable) {
      Fail(CLASS_E_CLASSNOTAVAILABLE,
           "hosts create no class \"" + asked + "\"; nearest is \"" + NearestCreatable(asked) + "\"");
    }
    *clsid = ClassId(creatable->name);
    return S_OK;
  });
}

HRESULT Quenzel7InterfaceIdFromName(const OLECHAR* name, IID* iid) {
  if (!name || !iid) return E_POINTER;
  return Guarded([&]() -> HRESULT {
    *iid = IID_NULL;
    const std::string asked = FromUtf16(name);
    const auto* interface = InterfaceOfName(asked);
    if (!interface) Fail(E_NOINTERFACE, "there is no interface \"" + asked + "\"");
    *iid = InterfaceId(interface->Name());
    return S_OK;
  });
}

HRESULT Quenzel7GetHostServices(IDispatch** services) {
  if (!services) return E_POINTER;
  *services = nullptr;
  return Guarded([&] {
    Apartment& apartment = Apartment::Current();
    *services = apartment.Hold(apartment.HostServices())->Default();
    return S_OK;
  });
}
