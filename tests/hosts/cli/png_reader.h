#pragma once

#include <string>

#include "hosts/cli/picture.h"

namespace quenzel7::cli::test {

/// The pixels of a PNG file; an empty picture when it is none.
Picture ReadPng(const std::string& path);

}  // namespace quenzel7::cli::test
