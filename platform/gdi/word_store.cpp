#include "platform/gdi/word_store.h"

#include <algorithm>

namespace quenzel7::gdi {

// The compiler's own stores are those of the oldest machine that the program runs on. The spans of a page are
// mostly shorter than what makes a call of the C library's wide loop worth its while.
#if defined(__x86_64__) && defined(__GNUC__)

bool HasWideStores() { return __builtin_cpu_supports("avx2") != 0; }

[[gnu::target("avx2")]] void StoreBoxWidely(std::uint32_t* begin, std::int64_t width, std::int64_t height,
                                            std::int64_t stride, std::uint32_t word) {
  constexpr std::int64_t kWords = 8;
  using Block = std::uint32_t __attribute__((vector_size(kWords * sizeof(std::uint32_t)), may_alias));
  if (width < kWords) {
    StoreBoxPortably(begin, width, height, stride, word);
    return;
  }
  const Block block = Block{} + word;
  for (std::int64_t row = 0; row < height; ++row, begin += stride) {
    // Both ends wherever they lie, the blocks between at multiples of their size.
    std::uint32_t* const last = begin + width - kWords;
    std::memcpy(begin, &block, sizeof block);
    std::memcpy(last, &block, sizeof block);
    const auto past = reinterpret_cast<std::uintptr_t>(begin) / sizeof(word) % kWords;
    std::uint32_t* next = begin + kWords - past;
    for (; last - next >= kWords; next += 2 * kWords) {
      *reinterpret_cast<Block*>(next) = block;
      *reinterpret_cast<Block*>(next + kWords) = block;
    }
    if (next <= last) *reinterpret_cast<Block*>(next) = block;
  }
}

#else

bool HasWideStores() { return false; }

void StoreBoxWidely(std::uint32_t* begin, std::int64_t width, std::int64_t height, std::int64_t stride,
                    std::uint32_t word) {
  StoreBoxPortably(begin, width, height, stride, word);
}

#endif

void StoreBoxPortably(std::uint32_t* begin, std::int64_t width, std::int64_t height, std::int64_t stride,
                      std::uint32_t word) {
  for (std::int64_t row = 0; row < height; ++row, begin += stride) {
    std::fill(begin, begin + std::max<std::int64_t>(width, 0), word);
  }
}

void StoreBox(std::uint32_t* begin, std::int64_t width, std::int64_t height, std::int64_t stride,
              std::uint32_t word) {
  if (HasWideStores()) {
    StoreBoxWidely(begin, width, height, stride, word);
  } else {
    StoreBoxPortably(begin, width, height, stride, word);
  }
}

}  // namespace quenzel7::gdi
