#pragma once

#include <array>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "platform/automation/class_info.h"
#include "platform/automation/convert.h"

/// Entries of member tables, made from the members themselves: types, argument lists and thunks are all
/// derived from the C++ declarations, so a table says only names and order.
namespace quenzel7::automation {

/// The name of the type T in type information. Enumerations specialise EnumInfoOf, classes of objects have a
/// static kClassName.
template <class T>
struct EnumInfoOf;

template <class T>
constexpr TypeInfo TypeOf() {
  if constexpr (std::is_void_v<T>) {
    return {"", nullptr, VariantKind::Empty};
  } else if constexpr (std::is_same_v<T, bool>) {
    return {"Boolean", nullptr, VariantKind::Boolean};
  } else if constexpr (std::is_same_v<T, Byte>) {
    return {"Byte", nullptr, VariantKind::Byte};
  } else if constexpr (std::is_same_v<T, Integer>) {
    return {"Integer", nullptr, VariantKind::Integer};
  } else if constexpr (std::is_same_v<T, Long>) {
    return {"Long", nullptr, VariantKind::Long};
  } else if constexpr (std::is_same_v<T, Single>) {
    return {"Single", nullptr, VariantKind::Single};
  } else if constexpr (std::is_same_v<T, Double>) {
    return {"Double", nullptr, VariantKind::Double};
  } else if constexpr (std::is_same_v<T, Currency>) {
    return {"Currency", nullptr, VariantKind::Currency};
  } else if constexpr (std::is_same_v<T, std::string>) {
    return {"String", nullptr, VariantKind::String};
  } else if constexpr (std::is_same_v<T, std::vector<Byte>>) {
    return {"Byte()", nullptr, VariantKind::Array, VariantKind::Byte};
  } else if constexpr (std::is_same_v<T, std::vector<Long>>) {
    return {"Long()", nullptr, VariantKind::Array, VariantKind::Long};
  } else if constexpr (std::is_same_v<T, std::vector<std::string>>) {
    return {"String()", nullptr, VariantKind::Array, VariantKind::String};
  } else if constexpr (std::is_same_v<T, Variant>) {
    return {"Variant", nullptr, VariantKind::Variant};
  } else if constexpr (std::is_enum_v<T>) {
    return {EnumInfoOf<T>::value.name, &EnumInfoOf<T>::value, VariantKind::Long};
  } else if constexpr (detail::IsSharedPointer<T>::value) {
    return TypeOf<typename T::element_type>();
  } else if constexpr (std::is_same_v<T, Object>) {
    return {"Object", nullptr, VariantKind::Object};
  } else {
    return {T::kClassName, nullptr, VariantKind::Object};
  }
}

namespace detail {

/// How one argument of C++ type P is taken from a variant and, if the call may change it, put back.
template <class P>
struct ArgumentOf {
  using Value = std::remove_cvref_t<P>;
  static constexpr bool kIsObject = std::is_base_of_v<Object, Value>;
  static constexpr bool kByReference =
      !kIsObject && std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>;
  static constexpr Parameter kParameter{TypeOf<Value>(), kByReference};

  ArgumentOf(Arguments arguments, std::size_t index)
      : place_(arguments[index]), value_(FromArgument(index, [this] { return Take(place_); })) {}

  P Get() {
    if constexpr (kIsObject) {
      return *value_;
    } else if constexpr (std::is_same_v<P, Variant&>) {
      return place_;
    } else {
      return value_;
    }
  }

  void PutBack() {
    if constexpr (kByReference && !std::is_same_v<P, Variant&>) place_ = From(value_);
  }

 private:
  static auto Take(Variant& place) {
    if constexpr (kIsObject) {
      return &ToReference<Value>(place);
    } else if constexpr (std::is_same_v<P, Variant&>) {
      return 0;
    } else {
      return To<Value>(place);
    }
  }

  Variant& place_;
  decltype(Take(std::declval<Variant&>())) value_;
};

template <class Class, auto Function, class Result, class... P, std::size_t... I>
Variant Call(Object& object, [[maybe_unused]] Arguments arguments, std::index_sequence<I...>) {
  auto& self = static_cast<Class&>(object);
  std::tuple<ArgumentOf<P>...> taken{ArgumentOf<P>(arguments, I)...};
  if constexpr (std::is_void_v<Result>) {
    (self.*Function)(std::get<I>(taken).Get()...);
    (std::get<I>(taken).PutBack(), ...);
    return {};
  } else {
    Variant result = From((self.*Function)(std::get<I>(taken).Get()...));
    (std::get<I>(taken).PutBack(), ...);
    return result;
  }
}

/// How many names stand in a list like "pX, pY".
constexpr std::size_t NamesIn(std::string_view list) {
  if (list.empty() || list == "()") return 0;
  std::size_t names = 1;
  for (const char letter : list) names += letter == ',' ? 1 : 0;
  return names;
}

template <class... P>
inline constexpr std::array<Parameter, sizeof...(P)> kParametersOf{ArgumentOf<P>::kParameter...};

template <class Class, auto Function, class Result, class... P>
constexpr Member MethodOf(std::string_view name, std::string_view documentation,
                          std::string_view parameterNames) {
  // In a constant table this does not compile.
  if (!parameterNames.empty() && NamesIn(parameterNames) != sizeof...(P)) {
    throw std::invalid_argument("each parameter has one name");
  }
  Member member;
  member.name = name;
  member.type = TypeOf<std::remove_cvref_t<Result>>();
  member.parameters = kParametersOf<P...>;
  member.parameterNames = parameterNames;
  member.documentation = documentation;
  member.method = [](Object& object, Arguments arguments) {
    return Call<Class, Function, Result, P...>(object, arguments, std::index_sequence_for<P...>{});
  };
  return member;
}

template <class Class, auto Function>
struct MethodFrom;
template <class Class, class Owner, class Result, class... P, Result (Owner::*Function)(P...)>
struct MethodFrom<Class, Function> {
  static constexpr Member Make(std::string_view name, std::string_view documentation,
                               std::string_view parameterNames) {
    return MethodOf<Class, Function, Result, P...>(name, documentation, parameterNames);
  }
};
template <class Class, class Owner, class Result, class... P, Result (Owner::*Function)(P...) const>
struct MethodFrom<Class, Function> {
  static constexpr Member Make(std::string_view name, std::string_view documentation,
                               std::string_view parameterNames) {
    return MethodOf<Class, Function, Result, P...>(name, documentation, parameterNames);
  }
};

}  // namespace detail

/// A method of Class, given as a pointer to member function, and the names of its parameters: "pX, pY".
template <class Class, auto Function>
constexpr Member Method(std::string_view name, std::string_view documentation,
                        std::string_view parameterNames = {}) {
  return detail::MethodFrom<Class, Function>::Make(name, documentation, parameterNames);
}

/// The same entry with its last argument optional; `standIn` is what it is when left out (Empty when no
/// number).
constexpr Member LastOptional(Member member, std::optional<Long> standIn = {}) {
  member.optional = 1;
  member.defaults[0] = standIn;
  return member;
}

/// A property of type T, its thunks written by the macros below.
template <class T>
constexpr Member Property(std::string_view name, std::string_view documentation, Variant (*get)(Object&),
                          void (*put)(Object&, const Variant&), Mark mark = Mark::None) {
  Member member;
  member.name = name;
  member.type = TypeOf<T>();
  member.mark = mark;
  member.get = get;
  member.put = put;
  member.documentation = documentation;
  return member;
}

/// A property that hosts can only write, by reference to an object.
template <class T>
constexpr Member PutRefProperty(std::string_view name, std::string_view documentation,
                                void (*putRef)(Object&, const Variant&)) {
  Member member;
  member.name = name;
  member.type = TypeOf<T>();
  member.putRef = putRef;
  member.documentation = documentation;
  return member;
}

/// The same entry with a reader beside its writers.
constexpr Member WithGetter(Member member, Variant (*get)(Object&)) {
  member.get = get;
  return member;
}

/// The same entry as the one that stands for the object itself where only a value is asked for.
constexpr Member AsValue(Member member) {
  member.role = Role::Value;
  return member;
}

/// The same entry as the one that gives the object's enumerator.
constexpr Member AsEnumerator(Member member) {
  member.role = Role::Enumerator;
  return member;
}

/// The same entry with the writer's slot before the reader's.
constexpr Member WriterFirst(Member member) {
  member.writerFirst = true;
  return member;
}

/// The same entry with the writer's slot behind those of the next entry.
constexpr Member WriterAfterNext(Member member) {
  member.writerAfterNext = true;
  return member;
}

}  // namespace quenzel7::automation

/// Thunks of a property that is an overload pair Name() / Name(value) of Class, looked up as a caller that
/// holds a Class& would: the class's own overloads hide those of its interfaces.
#define AUTOMATION_GETTER(Class, Name)                                             \
  [](::quenzel7::automation::Object& object) -> ::quenzel7::automation::Variant {  \
    return ::quenzel7::automation::From(static_cast<const Class&>(object).Name()); \
  }
#define AUTOMATION_SETTER(Class, Type, Name)                                                 \
  [](::quenzel7::automation::Object& object, const ::quenzel7::automation::Variant& value) { \
    static_cast<Class&>(object).Name(::quenzel7::automation::FromArgument(                   \
        0, [&value] { return ::quenzel7::automation::To<Type>(value); }));                   \
  }
