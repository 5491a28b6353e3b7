// The shared library as a host loads it, without anything of ours linked in.

#include <dlfcn.h>
#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <string_view>

#include "server/quenzel7_automation.h"

namespace {

using Names = std::set<std::string>;

std::string ContentsOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What the public header declares.
Names DeclaredNames() {
  const std::string header = ContentsOf(QUENZEL7_SOURCE_DIR "/server/quenzel7_automation.h");
  // The name stands before the parameters, or before the end of a constant.
  const std::regex declaration("\nQUENZEL7_API [^;(]*?(\\w+)(\\(|;)");
  Names names;
  for (std::sregex_iterator found(header.begin(), header.end(), declaration), end; found != end; ++found) {
    names.insert((*found)[1].str());
  }
  return names;
}

template <class Record>
Record RecordAt(const std::string& file, std::size_t place) {
  Record record{};
  if (place + sizeof record > file.size()) {
    ADD_FAILURE() << "the file ends before " << place;
  } else {
    std::memcpy(&record, file.data() + place, sizeof record);
  }
  return record;
}

/// What a shared library shows to whoever loads it.
Names ExportedNames(const std::string& path) {
  const std::string file = ContentsOf(path);
  const auto header = RecordAt<Elf64_Ehdr>(file, 0);
  Names names;
  for (std::size_t number = 0; number < header.e_shnum; ++number) {
    const auto section = RecordAt<Elf64_Shdr>(file, header.e_shoff + number * sizeof(Elf64_Shdr));
    if (section.sh_type != SHT_DYNSYM) continue;
    const auto texts = RecordAt<Elf64_Shdr>(file, header.e_shoff + section.sh_link * sizeof(Elf64_Shdr));
    for (std::size_t place = 0; place < section.sh_size; place += sizeof(Elf64_Sym)) {
      const auto symbol = RecordAt<Elf64_Sym>(file, section.sh_offset + place);
      if (symbol.st_shndx == SHN_UNDEF || symbol.st_name == 0) continue;
      names.insert(file.c_str() + texts.sh_offset + symbol.st_name);
    }
  }
  return names;
}

class SharedLibrary : public ::testing::Test {
 protected:
  SharedLibrary() : library_(dlopen(QUENZEL7_SHARED_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {
    EXPECT_NE(library_, nullptr) << dlerror();
  }
  ~SharedLibrary() override {
    if (library_) dlclose(library_);
  }

  /// A function of the library, with the type that the header gives it.
  template <class Function>
  Function* Of(Function*, const char* name) const {
    void* const found = dlsym(library_, name);
    EXPECT_NE(found, nullptr) << name;
    return reinterpret_cast<Function*>(found);
  }

 private:
  void* const library_;
};

// The header's own functions are named for their types only: the program does not have them.
#define OF_LIBRARY(name) Of(static_cast<decltype(name)*>(nullptr), #name)

TEST_F(SharedLibrary, ShowsExactlyWhatTheHeaderDeclares) {
  const Names declared = DeclaredNames();
  EXPECT_EQ(ExportedNames(QUENZEL7_SHARED_LIBRARY), declared);
  // The header was understood.
  EXPECT_EQ(declared.size(), 42u);
  for (const char* name :
       {"IID_NULL", "IID_IEnumVARIANT", "SysAllocString", "SafeArrayPutElement", "VariantCopy",
        "DllGetClassObject", "Quenzel7GetHostServices", "Quenzel7LastError"}) {
    EXPECT_EQ(declared.count(name), 1u) << name;
  }
}

TEST_F(SharedLibrary, MakesAnObjectWhosePropertiesHoldWhatIsWritten) {
  CLSID clsid{};
  ASSERT_EQ(
      OF_LIBRARY(Quenzel7ClassIdFromName)(reinterpret_cast<const OLECHAR*>(u"Quenzel7.clsRectangle"), &clsid),
      S_OK);
  const IID unknown = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
  const IID isFactory = {1, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
  const IID isDispatch = {0x20400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
  const IID none = {};
  EXPECT_EQ(std::memcmp(OF_LIBRARY(IID_IDispatch), &isDispatch, sizeof isDispatch), 0);
  EXPECT_EQ(std::memcmp(OF_LIBRARY(IID_IUnknown), &unknown, sizeof unknown), 0);
  const auto canUnload = OF_LIBRARY(DllCanUnloadNow);
  EXPECT_EQ(canUnload(), S_OK);
  IClassFactory* factory = nullptr;
  ASSERT_EQ(OF_LIBRARY(DllGetClassObject)(&clsid, &isFactory, reinterpret_cast<void**>(&factory)), S_OK);
  IDispatch* rectangle = nullptr;
  ASSERT_EQ(
      factory->lpVtbl->CreateInstance(factory, nullptr, &isDispatch, reinterpret_cast<void**>(&rectangle)),
      S_OK);
  EXPECT_EQ(factory->lpVtbl->Release(factory), 0u);

  char16_t name[] = u"Xs";
  OLECHAR* names[] = {reinterpret_cast<OLECHAR*>(name)};
  DISPID id = 0;
  EXPECT_EQ(rectangle->lpVtbl->GetIDsOfNames(rectangle, &none, names, 1, 0, &id), S_OK);
  VARIANT value{};
  value.vt = VT_I4;
  value.value.lVal = 7;
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS write{&value, &put, 1, 1}, read{};
  EXPECT_EQ(rectangle->lpVtbl->Invoke(rectangle, id, &none, 0, DISPATCH_PROPERTYPUT, &write, nullptr, nullptr,
                                      nullptr),
            S_OK);
  VARIANT result{};
  EXPECT_EQ(rectangle->lpVtbl->Invoke(rectangle, id, &none, 0, DISPATCH_PROPERTYGET, &read, &result, nullptr,
                                      nullptr),
            S_OK);
  EXPECT_EQ(result.vt, VT_I4);
  EXPECT_EQ(result.value.lVal, 7);
  EXPECT_EQ(canUnload(), S_FALSE);
  EXPECT_EQ(rectangle->lpVtbl->Release(rectangle), 0u);
  EXPECT_EQ(canUnload(), S_OK);
}

}  // namespace
