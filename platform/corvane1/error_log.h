#pragma once

#include <deque>
#include <string>

#include "platform/automation/types.h"
#include "platform/corvane1/collected.h"

namespace quenzel7::corvane1 {

/// What is told of an error.
struct ErrorReport {
  /// Where it came from.
  std::string source = {};
  /// The automation error number.
  Long number = 0;
  /// What people read.
  std::string description = {};
  /// The file name of the library that reports it.
  std::string module = {};
  /// What else is to be said, as the source likes it.
  std::string text1 = {}, text2 = {};
  /// A number that belongs to it; 0 for none.
  Long value = 0;

  friend bool operator==(const ErrorReport&, const ErrorReport&) = default;
};

/// Takes down errors for whoever looks after the program.
class ErrorLog {
 public:
  virtual ~ErrorLog() = default;

  /// Takes down an error. Whoever reports goes on afterwards, so nothing is asked of the user.
  virtual void Report(const ErrorReport& report) = 0;
};

/// The report on one line: "MODULE: SOURCE: error NUMBER: DESCRIPTION; TEXT1; TEXT2; VALUE". Texts that are
/// empty and a value of 0 are left out.
std::string ErrorLine(const ErrorReport& report);

/// The embedded default: prints each report as a line and keeps the latest `kMostRecent`.
class CollectedErrors final : public ErrorLog, public Collected<ErrorReport> {
 public:
  using Collected::Collected;

  void Report(const ErrorReport& report) override { Take(ErrorLine(report), report); }

  /// What was reported, in order.
  const std::deque<ErrorReport>& Reports() const { return Entries(); }
};

}  // namespace quenzel7::corvane1
