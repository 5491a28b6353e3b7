#pragma once

#include <string>
#include <string_view>

namespace quenzel7::server {

/// A text of sections, "[NAME]" and the lines below it, without those whose name begins so, in any case of
/// ASCII letters. What stands before the first section and lines that are not understood stay as they are;
/// the rest ends without empty lines.
std::string WithoutSections(std::string_view text, std::string_view prefix);

}  // namespace quenzel7::server
