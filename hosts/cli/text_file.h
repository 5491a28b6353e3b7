#pragma once

#include <string>

namespace quenzel7::cli {

/// The whole contents of a file. Throws UserError "PLACE cannot be read: ..." with the system's words.
std::string ReadTextFile(const std::string& path, const std::string& place);

/// Writes a file, in place of one that is there, completely or not at all. Throws UserError
/// "PLACE cannot be written: ..." with the system's words.
void WriteTextFile(const std::string& path, const std::string& text, const std::string& place);

}  // namespace quenzel7::cli
