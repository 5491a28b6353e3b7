#include "platform/corvane1/host_frame.h"

namespace quenzel7::corvane1 {

void CollectedHostFrame::AddOutput(const std::string& text, Long kind) {
  Take(kind == kOutputWarning ? "warning: " + text : text, {text, kind});
}

void CollectedHostFrame::Clear() {
  Collected::Clear();
  pointers_.Clear();
  interruptions_ = 0;
  refreshes_.Clear();
}

}  // namespace quenzel7::corvane1
