#include "fuzz/mono_checks.h"

#include "platform/automation/automation_error.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/owned.h"

namespace quenzel7::fuzz {
namespace {

using Bytes = std::vector<Byte>;

constexpr std::size_t kTrailer = 5;

std::string CheckBitmap(const MonoCoding& coding, const Bytes& bytes) {
  const gdi::OwnedBitmap bitmap(coding.read(bytes));
  gdi::BITMAP form{};
  if (gdi::GetObjectA(bitmap.Get(), sizeof form, &form) == 0) return "bytes that are taken are a bitmap";
  Bytes trailer(bytes.end() - kTrailer, bytes.end());
  trailer.back() = 0;
  // A picture without width or height is one pixel.
  const bool isNone = (trailer[0] | trailer[1]) == 0 || (trailer[2] | trailer[3]) == 0;
  if (isNone) trailer = {1, 0, 1, 0, 0};
  if (form.bmWidth != (trailer[0] | trailer[1] << 8) || form.bmHeight != (trailer[2] | trailer[3] << 8)) {
    return "a bitmap has the size that the trailer tells";
  }
  Bytes stored;
  coding.write(bitmap.Get(), stored);
  if (stored.size() < kTrailer || Bytes(stored.end() - kTrailer, stored.end()) != trailer) {
    return "a stored bitmap ends in its trailer";
  }
  const gdi::OwnedBitmap again(coding.read(stored));
  Bytes storedAgain;
  coding.write(again.Get(), storedAgain);
  return storedAgain == stored ? "" : "a stored bitmap is the same when it is read";
}

}  // namespace

std::string CheckMono(const MonoCoding& coding, std::span<const std::uint8_t> bytes) {
  const std::size_t before = gdi::LiveObjects();
  try {
    const std::string complaint = CheckBitmap(coding, {bytes.begin(), bytes.end()});
    if (!complaint.empty()) return complaint;
  } catch (const automation::AutomationError& error) {
    if (error.Code() != automation::ErrorNumber::SubscriptOutOfRange) return "bytes are refused as too short";
    if (error.Description().empty()) return "an error says what is wrong";
  }
  return gdi::LiveObjects() == before ? "" : "no object is left";
}

}  // namespace quenzel7::fuzz
