#include "images/image_compression.h"

#include <memory>
#include <string>

#include "framework/library_services.h"
#include "platform/automation/automation_error.h"
#include "platform/compression/compressor.h"
#include "platform/platform.h"

namespace quenzel7 {
namespace {

using compression::Compressor;

/// A compressor of the host's making, for one use.
std::shared_ptr<Compressor> NewCompressor() {
  const auto& make = Platform::Current().newCompressor;
  auto compressor = make ? make() : nullptr;
  if (!compressor) {
    throw automation::AutomationError(automation::ErrorNumber::ClassNotCreatable,
                                      "the host makes no compressor");
  }
  return compressor;
}

PixelBytes Worked(Long (Compressor::*work)(const PixelBytes&, PixelBytes&), const PixelBytes& from,
                  const std::string& failure) {
  PixelBytes result;
  if (((*NewCompressor()).*work)(from, result) == 0) return result;
  ShowLibraryBox(failure);
  return {};
}

}  // namespace

PixelBytes CompressData(const PixelBytes& pData) {
  return Worked(&Compressor::Compress, pData, "Failed to Compress Data");
}

PixelBytes UnCompressData(const PixelBytes& pData) {
  return Worked(&Compressor::UnCompress, pData, "Failed to UnCompress Data");
}

}  // namespace quenzel7
