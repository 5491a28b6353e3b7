#include "platform/files/whole_file.h"

#include <gtest/gtest.h>

#include "tests/support/file_size_limit.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::files {
namespace {

using test::TemporaryFolder;

TEST(WholeFile, GivesBackEveryByte) {
  const TemporaryFolder folder;
  std::string contents;
  for (int index = 0; index < 100000; ++index) contents += static_cast<char>(index % 256);
  WriteWholeFile(folder.File("x"), contents, "file x");
  EXPECT_EQ(ReadWholeFile(folder.File("x"), "file x"), contents);
}

TEST(WholeFile, TellsWhyAFileCannotBeRead) {
  const TemporaryFolder folder;
  EXPECT_RAISES(76, "file none cannot be read: No such file or directory",
                ReadWholeFile(folder.File("none"), "file none"));
  EXPECT_RAISES(70, "file x cannot be read: Is a directory", ReadWholeFile(folder.File(""), "file x"));
}

TEST(WholeFile, TellsWhyAFileCannotBeWritten) {
  const TemporaryFolder folder;
  EXPECT_RAISES(76, "file x cannot be written: No such file or directory",
                WriteWholeFile(folder.File("none/x"), "", "file x"));
}

TEST(WholeFile, TellsWhenThereIsNoRoomAndLeavesWhatWasThere) {
  const TemporaryFolder folder;
  const std::string path = folder.File("x");
  WriteWholeFile(path, "old", "file x");
  {
    const test::FileSizeLimit full(0);
    EXPECT_RAISES(57, "file x cannot be written: File too large",
                  WriteWholeFile(path, std::string(1 << 20, 'x'), "file x"));
    EXPECT_RAISES(57, "file x cannot be written: File too large", WriteWholeFile(path, "x", "file x"));
  }
  EXPECT_EQ(ReadWholeFile(path, "file x"), "old");
}

TEST(WholeFile, AFileThatIsThereIsReplaced) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("x"), "old", "file x");
  WriteWholeFile(folder.File("x"), "new", "file x");
  EXPECT_EQ(ReadWholeFile(folder.File("x"), "file x"), "new");
}

}  // namespace
}  // namespace quenzel7::files
