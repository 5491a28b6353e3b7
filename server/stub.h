#pragma once

#include <atomic>
#include <memory>
#include <vector>

#include "platform/automation/class_info.h"
#include "platform/automation/object.h"
#include "server/apartment.h"
#include "server/live_objects.h"
#include "server/quenzel7_automation.h"

namespace quenzel7::server {

class Stub;

/// One interface of an object as hosts hold it.
struct Face : IDispatch {
  Stub* stub;
  const automation::Interface* interface;
};

/// The interface of enumerators.
struct EnumeratorFace : IEnumVARIANT {
  Stub* stub;
};

/// Stands for one object at the binary interface: counts the references of hosts and has a face for each of
/// the object's interfaces.
class Stub {
 public:
  /// Has one reference, the maker's. `apartment` is that of the calling thread.
  Stub(automation::ObjectRef object, std::shared_ptr<Apartment> apartment);
  Stub(const Stub&) = delete;
  Stub& operator=(const Stub&) = delete;

  /// None once the object's thread has ended.
  const automation::ObjectRef& Object() const { return object_; }
  Apartment& Owner() const { return *apartment_; }

  /// The face of the object's default interface; its address is the object's identity.
  IDispatch* Default() { return &faces_.front(); }
  IUnknown* Identity() { return reinterpret_cast<IUnknown*>(Default()); }

  ULONG AddRef() { return references_.fetch_add(1, std::memory_order_relaxed) + 1; }
  ULONG Release();
  /// One reference less, and nothing else; the new number of them.
  ULONG CountDown() { return references_.fetch_sub(1, std::memory_order_acq_rel) - 1; }
  bool IsHeld() const { return references_.load(std::memory_order_acquire) != 0; }
  /// A new reference on the interface of that number, or E_NOINTERFACE.
  HRESULT QueryInterface(REFIID iid, void** face);

  /// Lets the object go.
  void Disconnect() { object_.reset(); }

 private:
  friend class Apartment;

  /// First, so that the object has gone when this one no longer counts.
  LiveObject counted_;
  automation::ObjectRef object_;
  std::shared_ptr<Apartment> apartment_;
  std::atomic<ULONG> references_ = 1;
  std::vector<Face> faces_;
  /// Of enumerators only.
  std::unique_ptr<EnumeratorFace> enumerator_;
  /// In the apartment's list of what other threads have given up, under its lock.
  bool isGivenUp_ = false;
  Stub* nextGivenUp_ = nullptr;
};

/// One reference on a stub, given back in the end.
class StubReference {
 public:
  /// Takes the caller's reference over.
  explicit StubReference(Stub* stub) : stub_(stub) {}
  StubReference(const StubReference&) = delete;
  StubReference& operator=(const StubReference&) = delete;
  ~StubReference() { stub_->Release(); }

  Stub* operator->() const { return stub_; }

 private:
  Stub* stub_;
};

/// The object behind a pointer that is one of this library's faces, or nullptr. Its thread is that of the
/// stub; see Stub::Owner.
Stub* StubOf(IUnknown* pointer);

}  // namespace quenzel7::server
