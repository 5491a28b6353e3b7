#pragma once

#include <memory>
#include <string_view>

#include "platform/automation/object.h"
#include "platform/platform.h"
#include "server/services/embedded.h"
#include "server/services/kept_view.h"
#include "server/services/late_object.h"

namespace quenzel7::server {

/// A service of the thread's platform that hosts can supply: the embedded one, seen through a View, or an
/// object of a host's own, which an Adapter calls.
template <class Service, class View, class Adapter>
class SuppliedService {
 public:
  using Embedded = typename View::Embedded;

  /// `what` names the service in errors, "message boxes"; `embedded` gives the embedded one where none
  /// was in use before the host's own.
  SuppliedService(std::shared_ptr<Service> Platform::*place, std::string_view what,
                  std::shared_ptr<Embedded> (*embedded)())
      : place_(place), what_(what), embedded_(embedded) {}

  /// The view of the embedded service, or the host's own object. Error 91 when a host of the same language as
  /// the library put in one of its own.
  automation::ObjectRef Object() {
    const std::shared_ptr<Service>& current = Current();
    if (const auto adapter = std::dynamic_pointer_cast<Adapter>(current)) return adapter->HostObject();
    return view_.Of(EmbeddedOf<Embedded>(current, what_));
  }

  /// Puts an object of a host's own in use, or the embedded service of a view. None brings back the embedded
  /// service that was in use last, with what it has collected.
  void Object(const automation::ObjectRef& object) {
    std::shared_ptr<Service>& current = Current();
    if (const auto embedded = std::dynamic_pointer_cast<Embedded>(current)) view_.Of(embedded);
    if (!object) {
      current = view_.Last() ? view_.Last()->Service() : embedded_();
    } else if (const auto view = std::dynamic_pointer_cast<View>(object)) {
      view_.Keep(view);
      current = view->Service();
    } else {
      current = std::make_shared<Adapter>(object);
    }
  }

  /// Lets go of the embedded service that was in use last, unless it still is.
  void Forget() { view_.Forget(); }

 private:
  std::shared_ptr<Service>& Current() const { return Platform::Current().*place_; }

  std::shared_ptr<Service> Platform::*const place_;
  const std::string_view what_;
  std::shared_ptr<Embedded> (*const embedded_)();
  KeptView<View> view_;
};

}  // namespace quenzel7::server
