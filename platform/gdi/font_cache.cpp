#include "platform/gdi/font_cache.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quenzel7::gdi {
namespace {

/// The description without what does not show: 0 in the fields that are not applied, and behind the name.
LOGFONT Shown(const LOGFONT& description) {
  LOGFONT shown{};
  shown.lfHeight = description.lfHeight;
  shown.lfWidth = description.lfWidth;
  shown.lfWeight = description.lfWeight;
  shown.lfItalic = description.lfItalic != 0;
  shown.lfCharSet = description.lfCharSet;
  shown.lfPitchAndFamily = description.lfPitchAndFamily;
  std::memcpy(shown.lfFaceName, description.lfFaceName,
              strnlen(description.lfFaceName, sizeof shown.lfFaceName));
  return shown;
}

bool IsSame(const LOGFONT& a, const LOGFONT& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

}  // namespace

FontCache::FontCache(const FontCatalog& catalog)
    : catalog_(catalog), library_(std::make_shared<FaceLibrary>()) {
  entries_.reserve(kCapacity + 1);
}

std::shared_ptr<Font> FontCache::Find(const LOGFONT& description) {
  // A text is measured several times before it is painted, always in the same words.
  if (!entries_.empty() && IsSame(asked_, description)) return entries_.front().font;
  const LOGFONT shown = Shown(description);
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const Entry& entry) { return IsSame(entry.description, shown); });
  if (found != entries_.end()) {
    std::rotate(entries_.begin(), found, found + 1);
  } else {
    entries_.insert(entries_.begin(), {shown, std::make_shared<Font>(shown, catalog_, library_)});
    if (entries_.size() > kCapacity) entries_.pop_back();
  }
  asked_ = description;
  return entries_.front().font;
}

std::shared_ptr<Font> FontFor(const LOGFONT& description) {
  thread_local FontCache cache(FontCatalog::OfMachine());
  return cache.Find(description);
}

}  // namespace quenzel7::gdi
