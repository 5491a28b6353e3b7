#pragma once

#include <string_view>
#include <vector>

#include "server/types/class_table.h"

namespace quenzel7::server {

/// What hosts can be told of: classes, and the interfaces and enumerations that they consist of.
struct TypeCatalog {
  /// In the order of the class table.
  std::vector<const automation::ClassInfo*> classes;
  /// In the order in which classes have them. Of each name there is one: where classes have a contract each
  /// with calls of its own, hosts see the same.
  std::vector<const automation::Interface*> interfaces;
  /// Those that clsEnums publishes, then others that members take or give.
  std::vector<const automation::EnumInfo*> enumerations;

  /// All published classes, and further ones behind them, with what they consist of.
  static TypeCatalog All(Classes further = {});

  /// The class, else the interface, else the enumeration of that name, with what it consists of. Upper and
  /// lower case are the same. Error 5, with the nearest name, when there is none.
  TypeCatalog Named(std::string_view name) const;

 private:
  void Add(const automation::ClassInfo& added);
  void Add(const automation::Interface& added);
  void Add(const automation::TypeInfo& type);
  void AddPublishedEnumerations();
};

}  // namespace quenzel7::server
