#pragma once

#include "platform/corvane1/error_log.h"
#include "server/services/late_object.h"

namespace quenzel7::server {

/// The error log of a host's own: an object with `Report(source, number, description, module, text1, text2,
/// value)`. Errors as LateObject.
class LateErrorLog final : public corvane1::ErrorLog, public HostBacked {
 public:
  explicit LateErrorLog(automation::ObjectRef host) : host_(std::move(host)) {}

  const automation::ObjectRef& HostObject() const override { return host_.Ref(); }
  void Report(const corvane1::ErrorReport& report) override {
    host_.Call("Report", {report.source, report.number, report.description, report.module, report.text1,
                          report.text2, report.value});
  }

 private:
  const LateObject host_;
};

}  // namespace quenzel7::server
