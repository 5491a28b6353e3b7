#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// The text as one of the binary interface, which the caller frees; what is no UTF-8 becomes the replacement
/// character U+FFFD. Throws std::bad_alloc.
BSTR ToBstr(std::string_view utf8);

/// The text as UTF-8; a null one is empty. Half a surrogate pair becomes U+FFFD.
std::string FromBstr(BSTR text);
/// The same of a text that ends in a zero.
std::string FromUtf16(const OLECHAR* text);

}  // namespace quenzel7::server
