#pragma once

#include <string>
#include <vector>

#include "platform/automation/types.h"

namespace quenzel7::loomis2 {

/// The largest picture file that is read, in bytes.
constexpr std::int64_t kMostFileBytes = std::int64_t{256} << 20;

/// Where a picture is, as elements keep it: what stands behind the first ";" if there is one, with slashes
/// for backslashes. One that does not begin at the root is looked for in `folder` (slashes likewise), then as
/// it stands. Empty when it is in neither place.
std::string FoundFile(const std::string& folder, const std::string& imagePath);

/// The bytes of a file; never waits for any. Error 481 when it is no ordinary file, cannot be read or is
/// larger than `kMostFileBytes`, 7 when there is no room for it.
std::vector<Byte> FileBytes(const std::string& path);

}  // namespace quenzel7::loomis2
