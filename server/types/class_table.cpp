#include "server/types/class_table.h"

#include <algorithm>
#include <vector>

#include "framework/element_contract.h"
#include "framework/enums.h"
#include "images/image_classes.h"
#include "platform/ado/connection.h"
#include "platform/ado/recordset.h"
#include "platform/automation/collection.h"
#include "platform/automation/property_bag.h"
#include "platform/fennick1/operand.h"
#include "platform/loomis2/image_library.h"
#include "shapes/shape_classes.h"
#include "variables/binary_handler_contract.h"
#include "variables/variable_classes.h"

namespace quenzel7::server {
namespace {

using automation::ClassInfo;
using automation::Interface;

/// A contract among the classes: no object is of it, and all that it has is the contract itself.
template <class Contract>
const ClassInfo& ContractClass() {
  static const Interface* const interfaces[] = {&Contract::InterfaceOf()};
  static const ClassInfo info{Contract::kClassName, interfaces};
  return info;
}

struct ClassTable {
  /// Those that hosts can create, then the others.
  std::vector<const ClassInfo*> classes;
  std::size_t creatable;

  ClassTable() {
    for (const Classes group : {ShapeClasses(), ImageClasses(), VariableClasses()}) {
      classes.insert(classes.end(), group.begin(), group.end());
    }
    creatable = classes.size();
    classes.insert(classes.end(), {&clsEnums::ClassOf(), &ContractClass<ItfHmiElement>(),
                                   &ContractClass<ItfVarBinaryHandler>(), &automation::Collection::ClassOf(),
                                   &automation::PropertyBag::ClassOf(), &ado::Connection::ClassOf(),
                                   &ado::Recordset::ClassOf(), &ado::Field::ClassOf(),
                                   &fennick1::Operand::ClassOf(), &loomis2::ImageLibrary::ClassOf()});
  }

  Classes Creatable() const { return Classes(classes).first(creatable); }
};

const ClassTable& Table() {
  static const ClassTable table;
  return table;
}

}  // namespace

Classes PublishedClasses() { return Table().classes; }

bool IsCreatable(const ClassInfo& published) {
  const Classes creatable = Table().Creatable();
  return std::find(creatable.begin(), creatable.end(), &published) != creatable.end();
}

const ClassInfo* FindCreatable(std::string_view className) {
  const Classes creatable = Table().Creatable();
  const auto found = std::find_if(creatable.begin(), creatable.end(), [className](const ClassInfo* known) {
    return automation::EqualFolded(known->name, className);
  });
  return found == creatable.end() ? nullptr : *found;
}

}  // namespace quenzel7::server
