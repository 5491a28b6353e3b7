#pragma once

#include <deque>
#include <string>

#include "platform/automation/types.h"
#include "platform/corvane1/collected.h"
#include "platform/corvane1/recent.h"

namespace quenzel7::corvane1 {

/// The pointers that the library asks for.
enum HostPointer : Long {
  kDefaultPointer = 0,
  kArrowPointer = 1,
  kBusyPointer = 11,
};

/// The kinds of lines in the host's output list that the library writes.
enum OutputKind : Long {
  kOutputWarning = 2,
};

/// The window of the host, as far as the library reaches it.
class HostFrame {
 public:
  virtual ~HostFrame() = default;

  /// Shows the pointer of that number until another one is asked for.
  virtual void SetPointer(Long pointer) = 0;
  /// Adds a line to the list of what is told about the project.
  virtual void AddOutput(const std::string& text, Long kind) = 0;
  /// Puts away whatever shows that work is going on, since the user is about to be told something.
  virtual void InterruptWork() = 0;
  /// Shows anew what the host has open: `which` is -1 for everything, `what` the host's number of the view.
  virtual void Refresh(Long which, Long what) = 0;
};

/// A line as it was added to the host's output list.
struct OutputEntry {
  std::string text;
  Long kind = 0;

  friend bool operator==(const OutputEntry&, const OutputEntry&) = default;
};

/// What a host was asked to show anew.
struct RefreshRequest {
  Long which = 0;
  Long what = 0;

  friend bool operator==(const RefreshRequest&, const RefreshRequest&) = default;
};

/// The embedded default, for hosts without a window: prints each line of the output list, a warning as
/// "warning: TEXT", and keeps the latest `kMostRecent` of all that it is told.
class CollectedHostFrame final : public HostFrame, public Collected<OutputEntry> {
 public:
  using Collected::Collected;

  void SetPointer(Long pointer) override { pointers_.Add(pointer); }
  void AddOutput(const std::string& text, Long kind) override;
  void InterruptWork() override { ++interruptions_; }
  void Refresh(Long which, Long what) override { refreshes_.Add({which, what}); }

  /// The lines of the output list, in order.
  const std::deque<OutputEntry>& Outputs() const { return Entries(); }
  /// The pointers that were asked for, in order.
  const std::deque<Long>& Pointers() const { return pointers_.Entries(); }
  /// How often work was interrupted.
  Long Interruptions() const { return interruptions_; }
  /// What was to be shown anew, in order.
  const std::deque<RefreshRequest>& Refreshes() const { return refreshes_.Entries(); }
  /// Forgets all of it.
  void Clear();

 private:
  Recent<Long> pointers_;
  Long interruptions_ = 0;
  Recent<RefreshRequest> refreshes_;
};

}  // namespace quenzel7::corvane1
