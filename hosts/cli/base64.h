#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/types.h"

namespace quenzel7::cli {

/// Bytes as a text of letters, digits, + and /, padded with = (RFC 4648).
std::string Base64Of(const std::vector<Byte>& bytes);

/// The bytes of such a text; nothing for a text that Base64Of does not give.
std::optional<std::vector<Byte>> BytesOfBase64(std::string_view text);

}  // namespace quenzel7::cli
