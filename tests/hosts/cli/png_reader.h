#pragma once

#include <string>
#include <utility>

#include "hosts/cli/picture.h"
#include "tests/support/png_files.h"

namespace quenzel7::cli::test {

/// The pixels of a PNG file; an empty picture when it is none.
inline Picture ReadPng(const std::string& path) {
  quenzel7::test::Pixels pixels = quenzel7::test::ReadPngFile(path);
  return {pixels.width, pixels.height, std::move(pixels.words)};
}

}  // namespace quenzel7::cli::test
