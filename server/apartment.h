#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "platform/automation/object.h"
#include "server/quenzel7_automation.h"

namespace quenzel7::server {

class ForeignObject;
class Stub;

/// What the server keeps for one thread: which objects hosts hold, and which of the hosts' own objects the
/// library has. Objects are worked with on their own thread only, so nothing of this is locked but what other
/// threads do: they may give up objects.
class Apartment : public std::enable_shared_from_this<Apartment> {
 public:
  /// That of the calling thread, made when it is first asked for. Error 5 on a thread that is ending.
  static Apartment& Current();

  Apartment() = default;
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;

  /// Whether the caller is on this thread.
  bool IsCurrent() const { return this == current_; }

  /// The stub of an object, one reference of which is the caller's. An object has one stub for as long as
  /// hosts hold it.
  Stub* Hold(const automation::ObjectRef& object);
  /// Takes one reference from a stub of this thread; the new number of them. The last one deletes the stub,
  /// at once where the caller is on this thread. Given up by another thread it waits until this thread calls
  /// the server again, or ends: what the object owns belongs to this thread.
  ULONG Release(Stub* stub);
  /// Deletes the stubs that other threads have given up.
  void Sweep() {
    if (anyGivenUp_.load(std::memory_order_relaxed)) SweepGivenUp();
  }
  /// The same on the calling thread, where it has an apartment.
  static void SweepCurrent() {
    if (current_) current_->Sweep();
  }

  /// The object that stands for one of the host's; the same one for as long as anybody has it.
  automation::ObjectRef Import(IDispatch* dispatch);
  /// Forgets one that nobody has any more; its thread may have ended already.
  static void Forget(IUnknown* identity);

  /// The services of the thread.
  const automation::ObjectRef& HostServices();

 private:
  struct Owner;

  /// Ends the work of the thread: the objects go, whoever still holds their stubs.
  void Close();
  void Drop(Stub* stub);
  void SweepGivenUp();

  static constinit thread_local Apartment* current_;

  std::unordered_map<const automation::Object*, Stub*> stubs_;
  std::unordered_map<IUnknown*, std::weak_ptr<ForeignObject>> foreign_;
  automation::ObjectRef hostServices_;

  void Unlink(Stub* stub);

  std::mutex mutex_;
  /// The first of those that other threads have given up; under the mutex, as the links are.
  Stub* givenUp_ = nullptr;
  std::atomic<bool> anyGivenUp_ = false;
};

}  // namespace quenzel7::server
