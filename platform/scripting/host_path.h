#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Paths as they are written on the systems of old projects, on this one.
namespace quenzel7::scripting {

/// The names on the way from the root to what a path leads to. Both "\" and "/" part them, several as one; a
/// path that begins with neither starts at the current folder. "." and ".." are taken out by the names alone,
/// so that it does not matter whether "plant.qz7" in "plant.qz7\..\Strings" is a folder, or is there at all;
/// ".." at the root leads nowhere else. Error 76 for a path with a drive letter, and when the current folder
/// is not there any more.
std::vector<std::string> PathNames(const std::string& path);

/// The names as a path of this system.
std::string HostPath(const std::vector<std::string>& names);

/// Whether two names (UTF-8) differ by nothing but the case of letters.
bool IsSameName(std::string_view a, std::string_view b);

/// Under which name a folder, a path of this system, has what is called `name`: that very name, else the
/// first in the order of bytes that differs from it by nothing but the case of letters. None when there is
/// none.
std::optional<std::string> NameInFolder(const std::string& folder, const std::string& name);

}  // namespace quenzel7::scripting
