#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/object.h"
#include "platform/automation/types.h"
#include "platform/automation/variant.h"

namespace quenzel7::automation {

/// The arguments of a call by name. A thunk writes by-reference arguments back into their places.
using Arguments = std::span<Variant>;

/// How a member is called.
enum class CallKind : Byte {
  Method,
  /// Read a property.
  Get,
  /// Write a property by value.
  Put,
  /// Write a property by reference to an object.
  PutRef,
};

/// Name and number of one member of an enumeration.
struct EnumMember {
  std::string_view name;
  Long value;
};

/// An enumeration as type information: its name and its members in declared order.
struct EnumInfo {
  std::string_view name;
  std::span<const EnumMember> members;
};

/// The type of a property, an argument or a result.
struct TypeInfo {
  /// "Long", "Boolean", "String", an enumeration's or a class's name; "" for no result.
  std::string_view name;
  /// The members when the type is an enumeration, else nullptr.
  const EnumInfo* enumeration = nullptr;
  /// The kind of variant that carries the type.
  VariantKind kind = VariantKind::Empty;
  /// The kind of the cells when the type is an array.
  VariantKind cells = VariantKind::Empty;
};

/// One argument of a method.
struct Parameter {
  TypeInfo type;
  /// The call may write the argument back.
  bool byReference = false;
};

/// Marks that an editor or a page file wants to know of a property.
enum class Mark : Byte {
  None = 0,
  /// Says who the element is and where it is kept (ID, GroupID, OrderIndex), not what it looks like.
  Identity = 1,
  /// Held by the object only: it does not come back from a row.
  NotStored = 2,
  /// Only the slot is there: reading gives 0 and writing does nothing.
  NotCarried = 3,
  /// Belongs to the moment, not to the page: neither saving nor a page file keeps it.
  Transient = 4,
};

/// What else a member is to hosts that leave its name out.
enum class Role : Byte {
  None,
  /// It stands for the object itself: `collection(3)` is `collection.Item(3)`.
  Value,
  /// It gives the object that walks over what this one holds.
  Enumerator,
};

/// One published member of an interface: what it is and the thunks that call it on an object of the
/// interface.
struct Member {
  std::string_view name;
  /// The type of the property or of the method's result.
  TypeInfo type;
  /// Arguments of a method, in order; nothing for a property.
  std::span<const Parameter> parameters;
  /// Their names: "pX, pY", with or without parentheses around.
  std::string_view parameterNames;
  /// How many of the last arguments may be left out, and what stands for them then, in order; Empty where
  /// there is no number.
  Byte optional = 0;
  std::array<std::optional<Long>, 2> defaults{};
  /// Among the slots of the interface the writer of the property stands before the reader.
  bool writerFirst = false;
  /// The writer of the property stands behind the slots of the next member.
  bool writerAfterNext = false;
  Mark mark = Mark::None;
  Role role = Role::None;
  Variant (*method)(Object&, Arguments) = nullptr;
  Variant (*get)(Object&) = nullptr;
  void (*put)(Object&, const Variant&) = nullptr;
  void (*putRef)(Object&, const Variant&) = nullptr;
  std::string_view documentation;

  bool IsMethod() const { return method != nullptr; }
  /// How many arguments a call of the method has to give.
  std::size_t Required() const { return parameters.size() - optional; }
  /// What stands for the argument at a place, from 0, that was left out.
  Variant StandIn(std::size_t place) const;
  /// The names of the parameters, in order.
  std::vector<std::string_view> ParameterNames() const;
};

/// One slot of an interface: a member, and the way to call it that the slot is for.
struct Slot {
  const Member* member;
  CallKind kind;

  /// "get EnabledOpAddr() As Long", "put EnabledOpAddr(Long)",
  /// "call GetBoundingRect(ByRef Long, ByRef Long, ByRef Long, ByRef Long, [Long])".
  std::string Text() const;
};

/// Calls a member by name on an object whose members only the object itself knows.
using LateCall = Variant (*)(Object&, std::string_view name, CallKind, Arguments);

/// A published interface: its members in slot order, found by name without regard to case.
class Interface {
 public:
  Interface(std::string_view name, std::span<const Member> members);

  /// An interface of objects that are called by name without a table of members: those that a host brings.
  Interface(std::string_view name, LateCall call) : Interface(name, std::span<const Member>()) {
    lateCall_ = call;
  }

  std::string_view Name() const { return name_; }
  std::span<const Member> Members() const { return members_; }
  /// How members are called where there is no table of them, else nullptr.
  LateCall Late() const { return lateCall_; }

  /// The member of that name, or nullptr.
  const Member* Find(std::string_view name) const;

  /// The slots in order. They are those of the members in their order, save where a writer stands apart.
  std::vector<Slot> SlotOrder() const;
  /// The slots in order, one line each.
  std::vector<std::string> Slots() const;

 private:
  std::string_view name_;
  std::span<const Member> members_;
  /// Open addressing over the folded hash of the names; an entry is the member's index plus 1, 0 is free.
  std::vector<std::uint16_t> table_;
  std::size_t mask_;
  LateCall lateCall_ = nullptr;
};

/// A class: its name, its interfaces with the default one first, and how to make an object of it.
struct ClassInfo {
  std::string_view name;
  std::span<const Interface* const> interfaces;
  /// Makes a new object; nullptr when hosts cannot create the class.
  ObjectRef (*create)() = nullptr;

  const Interface& Default() const { return *interfaces.front(); }
  /// The interface of that name, or nullptr.
  const Interface* FindInterface(std::string_view interfaceName) const;
};

/// True when the texts are equal, upper and lower case letters of ASCII being the same.
bool EqualFolded(std::string_view a, std::string_view b);

/// The text with the upper case letters of ASCII made lower case.
std::string Folded(std::string_view text);

/// Among the names the one that takes the fewest changes of letters (Levenshtein, 1965) to become what was
/// asked for, case aside; empty when there are no names.
std::string_view NearestName(std::string_view asked, const std::vector<std::string_view>& names);

}  // namespace quenzel7::automation
