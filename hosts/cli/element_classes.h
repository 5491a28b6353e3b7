#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "framework/element_contract.h"

namespace quenzel7::cli {

/// The classes whose elements stand on pages, by name and by type number.
class ElementClasses {
 public:
  explicit ElementClasses(std::span<const automation::ClassInfo* const> classes) : classes_(classes) {}

  /// All that the library has.
  static const ElementClasses& All();

  std::span<const automation::ClassInfo* const> Classes() const { return classes_; }

  /// The class of that name in any case. Throws UserError that suggests the nearest name.
  const automation::ClassInfo& Named(std::string_view name) const;

  /// The class whose elements tell that type number, or nullptr. Errors as Create.
  const automation::ClassInfo* OfType(Long elementType) const;

  /// A new element with the defaults of its class. Raises what the class raises when the settings for its
  /// defaults are wrong.
  static ElementRef Create(const automation::ClassInfo& elementClass);

 private:
  std::span<const automation::ClassInfo* const> classes_;
};

}  // namespace quenzel7::cli
