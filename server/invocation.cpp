#include "server/invocation.h"

#include <exception>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"
#include "server/adapted_argument.h"
#include "server/marshal.h"
#include "server/results.h"

namespace quenzel7::server {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::Interface;
using automation::Member;
using automation::Object;
using automation::Variant;

/// A failure that has a result of its own.
struct Refusal {
  HRESULT result;
  std::optional<std::size_t> argument = std::nullopt;
};

constexpr std::size_t kNotGiven = static_cast<std::size_t>(-1);

/// Whether a host passes this to say that it leaves the argument out.
bool IsLeftOut(const VARIANT& argument) {
  const bool isReference = argument.vt == (VT_BYREF | VT_VARIANT) && argument.value.pvarVal;
  const VARIANT& value = isReference ? *argument.value.pvarVal : argument;
  return value.vt == VT_ERROR && value.value.scode == DISP_E_PARAMNOTFOUND;
}

/// Whether a value is the one that it was; arrays that nobody has written into are not looked through.
bool IsUnchanged(const Variant& now, const Variant& before) {
  if (now.IsArray() && before.IsArray() && &now.Elements() == &before.Elements()) return true;
  return now == before;
}

/// The arguments of one call, in the order of the parameters.
class CallArguments {
 public:
  CallArguments(const Member& member, const DISPPARAMS& given)
      : member_(member),
        given_(given),
        places_(member.parameters.size(), kNotGiven),
        values_(places_.size()),
        before_(places_.size()) {
    if (given.cArgs > places_.size()) throw Refusal{DISP_E_BADPARAMCOUNT};
    FindPlaces();
    for (std::size_t parameter = 0; parameter < places_.size(); ++parameter) Take(parameter);
  }

  automation::Arguments Values() { return values_; }

  /// Gives what the call changed to the places that the host refers to.
  void WriteBack() const {
    for (std::size_t parameter = 0; parameter < places_.size(); ++parameter) {
      if (!IsReference(parameter) || IsUnchanged(values_[parameter], before_[parameter])) continue;
      AtFault(parameter, [this, parameter] {
        server::WriteBack(values_[parameter], given_.rgvarg[places_[parameter]]);
        return Variant();
      });
    }
  }

  /// The place in rgvarg of the argument that an error is about, if it is about one that was given.
  std::optional<std::size_t> PlaceOf(const AutomationError& error) const {
    if (!error.Argument() || places_[*error.Argument()] == kNotGiven) return std::nullopt;
    return places_[*error.Argument()];
  }

 private:
  /// An error of an argument, which has a place in rgvarg, as a refusal; any other goes on.
  template <class Work>
  Variant AtFault(std::size_t parameter, Work work) const {
    try {
      return work();
    } catch (const AutomationError& error) {
      const HRESULT result = Report(error.OfArgument(parameter), nullptr);
      if (result == DISP_E_EXCEPTION) throw;
      throw Refusal{result, places_[parameter]};
    }
  }

  bool IsReference(std::size_t parameter) const {
    return member_.parameters[parameter].byReference && places_[parameter] != kNotGiven &&
           (given_.rgvarg[places_[parameter]].vt & VT_BYREF) != 0;
  }

  void FindPlaces() {
    // The arguments without a name stand behind those with one, the last one first.
    const std::size_t unnamed = given_.cArgs - given_.cNamedArgs;
    for (std::size_t parameter = 0; parameter < unnamed; ++parameter) {
      places_[parameter] = given_.cArgs - 1 - parameter;
    }
    for (std::size_t place = 0; place < given_.cNamedArgs; ++place) {
      const DISPID id = given_.rgdispidNamedArgs[place];
      if (id < 0 || static_cast<std::size_t>(id) >= places_.size() ||
          places_[static_cast<std::size_t>(id)] != kNotGiven) {
        throw Refusal{DISP_E_PARAMNOTFOUND, place};
      }
      places_[static_cast<std::size_t>(id)] = place;
    }
  }

  void Take(std::size_t parameter) {
    std::size_t& place = places_[parameter];
    if (place == kNotGiven || IsLeftOut(given_.rgvarg[place])) {
      if (parameter < member_.Required()) {
        throw Refusal{DISP_E_PARAMNOTOPTIONAL, place == kNotGiven ? std::nullopt : std::optional(place)};
      }
      values_[parameter] = member_.StandIn(parameter);
      place = kNotGiven;
      return;
    }
    const VARIANT& argument = given_.rgvarg[place];
    if (IsReference(parameter) && !IsPlaceFor(argument, member_.parameters[parameter].type)) {
      throw Refusal{DISP_E_TYPEMISMATCH, place};
    }
    values_[parameter] = AtFault(parameter, [this, parameter, &argument] {
      return AdaptedArgument(member_.parameters[parameter], FromVariant(argument));
    });
    if (IsReference(parameter)) before_[parameter] = values_[parameter];
  }

  const Member& member_;
  const DISPPARAMS& given_;
  /// Where the argument of each parameter stands in rgvarg.
  std::vector<std::size_t> places_;
  std::vector<Variant> values_;
  /// What the host's places held before the call.
  std::vector<Variant> before_;
};

[[noreturn]] void RaiseAccess(ErrorNumber number, const Interface& interface, const Member& member,
                              const char* how) {
  throw AutomationError(number, std::string(interface.Name()) + "." + std::string(member.name) + how);
}

Variant Get(Object& object, const Interface& interface, const Member& member, const DISPPARAMS& parameters) {
  if (parameters.cArgs > 0) throw Refusal{DISP_E_BADPARAMCOUNT};
  if (!member.get) {
    RaiseAccess(ErrorNumber::PropertyIsWriteOnly, interface, member, " can be written only");
  }
  return member.get(object);
}

void Put(Object& object, const Interface& interface, const Member& member, WORD flags,
         const DISPPARAMS& parameters) {
  if (!member.put && !member.putRef) {
    RaiseAccess(ErrorNumber::PropertyIsReadOnly, interface, member, " can be read only");
  }
  const bool byValue = (flags & DISPATCH_PROPERTYPUT) != 0 && member.put;
  const bool byReference = (flags & DISPATCH_PROPERTYPUTREF) != 0 && member.putRef;
  if (!byValue && !byReference) throw Refusal{DISP_E_MEMBERNOTFOUND};
  if (parameters.cArgs == 0) throw Refusal{DISP_E_PARAMNOTOPTIONAL};
  if (parameters.cArgs > 1) throw Refusal{DISP_E_BADPARAMCOUNT};
  if (parameters.cNamedArgs != 1 || parameters.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) {
    throw Refusal{DISP_E_PARAMNOTFOUND, 0};
  }
  const Variant value =
      automation::FromArgument(0, [&parameters] { return FromVariant(parameters.rgvarg[0]); });
  (byReference && (value.IsObject() || !byValue) ? member.putRef : member.put)(object, value);
}

/// Whether the pointers of a call are all there.
bool AreComplete(const DISPPARAMS& parameters) {
  return (parameters.cArgs == 0 || parameters.rgvarg) &&
         (parameters.cNamedArgs == 0 || parameters.rgdispidNamedArgs);
}

}  // namespace

HRESULT Invoke(Object& object, const Member& member, const Interface& interface, WORD flags,
               const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* info, UINT* badArgument) {
  if (!AreComplete(parameters)) return E_POINTER;
  if (parameters.cNamedArgs > parameters.cArgs) return E_INVALIDARG;
  const auto blame = [badArgument](std::optional<std::size_t> place) {
    if (badArgument && place) *badArgument = static_cast<UINT>(*place);
  };
  constexpr WORD kWrites = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
  try {
    Variant value;
    if (member.IsMethod()) {
      if (!(flags & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
      CallArguments arguments(member, parameters);
      try {
        value = member.method(object, arguments.Values());
      } catch (const AutomationError& error) {
        blame(arguments.PlaceOf(error));
        throw;
      }
      arguments.WriteBack();
    } else if (flags & kWrites) {
      try {
        Put(object, interface, member, flags, parameters);
      } catch (const AutomationError& error) {
        blame(error.Argument());
        throw;
      }
    } else if (flags & DISPATCH_PROPERTYGET) {
      value = Get(object, interface, member, parameters);
    } else {
      return DISP_E_MEMBERNOTFOUND;
    }
    if (result) ToVariant(value, *result);
    return S_OK;
  } catch (const Refusal& refusal) {
    blame(refusal.argument);
    return refusal.result;
  } catch (const AutomationError& error) {
    return Report(error, info);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception& error) {
    return Report(AutomationError(ErrorNumber::InvalidProcedureCall, error.what()), info);
  }
}

}  // namespace quenzel7::server
