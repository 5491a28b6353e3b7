#pragma once

#include "platform/automation/automation_error.h"
#include "server/quenzel7_automation.h"
#include "server/surface/last_error.h"

namespace quenzel7::server {

/// The error number that a result carries (see ResultOf) or that the run-time has for it; any other result is
/// its own number.
Long NumberOf(HRESULT result);

/// An array that somebody is at cannot be replaced.
inline constexpr automation::ErrorNumber kArrayIsLocked{10};

/// The result of a call whose argument could not be taken: DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW,
/// DISP_E_BADVARTYPE or DISP_E_ARRAYISLOCKED; DISP_E_EXCEPTION for any other error, which `info`, if there is
/// one, then tells.
HRESULT Report(const automation::AutomationError& error, EXCEPINFO* info);

/// The error that a host tells: what is in `info` when the result is DISP_E_EXCEPTION, whose texts are freed,
/// otherwise that of the result. `what` names the call.
automation::AutomationError ErrorOf(HRESULT result, EXCEPINFO& info, const std::string& what);

}  // namespace quenzel7::server
