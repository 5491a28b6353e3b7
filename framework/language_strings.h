#pragma once

#include <string>

#include "platform/automation/types.h"

namespace quenzel7 {

/// The string of that number in the language in which it takes the largest area, and in `fontNumber` the
/// number of its font, so that a layout made for it fits all languages. Among equals the first language
/// counts; where no language has a text that takes any area, the answer is that of language 0.
///
/// The string library's current language stays what it was, also when an error of a service or of the
/// project's connection passes through.
std::string WidestLanguageString(Long number, Long& fontNumber);

}  // namespace quenzel7
