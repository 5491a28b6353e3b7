#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "platform/automation/call_by_name.h"
#include "platform/automation/object.h"
#include "platform/automation/variant.h"

namespace quenzel7::server {

/// A host's object without a table of members that does what an object of the library does: a database of
/// the host's own, as far as the library can tell. What it gives are such objects too.
class ForwardingObject final : public automation::Object {
 public:
  explicit ForwardingObject(automation::ObjectRef inner) : inner_(std::move(inner)) {}

  const automation::ClassInfo& Class() const override {
    static const automation::Interface interface("HostObject", &ForwardingObject::Answer);
    static const automation::Interface* const interfaces[] = {&interface};
    static const automation::ClassInfo info{"HostObject", interfaces};
    return info;
  }

 private:
  static automation::Variant Answer(automation::Object& object, std::string_view name,
                                    automation::CallKind kind, automation::Arguments arguments) {
    std::vector<automation::Variant> passed(arguments.begin(), arguments.end());
    for (automation::Variant& argument : passed) {
      if (!argument.IsObject()) continue;
      // The library knows these objects by their members alone, so that it gives back what it was given.
      argument = std::dynamic_pointer_cast<ForwardingObject>(argument.Object())->inner_;
    }
    const automation::Variant result =
        automation::CallByName(*static_cast<ForwardingObject&>(object).inner_, name, kind, passed);
    if (!result.IsObject() || !result.Object()) return result;
    return std::make_shared<ForwardingObject>(result.Object());
  }

  automation::ObjectRef inner_;
};

}  // namespace quenzel7::server
