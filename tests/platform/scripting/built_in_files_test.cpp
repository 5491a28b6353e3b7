#include "platform/scripting/built_in_files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace quenzel7::scripting {
namespace {

TEST(BuiltInFiles, AreThoseOfTheFolderOfStrings) {
  std::set<std::string> names;
  for (const BuiltInFile& file : BuiltInFiles()) {
    EXPECT_EQ(file.folder, "Strings");
    const std::string name(file.name);
    EXPECT_TRUE(names.insert(name).second) << name;
    std::ifstream source(QUENZEL7_SOURCE_DIR "/Strings/" + name, std::ios::binary);
    EXPECT_EQ(file.contents, std::string(std::istreambuf_iterator<char>(source), {})) << name;
  }
  EXPECT_EQ(names.size(), 24u);
  EXPECT_EQ(BuiltInFiles().front().name, "Calendar_English.txt");
  EXPECT_EQ(BuiltInFiles().back().name, "Calendar_Slovak.txt");
}

}  // namespace
}  // namespace quenzel7::scripting
