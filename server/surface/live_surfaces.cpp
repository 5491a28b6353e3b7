#include "server/surface/live_surfaces.h"

#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include "server/surface/last_error.h"

namespace quenzel7::server {
namespace {

constexpr LONG kLargestMeasure = 32767;

/// The surfaces of all threads. A thread cannot tell a surface of another one from a pointer to nothing
/// without such a list.
class Surfaces {
 public:
  Quenzel7Surface& Add(std::unique_ptr<Quenzel7Surface> surface) {
    const std::lock_guard lock(guard_);
    Quenzel7Surface* const key = surface.get();
    entries_.emplace(key, Entry{std::move(surface), std::this_thread::get_id()});
    return *key;
  }

  void RequireOwn(Quenzel7Surface* surface) const {
    const std::lock_guard lock(guard_);
    const auto found = entries_.find(surface);
    if (found == entries_.end()) Fail(E_INVALIDARG, "there is no such surface, or it was destroyed");
    if (found->second.thread != std::this_thread::get_id()) {
      Fail(RPC_E_WRONG_THREAD, "the surface belongs to another thread, the one that made it");
    }
  }

  /// Gives the surface to the caller.
  std::unique_ptr<Quenzel7Surface> Take(Quenzel7Surface* surface) {
    RequireOwn(surface);
    const std::lock_guard lock(guard_);
    return std::move(entries_.extract(surface).mapped().surface);
  }

  /// Ends all of the calling thread.
  void EndOwn() {
    const std::lock_guard lock(guard_);
    std::erase_if(entries_,
                  [](const auto& entry) { return entry.second.thread == std::this_thread::get_id(); });
  }

  std::size_t Count() const {
    const std::lock_guard lock(guard_);
    return entries_.size();
  }

 private:
  struct Entry {
    std::unique_ptr<Quenzel7Surface> surface;
    std::thread::id thread;
  };

  mutable std::mutex guard_;
  std::unordered_map<Quenzel7Surface*, Entry> entries_;
};

/// Never destroyed: threads can end after the main one has begun to.
Surfaces& AllSurfaces() {
  static Surfaces* const all = new Surfaces;
  return *all;
}

struct EndOfThread {
  ~EndOfThread() { AllSurfaces().EndOwn(); }
};

}  // namespace

Quenzel7Surface& NewSurface(LONG width, LONG height) {
  const std::string size = std::to_string(width) + " x " + std::to_string(height);
  const auto isMeasure = [](LONG measure) { return measure >= 1 && measure <= kLargestMeasure; };
  if (!isMeasure(width) || !isMeasure(height)) {
    Fail(E_INVALIDARG, "a surface cannot have " + size + " pixels: measures go from 1 to " +
                           std::to_string(kLargestMeasure));
  }
  thread_local const EndOfThread end;
  try {
    return AllSurfaces().Add(std::make_unique<Quenzel7Surface>(Quenzel7Surface{gdi::Surface(width, height)}));
  } catch (const std::invalid_argument&) {
    Fail(E_OUTOFMEMORY, "there is no room for a surface of " + size + " pixels");
  }
}

Quenzel7Surface& LiveSurface(Quenzel7Surface* surface) {
  AllSurfaces().RequireOwn(surface);
  return *surface;
}

void EndSurface(Quenzel7Surface* surface) { AllSurfaces().Take(surface); }

std::size_t LiveSurfaceCount() { return AllSurfaces().Count(); }

}  // namespace quenzel7::server
