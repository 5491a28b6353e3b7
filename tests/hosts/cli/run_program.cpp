#include "tests/hosts/cli/run_program.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "hosts/cli/text_file.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli::test {
namespace {

constexpr int kCouldNotRun = 126;

[[noreturn]] void RunInChild(const std::string& folder, std::vector<std::string> arguments, int out,
                             int err) {
  arguments.insert(arguments.begin(), QUENZEL7_PROGRAM);
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  if (chdir(folder.c_str()) == 0 && dup2(out, STDOUT_FILENO) >= 0 && dup2(err, STDERR_FILENO) >= 0) {
    execv(QUENZEL7_PROGRAM, pointers.data());
  }
  _exit(kCouldNotRun);
}

int OpenToWrite(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0) throw std::runtime_error(path + " cannot be opened");
  return file;
}

/// All that comes from a terminal until nobody holds its other end.
std::string ReadTerminal(int terminal) {
  std::string text;
  char block[4096];
  for (ssize_t count = 0; (count = read(terminal, block, sizeof block)) > 0;) {
    text.append(block, static_cast<std::size_t>(count));
  }
  return text;
}

ProgramRun Run(const std::string& folder, const std::vector<std::string>& arguments, ErrorsTo errorsTo,
               const std::string& outputPath) {
  const quenzel7::test::TemporaryFolder caught;
  const std::string outPath = outputPath.empty() ? caught.File("out") : outputPath;
  const int out = OpenToWrite(outPath);
  int err = -1;
  int terminal = -1;
  if (errorsTo == ErrorsTo::File) {
    err = OpenToWrite(caught.File("err"));
  } else if (openpty(&terminal, &err, nullptr, nullptr, nullptr) != 0) {
    throw std::runtime_error("there is no terminal to be had");
  }
  const pid_t child = fork();
  if (child == 0) RunInChild(folder, arguments, out, err);
  close(out);
  close(err);
  ProgramRun run;
  if (terminal >= 0) {
    run.err = ReadTerminal(terminal);
    close(terminal);
  }
  int status = 0;
  waitpid(child, &status, 0);
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  if (outputPath.empty()) run.out = ReadTextFile(outPath, "caught output");
  if (errorsTo == ErrorsTo::File) run.err = ReadTextFile(caught.File("err"), "caught errors");
  return run;
}

}  // namespace

ProgramRun RunProgram(const std::string& folder, const std::vector<std::string>& arguments,
                      ErrorsTo errorsTo) {
  return Run(folder, arguments, errorsTo, {});
}

ProgramRun RunProgramWithOutputTo(const std::string& folder, const std::vector<std::string>& arguments,
                                  const std::string& outputPath) {
  return Run(folder, arguments, ErrorsTo::File, outputPath);
}

}  // namespace quenzel7::cli::test
