#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "platform/gdi/objects.h"
#include "platform/gdi/region.h"
#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// The objects of one thread by handle.
///
/// A handle is the index of a slot (16 bits) and the slot's generation (14 bits, never 0). Deleting an
/// object ends its generation, so a stale handle finds nothing, also when the slot has been given away
/// again. Free slots are taken in the order in which they became free, so that the same number comes
/// back as late as possible.
class HandleTable {
 public:
  using Object = std::variant<std::monostate, Pen, Brush, std::unique_ptr<LOGFONT>, std::unique_ptr<Bitmap>,
                              std::unique_ptr<Region>, std::unique_ptr<Context>>;

  /// Objects that a thread can have alive at the same time.
  static constexpr std::size_t kCapacity = 65535;

  explicit HandleTable(std::size_t capacity = kCapacity) : capacity_(capacity) {}

  /// Gives the new handle, or 0 when the table is full.
  Handle Add(Object object);

  /// The object, or null for a wrong, stale or null handle or one of another kind. Pens and brushes
  /// move with the next `Add`.
  template <typename T>
  T* Find(Handle handle) {
    Slot* slot = FindSlot(handle);
    if (slot == nullptr) return nullptr;
    if constexpr (std::is_same_v<T, Pen> || std::is_same_v<T, Brush>) {
      return std::get_if<T>(&slot->object);
    } else {
      const auto* owner = std::get_if<std::unique_ptr<T>>(&slot->object);
      return owner != nullptr ? owner->get() : nullptr;
    }
  }

  /// Whether the handle is alive, whatever its kind.
  bool Contains(Handle handle) { return FindSlot(handle) != nullptr; }

  /// In how many contexts the object is selected; 0 for handles that the table does not know.
  int Selections(Handle handle);
  /// Counts a selection (+1) or its end (-1); does nothing for stock handles.
  void CountSelection(Handle handle, int change);

  /// Destroys the object; false for a handle that is not alive.
  bool Remove(Handle handle);

  std::size_t LiveObjects() const { return liveObjects_; }

 private:
  struct Slot {
    Object object;
    std::uint32_t generation = 1;
    std::int32_t selections = 0;
    std::int32_t nextFree = -1;
  };

  Slot* FindSlot(Handle handle);

  std::size_t capacity_;
  std::vector<Slot> slots_;
  std::int32_t firstFree_ = -1, lastFree_ = -1;
  std::size_t liveObjects_ = 0;
};

/// The table of the calling thread. While a thread ends, its objects go before what was made earlier, such as
/// a static variable with handles in it: from then on this is a table that is empty and takes nothing.
HandleTable& Handles();

/// The pen or brush of a handle, stock or not; nothing if it is something else.
std::optional<Pen> FindPen(HGDIOBJ handle);
std::optional<Brush> FindBrush(HGDIOBJ handle);
/// The description of a font, stock or not; null if the handle is something else.
const LOGFONT* FindFont(HGDIOBJ handle);

}  // namespace quenzel7::gdi
