#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/automation/class_info.h"
#include "platform/automation/object.h"
#include "platform/gdi/recorder.h"

namespace quenzel7::server {

/// Notes the calls of the graphics interface that the thread makes, as gdi::Recorder tells them.
class CallRecorder final : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "CallRecorder";

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// Begins to note, with no calls and with names counted from 1; goes on when it notes already.
  void Start();
  /// Ends it; what was noted can still be read. Nothing when it does not note.
  void Stop();
  /// Whether calls are noted.
  bool Recording() const { return recorder_ != nullptr; }
  /// What was noted, in order.
  std::vector<std::string> Calls() const { return recorder_ ? recorder_->Calls() : calls_; }
  /// The same, and forgets it; names stay.
  std::vector<std::string> Take();

 private:
  /// None while nothing is noted.
  std::unique_ptr<gdi::Recorder> recorder_;
  /// What the last one noted.
  std::vector<std::string> calls_;
};

}  // namespace quenzel7::server
