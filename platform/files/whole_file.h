#pragma once

#include <string>

namespace quenzel7::files {

/// The whole contents of a file. Raises "PLACE cannot be read: ..." with the system's words; errors of
/// RaiseFileError.
std::string ReadWholeFile(const std::string& path, const std::string& place);

/// Writes a file, in place of one that is there, completely or not at all. Raises "PLACE cannot be written:
/// ..." with the system's words; errors of RaiseFileError.
void WriteWholeFile(const std::string& path, const std::string& contents, const std::string& place);

}  // namespace quenzel7::files
