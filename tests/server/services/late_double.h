#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation/automation_error.h"
#include "platform/automation/class_info.h"
#include "platform/automation/object.h"
#include "platform/automation/variant.h"
#include "tests/server/services/services_fixture.h"

namespace quenzel7::server {

/// A host's object without a table of members: it answers to what it was given, by "call Show", "get EOF",
/// "put Value" and "putref Value", whatever the case, and notes each call with its arguments.
class LateDouble final : public automation::Object {
 public:
  using Handler = std::function<automation::Variant(automation::Arguments)>;

  std::map<std::string, Handler> members;
  std::vector<std::string> calls;

  const automation::ClassInfo& Class() const override {
    static const automation::Interface interface("HostObject", &LateDouble::Answer);
    static const automation::Interface* const interfaces[] = {&interface};
    static const automation::ClassInfo info{"HostObject", interfaces};
    return info;
  }

  /// A member that gives always the same.
  LateDouble& Giving(const std::string& member, automation::Variant value) {
    members[member] = [value = std::move(value)](automation::Arguments) { return value; };
    return *this;
  }
  /// The calls so far, forgotten then.
  std::vector<std::string> Take() { return std::exchange(calls, {}); }

 private:
  static automation::Variant Answer(automation::Object& object, std::string_view name,
                                    automation::CallKind kind, automation::Arguments arguments) {
    constexpr const char* kKinds[] = {"call ", "get ", "put ", "putref "};
    auto& self = static_cast<LateDouble&>(object);
    const std::string member = kKinds[static_cast<int>(kind)] + std::string(name);
    std::string call = member;
    for (const automation::Variant& argument : arguments) {
      call += std::string(" ") + automation::KindName(argument.Kind()) + ":" + Listed(argument);
    }
    self.calls.push_back(call);
    const auto found = self.members.find(member);
    if (found == self.members.end()) {
      throw automation::AutomationError(automation::ErrorNumber::NoSuchMember,
                                        "the host's object has no " + std::string(name), "Host");
    }
    // The member may go while it runs.
    const Handler handler = found->second;
    return handler(arguments);
  }
};

inline std::shared_ptr<LateDouble> NewHostObject() { return std::make_shared<LateDouble>(); }

}  // namespace quenzel7::server
