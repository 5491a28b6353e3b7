#include "server/class_factory.h"

#include <gtest/gtest.h>

#include <future>
#include <string>

#include "platform/corvane1/text_painter.h"
#include "platform/platform.h"
#include "server/apartment.h"
#include "server/live_objects.h"
#include "server/stub.h"
#include "server/types/class_table.h"
#include "server/types/identifiers.h"
#include "tests/server/host.h"

namespace quenzel7::server {
namespace {

using test::Pointer;

constexpr HRESULT kNotCreatable = QUENZEL7_RESULT(0x800A01ADu);
constexpr HRESULT kInvalidCall = QUENZEL7_RESULT(0x800A0005u);

/// The factory of a class, held by a host.
class FactoryOf {
 public:
  explicit FactoryOf(const char* className, REFIID iid = &IID_IClassFactory) {
    result = MakeClassFactory(*FindCreatable(className), iid, reinterpret_cast<void**>(&held));
  }
  FactoryOf(const FactoryOf&) = delete;
  FactoryOf& operator=(const FactoryOf&) = delete;
  ~FactoryOf() {
    if (held) held->lpVtbl->Release(held);
  }
  IClassFactory* operator->() const { return held; }

  HRESULT Create(REFIID iid, void** face, IUnknown* outer = nullptr) const {
    return held->lpVtbl->CreateInstance(held, outer, iid, face);
  }
  Pointer Create() const {
    void* made = nullptr;
    EXPECT_EQ(Create(&IID_IDispatch, &made), S_OK);
    return Pointer(static_cast<IDispatch*>(made));
  }

  IClassFactory* held = nullptr;
  HRESULT result;
};

/// Nothing that the test makes is left alive.
class ClassFactory : public ::testing::Test {
 protected:
  ~ClassFactory() override { EXPECT_EQ(LiveObjects(), before_); }
  /// How many are alive that were not before.
  Long New() const { return LiveObjects() - before_; }

 private:
  const Long before_ = LiveObjects();
};

TEST_F(ClassFactory, IsAnUnknownAndAClassFactory) {
  const FactoryOf factory("clsRectangle"), unknown("clsRectangle", &IID_IUnknown);
  EXPECT_EQ(factory.result, S_OK);
  EXPECT_EQ(unknown.result, S_OK);
  EXPECT_NE(factory.held, unknown.held);
  EXPECT_EQ(New(), 2);
  for (REFIID iid : {&IID_IUnknown, &IID_IClassFactory}) {
    void* face = nullptr;
    EXPECT_EQ(factory->lpVtbl->QueryInterface(factory.held, iid, &face), S_OK);
    EXPECT_EQ(face, factory.held);
    EXPECT_EQ(factory->lpVtbl->Release(factory.held), 1u);
  }
}

TEST_F(ClassFactory, IsNothingElse) {
  const FactoryOf none("clsRectangle", &IID_IDispatch);
  EXPECT_EQ(none.result, E_NOINTERFACE);
  EXPECT_EQ(none.held, nullptr);
  EXPECT_EQ(New(), 0);
  const FactoryOf factory("clsRectangle");
  void* face = factory.held;
  EXPECT_EQ(factory->lpVtbl->QueryInterface(factory.held, &IID_IDispatch, &face), E_NOINTERFACE);
  EXPECT_EQ(face, nullptr);
  EXPECT_EQ(factory->lpVtbl->QueryInterface(factory.held, &IID_IUnknown, nullptr), E_POINTER);
  face = factory.held;
  EXPECT_EQ(factory->lpVtbl->QueryInterface(factory.held, nullptr, &face), E_POINTER);
  EXPECT_EQ(face, nullptr);
}

TEST_F(ClassFactory, CountsWhoHoldsIt) {
  const FactoryOf factory("clsRectangle");
  EXPECT_EQ(factory->lpVtbl->AddRef(factory.held), 2u);
  EXPECT_EQ(factory->lpVtbl->AddRef(factory.held), 3u);
  EXPECT_EQ(factory->lpVtbl->Release(factory.held), 2u);
  EXPECT_EQ(factory->lpVtbl->Release(factory.held), 1u);
  EXPECT_EQ(New(), 1);
}

TEST_F(ClassFactory, MakesAnObjectEachTime) {
  const FactoryOf factory("clsRectangle");
  const Pointer one = factory.Create(), other = factory.Create();
  EXPECT_NE(one.Identity(), other.Identity());
  EXPECT_EQ(New(), 3);
  EXPECT_EQ(one.Get()->lpVtbl->AddRef(one.Get()), 2u);
  EXPECT_EQ(one.Get()->lpVtbl->Release(one.Get()), 1u);
  EXPECT_EQ(StubOf(reinterpret_cast<IUnknown*>(one.Get()))->Object()->Class().name, "clsRectangle");
}

TEST_F(ClassFactory, GivesTheInterfaceThatIsAskedFor) {
  const FactoryOf factory("clsRectangle");
  const IID contract = InterfaceId("ItfHmiElement");
  void* made = nullptr;
  EXPECT_EQ(factory.Create(&contract, &made), S_OK);
  const Pointer element(static_cast<IDispatch*>(made));
  EXPECT_EQ(element.Face("ItfHmiElement").Get(), element.Get());
  EXPECT_NE(element.Identity(), element.Get());
  EXPECT_EQ(factory.Create(&IID_IUnknown, &made), S_OK);
  const Pointer object(static_cast<IDispatch*>(made));
  EXPECT_EQ(object.Identity(), object.Get());
}

TEST_F(ClassFactory, LeavesNoObjectWithoutTheInterface) {
  const FactoryOf factory("clsRectangle");
  const IID handler = InterfaceId("ItfVarBinaryHandler");
  for (REFIID iid : {&handler, &IID_IClassFactory, &IID_IEnumVARIANT, &IID_NULL}) {
    void* made = factory.held;
    EXPECT_EQ(factory.Create(iid, &made), E_NOINTERFACE);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(New(), 1);
  }
}

TEST_F(ClassFactory, RefusesAggregationAndMissingPointers) {
  const FactoryOf factory("clsRectangle");
  const Pointer outer = factory.Create();
  void* made = factory.held;
  EXPECT_EQ(factory.Create(&IID_IUnknown, &made, reinterpret_cast<IUnknown*>(outer.Get())),
            CLASS_E_NOAGGREGATION);
  EXPECT_EQ(made, nullptr);
  made = factory.held;
  EXPECT_EQ(factory.Create(nullptr, &made), E_POINTER);
  EXPECT_EQ(made, nullptr);
  EXPECT_EQ(factory.Create(&IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(New(), 2);
}

TEST_F(ClassFactory, KeepsTheLibraryLoadedWhileItIsLocked) {
  ASSERT_EQ(LiveObjects(), 0);
  EXPECT_EQ(DllCanUnloadNow(), S_OK);
  {
    const FactoryOf factory("clsRectangle");
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    // Anything but 0 is true.
    EXPECT_EQ(factory->lpVtbl->LockServer(factory.held, 2), S_OK);
    EXPECT_EQ(factory->lpVtbl->LockServer(factory.held, 1), S_OK);
    EXPECT_EQ(New(), 3);
  }
  EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
  const FactoryOf factory("clsText");
  EXPECT_EQ(factory->lpVtbl->LockServer(factory.held, 0), S_OK);
  EXPECT_EQ(New(), 2);
  EXPECT_EQ(factory->lpVtbl->LockServer(factory.held, 0), S_OK);
  EXPECT_EQ(New(), 1);
}

TEST_F(ClassFactory, AnObjectKeepsTheLibraryLoadedToo) {
  Pointer object = Pointer::Create("clsRectangle");
  EXPECT_EQ(New(), 1);
  EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
  object.Reset();
  EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST_F(ClassFactory, MakesObjectsOfTheThreadThatAsks) {
  const FactoryOf factory("clsRectangle");
  std::async(std::launch::async, [&factory] {
    const Pointer made = factory.Create();
    EXPECT_TRUE(StubOf(reinterpret_cast<IUnknown*>(made.Get()))->Owner().IsCurrent());
    EXPECT_EQ(made.Write("Xs", 7).result, S_OK);
    EXPECT_EQ(made.Read("Xs").value.Number(), 7);
  }).get();
  IDispatch* others = std::async(std::launch::async, [&factory] {
                        void* made = nullptr;
                        factory.Create(&IID_IDispatch, &made);
                        return static_cast<IDispatch*>(made);
                      }).get();
  void* face = nullptr;
  EXPECT_EQ(others->lpVtbl->QueryInterface(others, &IID_IUnknown, &face), RPC_E_WRONG_THREAD);
  EXPECT_EQ(others->lpVtbl->Release(others), 0u);
}

TEST_F(ClassFactory, GoesOnAnyThread) {
  IClassFactory* factory = nullptr;
  MakeClassFactory(*FindCreatable("clsRectangle"), &IID_IClassFactory, reinterpret_cast<void**>(&factory));
  EXPECT_EQ(std::async(std::launch::async, [factory] { return factory->lpVtbl->Release(factory); }).get(),
            0u);
}

TEST_F(ClassFactory, TellsWhatAClassRaises) {
  const FactoryOf factory("clsText");
  Platform::Current().newTextPainter = nullptr;
  void* made = factory.held;
  EXPECT_EQ(factory.Create(&IID_IUnknown, &made), kNotCreatable);
  EXPECT_EQ(made, nullptr);
  EXPECT_STREQ(Quenzel7LastError(), "the host makes no text painter");
  EXPECT_EQ(New(), 1);
  Platform::Current() = Platform();
  EXPECT_TRUE(factory.Create());
}

/// Asks a factory for an object when its thread has ended.
struct AskedAtTheEnd {
  const FactoryOf* factory = nullptr;
  HRESULT result = S_OK;
  std::string told;
  HRESULT services = S_OK;
};

struct AsksAtTheEnd {
  AskedAtTheEnd* asked = nullptr;
  ~AsksAtTheEnd() {
    if (!asked) return;
    void* made = nullptr;
    asked->result = asked->factory->Create(&IID_IUnknown, &made);
    asked->told = Quenzel7LastError();
    IDispatch* services = nullptr;
    asked->services = Quenzel7GetHostServices(&services);
  }
};

TEST_F(ClassFactory, MakesNothingOnAThreadThatIsEnding) {
  const FactoryOf factory("clsRectangle");
  AskedAtTheEnd asked{&factory, S_OK, {}, S_OK};
  std::async(std::launch::async, [&] {
    // What a thread makes first goes last: also after the text of its last error.
    static thread_local AsksAtTheEnd atTheEnd;
    atTheEnd.asked = &asked;
    void* made = nullptr;
    DllGetClassObject(&IID_NULL, &IID_NULL, &made);
    EXPECT_STREQ(Quenzel7LastError(), "failure 0x80040111");
    factory.Create();
  }).get();
  EXPECT_EQ(asked.result, kInvalidCall);
  EXPECT_EQ(asked.told, "a failure while the thread ends");
  EXPECT_EQ(asked.services, kInvalidCall);
}

TEST(CreatableOfId, FindsTheClassesThatHostsCanCreate) {
  const CLSID rectangle = ClassId("clsRectangle"), enums = ClassId("clsEnums");
  EXPECT_EQ(CreatableOfId(&rectangle)->name, "clsRectangle");
  EXPECT_EQ(CreatableOfId(&enums), nullptr);
  EXPECT_EQ(CreatableOfId(&IID_NULL), nullptr);
}

}  // namespace
}  // namespace quenzel7::server
