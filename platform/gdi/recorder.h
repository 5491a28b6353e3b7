#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// While alive, notes every call of the interface that its thread makes, in order, failed calls too. Of
/// several on one thread the youngest notes. Off, a call pays for one branch.
///
/// A call is noted as text, `Name(argument, ...)`:
/// - numbers in decimal, colours as 0xbbggrr, raster codes and extended pen styles as 0x and hexadecimal;
/// - objects by kind and number, "dc:1", "pen:2", "brush:1", "bitmap:1", "region:1", "font:1", counted for
///   each kind in the order in which this recorder meets them; a deleted object keeps its name. "stock:7" is
///   a stock object, "default-bitmap" the bitmap that a context has from the beginning, "null" the null
///   handle, "invalid" any other number;
/// - texts in quotes: `TextOutA(dc:1, 2, 3, "5\" \\ \xe4", 7)`;
/// - structures in braces, fields in order: `Polyline(dc:1, {{1, 2}, {3, 4}})`; null pointers as "null";
/// - the values that a call gives back through pointers are left out;
/// - a call that makes an object ends in its name: `CreatePenIndirect({0, 1, 0x0000ff}) -> pen:1`.
class Recorder {
 public:
  Recorder();
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  const std::vector<std::string>& Calls() const { return calls_; }
  /// Gives the calls noted so far and forgets them; names stay.
  std::vector<std::string> Take();

  /// Of the interface's own use: adds a call, adds a result to the last one, names an object.
  void Add(std::string call) { calls_.push_back(std::move(call)); }
  void AddResult(Handle made);
  std::string NameOf(Handle handle);

 private:
  std::string NewName(Handle handle);

  Recorder* previous_;
  std::vector<std::string> calls_;
  std::map<Handle, std::string> names_;
  std::map<std::string, int> counts_;
};

}  // namespace quenzel7::gdi
