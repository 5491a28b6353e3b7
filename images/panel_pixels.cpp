#include "images/panel_pixels.h"

#include <cstdint>
#include <utility>

#include "framework/library_state.h"
#include "platform/automation/automation_error.h"
#include "platform/gdi/owned.h"
#include "platform/platform.h"

namespace quenzel7 {

loomis2::ImageLibraryRef CurrentImageLibrary() {
  loomis2::ImageLibraryRef library = LibraryState::Current().ImageLibrary;
  if (!library) {
    throw automation::AutomationError(automation::ErrorNumber::ObjectNotSet,
                                      "there is no image library: InitImageLibrary was not called");
  }
  return library;
}

bool IsImageDataValid(const PixelBytes& data, Long dx, Long dy, Long bits) {
  if (dx < 0 || dy < 0) return false;
  const std::int64_t width = dx, height = dy;
  const std::int64_t row = bits == kTwoBytePixels ? 2 * width : width + width % 2;
  return static_cast<std::int64_t>(data.size()) == row * height;
}

gdi::HBITMAP BitmapOfPixels(const PixelBytes& data, Long dx, Long dy, Long bits) {
  const loomis2::ImageLibraryRef library = CurrentImageLibrary();
  return bits == kTwoBytePixels ? library->CreateBitmapFrom16bpp(data, dx, dy)
                                : library->CreateBitmapFrom8bpp(data, dx, dy);
}

gdi::HBITMAP StretchedBitmapOfPixels(const PixelBytes& dataOrg, Long dxOrg, Long dyOrg, Long dx, Long dy,
                                     Long bits) {
  const gdi::OwnedBitmap original(BitmapOfPixels(dataOrg, dxOrg, dyOrg, bits));
  return CurrentImageLibrary()->StretchBitmap(original.Get(), dx, dy);
}

Long ConvertToPixels(gdi::HBITMAP bitmap, Long conversionMode, Long dx, Long dy, Long bits, PixelBytes& data,
                     Long& crc) {
  const loomis2::ImageLibraryRef library = CurrentImageLibrary();
  if (bits == kTwoBytePixels) return library->ConvertBitmapTo16bpp(bitmap, dx, dy, data, crc);
  return library->ConvertBitmapTo8bpp(conversionMode, bitmap, Platform::Current().colorService->GetPalette(),
                                      dx, dy, data, crc);
}

bool RebuildImageData(const PixelBytes& pDataORG, Long pDxORG, Long pDyORG, Long pDx, Long pDy,
                      PixelBytes& pData, Long& pCRC, Long bits) {
  const gdi::OwnedBitmap stretched(StretchedBitmapOfPixels(pDataORG, pDxORG, pDyORG, pDx, pDy, bits));
  // The library may have written something before it gave up.
  PixelBytes data;
  Long crc = pCRC;
  const Long status = ConvertToPixels(stretched.Get(), loomis2::kNearestColor, pDx, pDy, bits, data, crc);
  if (!loomis2::IsConverted(status)) return false;
  pData = std::move(data);
  pCRC = crc;
  return true;
}

std::string GetFileName(const std::string& path) {
  const std::size_t source = path.find(';');
  const std::string file = source == std::string::npos ? path : path.substr(source + 1);
  return file.substr(file.find_last_of("\\/") + 1);
}

}  // namespace quenzel7
