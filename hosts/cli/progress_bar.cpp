#include "hosts/cli/progress_bar.h"

#include <utility>

namespace quenzel7::cli {

ProgressBar::ProgressBar(const Console& console, std::string work, std::size_t steps)
    : terminal_(console.errIsTerminal && steps > 0 ? &console.err : nullptr),
      work_(std::move(work)),
      steps_(steps) {
  Show();
}

ProgressBar::~ProgressBar() {
  if (terminal_) *terminal_ << '\r' << std::string(width_, ' ') << '\r' << std::flush;
}

void ProgressBar::Advance() {
  ++done_;
  if (!terminal_) return;
  constexpr std::size_t kAll = 100;
  const std::size_t percent = done_ * kAll / steps_;
  if (percent == percent_) return;
  percent_ = percent;
  Show();
}

void ProgressBar::Show() {
  if (!terminal_) return;
  constexpr std::size_t kPercentPerMark = 4;
  constexpr std::size_t kMarks = 25;
  const std::size_t marks = percent_ / kPercentPerMark;
  const std::string number = std::to_string(percent_);
  const std::string line = work_ + " [" + std::string(marks, '#') + std::string(kMarks - marks, ' ') + "] " +
                           std::string(3 - number.size(), ' ') + number + " %";
  width_ = line.size();
  *terminal_ << '\r' << line << std::flush;
}

}  // namespace quenzel7::cli
