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

/// Results that tell errors of the automation run-time begin here.
constexpr std::uint32_t kRunTimeErrors = 0x800A0000;
constexpr Long kLastRunTimeError = 0xFFFF;

struct LastError {
  std::string text;
  /// What is told: `text`, or a constant one.
  const char* told = "";

  void Keep(const char* newText) noexcept {
    try {
      text = newText;
      told = text.c_str();
    } catch (const std::bad_alloc&) {
      KeepNoMemory();
    }
  }
  void KeepNoMemory() noexcept { told = "there is not enough memory"; }
};

thread_local LastError lastError;

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
    lastError.Keep(error.what());
    return ResultOf(error.Number());
  } catch (const std::bad_alloc&) {
    lastError.KeepNoMemory();
    return E_OUTOFMEMORY;
  } catch (const std::exception& error) {
    lastError.Keep(error.what());
    return E_UNEXPECTED;
  } catch (...) {
    lastError.Keep("a failure of an unknown kind");
    return E_UNEXPECTED;
  }
}

HRESULT KeepResult(HRESULT result) noexcept {
  if (FAILED(result)) {
    char text[32];
    std::snprintf(text, sizeof text, "failure 0x%08X", static_cast<unsigned>(result));
    lastError.Keep(text);
  }
  return result;
}

}  // namespace quenzel7::server

const char* Quenzel7LastError() { return quenzel7::server::lastError.told; }
