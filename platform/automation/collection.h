#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/automation/convert.h"
#include "platform/automation/enumerator.h"
#include "platform/automation/object.h"
#include "platform/automation/variant.h"

namespace quenzel7::automation {

/// Values in order, counted from 1, each under a key of its own if it was added with one. Keys are compared
/// without regard to the case of ASCII letters.
class Collection final : public Object {
 public:
  static constexpr std::string_view kClassName = "Collection";

  static const ClassInfo& ClassOf();
  const ClassInfo& Class() const override { return ClassOf(); }

  /// Appends a value. Error 457 when another value has that key; nothing is added then. An empty key is none.
  void Add(const Variant& item, const std::string& key = {});
  /// Number of values.
  Long Count() const { return static_cast<Long>(entries_.size()); }
  /// The value at a place from 1 to Count (error 9 outside), or under a key (error 5 when there is none).
  const Variant& Item(Long index) const;
  const Variant& Item(const std::string& key) const;
  /// Takes a value out; errors as Item.
  void Remove(Long index);
  void Remove(const std::string& key);

  /// Walks over the values in order, also over those that are added meanwhile.
  EnumeratorRef NewEnum() const;

  /// The object at a place as a T; errors of Item, 13 when it is of another class, 91 when it is none.
  template <class T>
  std::shared_ptr<T> ObjectAt(Long index) const;

 private:
  struct Entry {
    Variant item;
    std::string key;
  };

  std::size_t Place(Long index) const;
  std::size_t Place(const std::string& key) const;
  Variant ItemByVariant(const Variant& index) const;
  void RemoveByVariant(const Variant& index);
  void AddByVariant(const Variant& item, const Variant& key);

  friend struct CollectionMembers;

  std::vector<Entry> entries_;
  /// The keys in use, folded to lower case, so that adding many keyed values stays quick; none while no value
  /// has one.
  std::unique_ptr<std::unordered_set<std::string>> keys_;
};

using CollectionRef = std::shared_ptr<Collection>;

template <class T>
std::shared_ptr<T> Collection::ObjectAt(Long index) const {
  auto object = To<std::shared_ptr<T>>(Item(index));
  if (!object) detail::RaiseObjectNotSet();
  return object;
}

}  // namespace quenzel7::automation
