#pragma once

#include <memory>

#include "platform/automation/object.h"
#include "platform/automation/variant.h"

namespace quenzel7::automation {

/// Walks over what another object holds. Late-bound hosts get one from the member whose role that is, and
/// know it by the binary interface of enumerators alone: it has no members by name.
class Enumerator : public Object {
 public:
  static constexpr std::string_view kClassName = "Enumerator";

  const ClassInfo& Class() const override;

  /// Gives the next value; false, leaving `value` alone, when there is none.
  virtual bool Next(Variant& value) = 0;
  /// Goes back to the first value.
  virtual void Reset() = 0;
  /// Another enumerator, which goes on from the same place.
  virtual std::shared_ptr<Enumerator> Clone() const = 0;
};

using EnumeratorRef = std::shared_ptr<Enumerator>;

}  // namespace quenzel7::automation
