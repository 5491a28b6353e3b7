#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>

#include "platform/automation/types.h"
#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// Results that tell errors of the automation run-time begin here; the number is in the lower 16 bits.
inline constexpr std::uint32_t kRunTimeErrors = 0x800A0000;

/// The result that tells an error of the automation run-time: 0x800A0000 + number for numbers from 1 to
/// 65535; a number below 0 is a result already. Others, which would look like success, are E_UNEXPECTED.
HRESULT ResultOf(Long errorNumber);

/// Raises an AutomationError whose number is the result, for Guarded to give back; `result` is a failure.
[[noreturn]] void Fail(HRESULT result, const std::string& text);

/// To be called where an exception is handled: keeps its text for Quenzel7LastError and gives the result that
/// tells it. ResultOf for an AutomationError, E_OUTOFMEMORY for std::bad_alloc, E_UNEXPECTED for others.
HRESULT KeepCurrentException() noexcept;

/// Keeps the number of a failure as its text, for want of a better one; gives back any result.
HRESULT KeepResult(HRESULT result) noexcept;

/// Runs the work of a function of the binary interface, which no exception may leave. What it throws becomes
/// a result, its text that of Quenzel7LastError. Work without a result of its own gives S_OK.
template <std::invocable Work>
HRESULT Guarded(const Work& work) noexcept {
  try {
    if constexpr (std::is_void_v<std::invoke_result_t<const Work&>>) {
      work();
      return S_OK;
    } else {
      return KeepResult(work());
    }
  } catch (...) {
    return KeepCurrentException();
  }
}

}  // namespace quenzel7::server
