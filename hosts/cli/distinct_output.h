#pragma once

#include <initializer_list>
#include <string>

namespace quenzel7::cli {

/// Refuses to write over what is read, by whatever name: nothing would be left of a project or page file that
/// a picture took the place of. `place` is how messages call the output; an empty path is standard output.
/// Throws UserError "PLACE cannot be written: it is FILE, which is read".
void RequireDistinctOutput(const std::string& place, const std::string& output,
                           std::initializer_list<std::string> inputs);

}  // namespace quenzel7::cli
