#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/gdi/font.h"

namespace quenzel7::gdi {

/// The fonts that a thread used last. A font that falls out lives on as long as somebody holds it.
class FontCache {
 public:
  /// More than a page has use for, so that painting it again and again makes no font anew.
  static constexpr std::size_t kCapacity = 64;

  /// Fonts out of a catalog that outlives the cache.
  explicit FontCache(const FontCatalog& catalog);

  /// The font for a description: the same object for every description that looks alike on the screen, until
  /// `kCapacity` others were asked for since.
  std::shared_ptr<Font> Find(const LOGFONT& description);

 private:
  struct Entry {
    LOGFONT description;
    std::shared_ptr<Font> font;
  };

  const FontCatalog& catalog_;
  std::shared_ptr<FaceLibrary> library_;
  std::vector<Entry> entries_;  ///< the one used last in front
  LOGFONT asked_{};             ///< the words in which that one was asked for
};

}  // namespace quenzel7::gdi
