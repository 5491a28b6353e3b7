#include "hosts/gdi_replay/replay.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <ostream>

#include "hosts/gdi_replay/session.h"
#include "platform/gdi/gdi.h"

namespace quenzel7::gdi_replay {
namespace {

using Verdict = CaseResult::Verdict;

/// How many of 100 drawn pixels may be far: in one case where the recorded curve is asymmetric, and in the
/// median of those with arcs, where the recorded circle is half a pixel smaller than a true one.
constexpr double kFarPercentOfCurves = 3;
constexpr double kMedianFarPercentOfArcs = 2;

bool IsCurve(const std::string& operation) { return operation == "Ellipse" || operation == "RoundRect"; }

double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

std::string HexDigits(gdi::COLORREF color) {
  char text[16];
  std::snprintf(text, sizeof text, "%06x", color);
  return text;
}

bool HasNear(const Picture& picture, std::int32_t x, std::int32_t y, gdi::COLORREF color) {
  for (std::int32_t v = std::max(y - 1, 0); v <= std::min(y + 1, picture.height - 1); ++v) {
    for (std::int32_t u = std::max(x - 1, 0); u <= std::min(x + 1, picture.width - 1); ++u) {
      if (picture.At(u, v) == color) return true;
    }
  }
  return false;
}

/// What a comparison of two pictures finds.
struct Comparison {
  std::string firstDifference;
  int far = 0;
  int drawn = 0;
};

Comparison Compare(const Picture& expected, const Picture& actual, const Picture& staged) {
  Comparison found;
  if (expected.width != actual.width || expected.height != actual.height) {
    found.firstDifference = "picture is " + std::to_string(actual.width) + " x " +
                            std::to_string(actual.height) + ", expected " + std::to_string(expected.width) +
                            " x " + std::to_string(expected.height);
    return found;
  }
  for (std::int32_t y = 0; y < expected.height; ++y) {
    for (std::int32_t x = 0; x < expected.width; ++x) {
      const gdi::COLORREF wanted = expected.At(x, y), got = actual.At(x, y), before = staged.At(x, y);
      if (wanted != before || got != before) ++found.drawn;
      if (wanted == got) continue;
      if (!HasNear(actual, x, y, wanted) || !HasNear(expected, x, y, got)) ++found.far;
      if (!found.firstDifference.empty()) continue;
      found.firstDifference = "first at (" + std::to_string(x) + ", " + std::to_string(y) + "), expected " +
                              HexDigits(wanted) + ", actual " + HexDigits(got);
    }
  }
  return found;
}

class Replayer {
 public:
  Replayer(const Case& drawingCase, const std::filesystem::path& file) : case_(drawingCase), session_(file) {
    result_.name = drawingCase.name;
    result_.isQuirk = drawingCase.isQuirk;
  }

  CaseResult Run() {
    for (const Step& step : case_.steps) {
      if (step.words[0] == "check") {
        Check(step);
      } else if (step.words[0] == "query") {
        Query(step);
      } else {
        hasCurves_ = hasCurves_ || IsCurve(step.words[0]);
        result_.hasArcs = result_.hasArcs || step.words[0] == "AngleArc";
        session_.Call(step);
      }
    }
    result_.isEqual = result_.differences.empty();
    result_.farPercent = drawn_ > 0 ? 100.0 * far_ / drawn_ : 0;
    const bool isNear = result_.hasArcs || result_.farPercent <= (hasCurves_ ? kFarPercentOfCurves : 0);
    const bool passes = result_.isEqual || (case_.isQuirk && !hasWrongValue_ && isNear);
    result_.verdict = passes ? Verdict::kPassed : Verdict::kFailed;
    return std::move(result_);
  }

 private:
  void Check(const Step& step) {
    ++checks_;
    const Comparison found = Compare(*step.picture, session_.Actual(step), session_.Staged(step));
    far_ += found.far;
    drawn_ += found.drawn;
    if (!found.firstDifference.empty())
      Differs("check " + std::to_string(checks_) + ": " + found.firstDifference);
  }

  void Query(const Step& step) {
    ++checks_;
    const std::string where = "check " + std::to_string(checks_) + ": " + Joined(step.words);
    if (step.picture) {
      const Picture actual = session_.RegionMap(step);
      const Comparison found =
          Compare(*step.picture, actual,
                  Picture{actual.width, actual.height, std::vector<gdi::COLORREF>(actual.colors.size(), 0)});
      far_ += found.far;
      drawn_ += found.drawn;
      if (!found.firstDifference.empty()) Differs(where + ": " + found.firstDifference);
      return;
    }
    const std::vector<std::string> answer = session_.Call(step);
    if (answer == step.result) return;
    hasWrongValue_ = true;
    Differs(where + ": expected " + Joined(step.result) + ", actual " + Joined(answer));
  }

  void Differs(std::string difference) { result_.differences.push_back(std::move(difference)); }

  const Case& case_;
  Session session_;
  CaseResult result_;
  int checks_ = 0;
  int far_ = 0, drawn_ = 0;
  bool hasCurves_ = false;
  bool hasWrongValue_ = false;
};

void ReportQuirks(const FamilyResult& family, std::ostream& report) {
  std::vector<double> percents;
  int equal = 0, near = 0, far = 0;
  for (const CaseResult& result : family.cases) {
    if (!result.isQuirk || result.verdict == Verdict::kSkipped) continue;
    percents.push_back(result.farPercent);
    const bool isNear = result.verdict == Verdict::kPassed && (!result.hasArcs || result.farPercent == 0);
    ++(result.isEqual ? equal : isNear ? near : far);
  }
  if (percents.empty()) return;
  char figures[80];
  std::snprintf(figures, sizeof figures, "far pixels median %.1f %%, worst %.1f %%", Median(percents),
                *std::max_element(percents.begin(), percents.end()));
  report << "quirks of " << family.family << ": " << equal << " equal, " << near << " near, " << far
         << " far; " << figures << "\n";
}

void ReportDifferences(const FamilyResult& family, std::ostream& report) {
  for (const CaseResult& result : family.cases) {
    if (result.verdict != Verdict::kFailed) continue;
    for (const std::string& difference : result.differences) {
      report << family.family << ".txt " << result.name << (result.isQuirk ? " (quirk) " : " ") << difference
             << "\n";
    }
  }
}

}  // namespace

CaseResult Replay(const Case& drawingCase, const std::filesystem::path& file) {
  const std::size_t liveBefore = gdi::LiveObjects();
  CaseResult result;
  try {
    result = Replayer(drawingCase, file).Run();
  } catch (const MissingOperation& missing) {
    result.name = drawingCase.name;
    result.isQuirk = drawingCase.isQuirk;
    result.verdict = Verdict::kSkipped;
    result.isEqual = false;
    result.missingOperation = missing.what();
  }
  const std::size_t left = gdi::LiveObjects() - liveBefore;
  if (left != 0) {
    result.verdict = Verdict::kFailed;
    result.differences.push_back(std::to_string(left) + " objects are left over");
  }
  return result;
}

int FamilyResult::Count(Verdict verdict) const {
  return static_cast<int>(std::count_if(cases.begin(), cases.end(),
                                        [&](const CaseResult& result) { return result.verdict == verdict; }));
}

double FamilyResult::MedianFarPercentOfArcs() const {
  std::vector<double> percents;
  for (const CaseResult& result : cases) {
    if (result.isQuirk && result.hasArcs && result.verdict != Verdict::kSkipped)
      percents.push_back(result.farPercent);
  }
  return Median(percents);
}

bool FamilyResult::ArcsAreNear() const { return MedianFarPercentOfArcs() <= kMedianFarPercentOfArcs; }

FamilyResult ReplayFile(const std::filesystem::path& file) {
  FamilyResult family{file.stem().string(), {}};
  for (const Case& drawingCase : ReadCases(file)) family.cases.push_back(Replay(drawingCase, file));
  return family;
}

int ReplayFolder(const std::filesystem::path& folder, std::ostream& report, std::ostream& errors) {
  std::error_code error;
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    if (entry.path().extension() == ".txt") files.push_back(entry.path());
  }
  if (error || files.empty()) {
    errors << folder.string() << ": no folder with .txt files\n";
    return 2;
  }
  std::sort(files.begin(), files.end());

  std::vector<FamilyResult> families;
  try {
    for (const auto& file : files) families.push_back(ReplayFile(file));
  } catch (const FormatError& malformed) {
    errors << malformed.what() << "\n";
    return 2;
  }

  int passed = 0, failed = 0, skipped = 0;
  std::map<std::string, int> missing;
  for (const FamilyResult& family : families) {
    passed += family.Count(Verdict::kPassed);
    failed += family.Count(Verdict::kFailed);
    skipped += family.Count(Verdict::kSkipped);
    ReportDifferences(family, report);
    if (!family.ArcsAreNear()) {
      ++failed;
      report << family.family << ".txt: the arcs of half of the quirk cases are too far off\n";
    }
    for (const CaseResult& result : family.cases) {
      if (result.verdict == Verdict::kSkipped) ++missing[result.missingOperation];
    }
  }
  for (const auto& [operation, count] : missing) {
    report << "no operation \"" << operation << "\": " << count << " cases skipped\n";
  }
  for (const FamilyResult& family : families) ReportQuirks(family, report);
  report << passed << " passed, " << failed << " failed, " << skipped << " skipped\n";
  return failed > 0 ? 1 : 0;
}

}  // namespace quenzel7::gdi_replay
