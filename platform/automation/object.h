#pragma once

#include <memory>

namespace quenzel7::automation {

struct ClassInfo;

/// What hosts hold: a reference-counted object that can tell its class and be called by member name.
class Object : public std::enable_shared_from_this<Object> {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;

  /// The class with its interfaces and members.
  virtual const ClassInfo& Class() const = 0;
};

using ObjectRef = std::shared_ptr<Object>;

}  // namespace quenzel7::automation
