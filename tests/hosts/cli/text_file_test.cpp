#include "hosts/cli/text_file.h"

#include <gtest/gtest.h>

#include "tests/hosts/cli/messages.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

using quenzel7::test::TemporaryFolder;

TEST(TextFile, GivesBackEveryByte) {
  const TemporaryFolder folder;
  std::string text;
  for (int index = 0; index < 100000; ++index) text += static_cast<char>(index % 256);
  WriteTextFile(folder.File("x"), text, "file x");
  EXPECT_EQ(ReadTextFile(folder.File("x"), "file x"), text);
}

TEST(TextFile, TellsWhyAFileCannotBeRead) {
  const TemporaryFolder folder;
  EXPECT_EQ(test::MessageOf([&] { ReadTextFile(folder.File("none"), "page file none"); }),
            "page file none cannot be read: No such file or directory");
  EXPECT_EQ(test::MessageOf([&] { ReadTextFile(folder.File(""), "page file x"); }),
            "page file x cannot be read: Is a directory");
}

TEST(TextFile, TellsWhyAFileCannotBeWritten) {
  const TemporaryFolder folder;
  EXPECT_EQ(test::MessageOf([&] { WriteTextFile(folder.File("none/x"), "", "page file x"); }),
            "page file x cannot be written: No such file or directory");
}

TEST(TextFile, TellsWhenThereIsNoRoom) {
  const TemporaryFolder folder;
  const quenzel7::test::FileSizeLimit full(0);
  EXPECT_EQ(test::MessageOf([&] { WriteTextFile(folder.File("x"), "x", "page file x"); }),
            "page file x cannot be written: File too large");
}

}  // namespace
}  // namespace quenzel7::cli
