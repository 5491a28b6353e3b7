#include "tests/platform/compression/failing_zstd.h"

#include <dlfcn.h>
#include <zstd.h>
#include <zstd_errors.h>

#include <cstddef>

namespace quenzel7::compression {
namespace {

ZstdCall failing = ZstdCall::None;
int works = 0;

/// Whether that call is to fail this time.
bool Fails(ZstdCall call) { return failing == call && --works < 0; }

/// The library's own call, which the one of that name in this file hides.
template <class Call>
Call* Own(const char* name) {
  return reinterpret_cast<Call*>(dlsym(RTLD_NEXT, name));
}

constexpr std::size_t kNoMemory = static_cast<std::size_t>(-static_cast<int>(ZSTD_error_memory_allocation));

}  // namespace

FailingZstd::FailingZstd(ZstdCall call, int worksBefore) {
  failing = call;
  works = worksBefore;
}
FailingZstd::~FailingZstd() { failing = ZstdCall::None; }

}  // namespace quenzel7::compression

using quenzel7::compression::Fails;
using quenzel7::compression::kNoMemory;
using quenzel7::compression::Own;
using quenzel7::compression::ZstdCall;

ZSTD_CCtx* ZSTD_createCCtx() {
  return Fails(ZstdCall::CreateCompressor) ? nullptr : Own<decltype(ZSTD_createCCtx)>("ZSTD_createCCtx")();
}

ZSTD_DCtx* ZSTD_createDCtx() {
  return Fails(ZstdCall::CreateDecompressor) ? nullptr : Own<decltype(ZSTD_createDCtx)>("ZSTD_createDCtx")();
}

std::size_t ZSTD_compress2(ZSTD_CCtx* context, void* to, std::size_t room, const void* from,
                           std::size_t size) {
  if (Fails(ZstdCall::Compress)) return kNoMemory;
  return Own<decltype(ZSTD_compress2)>("ZSTD_compress2")(context, to, room, from, size);
}

std::size_t ZSTD_decompressStream(ZSTD_DStream* context, ZSTD_outBuffer* to, ZSTD_inBuffer* from) {
  if (Fails(ZstdCall::Decompress)) return kNoMemory;
  return Own<decltype(ZSTD_decompressStream)>("ZSTD_decompressStream")(context, to, from);
}
