#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace quenzel7::test {

/// The inputs that are stored for a fuzzer, in the order of their names.
inline std::vector<std::filesystem::path> StoredInputs(const std::string& fuzzer) {
  std::vector<std::filesystem::path> inputs;
  const auto folder = std::filesystem::path(QUENZEL7_SOURCE_DIR) / "fuzz/corpus" / fuzzer;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) inputs.push_back(entry.path());
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

/// The bytes of a file.
inline std::vector<std::uint8_t> Contents(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace quenzel7::test
