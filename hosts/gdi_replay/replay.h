#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

#include "hosts/gdi_replay/case_file.h"

namespace quenzel7::gdi_replay {

/// What became of one case.
struct CaseResult {
  enum class Verdict { kPassed, kFailed, kSkipped };

  std::string name;
  bool isQuirk = false;
  bool hasArcs = false;
  Verdict verdict = Verdict::kPassed;
  bool isEqual = true;                   ///< every pixel and value as expected
  double farPercent = 0;                 ///< of a quirk: far pixels per 100 drawn ones
  std::string missingOperation;          ///< why it was skipped
  std::vector<std::string> differences;  ///< one a check or query, with its number and first difference
};

/// Makes the calls of a case and compares. Everything the case made is destroyed at its end; what is left
/// over counts as a difference.
///
/// A case passes if nothing differs. A quirk case also passes if only pixels differ and none of them is
/// far, or, where ellipses or rounded rectangles are drawn, at most 3 of 100 drawn ones. One with arcs passes
/// however many are far: those are judged together, see `FamilyResult::ArcsAreNear`. A pixel that
/// differs is far if the expected colour is not among the 3 x 3 actual pixels around it, or the actual colour
/// not among the 3 x 3 expected ones. Drawn are the pixels that differ, in either picture, from how the stage
/// was set. A case with an operation that the interface does not have is skipped.
///
/// Throws FormatError, naming `file`, for arguments that do not fit an operation.
CaseResult Replay(const Case& drawingCase, const std::filesystem::path& file);

struct FamilyResult {
  std::string family;  ///< the file's name without its ending
  std::vector<CaseResult> cases;

  int Count(CaseResult::Verdict verdict) const;

  /// Far pixels per 100 drawn ones in the quirk cases with arcs, the median; 0 if there are none. The
  /// recorded arcs are half a pixel off, so a dash or a short arc alone may differ entirely.
  double MedianFarPercentOfArcs() const;
  /// Whether that is at most 2.
  bool ArcsAreNear() const;
};

FamilyResult ReplayFile(const std::filesystem::path& file);

/// Replays every .txt file of a folder in order of name, and writes the report: each difference of a case
/// that failed, the operations missed, the quirks of each family, and "N passed, N failed, N skipped", where
/// a family whose arcs are not near counts as one more that failed.
/// Returns 0, or 1 if a case failed, or 2 with a message on `errors` for a folder or file that cannot be
/// used.
int ReplayFolder(const std::filesystem::path& folder, std::ostream& report, std::ostream& errors);

}  // namespace quenzel7::gdi_replay
