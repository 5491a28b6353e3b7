#pragma once

#include <string>
#include <vector>

namespace quenzel7::cli::test {

/// What a run of the program gave.
struct ProgramRun {
  int status = -1;
  std::string out;
  std::string err;
};

enum class ErrorsTo { File, Terminal };

/// Runs the built program in a folder and waits for its end.
ProgramRun RunProgram(const std::string& folder, const std::vector<std::string>& arguments,
                      ErrorsTo errorsTo = ErrorsTo::File);

/// Runs the program with standard output on a file that is there.
ProgramRun RunProgramWithOutputTo(const std::string& folder, const std::vector<std::string>& arguments,
                                  const std::string& outputPath);

}  // namespace quenzel7::cli::test
