#include "platform/automation/collection.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/automation/automation_error.h"
#include "platform/automation/class_info.h"
#include "platform/automation/member.h"

namespace quenzel7::automation {

namespace {

/// Gives the values by their places, so that values added meanwhile come too and those taken out do not.
class CollectionEnumerator final : public Enumerator {
 public:
  explicit CollectionEnumerator(std::shared_ptr<const Collection> collection, Long given = 0)
      : collection_(std::move(collection)), given_(given) {}

  bool Next(Variant& value) override {
    if (given_ >= collection_->Count()) return false;
    value = collection_->Item(++given_);
    return true;
  }
  void Reset() override { given_ = 0; }
  EnumeratorRef Clone() const override { return std::make_shared<CollectionEnumerator>(collection_, given_); }

 private:
  std::shared_ptr<const Collection> collection_;
  Long given_;
};

}  // namespace

/// The members that late-bound hosts see.
struct CollectionMembers {
  static constexpr Member kMembers[] = {
      LastOptional(Method<Collection, &Collection::AddByVariant>(
          "Add", "Appends a value, under a key if one is given.", "Item, Key")),
      Property<Long>("Count", "Number of values.", AUTOMATION_GETTER(Collection, Count), nullptr),
      AsValue(Method<Collection, &Collection::ItemByVariant>(
          "Item", "The value at a place from 1, or under a key.", "Index")),
      Method<Collection, &Collection::RemoveByVariant>(
          "Remove", "Takes the value at a place or under a key out.", "Index"),
      AsEnumerator(Property<Object>("_NewEnum", "Walks over the values in order.",
                                    AUTOMATION_GETTER(Collection, NewEnum), nullptr)),
  };
};

const ClassInfo& Collection::ClassOf() {
  static const Interface interface("Collection", CollectionMembers::kMembers);
  static const Interface* const interfaces[] = {&interface};
  static const ClassInfo info{kClassName, interfaces,
                              []() -> ObjectRef { return std::make_shared<Collection>(); }};
  return info;
}

void Collection::Add(const Variant& item, const std::string& key) {
  if (!key.empty() && !keys_) keys_ = std::make_unique<std::unordered_set<std::string>>();
  if (!key.empty() && !keys_->insert(Folded(key)).second) {
    throw AutomationError(ErrorNumber::KeyAlreadyInCollection,
                          "the key \"" + key + "\" is already in the collection");
  }
  entries_.push_back({item, key});
}

std::size_t Collection::Place(Long index) const {
  if (index < 1 || index > Count()) {
    throw AutomationError(ErrorNumber::SubscriptOutOfRange, "item " + std::to_string(index) +
                                                                " of a collection of " +
                                                                std::to_string(Count()) + " was asked for");
  }
  return static_cast<std::size_t>(index) - 1;
}

std::size_t Collection::Place(const std::string& key) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&key](const Entry& entry) {
    return !entry.key.empty() && EqualFolded(entry.key, key);
  });
  if (found == entries_.end()) {
    throw AutomationError(ErrorNumber::InvalidProcedureCall, "the collection has no key \"" + key + "\"");
  }
  return static_cast<std::size_t>(found - entries_.begin());
}

EnumeratorRef Collection::NewEnum() const {
  return std::make_shared<CollectionEnumerator>(
      std::static_pointer_cast<const Collection>(shared_from_this()));
}

const Variant& Collection::Item(Long index) const { return entries_[Place(index)].item; }

const Variant& Collection::Item(const std::string& key) const { return entries_[Place(key)].item; }

void Collection::Remove(Long index) {
  const std::size_t place = Place(index);
  if (!entries_[place].key.empty()) keys_->erase(Folded(entries_[place].key));
  // An object that goes with its entry may use the collection while it does.
  const Entry removed = std::move(entries_[place]);
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(place));
}

void Collection::Remove(const std::string& key) { Remove(static_cast<Long>(Place(key)) + 1); }

Variant Collection::ItemByVariant(const Variant& index) const {
  return index.IsText() ? Item(index.Text()) : Item(To<Long>(index));
}

void Collection::RemoveByVariant(const Variant& index) {
  if (index.IsText()) {
    Remove(index.Text());
  } else {
    Remove(To<Long>(index));
  }
}

void Collection::AddByVariant(const Variant& item, const Variant& key) { Add(item, To<std::string>(key)); }

}  // namespace quenzel7::automation
