#include "server/invocation.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/server/host.h"
#include "tests/server/sample.h"

namespace quenzel7::server {
namespace {

using automation::Sample;
using automation::Weight;
using test::Outcome;
using test::Pointer;
using test::Value;

constexpr LONG kRuntimeErrors = QUENZEL7_RESULT(0x800A0000u);

class Invocation : public ::testing::Test, public test::SampleInHands {};

TEST_F(Invocation, ReadsAndWritesAProperty) {
  EXPECT_EQ(host.Write("Size", 42).result, S_OK);
  EXPECT_EQ(sample->Size(), 42);
  const Outcome read = host.Read("size");
  EXPECT_EQ(read.result, S_OK);
  EXPECT_EQ(read.value.Kind(), VT_I4);
  EXPECT_EQ(read.value.Number(), 42);
}

TEST_F(Invocation, ConvertsWhatIsWritten) {
  EXPECT_EQ(host.Write("Size", "17").result, S_OK);
  EXPECT_EQ(sample->Size(), 17);
  EXPECT_EQ(host.Write("Label", 12).result, S_OK);
  EXPECT_EQ(host.Read("Label").value.Text(), "12");
  Value half = Value::Of(VT_R8, 2.5);
  EXPECT_EQ(host.Write("Size", Value::Place(half)).result, S_OK);
  EXPECT_EQ(sample->Size(), 2);
}

TEST_F(Invocation, ReadsWithoutAPlaceForTheResult) {
  DISPPARAMS none{};
  EXPECT_EQ(host.Get()->lpVtbl->Invoke(host.Get(), host.Id("Size"), &IID_NULL, 0, DISPATCH_PROPERTYGET, &none,
                                       nullptr, nullptr, nullptr),
            S_OK);
}

TEST_F(Invocation, ReadingTakesNoArguments) {
  EXPECT_EQ(host.Invoke(host.Id("Size"), DISPATCH_PROPERTYGET, {1}).result, DISP_E_BADPARAMCOUNT);
}

TEST_F(Invocation, ReadingIsAllowedTogetherWithCalling) {
  constexpr WORD kBoth = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  EXPECT_EQ(host.Invoke(host.Id("Size"), kBoth).value.Number(), 1);
  EXPECT_EQ(host.Invoke(host.Id("Sum"), kBoth, {1, 2, 3}).value.Number(), 10203);
}

TEST_F(Invocation, AMethodIsNoPropertyAndAPropertyNoMethod) {
  EXPECT_EQ(host.Invoke(host.Id("Sum"), DISPATCH_PROPERTYGET, {1, 2, 3}).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(host.Invoke(host.Id("Sum"), DISPATCH_PROPERTYPUT, {1}, {DISPID_PROPERTYPUT}).result,
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(host.Invoke(host.Id("Size"), DISPATCH_METHOD).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(host.Invoke(host.Id("Size"), 0).result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(Invocation, ReadingWhatCanOnlyBeWrittenRaises394) {
  const Outcome read = host.Read("Secret");
  EXPECT_EQ(read.result, DISP_E_EXCEPTION);
  EXPECT_EQ(read.scode, kRuntimeErrors + 394);
  EXPECT_EQ(read.description, "_Sample.Secret can be written only");
  EXPECT_EQ(read.source, "Quenzel7");
  EXPECT_EQ(read.argument, std::nullopt);
}

TEST_F(Invocation, WritingWhatCanOnlyBeReadRaises383) {
  for (const Outcome& write : {host.Write("Serial", 1), host.WriteReference("Serial", 1)}) {
    EXPECT_EQ(write.result, DISP_E_EXCEPTION);
    EXPECT_EQ(write.scode, kRuntimeErrors + 383);
    EXPECT_EQ(write.description, "_Sample.Serial can be read only");
  }
}

TEST_F(Invocation, AValueIsNotWrittenByReferenceAndAnObjectNotByValue) {
  const auto weight = std::make_shared<Weight>(7);
  const Pointer load = test::Handed(weight);
  EXPECT_EQ(host.WriteReference("Size", 1).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(host.Write("Load", load.AsValue()).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(sample->Loaded(), nullptr);
  EXPECT_EQ(host.WriteReference("Load", load.AsValue()).result, S_OK);
  EXPECT_EQ(sample->Loaded(), weight);
}

TEST_F(Invocation, WhoeverDoesNotCareMayWriteBothWays) {
  constexpr WORD kBoth = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
  const auto weight = std::make_shared<Weight>(7);
  EXPECT_EQ(host.Invoke(host.Id("Size"), kBoth, {5}, {DISPID_PROPERTYPUT}).result, S_OK);
  EXPECT_EQ(sample->Size(), 5);
  EXPECT_EQ(
      host.Invoke(host.Id("Load"), kBoth, {test::Handed(weight).AsValue()}, {DISPID_PROPERTYPUT}).result,
      S_OK);
  EXPECT_EQ(sample->Loaded(), weight);
}

TEST_F(Invocation, WritingTakesOneValueUnderItsName) {
  const DISPID size = host.Id("Size");
  EXPECT_EQ(host.Invoke(size, DISPATCH_PROPERTYPUT).result, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(host.Invoke(size, DISPATCH_PROPERTYPUT, {1, 2}, {DISPID_PROPERTYPUT}).result,
            DISP_E_BADPARAMCOUNT);
  const Outcome unnamed = host.Invoke(size, DISPATCH_PROPERTYPUT, {3});
  EXPECT_EQ(unnamed.result, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(unnamed.argument, 0u);
  EXPECT_EQ(host.Invoke(size, DISPATCH_PROPERTYPUT, {3}, {0}).result, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(sample->Size(), 1);
}

TEST_F(Invocation, WritingTellsThatTheValueDoesNotFit) {
  const Outcome text = host.Write("Size", "many");
  EXPECT_EQ(text.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(text.argument, 0u);
  const Outcome large = host.Write("Size", Value::Of(VT_R8, 3e9));
  EXPECT_EQ(large.result, DISP_E_OVERFLOW);
  EXPECT_EQ(large.argument, 0u);
  const Outcome strange = host.Write("Size", Value::Of(14, 0));
  EXPECT_EQ(strange.result, DISP_E_BADVARTYPE);
  EXPECT_EQ(strange.argument, 0u);
  const Outcome null = host.Write("Size", Value::Of(VT_NULL, 0));
  EXPECT_EQ(null.result, DISP_E_EXCEPTION);
  EXPECT_EQ(null.scode, kRuntimeErrors + 94);
  EXPECT_EQ(sample->Size(), 1);
}

TEST_F(Invocation, CallsWithArgumentsInTheirOrder) {
  const Outcome sum = host.Call("Sum", {4, 3, 2});
  EXPECT_EQ(sum.result, S_OK);
  EXPECT_EQ(sum.value.Kind(), VT_I4);
  EXPECT_EQ(sum.value.Number(), 40302);
}

TEST_F(Invocation, CallsWithNamedArguments) {
  // Named ones stand first, in any order; the others follow, the last one first.
  EXPECT_EQ(host.Invoke(host.Id("Sum"), DISPATCH_METHOD, {2, 3, 4}, {2, 1}).value.Number(), 40302);
  EXPECT_EQ(host.Invoke(host.Id("Sum"), DISPATCH_METHOD, {2, 4, 3}, {2, 0, 1}).value.Number(), 40302);
}

TEST_F(Invocation, RefusesNamesOfNoArgument) {
  const DISPID sum = host.Id("Sum");
  const Outcome beyond = host.Invoke(sum, DISPATCH_METHOD, {1, 2, 3}, {0, 3, 1});
  EXPECT_EQ(beyond.result, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(beyond.argument, 1u);
  EXPECT_EQ(host.Invoke(sum, DISPATCH_METHOD, {1}, {-1}).result, DISP_E_PARAMNOTFOUND);
  const Outcome twice = host.Invoke(sum, DISPATCH_METHOD, {1, 2}, {1, 1});
  EXPECT_EQ(twice.result, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(twice.argument, 1u);
  // The first one has a place already.
  EXPECT_EQ(host.Invoke(sum, DISPATCH_METHOD, {1, 2}, {0}).result, DISP_E_PARAMNOTFOUND);
}

TEST_F(Invocation, RefusesTooManyAndTooFew) {
  const Outcome many = host.Call("Sum", {1, 2, 3, 4});
  EXPECT_EQ(many.result, DISP_E_BADPARAMCOUNT);
  const Outcome few = host.Call("Sum", {1, 2});
  EXPECT_EQ(few.result, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(few.argument, std::nullopt);
  const Outcome leftOut = host.Call("Sum", {1, Value::LeftOut(), 3});
  EXPECT_EQ(leftOut.result, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(leftOut.argument, 1u);
  EXPECT_EQ(host.Call("Sum").result, DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(Invocation, OptionalArgumentsHaveTheirDefaults) {
  EXPECT_EQ(host.Call("Grow").value.Number(), 7);                          // 1 + 3 * 2
  EXPECT_EQ(host.Call("Grow", {10}).value.Number(), 27);                   // + 10 * 2
  EXPECT_EQ(host.Call("Grow", {Value::LeftOut(), 5}).value.Number(), 42);  // + 3 * 5
  Value leftOut = Value::LeftOut();
  EXPECT_EQ(host.Call("Grow", {Value::Place(leftOut), 1}).value.Number(), 45);
  EXPECT_EQ(host.Invoke(host.Id("Grow"), DISPATCH_METHOD, {4}, {1}).value.Number(), 57);  // + 3 * 4
  EXPECT_EQ(host.Call("KindOf").value.Text(), "Empty");
}

TEST_F(Invocation, AnErrorValueThatIsNoOmissionIsNoArgument) {
  const Outcome error = host.Call("KindOf", {Value::Of(VT_ERROR, DISP_E_UNKNOWNNAME)});
  EXPECT_EQ(error.result, DISP_E_BADVARTYPE);
  EXPECT_EQ(error.argument, 0u);
}

TEST_F(Invocation, BlamesTheArgumentThatDoesNotFit) {
  const Outcome first = host.Call("Sum", {"x", 2, 3});
  EXPECT_EQ(first.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(first.argument, 2u);
  const Outcome second = host.Call("Sum", {1, 40000, 3});
  EXPECT_EQ(second.result, DISP_E_OVERFLOW);
  EXPECT_EQ(second.argument, 1u);
  const Outcome named = host.Invoke(host.Id("Sum"), DISPATCH_METHOD, {2, "x", 4}, {1, 0, 2});
  EXPECT_EQ(named.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(named.argument, 1u);
  const Outcome strange = host.Call("Sum", {1, 2, Value::Of(14, 0)});
  EXPECT_EQ(strange.result, DISP_E_BADVARTYPE);
  EXPECT_EQ(strange.argument, 0u);
}

TEST_F(Invocation, AnErrorOfTheMemberIsAnException) {
  LONG place = 5;
  const Outcome failed = host.Call("Fail", {Value::Place(VT_I4, &place)});
  EXPECT_EQ(failed.result, DISP_E_EXCEPTION);
  EXPECT_EQ(failed.scode, kRuntimeErrors + 5);
  EXPECT_EQ(failed.description, "failed on purpose");
  EXPECT_EQ(failed.source, "Sample");
  EXPECT_EQ(failed.argument, std::nullopt);
  EXPECT_EQ(place, 5);
}

TEST_F(Invocation, AnExceptionNeedsNoPlaceToBeTold) {
  DISPPARAMS none{};
  EXPECT_EQ(host.Get()->lpVtbl->Invoke(host.Get(), host.Id("Secret"), &IID_NULL, 0, DISPATCH_PROPERTYGET,
                                       &none, nullptr, nullptr, nullptr),
            DISP_E_EXCEPTION);
}

TEST_F(Invocation, AMissingObjectIsAnExceptionOfItsArgument) {
  const Outcome none = host.Call("Weigh", {Value::Of<IDispatch*>(VT_DISPATCH, nullptr), 1});
  EXPECT_EQ(none.result, DISP_E_EXCEPTION);
  EXPECT_EQ(none.scode, kRuntimeErrors + 91);
  EXPECT_EQ(none.argument, 1u);
}

TEST_F(Invocation, WritesResultsBack) {
  LONG a = 1, b = 2;
  EXPECT_EQ(host.Call("Swap", {Value::Place(VT_I4, &a), Value::Place(VT_I4, &b)}).result, S_OK);
  EXPECT_EQ(a, 2);
  EXPECT_EQ(b, 1);
}

TEST_F(Invocation, WritesResultsBackIntoVariants) {
  Value a = "7", b = 8;
  EXPECT_EQ(host.Call("Swap", {Value::Place(a), Value::Place(b)}).result, S_OK);
  EXPECT_EQ(a.Kind(), VT_I4);
  EXPECT_EQ(a.Number(), 8);
  EXPECT_EQ(b.Number(), 7);
}

TEST_F(Invocation, WritesResultsOfSeveralKindsBack) {
  BSTR text = ToBstr("old");
  BYTE length = 0;
  const Outcome described =
      host.Call("Describe", {"abc", Value::Place(VT_BSTR, &text), Value::Place(VT_UI1, &length)});
  EXPECT_EQ(described.result, S_OK);
  EXPECT_EQ(described.value.Kind(), VT_BOOL);
  EXPECT_EQ(described.value.Raw().value.boolVal, VARIANT_TRUE);
  EXPECT_EQ(FromBstr(text), "abc!");
  EXPECT_EQ(length, 4);
  SysFreeString(text);
}

TEST_F(Invocation, AParameterByReferenceTakesAPlainValueToo) {
  EXPECT_EQ(host.Call("Swap", {1, 2}).result, S_OK);
  EXPECT_EQ(host.Call("Advance", {1}).result, S_OK);
}

TEST_F(Invocation, AReferenceIsToAPlaceOfJustTheKind) {
  LONG a = 1;
  SHORT narrow = 2;
  const Outcome mismatch = host.Call("Swap", {Value::Place(VT_I4, &a), Value::Place(VT_I2, &narrow)});
  EXPECT_EQ(mismatch.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(mismatch.argument, 0u);
  EXPECT_EQ(a, 1);
  EXPECT_EQ(narrow, 2);
}

TEST_F(Invocation, AParameterByValueTakesAnyReference) {
  SHORT narrow = 2;
  EXPECT_EQ(host.Call("Sum", {Value::Place(VT_I2, &narrow), 0, 0}).value.Number(), 20000);
}

TEST_F(Invocation, AReferenceToNothingIsATypeMismatch) {
  const Outcome nothing = host.Call("Sum", {1, Value::Place(VT_I4, nullptr), 3});
  EXPECT_EQ(nothing.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(nothing.argument, 1u);
}

TEST_F(Invocation, AVariantByReferenceTakesWhatTheMemberPutsThere) {
  Value value = 3;
  EXPECT_EQ(host.Call("Stamp", {Value::Place(value)}).result, S_OK);
  EXPECT_EQ(value.Text(), "stamped");
  BSTR text = ToBstr("old");
  EXPECT_EQ(host.Call("Stamp", {Value::Place(VT_BSTR, &text)}).result, S_OK);
  EXPECT_EQ(FromBstr(text), "stamped");
  SysFreeString(text);
  LONG number = 4;
  const Outcome mismatch = host.Call("Stamp", {Value::Place(VT_I4, &number)});
  EXPECT_EQ(mismatch.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(mismatch.argument, 0u);
  EXPECT_EQ(number, 4);
}

TEST_F(Invocation, AnOptionalReferenceIsWrittenBackWhenItIsGiven) {
  LONG at = 10;
  EXPECT_EQ(host.Call("Advance", {Value::Place(VT_I4, &at)}).result, S_OK);
  EXPECT_EQ(at, 17);
  EXPECT_EQ(host.Call("Advance", {Value::Place(VT_I4, &at), 3}).result, S_OK);
  EXPECT_EQ(at, 20);
}

TEST_F(Invocation, WritesNamedReferencesBack) {
  LONG a = 1, b = 2;
  const Outcome swapped = host.Invoke(host.Id("Swap"), DISPATCH_METHOD,
                                      {Value::Place(VT_I4, &b), Value::Place(VT_I4, &a)}, {1, 0});
  EXPECT_EQ(swapped.result, S_OK);
  EXPECT_EQ(a, 2);
  EXPECT_EQ(b, 1);
}

TEST_F(Invocation, SeesThroughAVariantThatRefersToAPlaceOfAnotherKindBeforeItCalls) {
  LONG a = 1;
  SHORT narrow = 2;
  Value second = Value::Place(VT_I2, &narrow);
  const Outcome mismatch = host.Call("Swap", {Value::Place(VT_I4, &a), Value::Place(second)});
  EXPECT_EQ(mismatch.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(mismatch.argument, 0u);
  EXPECT_EQ(a, 1);
}

TEST_F(Invocation, BlamesNobodyWhoDoesNotAsk) {
  Value text = "x";
  DISPID name = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&text.Raw(), &name, 1, 1};
  EXPECT_EQ(host.Get()->lpVtbl->Invoke(host.Get(), host.Id("Size"), &IID_NULL, 0, DISPATCH_PROPERTYPUT,
                                       &parameters, nullptr, nullptr, nullptr),
            DISP_E_TYPEMISMATCH);
  DISPPARAMS unnamed{&text.Raw(), nullptr, 1, 0};
  EXPECT_EQ(host.Get()->lpVtbl->Invoke(host.Get(), host.Id("NextByte"), &IID_NULL, 0, DISPATCH_METHOD,
                                       &unnamed, nullptr, nullptr, nullptr),
            DISP_E_TYPEMISMATCH);
}

TEST_F(Invocation, AVariantThatIsNotThereIsATypeMismatch) {
  const Outcome nothing = host.Call("Sum", {1, 2, Value::Place(VT_VARIANT, nullptr)});
  EXPECT_EQ(nothing.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(nothing.argument, 0u);
}

TEST_F(Invocation, NeedsItsPointers) {
  IDispatch* dispatch = host.Get();
  const DISPID size = host.Id("Size");
  const auto call = [&](DISPPARAMS* parameters) {
    return dispatch->lpVtbl->Invoke(dispatch, size, &IID_NULL, 0, DISPATCH_PROPERTYPUT, parameters, nullptr,
                                    nullptr, nullptr);
  };
  EXPECT_EQ(call(nullptr), E_POINTER);
  Value value = 1;
  DISPID name = DISPID_PROPERTYPUT;
  DISPPARAMS noArguments{nullptr, &name, 1, 1};
  EXPECT_EQ(call(&noArguments), E_POINTER);
  DISPPARAMS noNames{&value.Raw(), nullptr, 1, 1};
  EXPECT_EQ(call(&noNames), E_POINTER);
  DISPPARAMS moreNames{&value.Raw(), &name, 0, 1};
  EXPECT_EQ(call(&moreNames), E_INVALIDARG);
  EXPECT_EQ(sample->Size(), 1);
}

TEST_F(Invocation, KnowsNoOtherReservedInterface) {
  DISPPARAMS none{};
  IDispatch* dispatch = host.Get();
  const auto read = [&](REFIID iid) {
    return dispatch->lpVtbl->Invoke(dispatch, 1, iid, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr,
                                    nullptr);
  };
  EXPECT_EQ(read(&IID_NULL), S_OK);
  EXPECT_EQ(read(nullptr), S_OK);
  EXPECT_EQ(read(&IID_IUnknown), DISP_E_UNKNOWNINTERFACE);
}

TEST_F(Invocation, KnowsNoOtherNumbers) {
  for (const DISPID id : {0, -1, -4, -3, 1000, 28}) {
    EXPECT_EQ(host.Invoke(id, DISPATCH_PROPERTYGET).result, DISP_E_MEMBERNOTFOUND) << id;
  }
  EXPECT_EQ(host.Invoke(27, DISPATCH_METHOD, {1}).value.Number(), 1001);
}

TEST_F(Invocation, KeepsTheObjectWhileItIsCalled) {
  const auto holder = std::make_shared<automation::Sample>();
  Pointer pointer = test::Handed(holder);
  EXPECT_EQ(pointer.Call("Same", {pointer.AsValue()}).value.Raw().value.pdispVal, pointer.Get());
}

/// What a property was last written through.
struct Written final : automation::Object {
  const automation::ClassInfo& Class() const override { return Sample().Class(); }
  std::string by;
};

TEST(PropertyThatTakesBoth, GetsObjectsByReferenceAndNumbersByValue) {
  automation::Member member;
  member.name = "Both";
  member.put = [](automation::Object& object, const automation::Variant&) {
    static_cast<Written&>(object).by = "value";
  };
  member.putRef = [](automation::Object& object, const automation::Variant&) {
    static_cast<Written&>(object).by = "reference";
  };
  const automation::Interface interface("Both", std::span<const automation::Member>(&member, 1));
  const auto write = [&](Value value, WORD flags) {
    Written written;
    DISPID name = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value.Raw(), &name, 1, 1};
    EXPECT_EQ(Invoke(written, member, interface, flags, parameters, nullptr, nullptr, nullptr), S_OK);
    return written.by;
  };
  constexpr WORD kBoth = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
  EXPECT_EQ(write(3, kBoth), "value");
  EXPECT_EQ(write(test::Handed(std::make_shared<Sample>()).AsValue(), kBoth), "reference");
  EXPECT_EQ(write(3, DISPATCH_PROPERTYPUT), "value");
  EXPECT_EQ(write(3, DISPATCH_PROPERTYPUTREF), "reference");
}

/// An object whose members fail otherwise than by an error of the run-time.
class Failing final : public automation::Object {
 public:
  const automation::ClassInfo& Class() const override {
    using automation::Arguments, automation::Object, automation::Variant;
    static const std::vector<automation::Member> members = [] {
      std::vector<automation::Member> made(3);
      made[0].name = "Memory";
      made[0].method = [](Object&, Arguments) -> Variant { throw std::bad_alloc(); };
      made[1].name = "Standard";
      made[1].method = [](Object&, Arguments) -> Variant { throw std::runtime_error("no disk"); };
      made[2].name = "Strange";
      made[2].method = [](Object&, Arguments) -> Variant { throw 5; };
      return made;
    }();
    static const automation::Interface interface("Failing", members);
    static const automation::Interface* const interfaces[] = {&interface};
    static const automation::ClassInfo info{"Failing", interfaces};
    return info;
  }
};

TEST(FailuresOfMembers, NeverLeaveAsExceptions) {
  const Pointer host = test::Handed(std::make_shared<Failing>());
  EXPECT_EQ(host.Call("Memory").result, E_OUTOFMEMORY);
  const Outcome standard = host.Call("Standard");
  EXPECT_EQ(standard.result, DISP_E_EXCEPTION);
  EXPECT_EQ(standard.scode, kRuntimeErrors + 5);
  EXPECT_EQ(standard.description, "no disk");
  EXPECT_EQ(host.Call("Strange").result, E_UNEXPECTED);
}

}  // namespace
}  // namespace quenzel7::server
