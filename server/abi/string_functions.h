#pragma once

#include <cstddef>

#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// Room for a text of so many bytes, which its maker fills; the zero behind it is there. Null when there is
/// no room, or when the number does not fit the four bytes before the text.
BSTR MakeBstr(std::size_t bytes) noexcept;

}  // namespace quenzel7::server
