#include "server/apartment.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "framework/library_state.h"
#include "platform/automation/automation_error.h"
#include "platform/gdi/gdi.h"
#include "platform/platform.h"
#include "server/foreign_object.h"
#include "server/services/host_services.h"
#include "server/services/service_classes.h"
#include "server/stub.h"
#include "server/types/describe.h"

namespace quenzel7::server {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::ObjectRef;

namespace {

constinit thread_local bool threadEnds = false;

std::string DescribeAll(std::string_view name) { return Describe(name, ServiceClasses()); }

}  // namespace

constinit thread_local Apartment* Apartment::current_ = nullptr;

/// Closes the apartment with its thread.
struct Apartment::Owner {
  std::shared_ptr<Apartment> apartment = std::make_shared<Apartment>();

  ~Owner() {
    threadEnds = true;
    apartment->Close();
  }
};

Apartment& Apartment::Current() {
  if (current_) return *current_;
  if (threadEnds) {
    throw AutomationError(ErrorNumber::InvalidProcedureCall,
                          "the thread is ending: it has no objects any more");
  }
  // What a thread makes first goes last, and objects need all of this until they are gone.
  gdi::LiveObjects();
  Platform::Current();
  LibraryState::Current();
  Quenzel7LastError();
  static thread_local Owner owner;
  current_ = owner.apartment.get();
  return *current_;
}

Stub* Apartment::Hold(const ObjectRef& object) {
  Sweep();
  Stub*& stub = stubs_[object.get()];
  if (stub) {
    stub->AddRef();
    return stub;
  }
  try {
    return stub = new Stub(object, shared_from_this());
  } catch (...) {
    stubs_.erase(object.get());
    throw;
  }
}

ULONG Apartment::Release(Stub* stub) {
  if (IsCurrent()) {
    const ULONG left = stub->CountDown();
    if (left == 0) Drop(stub);
    return left;
  }
  // The owner looks at stubs that were given up under the same lock, so that it sees either all of this or
  // nothing.
  std::unique_lock lock(mutex_);
  const ULONG left = stub->CountDown();
  if (left > 0) return left;
  if (!stub->Object()) {
    // The object's thread has ended, and nobody else looks after the stub.
    lock.unlock();
    delete stub;
    return 0;
  }
  if (!stub->isGivenUp_) {
    stub->isGivenUp_ = true;
    stub->nextGivenUp_ = std::exchange(givenUp_, stub);
  }
  anyGivenUp_.store(true, std::memory_order_relaxed);
  return 0;
}

void Apartment::Unlink(Stub* stub) {
  if (!stub->isGivenUp_) return;
  Stub** link = &givenUp_;
  while (*link != stub) link = &(*link)->nextGivenUp_;
  *link = stub->nextGivenUp_;
  stub->isGivenUp_ = false;
}

void Apartment::Drop(Stub* stub) {
  {
    const std::lock_guard lock(mutex_);
    Unlink(stub);
  }
  stubs_.erase(stub->Object().get());
  delete stub;
}

void Apartment::SweepGivenUp() {
  anyGivenUp_.store(false, std::memory_order_relaxed);
  // One at a time: objects may call the server while they go.
  for (;;) {
    Stub* unheld = nullptr;
    {
      const std::lock_guard lock(mutex_);
      // One that this thread has held anew meanwhile stays.
      while (givenUp_ && !unheld) {
        Stub* const first = givenUp_;
        Unlink(first);
        if (!first->IsHeld()) unheld = first;
      }
      if (!unheld) return;
      stubs_.erase(unheld->Object().get());
    }
    delete unheld;
  }
}

ObjectRef Apartment::Import(IDispatch* dispatch) {
  IUnknown* identity = nullptr;
  const HRESULT result =
      dispatch->lpVtbl->QueryInterface(dispatch, &IID_IUnknown, reinterpret_cast<void**>(&identity));
  if (FAILED(result) || !identity) {
    throw AutomationError(ErrorNumber::TypeMismatch, "an object of the host does not know its own IUnknown");
  }
  const std::unique_ptr<IUnknown, void (*)(IUnknown*)> held(
      identity, [](IUnknown* unknown) { unknown->lpVtbl->Release(unknown); });
  std::weak_ptr<ForeignObject>& known = foreign_[identity];
  auto object = known.lock();
  if (!object) known = object = std::make_shared<ForeignObject>(dispatch, identity);
  return object;
}

void Apartment::Forget(IUnknown* identity) {
  if (current_) current_->foreign_.erase(identity);
}

const ObjectRef& Apartment::HostServices() {
  if (!hostServices_) hostServices_ = std::make_shared<server::HostServices>(&DescribeAll);
  return hostServices_;
}

void Apartment::Close() {
  Sweep();
  // The objects go when nothing of this thread can be called any more, and no stub has one any more: an
  // object of the host that goes with them may still try to use others. From here on whoever gives a stub up
  // deletes it.
  std::vector<ObjectRef> objects{std::exchange(hostServices_, nullptr)};
  {
    const std::lock_guard lock(mutex_);
    for (auto& [object, stub] : std::exchange(stubs_, {})) {
      objects.push_back(stub->Object());
      stub->Disconnect();
      if (!stub->IsHeld()) delete stub;
    }
    givenUp_ = nullptr;
  }
  current_ = nullptr;
}

}  // namespace quenzel7::server
