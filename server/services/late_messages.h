#pragma once

#include "platform/corvane1/message_service.h"
#include "server/services/late_object.h"

namespace quenzel7::server {

/// The numbered messages of a host's own: an object with `ShowMessage(number, ByRef argument)`, which gives
/// the answer as a Long and may change the argument. Errors as LateObject.
class LateMessages final : public corvane1::MessageService, public HostBacked {
 public:
  explicit LateMessages(automation::ObjectRef host) : host_(std::move(host)) {}

  const automation::ObjectRef& HostObject() const override { return host_.Ref(); }
  /// The argument stays as it was when the host raises, and when it gives no number.
  Long ShowMessage(Long number, automation::Variant& argument) override;

 private:
  const LateObject host_;
};

}  // namespace quenzel7::server
