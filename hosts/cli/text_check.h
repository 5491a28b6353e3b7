#pragma once

#include <string>
#include <vector>

#include "framework/element_contract.h"
#include "platform/ado/recordset.h"

namespace quenzel7::cli {

/// What is wrong with the text that an element shows, by the judgement of the element itself: the string of
/// the library that is not there, characters that the project's code page does not have, and a text of which
/// something is cut. A string of the library is judged in every language that has it, in the order of the
/// languages. Of a variable the text that its drawing element shows, which it tells when it is empty; of a
/// list every text, and how many a bit has. Nothing for an element without a text. Errors of the element and
/// of the string library.
std::vector<std::string> CheckText(ItfHmiElement& element);

/// Which numbers of a variable or an element with a text mean nothing to it: its style, its alignment, and
/// the font of its row, since the library may show it in another. Nothing for others.
std::vector<std::string> CheckTextNumbers(ItfHmiElement& element, const ado::Recordset& row);

}  // namespace quenzel7::cli
