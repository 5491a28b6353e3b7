#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/automation_error.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"
#include "platform/automation/object.h"

namespace quenzel7::server {

/// An object of a host's own, called by the names of its members. It may have a table of them or not.
///
/// What the host raises passes up as it is, error 438 for a member that it does not have too. What a member
/// gives is converted as the automation run-time does it; those errors (13 above all) name the member. The
/// host may let go of the object while it is called.
class LateObject {
 public:
  /// Error 91 when there is no object.
  explicit LateObject(automation::ObjectRef object) : object_(std::move(object)) {
    static_cast<void>(automation::Required(object_));
  }

  const automation::ObjectRef& Ref() const { return object_; }

  /// Calls a method and gives its result as a T.
  template <class T = automation::Variant>
  T Call(std::string_view name, std::initializer_list<automation::Variant> arguments = {}) const {
    const automation::ObjectRef object = object_;
    return Converted<T>(name, automation::InvokeByName(*object, name, arguments));
  }
  /// Calls a method that may write its arguments back.
  template <class T>
  T Call(std::string_view name, automation::Arguments arguments) const {
    const automation::ObjectRef object = object_;
    return Converted<T>(name, automation::CallByName(*object, name, automation::CallKind::Method, arguments));
  }
  /// Reads a property.
  template <class T = automation::Variant>
  T Get(std::string_view name) const {
    const automation::ObjectRef object = object_;
    return Converted<T>(name, automation::GetByName(*object, name));
  }
  /// Reads a text property that the object need not have: none when it does not, or gives Empty or Null.
  std::optional<std::string> TextIfThere(std::string_view name) const;
  /// Writes a property.
  void Put(std::string_view name, const automation::Variant& value) const;

 private:
  template <class T>
  static T Converted(std::string_view name, const automation::Variant& value) {
    try {
      return automation::To<T>(value);
    } catch (const automation::AutomationError& error) {
      throw error.In("what the host's " + std::string(name) + " gave");
    }
  }

  automation::ObjectRef object_;
};

/// Stands for an object of a host's own where the library wants one of a class of its own.
class HostBacked {
 public:
  /// The host's object.
  virtual const automation::ObjectRef& HostObject() const = 0;

 protected:
  ~HostBacked() = default;
};

/// What a host is to get for an object of the library: its own object where that only stands for it.
automation::ObjectRef HostObjectOf(const automation::ObjectRef& object);

}  // namespace quenzel7::server
