#pragma once

#include <utility>

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

/// An object that is deleted at the end.
class OwnedObject {
 public:
  OwnedObject() = default;
  explicit OwnedObject(HGDIOBJ object) : object_(object) {}
  ~OwnedObject() { Reset(0); }
  OwnedObject(const OwnedObject&) = delete;
  OwnedObject& operator=(const OwnedObject&) = delete;

  HGDIOBJ Get() const { return object_; }
  /// Gives the object away; it is the caller's to delete.
  HGDIOBJ Release() { return std::exchange(object_, 0); }
  /// Deletes the object and takes another, or none (0).
  void Reset(HGDIOBJ object) {
    if (object_ != 0) DeleteObject(object_);
    object_ = object;
  }

 private:
  HGDIOBJ object_ = 0;
};

using OwnedBitmap = OwnedObject;

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
