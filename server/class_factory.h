#pragma once

#include "platform/automation/class_info.h"
#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// A new factory of a class that hosts can create, on the interface of that number: IID_IUnknown or
/// IID_IClassFactory, otherwise E_NOINTERFACE. Factories may be used on any thread; the objects that they
/// make belong to the thread that asked. A class that raises an error in making an object gives the result of
/// its number, see ResultOf, and its text by Quenzel7LastError.
HRESULT MakeClassFactory(const automation::ClassInfo& creatable, REFIID iid, void** factory);

/// The class of that number that hosts can create, or nullptr.
const automation::ClassInfo* CreatableOfId(REFCLSID clsid);

}  // namespace quenzel7::server
