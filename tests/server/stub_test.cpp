#include "server/stub.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation/automation_error.h"
#include "platform/automation/collection.h"
#include "platform/automation/enumerator.h"
#include "server/live_objects.h"
#include "server/types/identifiers.h"
#include "tests/server/host.h"
#include "tests/server/sample.h"

namespace quenzel7::server {
namespace {

using automation::Collection;
using automation::Sample;
using automation::Variant;
using test::Pointer;
using test::Utf16;
using test::Value;

class ObjectInHands : public ::testing::Test, public test::SampleInHands {
 protected:
  HRESULT Query(REFIID iid, void** face) const {
    return host.Get()->lpVtbl->QueryInterface(host.Get(), iid, face);
  }
};

TEST_F(ObjectInHands, IsOnItsDefaultInterface) {
  EXPECT_EQ(host.Read("Size").value.Number(), 1);
  EXPECT_EQ(host.Read("Serial").value.Number(), 4711);
}

TEST_F(ObjectInHands, HasEachOfItsInterfaces) {
  const GUID id = InterfaceId("SampleShort");
  IDispatch* face = nullptr;
  ASSERT_EQ(Query(&id, reinterpret_cast<void**>(&face)), S_OK);
  const Pointer shortFace(face);
  EXPECT_NE(face, host.Get());
  EXPECT_EQ(shortFace.Read("Size").value.Number(), 4711);
  EXPECT_EQ(shortFace.Id("Label"), DISPID_UNKNOWN);
  EXPECT_EQ(shortFace.Write("Size", 3).result, DISP_E_EXCEPTION);

  const GUID own = InterfaceId("_Sample");
  ASSERT_EQ(face->lpVtbl->QueryInterface(face, &own, reinterpret_cast<void**>(&face)), S_OK);
  EXPECT_EQ(face, host.Get());
  face->lpVtbl->Release(face);
}

TEST_F(ObjectInHands, HasOneIdentityOnAllFaces) {
  const GUID id = InterfaceId("SampleShort");
  IDispatch* face = nullptr;
  ASSERT_EQ(Query(&id, reinterpret_cast<void**>(&face)), S_OK);
  const Pointer shortFace(face);
  EXPECT_EQ(shortFace.Identity(), host.Identity());
  EXPECT_EQ(test::Handed(sample).Identity(), host.Identity());
  EXPECT_NE(test::Handed(std::make_shared<Sample>()).Identity(), host.Identity());
  void* dispatch = nullptr;
  ASSERT_EQ(face->lpVtbl->QueryInterface(face, &IID_IDispatch, &dispatch), S_OK);
  EXPECT_EQ(dispatch, host.Get());
  host.Get()->lpVtbl->Release(host.Get());
}

TEST_F(ObjectInHands, HasNoOtherInterfaces) {
  for (const GUID& id : {IID_NULL, IID_IClassFactory, IID_IEnumVARIANT, InterfaceId("ItfHmiElement")}) {
    void* face = host.Get();
    EXPECT_EQ(Query(&id, &face), E_NOINTERFACE);
    EXPECT_EQ(face, nullptr);
  }
}

TEST_F(ObjectInHands, NeedsPointersToBeAsked) {
  void* face = host.Get();
  EXPECT_EQ(Query(&IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(Query(nullptr, &face), E_POINTER);
  EXPECT_EQ(face, nullptr);
}

TEST_F(ObjectInHands, CountsReferencesOfAllFacesTogether) {
  IDispatch* dispatch = host.Get();
  EXPECT_EQ(dispatch->lpVtbl->AddRef(dispatch), 2u);
  void* face = nullptr;
  const GUID id = InterfaceId("SampleShort");
  ASSERT_EQ(Query(&id, &face), S_OK);
  EXPECT_EQ(dispatch->lpVtbl->AddRef(dispatch), 4u);
  EXPECT_EQ(dispatch->lpVtbl->Release(dispatch), 3u);
  auto* other = static_cast<IDispatch*>(face);
  EXPECT_EQ(other->lpVtbl->Release(other), 2u);
  EXPECT_EQ(dispatch->lpVtbl->Release(dispatch), 1u);
}

TEST_F(ObjectInHands, LivesAsLongAsItIsHeld) {
  const std::weak_ptr<Sample> object = sample;
  const Long before = LiveObjects();
  sample.reset();
  EXPECT_FALSE(object.expired());
  EXPECT_EQ(host.Read("Size").result, S_OK);
  host.Reset();
  EXPECT_TRUE(object.expired());
  EXPECT_EQ(LiveObjects(), before - 1);
}

TEST_F(ObjectInHands, MayBeGivenUpByItsOwnCall) {
  IDispatch* object = Apartment::Current().Hold(std::make_shared<Sample>())->Default();
  // The only reference stands in the place that the member writes over.
  Value only = Value::Of(VT_DISPATCH, object);
  Value place = Value::Place(only);
  DISPPARAMS parameters{&place.Raw(), nullptr, 1, 0};
  EXPECT_EQ(object->lpVtbl->Invoke(object, host.Id("Stamp"), &IID_NULL, 0, DISPATCH_METHOD, &parameters,
                                   nullptr, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(only.Text(), "stamped");
}

TEST_F(ObjectInHands, HasNoTypeInfoOfThePlatform) {
  IDispatch* dispatch = host.Get();
  UINT count = 7;
  EXPECT_EQ(dispatch->lpVtbl->GetTypeInfoCount(dispatch, &count), S_OK);
  EXPECT_EQ(count, 0u);
  EXPECT_EQ(dispatch->lpVtbl->GetTypeInfoCount(dispatch, nullptr), E_POINTER);
  ITypeInfo* info = reinterpret_cast<ITypeInfo*>(dispatch);
  EXPECT_EQ(dispatch->lpVtbl->GetTypeInfo(dispatch, 0, 0, &info), E_NOTIMPL);
  EXPECT_EQ(info, nullptr);
  EXPECT_EQ(dispatch->lpVtbl->GetTypeInfo(dispatch, 0, 0, nullptr), E_NOTIMPL);
}

class NamesOfMembers : public ObjectInHands {
 protected:
  HRESULT Ask(std::vector<OLECHAR*> names, std::vector<DISPID>& ids, REFIID iid = &IID_NULL) {
    ids.assign(names.size(), 77);
    return host.Get()->lpVtbl->GetIDsOfNames(host.Get(), iid, names.data(), static_cast<UINT>(names.size()),
                                             0, ids.data());
  }

  Utf16 sum_{"SUM"}, a_{"a"}, c_{"C"}, none_{"none"};
  std::vector<DISPID> ids_;
};

TEST_F(NamesOfMembers, AreKnownInAnyCase) {
  EXPECT_EQ(Ask({sum_.Get()}, ids_), S_OK);
  EXPECT_EQ(ids_, std::vector<DISPID>{7});
}

TEST_F(NamesOfMembers, AreFollowedByThoseOfParameters) {
  EXPECT_EQ(Ask({sum_.Get(), c_.Get(), a_.Get()}, ids_), S_OK);
  EXPECT_EQ(ids_, (std::vector<DISPID>{7, 2, 0}));
}

TEST_F(NamesOfMembers, ThatAreNotThereAreTold) {
  EXPECT_EQ(Ask({none_.Get()}, ids_), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids_, std::vector<DISPID>{DISPID_UNKNOWN});
  EXPECT_EQ(Ask({sum_.Get(), none_.Get(), c_.Get()}, ids_), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids_, (std::vector<DISPID>{7, DISPID_UNKNOWN, 2}));
  EXPECT_EQ(Ask({none_.Get(), a_.Get()}, ids_), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids_, (std::vector<DISPID>{DISPID_UNKNOWN, DISPID_UNKNOWN}));
  EXPECT_EQ(Ask({nullptr, a_.Get()}, ids_), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(Ask({sum_.Get(), nullptr}, ids_), DISP_E_UNKNOWNNAME);
}

TEST_F(NamesOfMembers, AreAskedForWithPointers) {
  IDispatch* dispatch = host.Get();
  OLECHAR* names[] = {sum_.Get()};
  DISPID id = 0;
  EXPECT_EQ(dispatch->lpVtbl->GetIDsOfNames(dispatch, &IID_NULL, nullptr, 1, 0, &id), E_POINTER);
  EXPECT_EQ(dispatch->lpVtbl->GetIDsOfNames(dispatch, &IID_NULL, names, 1, 0, nullptr), E_POINTER);
  EXPECT_EQ(dispatch->lpVtbl->GetIDsOfNames(dispatch, &IID_NULL, names, 0, 0, &id), E_INVALIDARG);
  EXPECT_EQ(dispatch->lpVtbl->GetIDsOfNames(dispatch, nullptr, names, 1, 0, &id), S_OK);
  EXPECT_EQ(Ask({sum_.Get()}, ids_, &IID_IDispatch), DISP_E_UNKNOWNINTERFACE);
}

/// A collection with the numbers 1 to 3, and its enumerator.
class Enumeration : public ::testing::Test {
 protected:
  Enumeration() {
    for (const Long number : {1, 2, 3}) collection_->Add(number);
    const test::Outcome read = host_.Invoke(DISPID_NEWENUM, DISPATCH_PROPERTYGET);
    EXPECT_EQ(read.result, S_OK);
    EXPECT_EQ(read.value.Kind(), VT_UNKNOWN);
    IUnknown* unknown = read.value.Raw().value.punkVal;
    EXPECT_EQ(unknown->lpVtbl->QueryInterface(unknown, &IID_IEnumVARIANT, reinterpret_cast<void**>(&values_)),
              S_OK);
  }
  ~Enumeration() override { values_->lpVtbl->Release(values_); }

  /// The next values, as many as come.
  static std::vector<LONG> Rest(IEnumVARIANT* values) {
    std::vector<LONG> rest;
    Value value;
    while (values->lpVtbl->Next(values, 1, &value.Raw(), nullptr) == S_OK) rest.push_back(value.Number());
    return rest;
  }

  std::shared_ptr<Collection> collection_ = std::make_shared<Collection>();
  Pointer host_ = test::Handed(collection_);
  IEnumVARIANT* values_ = nullptr;
};

TEST_F(Enumeration, GivesTheValuesInOrder) {
  EXPECT_EQ(host_.Id("_NewEnum"), DISPID_NEWENUM);
  EXPECT_EQ(host_.Id("Item"), DISPID_VALUE);
  EXPECT_EQ(Rest(values_), (std::vector<LONG>{1, 2, 3}));
}

TEST_F(Enumeration, GivesSeveralAtOnce) {
  VARIANT values[4];
  ULONG fetched = 9;
  EXPECT_EQ(values_->lpVtbl->Next(values_, 2, values, &fetched), S_OK);
  EXPECT_EQ(fetched, 2u);
  EXPECT_EQ(values[1].value.lVal, 2);
  EXPECT_EQ(values_->lpVtbl->Next(values_, 2, values, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 1u);
  EXPECT_EQ(values[0].value.lVal, 3);
  EXPECT_EQ(values_->lpVtbl->Next(values_, 0, values, &fetched), S_OK);
  EXPECT_EQ(fetched, 0u);
}

TEST_F(Enumeration, NeedsPlacesForTheValues) {
  VARIANT values[2];
  ULONG fetched = 9;
  EXPECT_EQ(values_->lpVtbl->Next(values_, 1, nullptr, &fetched), E_POINTER);
  EXPECT_EQ(fetched, 0u);
  EXPECT_EQ(values_->lpVtbl->Next(values_, 2, values, nullptr), E_POINTER);
  EXPECT_EQ(Rest(values_), (std::vector<LONG>{1, 2, 3}));
}

TEST_F(Enumeration, SkipsAndBeginsAgain) {
  EXPECT_EQ(values_->lpVtbl->Skip(values_, 2), S_OK);
  EXPECT_EQ(Rest(values_), std::vector<LONG>{3});
  EXPECT_EQ(values_->lpVtbl->Reset(values_), S_OK);
  EXPECT_EQ(values_->lpVtbl->Skip(values_, 3), S_OK);
  EXPECT_EQ(values_->lpVtbl->Skip(values_, 0), S_OK);
  EXPECT_EQ(values_->lpVtbl->Skip(values_, 1), S_FALSE);
}

TEST_F(Enumeration, IsCopiedWithItsPlace) {
  EXPECT_EQ(values_->lpVtbl->Skip(values_, 1), S_OK);
  IEnumVARIANT* clone = nullptr;
  ASSERT_EQ(values_->lpVtbl->Clone(values_, &clone), S_OK);
  EXPECT_NE(clone, values_);
  EXPECT_EQ(Rest(clone), (std::vector<LONG>{2, 3}));
  EXPECT_EQ(Rest(values_), (std::vector<LONG>{2, 3}));
  EXPECT_EQ(clone->lpVtbl->Release(clone), 0u);
  EXPECT_EQ(values_->lpVtbl->Clone(values_, nullptr), E_POINTER);
}

TEST_F(Enumeration, IsOneObjectOnBothFaces) {
  IUnknown *fromValues = nullptr, *fromDispatch = nullptr;
  IDispatch* dispatch = nullptr;
  ASSERT_EQ(values_->lpVtbl->QueryInterface(values_, &IID_IUnknown, reinterpret_cast<void**>(&fromValues)),
            S_OK);
  ASSERT_EQ(values_->lpVtbl->QueryInterface(values_, &IID_IDispatch, reinterpret_cast<void**>(&dispatch)),
            S_OK);
  ASSERT_EQ(
      dispatch->lpVtbl->QueryInterface(dispatch, &IID_IUnknown, reinterpret_cast<void**>(&fromDispatch)),
      S_OK);
  EXPECT_EQ(fromValues, fromDispatch);
  EXPECT_EQ(StubOf(reinterpret_cast<IUnknown*>(values_)), StubOf(fromValues));
  for (IUnknown* held : {fromValues, fromDispatch, reinterpret_cast<IUnknown*>(dispatch)}) {
    held->lpVtbl->Release(held);
  }
}

TEST_F(Enumeration, LeavesTheCollectionToItself) {
  host_.Reset();
  collection_.reset();
  EXPECT_EQ(Rest(values_), (std::vector<LONG>{1, 2, 3}));
}

/// Gives one object, and then fails.
class FailingEnumerator final : public automation::Enumerator {
 public:
  explicit FailingEnumerator(automation::ObjectRef first) : first_(std::move(first)) {}
  bool Next(Variant& value) override {
    if (!first_) {
      throw automation::AutomationError(automation::ErrorNumber::SubscriptOutOfRange, "no more");
    }
    value = std::exchange(first_, nullptr);
    return true;
  }
  void Reset() override {}
  automation::EnumeratorRef Clone() const override { return nullptr; }

 private:
  automation::ObjectRef first_;
};

TEST(EnumerationThatFails, LeavesNothingOfWhatItGave) {
  auto sample = std::make_shared<Sample>();
  const std::weak_ptr<Sample> given = sample;
  const Pointer host = test::Handed(std::make_shared<FailingEnumerator>(std::exchange(sample, nullptr)));
  IEnumVARIANT* values = nullptr;
  ASSERT_EQ(
      host.Get()->lpVtbl->QueryInterface(host.Get(), &IID_IEnumVARIANT, reinterpret_cast<void**>(&values)),
      S_OK);
  VARIANT places[2];
  ULONG fetched = 9;
  EXPECT_EQ(values->lpVtbl->Next(values, 2, places, &fetched), QUENZEL7_RESULT(0x800A0009u));
  EXPECT_EQ(fetched, 0u);
  EXPECT_EQ(places[0].vt, VT_EMPTY);
  values->lpVtbl->Release(values);
  EXPECT_TRUE(given.expired());
}

TEST(Locks, TakenBackMoreOftenThanGivenLeaveNone) {
  const Long before = LiveObjects();
  LockServer(false);
  EXPECT_EQ(LiveObjects(), before);
  LockServer(true);
  LockServer(true);
  EXPECT_EQ(LiveObjects(), before + 2);
  LockServer(false);
  LockServer(false);
  LockServer(false);
  EXPECT_EQ(LiveObjects(), before);
}

}  // namespace
}  // namespace quenzel7::server
