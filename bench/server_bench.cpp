#include <memory>
#include <stdexcept>

#include "bench/ratios.h"
#include "platform/automation/call_by_name.h"
#include "server/apartment.h"
#include "server/quenzel7_automation.h"
#include "server/stub.h"
#include "shapes/rectangle.h"

namespace quenzel7::bench {
namespace {

/// A property of an element as hosts reach it, everything prepared that a host prepares once.
class HostsProperty {
 public:
  HostsProperty(const automation::ObjectRef& element, OLECHAR* name)
      : dispatch_(server::Apartment::Current().Hold(element)->Default()) {
    if (dispatch_->lpVtbl->GetIDsOfNames(dispatch_, &IID_NULL, &name, 1, 0, &id_) != S_OK) {
      throw std::runtime_error("the element has no such property");
    }
  }
  HostsProperty(const HostsProperty&) = delete;
  HostsProperty& operator=(const HostsProperty&) = delete;
  ~HostsProperty() { dispatch_->lpVtbl->Release(dispatch_); }

  LONG Read() {
    DISPPARAMS none{};
    VARIANT value;
    Invoke(DISPATCH_PROPERTYGET, none, &value);
    return value.value.lVal;
  }
  void Write(LONG number) {
    VARIANT value;
    value.vt = VT_I4;
    value.value.lVal = number;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value, &put, 1, 1};
    Invoke(DISPATCH_PROPERTYPUT, parameters, nullptr);
  }

 private:
  void Invoke(WORD flags, DISPPARAMS& parameters, VARIANT* result) {
    EXCEPINFO info;
    UINT argument = 0;
    if (dispatch_->lpVtbl->Invoke(dispatch_, id_, &IID_NULL, 0, flags, &parameters, result, &info,
                                  &argument) != S_OK) {
      throw std::runtime_error("a property could not be used");
    }
  }

  IDispatch* const dispatch_;
  DISPID id_ = DISPID_UNKNOWN;
};

}  // namespace

std::vector<Ratio> ServerRatios() {
  constexpr int kTurns = 101, kWarmUps = 10, kCalls = 20000;
  const auto element = std::make_shared<clsRectangle>();
  OLECHAR name[] = {'X', 's', 0};
  HostsProperty property(element, name);
  const double get = TimeRatio(
      kTurns, kWarmUps,
      [&] {
        for (int call = 0; call < kCalls; ++call) {
          if (property.Read() != element->Xs()) throw std::runtime_error("another number was read");
        }
      },
      [&] {
        for (int call = 0; call < kCalls; ++call) {
          const automation::Variant value = automation::GetByName(*element, "Xs");
          if (*value.If<Long>() != element->Xs()) throw std::runtime_error("another number was read");
        }
      });
  const double put = TimeRatio(
      kTurns, kWarmUps,
      [&] {
        for (int call = 0; call < kCalls; ++call) property.Write(call);
      },
      [&] {
        for (int call = 0; call < kCalls; ++call) automation::PutByName(*element, "Xs", Long{call});
      });
  return {{"reading a property through the binary interface", get, 3.0, "call by name"},
          {"writing a property through the binary interface", put, 3.0, "call by name"}};
}

}  // namespace quenzel7::bench
