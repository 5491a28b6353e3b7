#include "server/surface/last_error.h"

#include <cstdint>
#include <cstdio>
#include <exception>
#include <new>

#include "platform/automation/automation_error.h"

namespace quenzel7::server {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

constexpr Long kLastRunTimeError = 0xFFFF;

/// What is told: the text that is kept, or a constant one.
constinit thread_local const char* told = "";
constinit thread_local bool isTextGone = false;

/// Goes while other things of its thread may still fail.
struct KeptText {
  std::string text;

  ~KeptText() {
    told = "";
    isTextGone = true;
  }
};

thread_local KeptText kept;

void KeepNoMemory() noexcept { told = "there is not enough memory"; }

void Keep(const char* newText) noexcept {
  if (isTextGone) {
    told = "a failure while the thread ends";
    return;
  }
  try {
    kept.text = newText;
    told = kept.text.c_str();
  } catch (const std::bad_alloc&) {
    KeepNoMemory();
  }
}

}  // namespace

HRESULT ResultOf(Long errorNumber) {
  if (errorNumber < 0) return errorNumber;
  if (errorNumber == 0 || errorNumber > kLastRunTimeError) return E_UNEXPECTED;
  return static_cast<HRESULT>(kRunTimeErrors + static_cast<std::uint32_t>(errorNumber));
}

void Fail(HRESULT result, const std::string& text) {
  throw AutomationError(static_cast<ErrorNumber>(result), text);
}

HRESULT KeepCurrentException() noexcept {
  try {
    throw;
  } catch (const AutomationError& error) {
    Keep(error.what());
    return ResultOf(error.Number());
  } catch (const std::bad_alloc&) {
    KeepNoMemory();
    return E_OUTOFMEMORY;
  } catch (const std::exception& error) {
    Keep(error.what());
    return E_UNEXPECTED;
  } catch (...) {
    Keep("a failure of an unknown kind");
    return E_UNEXPECTED;
  }
}

HRESULT KeepResult(HRESULT result) noexcept {
  if (FAILED(result)) {
    char text[32];
    std::snprintf(text, sizeof text, "failure 0x%08X", static_cast<unsigned>(result));
    Keep(text);
  }
  return result;
}

}  // namespace quenzel7::server

const char* Quenzel7LastError() { return quenzel7::server::told; }
