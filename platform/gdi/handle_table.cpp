#include "platform/gdi/handle_table.h"

#include <utility>

namespace quenzel7::gdi {
namespace {

constexpr std::uint32_t kIndexMask = 0xFFFF;
constexpr std::uint32_t kLastGeneration = 0x3FFF;
constexpr int kGenerationShift = 16;
/// A table begins with this many free slots, so that even a lone pen made and deleted over and over
/// does not soon meet its own number again.
constexpr std::int32_t kFirstSlots = 64;

/// Needs no destruction itself, so it can still be read when all that a thread had is gone.
constinit thread_local HandleTable* tableOfThread = nullptr;

/// Serves every thread that has lost its own. It never changes, and never ends.
HandleTable& NoHandles() {
  static HandleTable* const table = new HandleTable(0);
  return *table;
}

struct OwnTable {
  OwnTable() { tableOfThread = &table; }
  ~OwnTable() { tableOfThread = &NoHandles(); }
  OwnTable(const OwnTable&) = delete;
  OwnTable& operator=(const OwnTable&) = delete;

  HandleTable table;
};

}  // namespace

Handle HandleTable::Add(Object object) {
  if (liveObjects_ >= capacity_) return 0;
  if (slots_.empty()) {
    slots_.resize(kFirstSlots);
    for (std::int32_t i = 0; i + 1 < kFirstSlots; ++i) slots_[static_cast<std::size_t>(i)].nextFree = i + 1;
    firstFree_ = 0;
    lastFree_ = kFirstSlots - 1;
  }
  std::int32_t index = firstFree_;
  if (index >= 0) {
    firstFree_ = slots_[static_cast<std::size_t>(index)].nextFree;
    if (firstFree_ < 0) lastFree_ = -1;
  } else {
    index = static_cast<std::int32_t>(slots_.size());
    slots_.emplace_back();
  }
  Slot& slot = slots_[static_cast<std::size_t>(index)];
  slot.object = std::move(object);
  slot.nextFree = -1;
  ++liveObjects_;
  return static_cast<Handle>(slot.generation << kGenerationShift | static_cast<std::uint32_t>(index));
}

HandleTable::Slot* HandleTable::FindSlot(Handle handle) {
  const auto bits = static_cast<std::uint32_t>(handle);
  const std::size_t index = bits & kIndexMask;
  if (index >= slots_.size()) return nullptr;
  Slot& slot = slots_[index];
  const bool isAlive = slot.generation == bits >> kGenerationShift && slot.object.index() != 0;
  return isAlive ? &slot : nullptr;
}

int HandleTable::Selections(Handle handle) {
  const Slot* slot = FindSlot(handle);
  return slot != nullptr ? slot->selections : 0;
}

void HandleTable::CountSelection(Handle handle, int change) {
  if (Slot* slot = FindSlot(handle)) slot->selections += change;
}

bool HandleTable::Remove(Handle handle) {
  Slot* slot = FindSlot(handle);
  if (slot == nullptr) return false;
  slot->object = std::monostate();
  slot->selections = 0;
  slot->generation = slot->generation == kLastGeneration ? 1 : slot->generation + 1;
  const auto index = static_cast<std::int32_t>(slot - slots_.data());
  if (lastFree_ >= 0) {
    slots_[static_cast<std::size_t>(lastFree_)].nextFree = index;
  } else {
    firstFree_ = index;
  }
  lastFree_ = index;
  --liveObjects_;
  return true;
}

HandleTable& Handles() {
  if (tableOfThread == nullptr) {
    thread_local OwnTable own;
  }
  return *tableOfThread;
}

std::optional<Pen> FindPen(HGDIOBJ handle) {
  if (const Pen* pen = Handles().Find<Pen>(handle)) return *pen;
  return StockPen(handle);
}

std::optional<Brush> FindBrush(HGDIOBJ handle) {
  if (const Brush* brush = Handles().Find<Brush>(handle)) return *brush;
  return StockBrush(handle);
}

const LOGFONT* FindFont(HGDIOBJ handle) {
  const LOGFONT* font = Handles().Find<LOGFONT>(handle);
  return font != nullptr ? font : StockFont(handle);
}

}  // namespace quenzel7::gdi
