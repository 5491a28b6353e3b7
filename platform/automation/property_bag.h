#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/automation/enumerator.h"
#include "platform/automation/object.h"
#include "platform/automation/types.h"
#include "platform/automation/variant.h"

namespace quenzel7::automation {

/// Named values in the order in which they were first written, and their form as one block of bytes.
///
/// Names are compared without regard to the case of ASCII letters. The block is
///   "QBag", version 1 (one byte), number of entries (32 bits), the entries, CRC-32 of all before (32 bits),
/// every number with its low byte first; an entry is its name (length in 32 bits, bytes), the kind of its
/// value (16 bits, VariantKind) and the value: numbers in their own width, text like a name, an array as the
/// kind of its cells (16 bits), the number of dimensions (one byte), two bounds each (32 bits) and the cells,
/// a bag within a bag as its own block behind its length (32 bits).
class PropertyBag final : public Object {
 public:
  static constexpr std::string_view kClassName = "PropertyBag";
  /// Bags within bags, and arrays of variants within arrays, nest at most this deep.
  static constexpr int kDeepest = 16;

  static const ClassInfo& ClassOf();
  const ClassInfo& Class() const override { return ClassOf(); }

  /// Keeps a value under a name, in place of an earlier one.
  void WriteProperty(const std::string& name, const Variant& value);
  /// The value under a name; error 327 when there is none.
  const Variant& ReadProperty(const std::string& name) const;
  /// The value under a name, or the given one when there is none.
  Variant ReadProperty(const std::string& name, const Variant& standIn) const;
  bool Has(std::string_view name) const { return Find(name) != nullptr; }
  /// Number of values.
  Long Count() const { return static_cast<Long>(entries_.size()); }
  /// Names in order.
  std::vector<std::string> Names() const;
  /// Walks over the names in order. Names that come meanwhile are given too.
  EnumeratorRef NewEnum() const;

  /// All values as one block. Error 13 when a value is an object other than a bag or nests too deep, 91 when
  /// it is no object at all.
  std::vector<Byte> Contents() const;
  /// Takes the values of a block in place of all that are there. Error 331 when the bytes are no such block
  /// or are damaged; the bag is then as it was.
  void Contents(const std::vector<Byte>& bytes);

 private:
  friend struct PropertyBagMembers;
  friend class PropertyBagEnumerator;

  struct Entry {
    std::string name;
    Variant value;
  };

  /// A bag of at least so many values has them found by a table.
  static constexpr std::size_t kLarge = 64;

  const Entry* Find(std::string_view name) const;
  void AddToTable(std::size_t place);
  Variant ReadByName(const std::string& name, const Variant& standIn) const;

  std::vector<Entry> entries_;
  /// The places of the values by their names in lower case; empty in a small bag.
  std::unordered_map<std::string, std::size_t> places_;
  /// Where the next value is that is read in order.
  mutable std::size_t next_ = 0;
};

using PropertyBagRef = std::shared_ptr<PropertyBag>;

}  // namespace quenzel7::automation
