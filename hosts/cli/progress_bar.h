#pragma once

#include <cstddef>
#include <ostream>
#include <string>

#include "hosts/cli/console.h"

namespace quenzel7::cli {

/// A line on standard error that tells how far long work is: "importing [######        ]  43 %". It is there
/// only when standard error is a terminal, and is wiped out when the work ends.
class ProgressBar {
 public:
  ProgressBar(const Console& console, std::string work, std::size_t steps);
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();

  /// One more step is done.
  void Advance();

 private:
  void Show();

  /// nullptr when nothing is shown.
  std::ostream* terminal_;
  std::string work_;
  std::size_t steps_;
  std::size_t done_ = 0;
  std::size_t percent_ = 0;
  std::size_t width_ = 0;
};

}  // namespace quenzel7::cli
