#pragma once

#include <string>

#include "hosts/cli/picture.h"

namespace quenzel7::cli::test {

/// Compares with a picture under tests/golden, exactly. With QUENZEL7_RENEW_GOLDENS=1 in the environment the
/// picture there is written anew. On a difference a picture of it is left in the working folder: what differs
/// in red over the expected one in grey.
void ExpectGolden(const Picture& picture, const std::string& name);

}  // namespace quenzel7::cli::test
