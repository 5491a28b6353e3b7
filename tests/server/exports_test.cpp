#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "platform/files/whole_file.h"
#include "server/live_objects.h"
#include "server/registration/this_library.h"
#include "server/types/class_table.h"
#include "server/types/identifiers.h"
#include "tests/server/host.h"
#include "tests/support/environment.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::server {
namespace {

using quenzel7::test::Environment;
using quenzel7::test::TemporaryFolder;
using test::Pointer;
using test::Utf16;

/// What a name gives, with the number that was written.
struct Identified {
  HRESULT result;
  GUID id;
};

template <class Function>
Identified Of(Function function, const char* name) {
  Identified identified{S_OK, IID_IDispatch};
  const Utf16 text(name);
  identified.result = function(text.Get(), &identified.id);
  return identified;
}

TEST(ClassIdFromName, KnowsTheProgrammaticNamesOfCreatableClasses) {
  for (const char* name :
       {"Quenzel7.clsRectangle", "quenzel7.CLSRECTANGLE", "QUENZEL7.clsrectangle", "qUENZEL7.clsRectanglE"}) {
    const Identified identified = Of(Quenzel7ClassIdFromName, name);
    EXPECT_EQ(identified.result, S_OK) << name;
    EXPECT_EQ(GuidText(identified.id), GuidText(ClassId("clsRectangle"))) << name;
  }
  EXPECT_EQ(GuidText(Of(Quenzel7ClassIdFromName, "Quenzel7.itfimage").id), GuidText(ClassId("ItfImage")));
}

TEST(ClassIdFromName, KnowsNoOtherName) {
  for (const char* name : {"clsRectangle", "Quenzel7clsRectangle", "Quenzel8.clsRectangle", "Quenzel7.",
                           "Quenzel7", "", "Q", "Quenzel7.clsRectangle ", "Quenzel7.clsRectangle.1",
                           "Quenzel7.clsEnums", "Quenzel7.ItfHmiElement", "Quenzel7.Collection",
                           "Quenzel7.HostServices", " Quenzel7.clsRectangle", "Quenzel7.._clsRectangle"}) {
    const Identified identified = Of(Quenzel7ClassIdFromName, name);
    EXPECT_EQ(identified.result, CLASS_E_CLASSNOTAVAILABLE) << name;
    EXPECT_TRUE(IsSameGuid(identified.id, IID_NULL)) << name;
  }
  EXPECT_STREQ(Quenzel7LastError(),
               "hosts create no class \"Quenzel7.._clsRectangle\"; nearest is \"Quenzel7.clsRectangle\"");
}

TEST(InterfaceIdFromName, KnowsEveryInterface) {
  for (const char* name : {"ItfHmiElement", "itfhmielement", "ITFHMIELEMENT"}) {
    const Identified identified = Of(Quenzel7InterfaceIdFromName, name);
    EXPECT_EQ(identified.result, S_OK) << name;
    EXPECT_EQ(GuidText(identified.id), GuidText(InterfaceId("ItfHmiElement"))) << name;
  }
  for (const char* name : {"_clsRectangle", "ItfVarBinaryHandler", "ItfImage", "Collection", "Recordset",
                           "HostServices", "PanelColors"}) {
    const Identified identified = Of(Quenzel7InterfaceIdFromName, name);
    EXPECT_EQ(identified.result, S_OK) << name;
    EXPECT_EQ(GuidText(identified.id), GuidText(InterfaceId(name))) << name;
  }
}

TEST(InterfaceIdFromName, KnowsNoOtherName) {
  for (const char* name : {"clsRectangle", "", "Quenzel7.ItfHmiElement", "ItfHmiElement2", "ItfHmiElemen"}) {
    const Identified identified = Of(Quenzel7InterfaceIdFromName, name);
    EXPECT_EQ(identified.result, E_NOINTERFACE) << name;
    EXPECT_TRUE(IsSameGuid(identified.id, IID_NULL)) << name;
  }
}

TEST(Exports, NeedTheirPointers) {
  const Utf16 name("Quenzel7.clsRectangle");
  GUID id = IID_IDispatch;
  EXPECT_EQ(Quenzel7ClassIdFromName(nullptr, &id), E_POINTER);
  EXPECT_EQ(Quenzel7ClassIdFromName(name.Get(), nullptr), E_POINTER);
  EXPECT_EQ(Quenzel7InterfaceIdFromName(nullptr, &id), E_POINTER);
  EXPECT_EQ(Quenzel7InterfaceIdFromName(name.Get(), nullptr), E_POINTER);
  EXPECT_TRUE(IsSameGuid(id, IID_IDispatch));
  EXPECT_EQ(Quenzel7GetHostServices(nullptr), E_POINTER);

  const CLSID clsid = ClassId("clsRectangle");
  void* factory = &id;
  EXPECT_EQ(DllGetClassObject(&clsid, &IID_IClassFactory, nullptr), E_POINTER);
  EXPECT_EQ(DllGetClassObject(nullptr, &IID_IClassFactory, &factory), E_POINTER);
  EXPECT_EQ(factory, nullptr);
  factory = &id;
  EXPECT_EQ(DllGetClassObject(&clsid, nullptr, &factory), E_POINTER);
  EXPECT_EQ(factory, nullptr);
}

TEST(ClassObject, IsTheFactoryOfTheClass) {
  const CLSID clsid = ClassId("clsEllipse");
  for (REFIID iid : {&IID_IClassFactory, &IID_IUnknown}) {
    IClassFactory* factory = nullptr;
    ASSERT_EQ(DllGetClassObject(&clsid, iid, reinterpret_cast<void**>(&factory)), S_OK);
    IDispatch* made = nullptr;
    EXPECT_EQ(
        factory->lpVtbl->CreateInstance(factory, nullptr, &IID_IDispatch, reinterpret_cast<void**>(&made)),
        S_OK);
    const Pointer ellipse(made);
    EXPECT_EQ(ellipse.Face("_clsEllipse").Get(), ellipse.Get());
    EXPECT_EQ(factory->lpVtbl->Release(factory), 0u);
  }
}

TEST(ClassObject, HasNoOtherInterface) {
  const Long before = LiveObjects();
  const CLSID clsid = ClassId("clsEllipse");
  int something = 0;
  void* factory = &something;
  EXPECT_EQ(DllGetClassObject(&clsid, &IID_IDispatch, &factory), E_NOINTERFACE);
  EXPECT_EQ(factory, nullptr);
  EXPECT_EQ(LiveObjects(), before);
}

TEST(HostServices, AreAnObjectOfTheThread) {
  const Long before = LiveObjects();
  {
    IDispatch* services = nullptr;
    ASSERT_EQ(Quenzel7GetHostServices(&services), S_OK);
    const Pointer first(services);
    EXPECT_EQ(LiveObjects(), before + 1);
    EXPECT_EQ(first.Identity(), Pointer::HostServices().Identity());
    EXPECT_EQ(first.Write("Page", 12).result, S_OK);
    EXPECT_EQ(Pointer::HostServices().Read("Page").value.Number(), 12);
    EXPECT_NE(first.Call("Describe", {"HostServices"}).value.Text().find("\"Recorder\""), std::string::npos);
    first.Write("Page", 0);
  }
  EXPECT_EQ(LiveObjects(), before);
}

/// The sections of a registration file, each with its lines.
std::map<std::string, std::string> SectionsOf(const std::string& path) {
  std::map<std::string, std::string> sections;
  std::istringstream lines(files::ReadWholeFile(path, "file"));
  std::string line, section;
  while (std::getline(lines, line)) {
    if (line.starts_with('[')) {
      section = line;
    } else if (!line.empty()) {
      sections[section] += line + "\n";
    }
  }
  return sections;
}

TEST(RegisterServer, WritesDownTheCreatableClassesForTheUser) {
  const TemporaryFolder folder;
  const Environment data("XDG_DATA_HOME", folder.Path());
  const std::string file = folder.File("quenzel7/server.ini");
  EXPECT_EQ(DllRegisterServer(), S_OK);
  std::map<std::string, std::string> expected;
  for (const char* name :
       {"clsRectangle",       "clsEllipse",     "clsRoundRect",  "clsLine",        "clsText",
        "clsBitmap",          "clsButton",      "clsFrame",      "clsGroup",       "clsGrpElmntsSrv",
        "clsVarImageElement", "clsPageImage",   "ItfImage",      "clsVar",         "clsVarTextElement",
        "clsVarBinaryText",   "clsVarListText", "clsVarNumeric", "clsVarBargraph", "clsVarRangeText",
        "clsVarDisplayString"}) {
    expected["[Quenzel7." + std::string(name) + "]"] =
        "CLSID = " + GuidText(ClassId(name)) + "\nInprocServer32 = " + ThisLibrary() + "\n";
  }
  EXPECT_EQ(SectionsOf(file), expected);
  EXPECT_EQ(DllRegisterServer(), S_OK);
  EXPECT_EQ(SectionsOf(file), expected);
  EXPECT_EQ(DllUnregisterServer(), S_OK);
  EXPECT_FALSE(std::filesystem::exists(file));
  EXPECT_EQ(DllUnregisterServer(), S_OK);
}

TEST(RegisterServer, TellsThatTheFileCannotBeWritten) {
  const TemporaryFolder folder;
  files::WriteWholeFile(folder.File("data"), "no folder", "file");
  const Environment data("XDG_DATA_HOME", folder.File("data"));
  EXPECT_EQ(DllRegisterServer(), SELFREG_E_CLASS);
  EXPECT_NE(std::string(Quenzel7LastError()).find("registration file " + folder.File("data/quenzel7")),
            std::string::npos)
      << Quenzel7LastError();
}

TEST(RegisterServer, TellsThatTheFileCannotBeTakenAway) {
  const TemporaryFolder folder;
  // A folder stands where the file should be.
  std::filesystem::create_directories(folder.File("quenzel7/server.ini/in_the_way"));
  const Environment data("XDG_DATA_HOME", folder.Path());
  EXPECT_EQ(DllUnregisterServer(), SELFREG_E_CLASS);
  EXPECT_NE(std::string(Quenzel7LastError()).find("registration file "), std::string::npos)
      << Quenzel7LastError();
}

}  // namespace
}  // namespace quenzel7::server
