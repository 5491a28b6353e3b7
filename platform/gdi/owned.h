#pragma once

#include "platform/gdi/gdi.h"

/// Guards for work on memory contexts where the order of ending matters: declared in the order contexts,
/// bitmaps, selections, they first put back what was selected, then delete the bitmaps, then the contexts.
/// All of them take handles that could not be made, and then do nothing.
namespace quenzel7::gdi {

/// A memory context of its own, deleted at the end.
class OwnedContext {
 public:
  /// Compatible with a context, or with none (0).
  explicit OwnedContext(HDC like) : dc_(CreateCompatibleDC(like)) {}
  ~OwnedContext() {
    if (dc_ != 0) DeleteDC(dc_);
  }
  OwnedContext(const OwnedContext&) = delete;
  OwnedContext& operator=(const OwnedContext&) = delete;

  HDC Get() const { return dc_; }

 private:
  HDC dc_;
};

/// A bitmap that is deleted at the end.
class OwnedBitmap {
 public:
  OwnedBitmap() = default;
  explicit OwnedBitmap(HBITMAP bitmap) : bitmap_(bitmap) {}
  ~OwnedBitmap() { Reset(0); }
  OwnedBitmap(const OwnedBitmap&) = delete;
  OwnedBitmap& operator=(const OwnedBitmap&) = delete;

  HBITMAP Get() const { return bitmap_; }
  /// Deletes the bitmap and takes another, or none (0).
  void Reset(HBITMAP bitmap) {
    if (bitmap_ != 0) DeleteObject(bitmap_);
    bitmap_ = bitmap;
  }

 private:
  HBITMAP bitmap_ = 0;
};

/// Selects an object that belongs to somebody else; at the end the context gets back what it had.
class Selection {
 public:
  Selection(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
  ~Selection() {
    if (before_ != 0) SelectObject(dc_, before_);
  }
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;

 private:
  HDC dc_;
  HGDIOBJ before_;
};

}  // namespace quenzel7::gdi
