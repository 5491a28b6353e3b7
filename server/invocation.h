#pragma once

#include "platform/automation/class_info.h"
#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// Calls a member of an object as a host asks for it: IDispatch::Invoke without what concerns the object.
///
/// Results: DISP_E_MEMBERNOTFOUND when the member cannot be called so; DISP_E_BADPARAMCOUNT for too many
/// arguments, DISP_E_PARAMNOTOPTIONAL when one that is needed is missing, DISP_E_PARAMNOTFOUND when one is
/// named that the member does not have, or twice, and for a value to be written without the name
/// DISPID_PROPERTYPUT; DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW and DISP_E_BADVARTYPE for an argument that cannot
/// be taken; DISP_E_EXCEPTION with the number and text of whatever else goes wrong in `info`. `badArgument`
/// gets the place of the argument in rgvarg that is to blame.
HRESULT Invoke(automation::Object& object, const automation::Member& member,
               const automation::Interface& interface, WORD flags, const DISPPARAMS& parameters,
               VARIANT* result, EXCEPINFO* info, UINT* badArgument);

}  // namespace quenzel7::server
