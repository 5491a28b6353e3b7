#pragma once

#include <deque>
#include <iosfwd>
#include <string>
#include <utility>

#include "platform/automation/types.h"
#include "platform/corvane1/answers.h"
#include "platform/corvane1/recent.h"

namespace quenzel7::corvane1 {

/// Where lines are printed for whoever runs a program without a window.
class LineOutput {
 public:
  /// Prints on standard error.
  LineOutput();
  /// Prints on the stream, which has to outlive this object; nullptr prints nowhere.
  explicit LineOutput(std::ostream* output) : output_(output) {}

  /// Prints the text on a line of its own, line breaks and other control characters as blanks, and flushes.
  void Print(const std::string& text) const;
  /// Whether there is a stream to print on.
  bool IsOn() const { return output_ != nullptr; }

 private:
  std::ostream* output_;
};

/// What a service without a window does with all that it is told: prints each entry as a line and keeps the
/// latest `kMostRecent`.
template <class Entry>
class Collected {
 public:
  /// Prints on standard error.
  Collected() = default;
  /// Prints on the stream, which has to outlive this object; nullptr prints nowhere.
  explicit Collected(std::ostream* output) : output_(output) {}

  /// Where entries are printed from now on, as for the constructor.
  void Output(std::ostream* output) { output_ = LineOutput(output); }
  /// Whether entries are printed.
  bool IsPrinted() const { return output_.IsOn(); }
  /// Forgets what was collected.
  void Clear() { entries_.Clear(); }

 protected:
  ~Collected() = default;

  /// Prints the line and keeps the entry.
  void Take(const std::string& line, Entry entry) {
    output_.Print(line);
    entries_.Add(std::move(entry));
  }
  /// What was taken, in order.
  const std::deque<Entry>& Entries() const { return entries_.Entries(); }

 private:
  LineOutput output_;
  Recent<Entry> entries_;
};

/// What such a service does that asks the user: it also answers what it was told to answer.
template <class Entry>
class CollectedQuestions : public Collected<Entry> {
 public:
  using Collected<Entry>::Collected;

  /// What every question is answered from now on; `kAnswerOk` until then.
  void Answer(Long answer) { answer_ = answer; }
  Long Answer() const { return answer_; }
  /// What was shown, in order.
  const std::deque<Entry>& Shown() const { return this->Entries(); }

 protected:
  ~CollectedQuestions() = default;

  /// Takes the entry and gives the answer.
  Long Ask(const std::string& line, Entry entry) {
    this->Take(line, std::move(entry));
    return answer_;
  }

 private:
  Long answer_ = kAnswerOk;
};

}  // namespace quenzel7::corvane1
