#pragma once

#include <string>

#include "platform/corvane1/message_boxes.h"
#include "server/services/late_object.h"

namespace quenzel7::server {

/// The message boxes of a host's own: an object with `Show(text, buttons, caption)`, which gives the button
/// that was pressed as a Long. Errors as LateObject.
class LateMessageBoxes final : public corvane1::MessageBoxes, public HostBacked {
 public:
  explicit LateMessageBoxes(automation::ObjectRef host) : host_(std::move(host)) {}

  const automation::ObjectRef& HostObject() const override { return host_.Ref(); }
  Long Show(const std::string& text, Long buttons, const std::string& caption) override {
    return host_.Call<Long>("Show", {text, buttons, caption});
  }

 private:
  const LateObject host_;
};

}  // namespace quenzel7::server
