#include "server/live_objects.h"

#include <atomic>

namespace quenzel7::server {
namespace {

std::atomic<Long> live = 0;
std::atomic<Long> locks = 0;

}  // namespace

Long LiveObjects() { return live + locks; }

LiveObject::LiveObject() { ++live; }

LiveObject::~LiveObject() { --live; }

void LockServer(bool lock) {
  if (lock) {
    ++locks;
    return;
  }
  for (Long held = locks; held > 0 && !locks.compare_exchange_weak(held, held - 1);) {
  }
}

}  // namespace quenzel7::server
