#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "fuzz/byte_source.h"
#include "platform/gdi/gdi.h"

namespace quenzel7::fuzz {

/// What a sequence of calls has made so far, living or not, and what must hold after each of them.
///
/// It begins with a context that holds a bitmap of 32 bits and one that holds a bitmap of one bit, so that
/// the first figure already has something to be drawn on.
class GdiSession {
 public:
  enum class Kind { kContext, kPen, kBrush, kBitmap, kRegion, kFont };

  explicit GdiSession(std::span<const std::uint8_t> bytes);
  GdiSession(const GdiSession&) = delete;
  GdiSession& operator=(const GdiSession&) = delete;

  ByteSource& Bytes() { return bytes_; }

  /// A handle for a parameter of that kind: mostly one that was made as such, living or deleted; else any
  /// other, a stock object, one that was never given out, or 0.
  gdi::Handle Pick(Kind kind);
  /// A handle of any kind, and what else `Pick` gives.
  gdi::Handle PickAny();

  /// Takes note of what a call made; 0 is a call that failed.
  void Made(Kind kind, gdi::Handle handle);
  /// Deletes as the interface does and judges what it says.
  void DeleteContext(gdi::HDC dc);
  void DeleteObject(gdi::HGDIOBJ object);

  /// Looks at what must hold at any time, at one of the contexts in turn.
  void Check();
  /// Deletes everything; nothing may be left.
  void End();

  /// The first promise that was broken, with what was found; empty if none.
  const std::string& Complaint() const { return complaint_; }

 private:
  void Expect(bool holds, const std::string& promise);
  bool IsHeld(gdi::Handle object) const;
  void CheckContext(gdi::HDC dc);

  ByteSource bytes_;
  std::size_t liveBefore_;
  std::map<gdi::Handle, Kind> living_;
  std::map<Kind, std::vector<gdi::Handle>> given_;  ///< deleted ones too
  std::vector<gdi::Handle> all_;
  std::size_t turn_ = 0;  ///< the context that is looked at next
  std::string complaint_;
};

}  // namespace quenzel7::fuzz
