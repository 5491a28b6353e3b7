#pragma once

#include <string>

#include "hosts/cli/picture.h"
#include "tests/support/golden.h"

namespace quenzel7::cli::test {

/// Compares with a picture under tests/golden, as for any pixels.
inline void ExpectGolden(const Picture& picture, const std::string& name) {
  quenzel7::test::ExpectGolden({picture.width, picture.height, picture.pixels}, name);
}

}  // namespace quenzel7::cli::test
