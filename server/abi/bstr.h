#pragma once

#include <string>
#include <string_view>

#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// The text as one of the binary interface, which the caller frees; zeros in it are characters like others.
/// What is no UTF-8 becomes the replacement character U+FFFD, one for each longest run that could have begun
/// a character. Never null. Throws std::bad_alloc, also when the text takes 4 GiB or more.
BSTR ToBstr(std::string_view utf8);

/// The text, zeros in it included, as UTF-8; a null one is empty. Half a surrogate pair becomes U+FFFD, half
/// a character at the end is left out.
std::string FromBstr(BSTR text);
/// The same of a text that ends in a zero; a null one is empty.
std::string FromUtf16(const OLECHAR* text);

}  // namespace quenzel7::server
