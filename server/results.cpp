#include "server/results.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "server/abi/bstr.h"

namespace quenzel7::server {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

constexpr std::uint32_t kFacilityMask = 0xFFFF0000u;

/// Results that the interface itself has for errors of the run-time.
constexpr struct {
  HRESULT result;
  ErrorNumber number;
} kResults[] = {
    {E_OUTOFMEMORY, ErrorNumber::OutOfMemory},
    {DISP_E_BADINDEX, ErrorNumber::SubscriptOutOfRange},
    {DISP_E_ARRAYISLOCKED, kArrayIsLocked},
    {DISP_E_DIVBYZERO, ErrorNumber::DivisionByZero},
    {DISP_E_OVERFLOW, ErrorNumber::Overflow},
    {DISP_E_TYPEMISMATCH, ErrorNumber::TypeMismatch},
    {CLASS_E_CLASSNOTAVAILABLE, ErrorNumber::ClassNotCreatable},
    {DISP_E_UNKNOWNNAME, ErrorNumber::NoSuchMember},
    {DISP_E_MEMBERNOTFOUND, ErrorNumber::NoSuchMember},
    {DISP_E_PARAMNOTFOUND, ErrorNumber::NamedArgumentNotFound},
    {DISP_E_PARAMNOTOPTIONAL, ErrorNumber::ArgumentNotOptional},
    {DISP_E_BADPARAMCOUNT, ErrorNumber::WrongNumberOfArguments},
    {DISP_E_BADVARTYPE, ErrorNumber::UnsupportedKind},
};

/// Those of arguments that cannot be taken.
constexpr struct {
  ErrorNumber number;
  HRESULT result;
} kArgumentResults[] = {
    {ErrorNumber::TypeMismatch, DISP_E_TYPEMISMATCH},
    {ErrorNumber::Overflow, DISP_E_OVERFLOW},
    {ErrorNumber::UnsupportedKind, DISP_E_BADVARTYPE},
    {kArrayIsLocked, DISP_E_ARRAYISLOCKED},
};

std::string Hexadecimal(HRESULT result) {
  char text[11];
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(result));
  return text;
}

}  // namespace

Long NumberOf(HRESULT result) {
  for (const auto& known : kResults) {
    if (known.result == result) return static_cast<Long>(known.number);
  }
  const auto bits = static_cast<std::uint32_t>(result);
  if ((bits & kFacilityMask) == kRunTimeErrors && (bits & ~kFacilityMask) != 0) {
    return static_cast<Long>(bits & ~kFacilityMask);
  }
  return result;
}

HRESULT Report(const AutomationError& error, EXCEPINFO* info) {
  if (error.Argument()) {
    for (const auto& known : kArgumentResults) {
      if (known.number == error.Code()) return known.result;
    }
  }
  if (info) {
    std::memset(info, 0, sizeof *info);
    info->scode = ResultOf(error.Number());
    info->bstrDescription = ToBstr(error.Description());
    info->bstrSource = ToBstr(error.Source());
  }
  return DISP_E_EXCEPTION;
}

AutomationError ErrorOf(HRESULT result, EXCEPINFO& info, const std::string& what) {
  if (result != DISP_E_EXCEPTION) {
    return AutomationError(static_cast<ErrorNumber>(NumberOf(result)),
                           what + " failed with " + Hexadecimal(result));
  }
  if (info.pfnDeferredFillIn) info.pfnDeferredFillIn(&info);
  const Long number = info.scode ? NumberOf(info.scode) : info.wCode;
  const std::string description = FromBstr(info.bstrDescription);
  AutomationError error(
      static_cast<ErrorNumber>(number),
      description.empty() ? what + " failed with error " + std::to_string(number) : description,
      info.bstrSource ? FromBstr(info.bstrSource) : std::string());
  for (BSTR text : {info.bstrSource, info.bstrDescription, info.bstrHelpFile}) SysFreeString(text);
  return error;
}

}  // namespace quenzel7::server
