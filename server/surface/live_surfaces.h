#pragma once

#include <cstddef>

#include "platform/gdi/surface.h"
#include "server/quenzel7_automation.h"

/// What a host's pointer leads to.
struct Quenzel7Surface {
  quenzel7::gdi::Surface painted;
};

namespace quenzel7::server {

/// A new black surface of 32 bits, which belongs to the calling thread and ends with it at the latest. Fails
/// (see Fail) with E_INVALIDARG for measures outside 1 to 32767, E_OUTOFMEMORY when there is no room.
Quenzel7Surface& NewSurface(LONG width, LONG height);

/// The surface that a host's pointer leads to. Fails with E_INVALIDARG for a pointer to none that is alive,
/// RPC_E_WRONG_THREAD for a surface of another thread. The pointer is not followed before that is known.
Quenzel7Surface& LiveSurface(Quenzel7Surface* surface);

/// Ends a surface; fails as LiveSurface.
void EndSurface(Quenzel7Surface* surface);

/// Surfaces alive in all threads.
std::size_t LiveSurfaceCount();

}  // namespace quenzel7::server
