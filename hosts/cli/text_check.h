#pragma once

#include <string>

#include "framework/element_contract.h"

namespace quenzel7::cli {

/// What is wrong with the text that an element shows, by the judgement of the element itself: the string of
/// the library that is not there, characters that the project's code page does not have, and a text of which
/// something is cut. Nothing for an element without a text. Errors of the element.
std::string CheckText(ItfHmiElement& element);

}  // namespace quenzel7::cli
