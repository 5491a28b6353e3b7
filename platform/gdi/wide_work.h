#pragma once

#include "platform/gdi/word_store.h"

namespace quenzel7::gdi {

#if defined(__x86_64__) && defined(__GNUC__)
template <typename Work>
[[gnu::target("avx2")]] void DoWidely(Work& work) {
  work();
}
#else
template <typename Work>
void DoWidely(Work& work) {
  work();
}
#endif

/// Does work whose loops over pixels are compiled twice, for any machine and for those with wide registers,
/// and runs the one that fits. What is to be compiled so is declared `[[gnu::always_inline]]`, the call
/// operator of the work too.
template <typename Work>
void DoOnWidestRegisters(Work work) {
  if (HasWideStores()) {
    DoWidely(work);
  } else {
    work();
  }
}

}  // namespace quenzel7::gdi
