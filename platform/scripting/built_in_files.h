#pragma once

#include <span>
#include <string_view>

namespace quenzel7::scripting {

/// A file that is part of the library.
struct BuiltInFile {
  std::string_view folder, name;
  /// Its bytes.
  std::string_view contents;
};

/// The files that come with the library: the words of calendars, which projects look for in "Strings".
std::span<const BuiltInFile> BuiltInFiles();

}  // namespace quenzel7::scripting
