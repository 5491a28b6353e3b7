#pragma once

#include <string>

namespace quenzel7::server {

/// The absolute path of the shared library, or else of the program, that this code runs from. Links on the
/// way are resolved, the file's own name stays: it outlives a version that a link leads to. Raises error 53
/// when the file is no longer where it was loaded from.
std::string ThisLibrary();

}  // namespace quenzel7::server
