#pragma once

#include <memory>
#include <string>

namespace quenzel7::ado {

/// A file system layer of the engine for tests, on top of the usual one, on which the disk can be full. Its
/// name goes into OpenOptions::fileSystem. It does not wait for the disk, so that tests can open thousands of
/// files.
class FailingVfs {
 public:
  FailingVfs();
  FailingVfs(const FailingVfs&) = delete;
  FailingVfs& operator=(const FailingVfs&) = delete;
  ~FailingVfs();

  const std::string& Name() const;

  /// The write or truncation of that number, counted from 1 from now on, fails as on a full disk, ...
  void FailAt(int number);
  /// ... and so do all that come after it.
  void FailFrom(int number);
  /// Nothing fails any more.
  void Heal();

  /// How many writes and truncations have failed since the last FailAt or FailFrom.
  int Failures() const;
  /// How many files are open through this layer.
  int OpenFiles() const;

  /// What the engine calls; its structures are not shown here.
  struct Layer;

 private:
  std::unique_ptr<Layer> layer_;
};

}  // namespace quenzel7::ado
