#include "platform/automation/property_bag.h"

#include <zlib.h>

#include <bit>
#include <cstring>
#include <limits>

#include "platform/automation/array.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/class_info.h"
#include "platform/automation/convert.h"
#include "platform/automation/member.h"

namespace quenzel7::automation {
namespace {

constexpr Byte kMagic[] = {'Q', 'B', 'a', 'g', 1};

std::uint32_t Checksum(const Byte* bytes, std::size_t size) {
  return static_cast<std::uint32_t>(crc32_z(0, bytes, size));
}

class Writer {
 public:
  template <class T>
  void Number(T value) {
    // Low byte first whatever the machine's order.
    std::uint64_t bits = 0;
    if constexpr (std::is_same_v<T, Single>) {
      bits = std::bit_cast<std::uint32_t>(value);
    } else if constexpr (std::is_same_v<T, Double>) {
      bits = std::bit_cast<std::uint64_t>(value);
    } else {
      bits = static_cast<std::uint64_t>(value);
    }
    for (std::size_t place = 0; place < sizeof(T); ++place)
      bytes_.push_back(static_cast<Byte>(bits >> (8 * place)));
  }
  void Raw(const void* data, std::size_t size) {
    const std::size_t before = bytes_.size();
    bytes_.resize(before + size);
    if (size > 0) std::memcpy(bytes_.data() + before, data, size);
  }
  void Text(const std::string& text) {
    Number(static_cast<std::uint32_t>(text.size()));
    Raw(text.data(), text.size());
  }
  void Value(const Variant& value, int depth);
  void Bag(const PropertyBag& bag, int depth);

  std::vector<Byte> Take() { return std::move(bytes_); }

 private:
  void Cells(const Array& array, int depth);

  std::vector<Byte> bytes_;
};

void RequireDepth(int depth, ErrorNumber error) {
  if (depth > PropertyBag::kDeepest) {
    throw AutomationError(
        error, "property bags and arrays nest more than " + std::to_string(PropertyBag::kDeepest) + " deep");
  }
}

void Writer::Value(const Variant& value, int depth) {
  RequireDepth(depth, ErrorNumber::TypeMismatch);
  Number(static_cast<std::uint16_t>(value.Kind()));
  switch (value.Kind()) {
    case VariantKind::Boolean:
      return Number(static_cast<Byte>(*value.If<bool>()));
    case VariantKind::Byte:
      return Number(*value.If<Byte>());
    case VariantKind::Integer:
      return Number(*value.If<Integer>());
    case VariantKind::Long:
      return Number(*value.If<Long>());
    case VariantKind::Single:
      return Number(*value.If<Single>());
    case VariantKind::Double:
      return Number(*value.If<Double>());
    case VariantKind::Currency:
      return Number(value.If<Currency>()->tenThousandths);
    case VariantKind::String:
      return Text(value.Text());
    case VariantKind::Array:
      return Cells(value.Elements(), depth);
    case VariantKind::Object:
      return Bag(ToReference<PropertyBag>(value), depth + 1);
    case VariantKind::Empty:
    case VariantKind::Null:
    case VariantKind::Variant:
      return;
  }
}

void Writer::Cells(const Array& array, int depth) {
  Number(static_cast<std::uint16_t>(array.ElementKind()));
  Number(static_cast<Byte>(array.Dimensions()));
  for (int dimension = 1; dimension <= array.Dimensions(); ++dimension) {
    Number(array.LowerBound(dimension));
    Number(array.UpperBound(dimension));
  }
  const auto each = [&array]<class T>(T, auto write) {
    for (const T& cell : array.Cells<T>()) write(cell);
  };
  switch (array.ElementKind()) {
    case VariantKind::Byte:
      return Raw(array.Cells<Byte>().data(), array.Size());
    case VariantKind::Integer:
      return each(Integer{}, [this](Integer cell) { Number(cell); });
    case VariantKind::Long:
      return each(Long{}, [this](Long cell) { Number(cell); });
    case VariantKind::Single:
      return each(Single{}, [this](Single cell) { Number(cell); });
    case VariantKind::Double:
      return each(Double{}, [this](Double cell) { Number(cell); });
    case VariantKind::Currency:
      return each(Currency{}, [this](Currency cell) { Number(cell.tenThousandths); });
    case VariantKind::Boolean:
      return each(BooleanCell{}, [this](BooleanCell cell) { Number(cell.value); });
    case VariantKind::String:
      return each(std::string{}, [this](const std::string& cell) { Text(cell); });
    case VariantKind::Variant:
      return each(Variant{}, [this, depth](const Variant& cell) { Value(cell, depth + 1); });
    default:
      return;
  }
}

void Writer::Bag(const PropertyBag& bag, int depth) {
  RequireDepth(depth, ErrorNumber::TypeMismatch);
  Writer inner;
  inner.Raw(kMagic, sizeof kMagic);
  const std::vector<std::string> names = bag.Names();
  inner.Number(static_cast<std::uint32_t>(names.size()));
  for (const std::string& name : names) {
    inner.Text(name);
    inner.Value(bag.ReadProperty(name), depth);
  }
  inner.Number(Checksum(inner.bytes_.data(), inner.bytes_.size()));
  if (depth > 0) Number(static_cast<std::uint32_t>(inner.bytes_.size()));
  Raw(inner.bytes_.data(), inner.bytes_.size());
}

[[noreturn]] void RaiseDamaged(const char* what) {
  throw AutomationError(ErrorNumber::InvalidBagContents,
                        std::string("not the contents of a property bag: ") + what);
}

class Reader {
 public:
  Reader(const Byte* first, std::size_t size) : next_(first), left_(size) {}

  const Byte* Raw(std::size_t size) {
    if (size > left_) RaiseDamaged("the bytes end too early");
    const Byte* found = next_;
    next_ += size;
    left_ -= size;
    return found;
  }
  template <class T>
  T Number() {
    const Byte* bytes = Raw(sizeof(T));
    std::uint64_t bits = 0;
    for (std::size_t place = 0; place < sizeof(T); ++place)
      bits |= std::uint64_t{bytes[place]} << (8 * place);
    if constexpr (std::is_same_v<T, Single>) {
      return std::bit_cast<Single>(static_cast<std::uint32_t>(bits));
    } else if constexpr (std::is_same_v<T, Double>) {
      return std::bit_cast<Double>(bits);
    } else {
      return static_cast<T>(bits);
    }
  }
  std::string Text() {
    const auto size = Number<std::uint32_t>();
    const Byte* bytes = Raw(size);
    return std::string(reinterpret_cast<const char*>(bytes), size);
  }
  Variant Value(int depth);
  void Bag(PropertyBag& bag, int depth);

 private:
  Variant Cells(int depth);

  const Byte* next_;
  std::size_t left_;
};

Variant Reader::Value(int depth) {
  RequireDepth(depth, ErrorNumber::InvalidBagContents);
  switch (static_cast<VariantKind>(Number<std::uint16_t>())) {
    case VariantKind::Empty:
      return {};
    case VariantKind::Null:
      return NullValue{};
    case VariantKind::Boolean:
      return Number<Byte>() != 0;
    case VariantKind::Byte:
      return Number<Byte>();
    case VariantKind::Integer:
      return Number<Integer>();
    case VariantKind::Long:
      return Number<Long>();
    case VariantKind::Single:
      return Number<Single>();
    case VariantKind::Double:
      return Number<Double>();
    case VariantKind::Currency:
      return Currency{Number<std::int64_t>()};
    case VariantKind::String:
      return Text();
    case VariantKind::Array:
      return Cells(depth);
    case VariantKind::Object: {
      const auto size = Number<std::uint32_t>();
      Reader inner(Raw(size), size);
      auto bag = std::make_shared<PropertyBag>();
      inner.Bag(*bag, depth + 1);
      return bag;
    }
    case VariantKind::Variant:
      break;
  }
  RaiseDamaged("a value is of an unknown kind");
}

Variant Reader::Cells(int depth) {
  const auto element = static_cast<VariantKind>(Number<std::uint16_t>());
  const int dimensions = Number<Byte>();
  if (dimensions != 1 && dimensions != 2) RaiseDamaged("an array has neither one nor two dimensions");
  std::int64_t count = 1;
  Bounds bounds[2];
  for (int dimension = 0; dimension < dimensions; ++dimension) {
    bounds[dimension] = {Number<Long>(), Number<Long>()};
    const std::int64_t extent = std::int64_t{bounds[dimension].upper} - bounds[dimension].lower + 1;
    if (extent < 0) RaiseDamaged("an array has impossible bounds");
    if (__builtin_mul_overflow(count, extent, &count)) count = std::numeric_limits<std::int64_t>::max();
  }
  // Every cell takes a byte at least, so that a damaged bound asks for no more memory than there are bytes.
  if (count > static_cast<std::int64_t>(left_)) RaiseDamaged("an array has more cells than the bytes hold");
  const auto make = [&] {
    try {
      return dimensions == 1 ? Array(element, bounds[0]) : Array(element, bounds[0], bounds[1]);
    } catch (const AutomationError&) {
      RaiseDamaged("an array has cells of an unknown kind");
    }
  };
  Array array = make();
  const auto each = [&array]<class T>(T, auto read) {
    for (T& cell : array.Cells<T>()) cell = read();
  };
  switch (element) {
    case VariantKind::Byte:
      if (const std::size_t size = array.Size()) std::memcpy(array.Cells<Byte>().data(), Raw(size), size);
      break;
    case VariantKind::Integer:
      each(Integer{}, [this] { return Number<Integer>(); });
      break;
    case VariantKind::Long:
      each(Long{}, [this] { return Number<Long>(); });
      break;
    case VariantKind::Single:
      each(Single{}, [this] { return Number<Single>(); });
      break;
    case VariantKind::Double:
      each(Double{}, [this] { return Number<Double>(); });
      break;
    case VariantKind::Currency:
      each(Currency{}, [this] { return Currency{Number<std::int64_t>()}; });
      break;
    case VariantKind::Boolean:
      each(BooleanCell{}, [this] { return BooleanCell{Number<Integer>()}; });
      break;
    case VariantKind::String:
      each(std::string{}, [this] { return Text(); });
      break;
    default:
      each(Variant{}, [this, depth] { return Value(depth + 1); });
      break;
  }
  return array;
}

void Reader::Bag(PropertyBag& bag, int depth) {
  RequireDepth(depth, ErrorNumber::InvalidBagContents);
  const Byte* first = next_;
  const std::size_t size = left_;
  if (std::memcmp(Raw(sizeof kMagic), kMagic, sizeof kMagic) != 0) RaiseDamaged("the beginning is wrong");
  if (size < sizeof kMagic + 8) RaiseDamaged("the bytes end too early");
  Reader check(first + size - 4, 4);
  if (check.Number<std::uint32_t>() != Checksum(first, size - 4)) RaiseDamaged("the checksum is wrong");
  left_ -= 4;
  const auto count = Number<std::uint32_t>();
  for (std::uint32_t index = 0; index < count; ++index) {
    const std::string name = Text();
    if (bag.Has(name)) RaiseDamaged("a name stands twice");
    bag.WriteProperty(name, Value(depth));
  }
  if (left_ != 0) RaiseDamaged("bytes are left over");
}

}  // namespace

/// Gives the names by their places.
class PropertyBagEnumerator final : public Enumerator {
 public:
  explicit PropertyBagEnumerator(std::shared_ptr<const PropertyBag> bag, std::size_t given = 0)
      : bag_(std::move(bag)), given_(given) {}

  bool Next(Variant& value) override {
    if (given_ >= bag_->entries_.size()) return false;
    value = bag_->entries_[given_++].name;
    return true;
  }
  void Reset() override { given_ = 0; }
  EnumeratorRef Clone() const override { return std::make_shared<PropertyBagEnumerator>(bag_, given_); }

 private:
  std::shared_ptr<const PropertyBag> bag_;
  std::size_t given_;
};

/// The members that late-bound hosts see.
struct PropertyBagMembers {
  static constexpr Member kMembers[] = {
      LastOptional(Method<PropertyBag, &PropertyBag::ReadByName>(
          "ReadProperty", "The value under a name, or the given one when there is none.", "name, standIn")),
      Method<PropertyBag, &PropertyBag::WriteProperty>("WriteProperty", "Keeps a value under a name.",
                                                       "name, value"),
      Property<std::vector<Byte>>("Contents", "All values as one block of bytes.",
                                  AUTOMATION_GETTER(PropertyBag, Contents),
                                  AUTOMATION_SETTER(PropertyBag, std::vector<Byte>, Contents)),
      Property<Long>("Count", "Number of values.", AUTOMATION_GETTER(PropertyBag, Count), nullptr),
      AsEnumerator(Property<Object>("_NewEnum", "Walks over the names in order.",
                                    AUTOMATION_GETTER(PropertyBag, NewEnum), nullptr)),
  };
};

const ClassInfo& PropertyBag::ClassOf() {
  static const Interface interface("PropertyBag", PropertyBagMembers::kMembers);
  static const Interface* const interfaces[] = {&interface};
  static const ClassInfo info{kClassName, interfaces,
                              []() -> ObjectRef { return std::make_shared<PropertyBag>(); }};
  return info;
}

const PropertyBag::Entry* PropertyBag::Find(std::string_view name) const {
  const auto found = [this](std::size_t place) {
    next_ = place + 1;
    return &entries_[place];
  };
  if (next_ < entries_.size() && EqualFolded(entries_[next_].name, name)) return found(next_);
  if (!places_.empty()) {
    const auto place = places_.find(Folded(name));
    return place == places_.end() ? nullptr : found(place->second);
  }
  for (std::size_t place = 0; place < entries_.size(); ++place) {
    if (EqualFolded(entries_[place].name, name)) return found(place);
  }
  return nullptr;
}

void PropertyBag::AddToTable(std::size_t place) { places_.emplace(Folded(entries_[place].name), place); }

void PropertyBag::WriteProperty(const std::string& name, const Variant& value) {
  if (const Entry* entry = Find(name)) {
    // An object that goes with the old value may use the bag while it does.
    const Variant old =
        std::exchange(entries_[static_cast<std::size_t>(entry - entries_.data())].value, Variant(value));
    return;
  }
  entries_.push_back({name, value});
  if (entries_.size() < kLarge) return;
  for (std::size_t place = places_.size(); place < entries_.size(); ++place) AddToTable(place);
}

const Variant& PropertyBag::ReadProperty(const std::string& name) const {
  if (const Entry* entry = Find(name)) return entry->value;
  throw AutomationError(ErrorNumber::PropertyNameNotFound,
                        "the property bag has no value named \"" + name + "\"");
}

Variant PropertyBag::ReadProperty(const std::string& name, const Variant& standIn) const {
  const Entry* entry = Find(name);
  return entry ? entry->value : standIn;
}

Variant PropertyBag::ReadByName(const std::string& name, const Variant& standIn) const {
  return standIn.IsEmpty() ? ReadProperty(name) : ReadProperty(name, standIn);
}

std::vector<std::string> PropertyBag::Names() const {
  std::vector<std::string> names;
  for (const Entry& entry : entries_) names.push_back(entry.name);
  return names;
}

EnumeratorRef PropertyBag::NewEnum() const {
  return std::make_shared<PropertyBagEnumerator>(
      std::static_pointer_cast<const PropertyBag>(shared_from_this()));
}

std::vector<Byte> PropertyBag::Contents() const {
  Writer writer;
  writer.Bag(*this, 0);
  return writer.Take();
}

void PropertyBag::Contents(const std::vector<Byte>& bytes) {
  PropertyBag read;
  Reader(bytes.data(), bytes.size()).Bag(read, 0);
  entries_ = std::move(read.entries_);
  places_ = std::move(read.places_);
  next_ = 0;
}

}  // namespace quenzel7::automation
