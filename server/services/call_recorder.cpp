#include "server/services/call_recorder.h"

#include <utility>

#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using automation::Method;
using automation::Property;
using Texts = std::vector<std::string>;

constexpr automation::Member kMembers[] = {
    Method<CallRecorder, &CallRecorder::Start>("Start",
                                               "Begins to note the calls of the graphics interface."),
    Method<CallRecorder, &CallRecorder::Stop>("Stop", "Ends it; the calls can still be read."),
    Property<bool>("Recording", "Whether calls are noted.", AUTOMATION_GETTER(CallRecorder, Recording),
                   nullptr),
    Property<Texts>("Calls", "The calls in order.", AUTOMATION_GETTER(CallRecorder, Calls), nullptr),
    Method<CallRecorder, &CallRecorder::Take>("Take", "The calls in order, which are forgotten then."),
};

}  // namespace

const automation::ClassInfo& CallRecorder::ClassOf() { return ServiceClass<CallRecorder>(kMembers); }

void CallRecorder::Start() {
  if (!recorder_) recorder_ = std::make_unique<gdi::Recorder>();
}

void CallRecorder::Stop() {
  if (!recorder_) return;
  calls_ = recorder_->Take();
  recorder_.reset();
}

Texts CallRecorder::Take() { return recorder_ ? recorder_->Take() : std::exchange(calls_, {}); }

}  // namespace quenzel7::server
