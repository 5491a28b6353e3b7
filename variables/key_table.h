#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "framework/named_table.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"
#include "platform/automation/property_bag.h"
#include "platform/automation/variant.h"
#include "variables/operand_pair.h"

/// Key tables: the settings of a handler in their order, written down once. Binary data, change key and
/// replica of the handler are all made from its table.
namespace quenzel7 {

/// What a setting enters.
enum KeyUse : Byte {
  kStored = 1,
  kInChangeKey = 2,
  kReplicated = 4,
  kEverywhere = kStored | kInChangeKey | kReplicated,
};

/// What becomes of reading a setting that fails, as where old data lack it.
enum class ReadRegime {
  /// The error passes to the caller.
  Raise,
  /// The setting keeps what it had.
  Skip,
};

/// What the change key is made of.
enum class ChangeKeyForm {
  /// The binary data as they are.
  BinaryData,
  /// Its own settings, an operand that holds a value telling that value instead of its address, as a number
  /// of 32 bits.
  Longs,
  /// The same, all addresses and values as fixed-point numbers of 64 bits.
  Currencies,
};

/// Where settings are written to.
struct KeyWriter {
  automation::PropertyBag& bag;
  KeyUse use;
  ChangeKeyForm form;
};

/// Where settings are read from.
struct KeyReader {
  const automation::PropertyBag& bag;
  ReadRegime regime;
};

/// A setting of an owner: of a handler, or of an entry in one of its lists, whose keys end in the entry's
/// number.
template <class Owner>
struct Key {
  std::string_view name;
  /// The value in the kind in which it is kept.
  automation::Variant (*get)(const Owner&) = nullptr;
  void (*put)(Owner&, const automation::Variant&) = nullptr;
  Byte use = kEverywhere;
  /// Of the address of an operand: the operand's type.
  Long (*operandType)(const Owner&) = nullptr;
  /// Data without it leave 0 or nothing, whatever the regime.
  bool isGuarded = false;
  /// A list of entries in the place of a value.
  void (*writeEntries)(const Owner&, const KeyWriter&) = nullptr;
  void (*readEntries)(Owner&, const KeyReader&) = nullptr;
  /// How a replica takes it over, where that is not by the value.
  void (*copy)(Owner& to, const Owner& from) = nullptr;

  /// The same setting for other uses.
  constexpr Key For(Byte uses) const {
    Key key = *this;
    key.use = uses;
    return key;
  }
  /// The same setting, read without an error where data lack it.
  constexpr Key Guarded() const {
    Key key = *this;
    key.isGuarded = true;
    return key;
  }
};

/// The settings of a class in their order.
template <class Owner, std::size_t N>
using KeyTable = NamedTable<Key<Owner>, N>;

/// What the change key takes of an operand: its address, or the value of one that holds a value.
automation::Variant OperandForChangeKey(const OperandPair& operand, ChangeKeyForm form);

/// A setting kept in a field of the owner, in the kind of that field.
template <class Owner, auto Field>
constexpr Key<Owner> FieldKey(std::string_view name) {
  using Value = std::remove_cvref_t<decltype(std::declval<Owner&>().*Field)>;
  return {.name = name,
          .get = [](const Owner& owner) { return automation::From(owner.*Field); },
          .put = [](Owner& owner,
                    const automation::Variant& value) { owner.*Field = automation::To<Value>(value); }};
}

/// Type and address of an operand; `Pair` is what gives an owner's pair.
template <class Owner, auto Pair>
constexpr Key<Owner> OperandTypeKey(std::string_view name) {
  return {.name = name,
          .get = [](const Owner& owner) { return automation::Variant(std::invoke(Pair, owner).type); },
          .put =
              [](Owner& owner, const automation::Variant& value) {
                std::invoke(Pair, owner).type = automation::To<Long>(value);
              }};
}
template <class Owner, auto Pair>
constexpr Key<Owner> OperandAddressKey(std::string_view name) {
  return {.name = name,
          .get = [](const Owner& owner) { return automation::Variant(std::invoke(Pair, owner).address); },
          .put =
              [](Owner& owner, const automation::Variant& value) {
                std::invoke(Pair, owner).address = automation::To<Long>(value);
              },
          .operandType = [](const Owner& owner) { return std::invoke(Pair, owner).type; }};
}

/// A setting of something that the owner has: `Part` gives a reference to it, `key` is the setting there.
template <class Owner, auto Part, const auto& key>
constexpr Key<Owner> PartKey(std::string_view name) {
  return {.name = name,
          .get = [](const Owner& owner) { return key.get(std::invoke(Part, owner)); },
          .put = [](Owner& owner,
                    const automation::Variant& value) { key.put(std::invoke(Part, owner), value); }};
}

/// Writes the settings of that use, in the order of the table. `ending` follows every name.
template <class Owner>
void WriteKeys(const Owner& owner, std::span<const Key<Owner>> keys, const KeyWriter& writer,
               const std::string& ending = {}) {
  for (const Key<Owner>& key : keys) {
    if (!(key.use & writer.use)) continue;
    if (key.writeEntries) {
      key.writeEntries(owner, writer);
      continue;
    }
    automation::Variant value = key.get(owner);
    if (key.operandType && writer.use == kInChangeKey) {
      value = OperandForChangeKey({key.operandType(owner), automation::To<Long>(value)}, writer.form);
    }
    writer.bag.WriteProperty(std::string(key.name) + ending, value);
  }
}

/// Takes one setting from a bag. Errors: 327 when it is not there, and those of its conversion.
template <class Owner>
void ReadKey(Owner& owner, const Key<Owner>& key, const KeyReader& reader, const std::string& ending) {
  if (key.readEntries) return key.readEntries(owner, reader);
  const std::string name = std::string(key.name) + ending;
  const automation::Variant value =
      key.isGuarded ? reader.bag.ReadProperty(name, automation::Variant()) : reader.bag.ReadProperty(name);
  try {
    key.put(owner, value);
  } catch (const automation::AutomationError& error) {
    throw error.In("setting '" + name + "'");
  }
}

/// Takes the stored settings from a bag, in the order of the table. Errors of ReadKey, unless the regime
/// skips them.
template <class Owner>
void ReadKeys(Owner& owner, std::span<const Key<Owner>> keys, const KeyReader& reader,
              const std::string& ending = {}) {
  for (const Key<Owner>& key : keys) {
    if (!(key.use & kStored)) continue;
    try {
      ReadKey(owner, key, reader, ending);
    } catch (const automation::AutomationError&) {
      if (reader.regime == ReadRegime::Raise) throw;
    }
  }
}

/// Copies the replicated settings, in the order of the table.
template <class Owner>
void CopyKeys(Owner& to, const Owner& from, std::span<const Key<Owner>> keys) {
  for (const Key<Owner>& key : keys) {
    if (!(key.use & kReplicated)) continue;
    if (key.copy) {
      key.copy(to, from);
    } else {
      key.put(to, key.get(from));
    }
  }
}

/// The entries of a list, each with the settings of `keys`, whose names end in the number of the entry, from
/// 1. `Entries` is what gives an owner's list of shared pointers.
template <class Owner, auto Entries, const auto& keys>
constexpr Key<Owner> EntriesKey(std::string_view name) {
  using Entry = typename std::remove_cvref_t<decltype(std::invoke(
      Entries, std::declval<const Owner&>()))>::value_type::element_type;
  return {.name = name,
          .writeEntries =
              [](const Owner& owner, const KeyWriter& writer) {
                Long number = 0;
                // A copy of the list: a host that is asked for an operand may change it meanwhile.
                const auto entries = std::invoke(Entries, owner);
                for (const auto& entry : entries) {
                  WriteKeys<Entry>(*entry, keys, writer, std::to_string(++number));
                }
              },
          .readEntries =
              [](Owner& owner, const KeyReader& reader) {
                Long number = 0;
                for (const auto& entry : std::invoke(Entries, owner)) {
                  ReadKeys<Entry>(*entry, keys, reader, std::to_string(++number));
                }
              },
          .copy =
              [](Owner& to, const Owner& from) {
                auto next = std::invoke(Entries, to).begin();
                const auto end = std::invoke(Entries, to).end();
                for (const auto& entry : std::invoke(Entries, from)) {
                  if (next == end) return;
                  CopyKeys<Entry>(**next++, *entry, keys);
                }
              }};
}

class BinaryHandler;

/// The key table of a handler whose class is not known.
class HandlerKeys {
 public:
  virtual ~HandlerKeys() = default;

  virtual std::vector<Byte> Data(const BinaryHandler& handler) const = 0;
  virtual std::vector<Byte> DataForChangeKey(const BinaryHandler& handler) const = 0;
  /// Errors: 331 for bytes that are no bag or are damaged, nothing being taken then; those of ReadKeys.
  virtual void Take(BinaryHandler& handler, const std::vector<Byte>& data) const = 0;
  virtual void Copy(BinaryHandler& to, const BinaryHandler& from) const = 0;
};

/// How a class differs from others beside its settings.
struct KeyManner {
  ReadRegime regime = ReadRegime::Raise;
  ChangeKeyForm changeKey = ChangeKeyForm::BinaryData;
};

/// The key table of a class of handlers.
template <class Handler>
class KeysOf final : public HandlerKeys {
 public:
  using Keys = std::span<const Key<Handler>>;

  /// One whose settings are read in another order than they are written.
  KeysOf(Keys written, Keys read, KeyManner manner) : written_(written), read_(read), manner_(manner) {}
  explicit KeysOf(Keys keys, KeyManner manner = {}) : KeysOf(keys, keys, manner) {}

  std::vector<Byte> Data(const BinaryHandler& handler) const override {
    return Written(handler, kStored, ChangeKeyForm::BinaryData);
  }
  std::vector<Byte> DataForChangeKey(const BinaryHandler& handler) const override {
    if (manner_.changeKey == ChangeKeyForm::BinaryData) return Data(handler);
    return Written(handler, kInChangeKey, manner_.changeKey);
  }
  void Take(BinaryHandler& handler, const std::vector<Byte>& data) const override {
    automation::PropertyBag bag;
    bag.Contents(data);
    ReadKeys<Handler>(static_cast<Handler&>(handler), read_, {bag, manner_.regime});
  }
  void Copy(BinaryHandler& to, const BinaryHandler& from) const override {
    CopyKeys<Handler>(static_cast<Handler&>(to), static_cast<const Handler&>(from), written_);
  }

 private:
  std::vector<Byte> Written(const BinaryHandler& handler, KeyUse use, ChangeKeyForm form) const {
    automation::PropertyBag bag;
    WriteKeys<Handler>(static_cast<const Handler&>(handler), written_, {bag, use, form});
    return bag.Contents();
  }

  Keys written_;
  Keys read_;
  KeyManner manner_;
};

}  // namespace quenzel7
