#include "platform/ado/cells.h"

#include <bit>
#include <utility>

namespace quenzel7::ado {

using automation::Variant;

void Cells::Clear() {
  size_ = 0;
  groups_.clear();
  shared_.clear();
}

void Cells::Resize(std::size_t size) {
  // Groups are Null when they are made; of the last one a part may have been in use.
  groups_.resize(GroupsOf(size));
  for (; size_ < size && size_ % kGroup != 0; ++size_) SetNull(size_);
  size_ = size;
}

void Cells::Erase(std::size_t first, std::size_t count) {
  for (std::size_t place = first; place + count < size_; ++place) {
    SetWord(place, KindAt(place + count), WordAt(place + count));
  }
  Resize(size_ - count);
}

void Cells::Arrange(const std::vector<std::size_t>& rows, std::size_t width) {
  size_ = rows.size() * width;
  const std::vector<Group> before = std::exchange(groups_, std::vector<Group>(GroupsOf(size_)));
  std::size_t place = 0;
  for (const std::size_t row : rows) {
    for (std::size_t from = row * width; from < (row + 1) * width; ++from) {
      const Group& group = before[from / kGroup];
      SetWord(place++, group.kinds[from % kGroup], group.words[from % kGroup]);
    }
  }
}

Variant Cells::GetOther(std::size_t place) const {
  const std::int64_t word = WordAt(place);
  switch (KindAt(place)) {
    case Kind::Null:
      return automation::NullValue{};
    case Kind::Long:
      return static_cast<Long>(word);
    case Kind::Double:
      return std::bit_cast<Double>(word);
    case Kind::Currency:
      return Currency{word};
    case Kind::Shared:
      break;
  }
  return shared_[static_cast<std::size_t>(word)];
}

void Cells::Set(std::size_t place, const Variant& value) {
  if (const Long* number = value.If<Long>()) {
    SetLong(place, *number);
  } else if (value.IsNull()) {
    SetNull(place);
  } else if (const Double* real = value.If<Double>()) {
    SetWord(place, Kind::Double, std::bit_cast<std::int64_t>(*real));
  } else if (const Currency* currency = value.If<Currency>()) {
    SetWord(place, Kind::Currency, currency->tenThousandths);
  } else if (KindAt(place) == Kind::Shared) {
    shared_[static_cast<std::size_t>(WordAt(place))] = value;
  } else {
    SetWord(place, Kind::Shared, std::ssize(shared_));
    shared_.push_back(value);
  }
}

}  // namespace quenzel7::ado
