#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace quenzel7::fuzz {

/// Reads bytes as a sequence of calls of the graphics device interface and makes them: any call in any order,
/// with right and wrong handles, null pointers, and numbers of any size. Then everything is deleted.
///
/// Gives what the interface promised and did not keep, empty if it kept everything. The same bytes are the
/// same calls with every compiler; what they mean stays when calls are added.
std::string RunGdiCalls(std::span<const std::uint8_t> bytes);

}  // namespace quenzel7::fuzz
