#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

namespace quenzel7::fuzz {

/// Runs an input of the fuzzer, and ends the run where a promise was not kept.
inline int Fuzzed(std::string (*run)(std::span<const std::uint8_t>), const std::uint8_t* data,
                  std::size_t size) {
  const std::string complaint = run({data, size});
  if (!complaint.empty()) {
    std::fprintf(stderr, "Not kept: %s\n", complaint.c_str());
    std::abort();
  }
  return 0;
}

}  // namespace quenzel7::fuzz
