#pragma once

#include <string>

#include "tests/support/png_files.h"

namespace quenzel7::test {

/// Compares with a picture under tests/golden, exactly. With QUENZEL7_RENEW_GOLDENS=1 in the environment the
/// picture there is written anew. On a difference a picture of it is left in the working folder: what differs
/// in red over the one painted in grey.
void ExpectGolden(const Pixels& painted, const std::string& name);

}  // namespace quenzel7::test
