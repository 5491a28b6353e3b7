#pragma once

#include <memory>
#include <utility>

#include "platform/automation/object.h"

namespace quenzel7::server {

/// What hosts see of a service, embedded or not. It is the service of the time when the view was asked for.
template <class Viewed>
class ServiceView : public automation::Object {
 public:
  explicit ServiceView(std::shared_ptr<Viewed> service) : service_(std::move(service)) {}

  const std::shared_ptr<Viewed>& Service() const { return service_; }

 private:
  std::shared_ptr<Viewed> service_;
};

}  // namespace quenzel7::server
