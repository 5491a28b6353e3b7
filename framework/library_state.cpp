#include "framework/library_state.h"

namespace quenzel7 {

LibraryState& LibraryState::Current() {
  thread_local LibraryState state;
  return state;
}

}  // namespace quenzel7
