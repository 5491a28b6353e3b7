#include "server/apartment.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <thread>
#include <vector>

#include "platform/automation/automation_error.h"
#include "platform/automation/collection.h"
#include "server/live_objects.h"
#include "server/stub.h"
#include "server/types/identifiers.h"
#include "tests/server/host.h"
#include "tests/server/sample.h"

namespace quenzel7::server {
namespace {

using automation::Sample;
using test::Pointer;
using test::Utf16;

/// Runs something on another thread, which ends then.
template <class Work>
auto Elsewhere(Work work) {
  return std::async(std::launch::async, work).get();
}

class Threads : public ::testing::Test, public test::SampleInHands {};

TEST_F(Threads, HaveAnApartmentEach) {
  Apartment& mine = Apartment::Current();
  EXPECT_EQ(&Apartment::Current(), &mine);
  EXPECT_TRUE(mine.IsCurrent());
  EXPECT_TRUE(Elsewhere([&mine] { return &Apartment::Current() != &mine && !mine.IsCurrent(); }));
}

TEST_F(Threads, MayNotCallTheObjectsOfOthers) {
  const DISPID size = host.Id("Size");
  const Utf16 name("Size");
  IDispatch* dispatch = host.Get();
  const auto results = Elsewhere([&] {
    OLECHAR* names[] = {name.Get()};
    DISPID id = 0;
    void* face = dispatch;
    DISPPARAMS none{};
    std::vector<HRESULT> told = {dispatch->lpVtbl->GetIDsOfNames(dispatch, &IID_NULL, names, 1, 0, &id),
                                 dispatch->lpVtbl->Invoke(dispatch, size, &IID_NULL, 0, DISPATCH_PROPERTYGET,
                                                          &none, nullptr, nullptr, nullptr),
                                 dispatch->lpVtbl->QueryInterface(dispatch, &IID_IUnknown, &face)};
    EXPECT_EQ(face, nullptr);
    return told;
  });
  EXPECT_EQ(results, std::vector<HRESULT>(3, RPC_E_WRONG_THREAD));
  EXPECT_EQ(host.Read("Size").result, S_OK);
}

TEST_F(Threads, MayNotEnumerateForOthers) {
  const auto collection = std::make_shared<automation::Collection>();
  const Pointer held = test::Handed(collection->NewEnum());
  IEnumVARIANT* values = nullptr;
  ASSERT_EQ(
      held.Get()->lpVtbl->QueryInterface(held.Get(), &IID_IEnumVARIANT, reinterpret_cast<void**>(&values)),
      S_OK);
  const auto results = Elsewhere([&] {
    VARIANT value;
    IEnumVARIANT* clone = values;
    std::vector<HRESULT> told = {values->lpVtbl->Next(values, 1, &value, nullptr),
                                 values->lpVtbl->Skip(values, 1), values->lpVtbl->Reset(values),
                                 values->lpVtbl->Clone(values, &clone)};
    EXPECT_EQ(clone, nullptr);
    return told;
  });
  EXPECT_EQ(results, std::vector<HRESULT>(4, RPC_E_WRONG_THREAD));
  values->lpVtbl->Release(values);
}

TEST_F(Threads, MayNotPassTheObjectsOfOthers) {
  IDispatch* dispatch = host.Get();
  const auto outcome = Elsewhere([dispatch] {
    const Pointer own = test::Handed(std::make_shared<Sample>());
    dispatch->lpVtbl->AddRef(dispatch);
    return own.Call("Same", {Pointer(dispatch).AsValue()}).result;
  });
  EXPECT_EQ(outcome, DISP_E_TYPEMISMATCH);
}

TEST_F(Threads, MayCountTheObjectsOfOthers) {
  IDispatch* dispatch = host.Get();
  Elsewhere([dispatch] {
    EXPECT_EQ(dispatch->lpVtbl->AddRef(dispatch), 2u);
    EXPECT_EQ(dispatch->lpVtbl->Release(dispatch), 1u);
  });
  EXPECT_EQ(host.Read("Size").result, S_OK);
}

/// An object that notes on which thread it went.
class Witness final : public automation::Object {
 public:
  explicit Witness(std::thread::id& gone) : gone_(gone) {}
  ~Witness() override { gone_ = std::this_thread::get_id(); }
  const automation::ClassInfo& Class() const override { return sample_.Class(); }

 private:
  Sample sample_;
  std::thread::id& gone_;
};

TEST_F(Threads, GiveUpWhatGoesOnItsOwnThread) {
  std::thread::id gone;
  auto* dispatch = Apartment::Current().Hold(std::make_shared<Witness>(gone))->Default();
  const Long held = LiveObjects();
  EXPECT_EQ(Elsewhere([dispatch] { return dispatch->lpVtbl->Release(dispatch); }), 0u);
  EXPECT_EQ(gone, std::thread::id());
  EXPECT_EQ(LiveObjects(), held);
  // Any call of this thread will do.
  EXPECT_EQ(host.Read("Size").result, S_OK);
  EXPECT_EQ(gone, std::this_thread::get_id());
  EXPECT_EQ(LiveObjects(), held - 1);
}

TEST_F(Threads, MayTakeBackWhatAnotherGaveUp) {
  std::thread::id gone;
  const auto object = std::make_shared<Witness>(gone);
  auto* dispatch = Apartment::Current().Hold(object)->Default();
  for (int round = 0; round < 2; ++round) {
    Elsewhere([dispatch] { return dispatch->lpVtbl->Release(dispatch); });
    // Nothing has been swept yet: a face leads straight back.
    dispatch->lpVtbl->AddRef(dispatch);
  }
  host.Read("Size");
  EXPECT_EQ(gone, std::thread::id());
  EXPECT_EQ(Apartment::Current().Hold(object)->Default(), dispatch);
  EXPECT_EQ(dispatch->lpVtbl->Release(dispatch), 1u);
  EXPECT_EQ(dispatch->lpVtbl->Release(dispatch), 0u);
}

TEST_F(Threads, GiveUpAndReleaseInAnyOrder) {
  std::thread::id gone;
  auto* dispatch = Apartment::Current().Hold(std::make_shared<Witness>(gone))->Default();
  Elsewhere([dispatch] { return dispatch->lpVtbl->Release(dispatch); });
  dispatch->lpVtbl->AddRef(dispatch);
  EXPECT_EQ(dispatch->lpVtbl->Release(dispatch), 0u);
  EXPECT_EQ(gone, std::this_thread::get_id());
  EXPECT_EQ(host.Read("Size").result, S_OK);
}

TEST_F(Threads, TakeTheirObjectsWithThem) {
  const Long before = LiveObjects();
  std::thread::id gone;
  IDispatch* left = nullptr;
  std::thread other([&] { left = Apartment::Current().Hold(std::make_shared<Witness>(gone))->Default(); });
  const std::thread::id otherId = other.get_id();
  other.join();
  EXPECT_EQ(gone, otherId);
  EXPECT_EQ(LiveObjects(), before + 1);
  DISPPARAMS none{};
  EXPECT_EQ(
      left->lpVtbl->Invoke(left, 1, &IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
      RPC_E_WRONG_THREAD);
  EXPECT_EQ(left->lpVtbl->AddRef(left), 2u);
  EXPECT_EQ(left->lpVtbl->Release(left), 1u);
  EXPECT_EQ(left->lpVtbl->Release(left), 0u);
  EXPECT_EQ(LiveObjects(), before);
}

TEST_F(Threads, GiveUpWhileTheOtherEnds) {
  const Long before = LiveObjects();
  std::thread::id gone;
  std::promise<IDispatch*> made;
  std::promise<void> mayEnd;
  std::thread other([&] {
    made.set_value(Apartment::Current().Hold(std::make_shared<Witness>(gone))->Default());
    mayEnd.get_future().wait();
  });
  IDispatch* dispatch = made.get_future().get();
  EXPECT_EQ(dispatch->lpVtbl->Release(dispatch), 0u);
  EXPECT_EQ(gone, std::thread::id());
  const std::thread::id otherId = other.get_id();
  mayEnd.set_value();
  other.join();
  EXPECT_EQ(gone, otherId);
  EXPECT_EQ(LiveObjects(), before);
}

TEST_F(Threads, HaveServicesOfTheirOwn) {
  const Pointer mine = Pointer::HostServices();
  EXPECT_EQ(mine.Identity(), Pointer::HostServices().Identity());
  const void* identity = mine.Identity();
  EXPECT_NE(Elsewhere([] { return Pointer::HostServices().Identity(); }), identity);
}

}  // namespace
}  // namespace quenzel7::server
