#include "server/apartment.h"

#include <gtest/gtest.h>

#include <functional>
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
#include "tests/server/host_object.h"
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

TEST_F(Threads, SweepWithAnyCallAndWhenTheyAskWhetherAllIsFree) {
  const Utf16 name("Size");
  const std::vector<std::function<void()>> calls = {
      [this] { host.Id("Size"); }, [this] { host.Identity(); }, [] { DllCanUnloadNow(); },
      [] { Pointer::HostServices(); }, [] { Pointer::Create("clsRectangle"); }};
  Pointer::HostServices();
  for (const auto& call : calls) {
    std::thread::id gone;
    auto* first = Apartment::Current().Hold(std::make_shared<Witness>(gone))->Default();
    std::thread::id goneToo;
    auto* second = Apartment::Current().Hold(std::make_shared<Witness>(goneToo))->Default();
    Elsewhere([first, second] {
      first->lpVtbl->Release(first);
      second->lpVtbl->Release(second);
    });
    EXPECT_EQ(gone, std::thread::id());
    call();
    EXPECT_EQ(gone, std::this_thread::get_id());
    EXPECT_EQ(goneToo, std::this_thread::get_id());
  }
}

TEST_F(Threads, ForgetOnlyWhatIsReleasedOfWhatWasGivenUp) {
  std::thread::id gone[3];
  IDispatch* held[3];
  for (int place = 0; place < 3; ++place) {
    held[place] = Apartment::Current().Hold(std::make_shared<Witness>(gone[place]))->Default();
  }
  Elsewhere([&held] {
    for (IDispatch* dispatch : held) dispatch->lpVtbl->Release(dispatch);
  });
  // Taken back and released before anything was swept.
  held[1]->lpVtbl->AddRef(held[1]);
  held[1]->lpVtbl->Release(held[1]);
  EXPECT_NE(gone[1], std::thread::id());
  EXPECT_EQ(gone[0], std::thread::id());
  EXPECT_EQ(gone[2], std::thread::id());
  host.Id("Size");
  EXPECT_NE(gone[0], std::thread::id());
  EXPECT_NE(gone[2], std::thread::id());
}

/// An object of the host that calls one of the library's when it is released for the last time.
class LastWord : public test::HostObject {
 public:
  std::function<void()> word;
  /// What it is in C++ of the calls below.
  static ULONG Release(IDispatch* self) {
    auto& object = static_cast<LastWord&>(static_cast<test::HostObject&>(*self));
    const auto left = static_cast<ULONG>(--object.references);
    if (left == 0 && object.word) object.word();
    return left;
  }
  LastWord() {
    calls_ = *lpVtbl;
    calls_.Release = &LastWord::Release;
    lpVtbl = &calls_;
  }

 private:
  IDispatchVtbl calls_;
};

TEST_F(Threads, LetObjectsOfTheHostSpeakWhenTheyEnd) {
  const Long before = LiveObjects();
  LastWord last;
  IDispatch *kept = nullptr, *left = nullptr;
  std::vector<HRESULT> told;
  Elsewhere([&] {
    kept = Apartment::Current().Hold(std::make_shared<Sample>())->Default();
    last.word = [&] {
      DISPPARAMS none{};
      told.push_back(kept->lpVtbl->Invoke(kept, 1, &IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr,
                                          nullptr, nullptr));
      IDispatch* services = nullptr;
      told.push_back(Quenzel7GetHostServices(&services));
      kept->lpVtbl->Release(kept);
    };
    const auto collection = std::make_shared<automation::Collection>();
    const Pointer handed = test::Handed(collection);
    EXPECT_EQ(handed.Call("Add", {last.Handed().AsValue()}).result, S_OK);
    handed.Get()->lpVtbl->AddRef(handed.Get());
    left = handed.Get();
  });
  EXPECT_EQ(last.references, 0);
  EXPECT_EQ(told, (std::vector<HRESULT>{RPC_E_WRONG_THREAD, QUENZEL7_RESULT(0x800A0005u)}));
  // The collection's own stub is still held.
  EXPECT_EQ(LiveObjects(), before + 1);
  EXPECT_EQ(left->lpVtbl->Release(left), 0u);
  EXPECT_EQ(LiveObjects(), before);
}

TEST_F(Threads, LetGoOfServicesOfTheHost) {
  test::HostObject boxes;
  Elsewhere([&boxes] {
    EXPECT_EQ(Pointer::HostServices().WriteReference("MessageBoxes", boxes.Handed().AsValue()).result, S_OK);
    EXPECT_GT(boxes.references, 0);
  });
  EXPECT_EQ(boxes.references, 0);
}

TEST_F(Threads, HaveServicesOfTheirOwn) {
  const Pointer mine = Pointer::HostServices();
  EXPECT_EQ(mine.Identity(), Pointer::HostServices().Identity());
  const void* identity = mine.Identity();
  EXPECT_NE(Elsewhere([] { return Pointer::HostServices().Identity(); }), identity);
}

}  // namespace
}  // namespace quenzel7::server
