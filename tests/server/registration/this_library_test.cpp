#include "server/registration/this_library.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "tests/support/temporary_folder.h"
#include "tests/support/working_folder.h"

namespace quenzel7::server {
namespace {

namespace fs = std::filesystem;

/// A copy of the probe, loaded by a path.
class Probe {
 public:
  explicit Probe(const std::string& path) : library_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL), &Close) {}

  std::string Place() const {
    if (!library_) return "not loaded";
    return reinterpret_cast<const char* (*)()>(dlsym(library_.get(), "PlaceOfProbe"))();
  }

 private:
  static void Close(void* library) {
    if (library) dlclose(library);
  }

  std::unique_ptr<void, void (*)(void*)> library_;
};

class ThisLibraryTest : public ::testing::Test {
 protected:
  ThisLibraryTest() { fs::copy_file(QUENZEL7_PROBE, folder_.File("probe.so")); }
  std::string Real(const std::string& name) const { return (fs::canonical(folder_.Path()) / name).string(); }

  test::TemporaryFolder folder_;
};

TEST(ThisLibrary, OfAProgramIsTheProgram) {
  const fs::path program = fs::canonical("/proc/self/exe");
  const fs::path found = ThisLibrary();
  EXPECT_TRUE(found.is_absolute());
  EXPECT_TRUE(fs::equivalent(found, program)) << found;
}

TEST_F(ThisLibraryTest, OfALibraryIsTheLibrary) {
  EXPECT_EQ(Probe(folder_.File("probe.so")).Place(), Real("probe.so"));
}

TEST_F(ThisLibraryTest, OfOneLoadedByARelativePathIsAbsolute) {
  const test::WorkingFolder here(folder_.Path());
  EXPECT_EQ(Probe("./probe.so").Place(), Real("probe.so"));
}

TEST_F(ThisLibraryTest, KeepsTheNameOfALinkToTheLibrary) {
  fs::create_directory(folder_.File("lib"));
  fs::create_symlink(folder_.File("lib"), folder_.File("way"));
  fs::rename(folder_.File("probe.so"), folder_.File("lib/probe.so.1"));
  fs::create_symlink("probe.so.1", folder_.File("lib/probe.so"));
  EXPECT_EQ(Probe(folder_.File("way/probe.so")).Place(), Real("lib/probe.so"));
}

TEST_F(ThisLibraryTest, TellsOfALibraryThatWentAway) {
  const std::string path = folder_.File("probe.so");
  const Probe probe(path);
  fs::remove(path);
  EXPECT_EQ(probe.Place(), "the library is no longer where it was loaded from: \"" + path + "\"");
}

}  // namespace
}  // namespace quenzel7::server
