#include "platform/ado/column_index.h"

#include <bit>
#include <cstring>
#include <utility>

#include "platform/automation/class_info.h"

namespace quenzel7::ado {
namespace {

/// Up to eight bytes as one number.
std::uint64_t Load(const char* bytes, std::size_t count) {
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, count);
  return word;
}

/// Whether two texts are the same, the shorter ones compared as a word or two that may overlap.
bool Same(std::string_view a, std::string_view b) {
  const std::size_t size = a.size();
  if (size != b.size()) return false;
  const auto ends = [&](auto word) {
    const auto load = [](const char* bytes) {
      decltype(word) value;
      std::memcpy(&value, bytes, sizeof value);
      return value;
    };
    return load(a.data()) == load(b.data()) &&
           load(a.data() + size - sizeof word) == load(b.data() + size - sizeof word);
  };
  if (size > 16) return a == b;
  if (size >= 8) return ends(std::uint64_t{});
  if (size >= 4) return ends(std::uint32_t{});
  if (size >= 2) return ends(std::uint16_t{});
  return size == 0 || a.front() == b.front();
}

/// Mixes length, first and last eight bytes. The letters are folded by setting the bit that tells upper from
/// lower case; that this takes some other characters together too costs no more than a comparison.
std::size_t FoldedHash(std::string_view name) {
  constexpr std::uint64_t kLowerCase = 0x2020202020202020u;
  std::uint64_t first;
  std::uint64_t last;
  if (name.size() >= 8) {
    first = Load(name.data(), 8) | kLowerCase;
    last = Load(name.data() + name.size() - 8, 8) | kLowerCase;
  } else {
    first = Load(name.data(), name.size()) | kLowerCase;
    last = 0;
  }
  // Odd multipliers with well spread bits: the fractions of the golden ratio and of the square root of 3.
  std::uint64_t hash = (first ^ name.size()) * 0x9E3779B97F4A7C15u;
  hash ^= (last ^ (hash >> 32)) * 0xBB67AE8584CAA73Bu;
  return static_cast<std::size_t>(hash >> 32);
}

}  // namespace

ColumnIndex::ColumnIndex(std::vector<std::string> names)
    : names_(std::move(names)),
      // At most a quarter full, so that nearly every search ends at once.
      table_(std::bit_ceil(names_.size() * 4 + 1)),
      mask_(table_.size() - 1),
      successors_(names_.size() + 1),
      lastFound_(names_.size()) {
  for (std::size_t column = 0; column < names_.size(); ++column) {
    // Of equal names the first takes the place where a search comes by first.
    std::size_t place = FoldedHash(names_[column]) & mask_;
    while (table_[place] != 0) place = (place + 1) & mask_;
    table_[place] = static_cast<std::uint16_t>(column + 1);
  }
}

int ColumnIndex::Find(std::string_view name) const {
  if (names_.empty()) return kNone;
  std::uint16_t& successor = successors_[lastFound_];
  if (!Same(names_[successor], name)) {
    const int found = Search(name);
    if (found == kNone) return kNone;
    successor = static_cast<std::uint16_t>(found);
  }
  lastFound_ = successor;
  return successor;
}

int ColumnIndex::Search(std::string_view name) const {
  for (std::size_t place = FoldedHash(name) & mask_; table_[place] != 0; place = (place + 1) & mask_) {
    const std::string& found = names_[table_[place] - 1u];
    if (found == name || automation::EqualFolded(found, name)) return table_[place] - 1;
  }
  return kNone;
}

}  // namespace quenzel7::ado
