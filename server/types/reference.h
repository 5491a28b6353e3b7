#pragma once

#include <string>

#include "server/types/class_table.h"

namespace quenzel7::server {

/// All classes with the members of their interfaces in slot order, and all enumerations, as a page of
/// Markdown with a table of contents. An interface is told once, with the class that has it as its default
/// one, and linked from the others. `further` are classes beside the published ones, see PublishedClasses.
std::string Reference(Classes further = {});

}  // namespace quenzel7::server
