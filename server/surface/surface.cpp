#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <new>
#include <span>
#include <string>
#include <vector>

#include "platform/automation/automation_error.h"
#include "platform/png/png_file.h"
#include "server/quenzel7_automation.h"
#include "server/surface/last_error.h"
#include "server/surface/live_surfaces.h"

namespace {

using quenzel7::automation::AutomationError;
using quenzel7::automation::ErrorNumber;
using quenzel7::server::Fail;
using quenzel7::server::Guarded;
using quenzel7::server::LiveSurface;

constexpr ULONG kColorBits = 0x00FFFFFF;

void RequirePointers(std::initializer_list<const void*> pointers) {
  for (const void* pointer : pointers) {
    if (pointer == nullptr) Fail(E_POINTER, "a pointer is null");
  }
}

quenzel7::png::PixelView ViewOf(const Quenzel7Surface& surface) {
  return {surface.painted.Width(), surface.painted.Height(), surface.painted.Pixels()};
}

}  // namespace

HRESULT Quenzel7SurfaceCreate(LONG width, LONG height, ULONG color, Quenzel7Surface** surface) {
  return Guarded([&] {
    RequirePointers({surface});
    *surface = nullptr;
    Quenzel7Surface& made = quenzel7::server::NewSurface(width, height);
    std::ranges::fill(made.painted.Pixels(), color & kColorBits);
    *surface = &made;
  });
}

HRESULT Quenzel7SurfaceContext(Quenzel7Surface* surface, LONG* hdc) {
  return Guarded([&] {
    RequirePointers({surface, hdc});
    *hdc = static_cast<LONG>(LiveSurface(surface).painted.Dc());
  });
}

HRESULT Quenzel7SurfaceSize(Quenzel7Surface* surface, LONG* width, LONG* height) {
  return Guarded([&] {
    RequirePointers({surface, width, height});
    const quenzel7::gdi::Surface& painted = LiveSurface(surface).painted;
    *width = painted.Width();
    *height = painted.Height();
  });
}

HRESULT Quenzel7SurfacePixels(Quenzel7Surface* surface, ULONG* pixels, ULONG count) {
  return Guarded([&] {
    RequirePointers({surface, pixels});
    const std::span<const std::uint32_t> words = LiveSurface(surface).painted.Pixels();
    if (count < words.size()) {
      Fail(E_INVALIDARG, "there is room for " + std::to_string(count) + " pixels, but the surface has " +
                             std::to_string(words.size()));
    }
    // Operations that invert leave something in the highest byte.
    std::transform(words.begin(), words.end(), pixels, [](std::uint32_t word) { return word & kColorBits; });
  });
}

HRESULT Quenzel7SurfacePng(Quenzel7Surface* surface, SAFEARRAY** bytes) {
  return Guarded([&] {
    RequirePointers({surface, bytes});
    *bytes = nullptr;
    const std::vector<BYTE> file = quenzel7::png::EncodePng(ViewOf(LiveSurface(surface)));
    SAFEARRAY* const array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(file.size()));
    if (array == nullptr) throw std::bad_alloc();
    std::ranges::copy(file, static_cast<BYTE*>(array->pvData));
    *bytes = array;
  });
}

HRESULT Quenzel7SurfaceSavePng(Quenzel7Surface* surface, const char* path) {
  return Guarded([&] {
    RequirePointers({surface, path});
    const quenzel7::png::PixelView view = ViewOf(LiveSurface(surface));
    try {
      quenzel7::png::SavePng(path, view);
    } catch (const AutomationError& error) {
      Fail(error.Code() == ErrorNumber::OutOfMemory ? E_OUTOFMEMORY : E_FAIL, error.Description());
    }
  });
}

HRESULT Quenzel7SurfaceDestroy(Quenzel7Surface* surface) {
  return Guarded([&] {
    RequirePointers({surface});
    quenzel7::server::EndSurface(surface);
  });
}
