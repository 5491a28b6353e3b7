#include "server/live_objects.h"

#include <atomic>

namespace quenzel7::server {
namespace {

std::atomic<Long> live = 0;

}  // namespace

Long LiveObjects() { return live; }

LiveObject::LiveObject() { ++live; }

LiveObject::~LiveObject() { --live; }

void LockServer(bool lock) { live += lock ? 1 : -1; }

}  // namespace quenzel7::server
