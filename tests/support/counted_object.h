#pragma once

#include <functional>

#include "server/quenzel7_automation.h"

namespace quenzel7::test {

/// An object of the binary interface that counts who holds it and has no members. It ends with the test, not
/// with the last who holds it.
class CountedObject : private IDispatch {
 public:
  CountedObject() { lpVtbl = &kFunctions; }
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;

  IDispatch* Dispatch() { return this; }
  IUnknown* Unknown() { return reinterpret_cast<IUnknown*>(Dispatch()); }

  /// How often it was held more than it was let go.
  int Held() const { return held_; }

  /// Done whenever someone has let it go.
  std::function<void()> onRelease;

 private:
  static CountedObject& Of(IDispatch* object) { return *static_cast<CountedObject*>(object); }

  static HRESULT STDMETHODCALLTYPE Query(IDispatch*, REFIID, void** found) {
    *found = nullptr;
    return E_NOINTERFACE;
  }
  static ULONG STDMETHODCALLTYPE Hold(IDispatch* object) { return static_cast<ULONG>(++Of(object).held_); }
  static ULONG STDMETHODCALLTYPE LetGo(IDispatch* object) {
    CountedObject& self = Of(object);
    const auto left = static_cast<ULONG>(--self.held_);
    if (self.onRelease) self.onRelease();
    return left;
  }

  static constexpr IDispatchVtbl kFunctions = {&Query, &Hold, &LetGo, nullptr, nullptr, nullptr, nullptr};

  int held_ = 0;
};

}  // namespace quenzel7::test
