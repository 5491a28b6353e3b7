// What the binary interface makes of each class that hosts can create, by its member tables alone.

#include <gtest/gtest.h>

#include <cctype>
#include <future>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "framework/library_state.h"
#include "platform/corvane1/host_frame.h"
#include "platform/corvane1/message_boxes.h"
#include "platform/gdi/gdi.h"
#include "server/live_objects.h"
#include "server/marshal.h"
#include "server/services/service_classes.h"
#include "server/types/class_table.h"
#include "server/types/identifiers.h"
#include "tests/server/host.h"
#include "tests/support/project_fixture.h"
#include "variables/var_types.h"

namespace quenzel7::server {
namespace {

using automation::Interface;
using automation::Member;
using automation::Parameter;
using automation::TypeInfo;
using automation::VariantKind;
using test::Outcome;
using test::Pointer;
using test::Utf16;
using test::Value;

constexpr LONG kRuntimeErrors = QUENZEL7_RESULT(0x800A0000u);

constexpr const char* kCreatable[] = {
    "clsRectangle",       "clsEllipse",     "clsRoundRect",  "clsLine",        "clsText",
    "clsBitmap",          "clsButton",      "clsFrame",      "clsGroup",       "clsGrpElmntsSrv",
    "clsVarImageElement", "clsPageImage",   "ItfImage",      "clsVar",         "clsVarTextElement",
    "clsVarBinaryText",   "clsVarListText", "clsVarNumeric", "clsVarBargraph", "clsVarRangeText",
    "clsVarDisplayString"};

/// What DllGetClassObject gives for the number of a class.
HRESULT ClassObject(std::string_view className, IClassFactory*& factory) {
  const CLSID clsid = ClassId(className);
  return DllGetClassObject(&clsid, &IID_IClassFactory, reinterpret_cast<void**>(&factory));
}

TEST(ClassObjects, ThereAreThoseOfTheCreatableClassesOnly) {
  std::set<std::string> given;
  std::vector<const automation::ClassInfo*> all(PublishedClasses().begin(), PublishedClasses().end());
  all.insert(all.end(), ServiceClasses().begin(), ServiceClasses().end());
  for (const automation::ClassInfo* published : all) {
    IClassFactory* factory = nullptr;
    const HRESULT result = ClassObject(published->name, factory);
    EXPECT_EQ(result, factory ? S_OK : CLASS_E_CLASSNOTAVAILABLE) << published->name;
    if (!factory) continue;
    given.insert(std::string(published->name));
    factory->lpVtbl->Release(factory);
  }
  EXPECT_EQ(given, std::set<std::string>(std::begin(kCreatable), std::end(kCreatable)));
}

TEST(ClassObjects, ClassesForTheirTypesAndThoseOfResultsCannotBeCreated) {
  for (const char* name :
       {"clsEnums", "ItfHmiElement", "ItfVarBinaryHandler", "Collection", "PropertyBag", "Recordset",
        "Connection", "Field", "Operand", "ImageLibrary", "HostServices", "EmbeddedMessageBoxes",
        "CallRecorder", "_clsRectangle", "Enumerator", "HostObject", ""}) {
    int untouched = 0;
    auto* factory = reinterpret_cast<IClassFactory*>(&untouched);
    EXPECT_EQ(ClassObject(name, factory), CLASS_E_CLASSNOTAVAILABLE) << name;
    EXPECT_EQ(factory, nullptr) << name;
    EXPECT_FALSE(Pointer::Create(name)) << name;
  }
}

/// An interface of a new object, as its member table tells it and as a host has it.
struct Face {
  const Interface& table;
  Pointer host;
};

/// The kind that carries values of a type.
VARTYPE KindOf(const TypeInfo& type) {
  const auto kind = static_cast<VARTYPE>(type.kind);
  return type.kind == VariantKind::Array ? static_cast<VARTYPE>(VT_ARRAY | static_cast<VARTYPE>(type.cells))
                                         : kind;
}

/// The number that a member has by its place.
DISPID NumberAt(const Interface& table, std::size_t place) {
  switch (table.Members()[place].role) {
    case automation::Role::Value:
      return DISPID_VALUE;
    case automation::Role::Enumerator:
      return DISPID_NEWENUM;
    case automation::Role::None:
      break;
  }
  return static_cast<DISPID>(place + 1);
}

std::string InUpperCase(std::string text) {
  for (char& letter : text) letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  return text;
}

/// A value that a type does not take, and what is told of it.
struct Wrong {
  Value value;
  HRESULT result;
  /// Of the exception, when it is one.
  LONG number = 0;
};

Value Null() { return Value::Of(VT_NULL, 0); }
Value Nothing() { return Value::Of<IDispatch*>(VT_DISPATCH, nullptr); }
Value VectorOf(VARTYPE cells, ULONG count) {
  return Value::Of(static_cast<VARTYPE>(VT_ARRAY | cells), SafeArrayCreateVector(cells, 0, count));
}

std::vector<Wrong> WrongOnes(const TypeInfo& type) {
  std::vector<Wrong> wrong = {{Value::Of(VT_DECIMAL, 0), DISP_E_BADVARTYPE},
                              {Value::Place(VT_I4, nullptr), DISP_E_TYPEMISMATCH}};
  const auto add = [&wrong](Value value, HRESULT result, LONG number = 0) {
    wrong.push_back({std::move(value), result, number});
  };
  switch (type.kind) {
    case VariantKind::Byte:
      add(-1, DISP_E_OVERFLOW);
      add(256, DISP_E_OVERFLOW);
      break;
    case VariantKind::Integer:
      add(32768, DISP_E_OVERFLOW);
      add(-32769, DISP_E_OVERFLOW);
      break;
    case VariantKind::Long:
      add(Value::Of(VT_R8, 2147483648.0), DISP_E_OVERFLOW);
      add(Value::Of(VT_I8, LONGLONG{-2147483649}), DISP_E_OVERFLOW);
      break;
    default:
      break;
  }
  switch (type.kind) {
    case VariantKind::Byte:
    case VariantKind::Integer:
    case VariantKind::Long:
    case VariantKind::Single:
    case VariantKind::Double:
    case VariantKind::Currency:
    case VariantKind::Boolean:
      add("many", DISP_E_TYPEMISMATCH);
      [[fallthrough]];
    case VariantKind::String:
      add(VectorOf(VT_I4, 1), DISP_E_TYPEMISMATCH);
      add(Null(), DISP_E_EXCEPTION, 94);
      break;
    case VariantKind::Array:
      add(5, DISP_E_TYPEMISMATCH);
      add(VectorOf(VT_BSTR, 1), DISP_E_TYPEMISMATCH);
      break;
    case VariantKind::Object:
      add(5, DISP_E_TYPEMISMATCH);
      add("clsRectangle", DISP_E_TYPEMISMATCH);
      break;
    default:
      break;
  }
  return wrong;
}

class Classes : public quenzel7::test::ProjectTest, public ::testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    LibraryState::Current() = LibraryState();
    Platform& platform = Platform::Current();
    std::dynamic_pointer_cast<corvane1::CollectedMessageBoxes>(platform.messageBoxes)->Output(nullptr);
    std::dynamic_pointer_cast<corvane1::CollectedMessages>(platform.messageService)->Output(nullptr);
    std::dynamic_pointer_cast<corvane1::CollectedErrors>(platform.errorLog)->Output(nullptr);
    std::dynamic_pointer_cast<corvane1::CollectedHostFrame>(platform.hostFrame)->Output(nullptr);
    services_ = Pointer::HostServices();
    // What is made once and kept is there before anything is counted.
    Pointer::Create(GetParam());
    liveObjects_ = LiveObjects();
    graphics_ = gdi::LiveObjects();
  }

  void TearDown() override {
    EXPECT_EQ(LiveObjects(), liveObjects_);
    EXPECT_EQ(gdi::LiveObjects(), graphics_);
    services_.Reset();
    LibraryState::Current() = LibraryState();
    ProjectTest::TearDown();
  }

  /// The interfaces of a new object.
  static std::vector<Face> NewFaces() {
    const Pointer object = Pointer::Create(GetParam());
    EXPECT_TRUE(object);
    // A variable is of no use before it has a type.
    if (GetParam() == std::string_view("clsVar")) {
      EXPECT_EQ(object.Write("VarType", eVT_Numeric).result, S_OK);
    }
    std::vector<Face> faces;
    for (const Interface* table : FindCreatable(GetParam())->interfaces) {
      faces.push_back({*table, object.Face(std::string(table->Name()).c_str())});
      EXPECT_TRUE(faces.back().host) << table->Name();
    }
    return faces;
  }

  /// A value that a parameter of that type takes.
  Value Fitting(const TypeInfo& type) {
    switch (type.kind) {
      case VariantKind::String:
        return "";
      case VariantKind::Boolean:
        return Value::Of(VT_BOOL, VARIANT_FALSE);
      case VariantKind::Array:
        return VectorOf(static_cast<VARTYPE>(type.cells), 2);
      case VariantKind::Object:
        if (type.name == "Recordset") {
          const Pointer connection =
              Pointer::In(Pointer::In(services_.Read("ProjectDatabase").value).Call("OpenConnection").value);
          return connection.Call("Execute", {"SELECT * FROM HMI_Elements"}).value;
        }
        if (type.name == "Collection") return services_.Call("NewCollection").value;
        if (FindCreatable(type.name)) return Pointer::Create(std::string(type.name).c_str()).AsValue();
        return type.name == "Object" ? services_.AsValue() : Nothing();
      default:
        return 1;
    }
  }
  std::vector<Value> FittingArguments(const Member& member) {
    std::vector<Value> values;
    for (const Parameter& parameter : member.parameters) values.push_back(Fitting(parameter.type));
    return values;
  }

  Pointer services_;
  Long liveObjects_ = 0;
  std::size_t graphics_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Creatable, Classes, ::testing::ValuesIn(kCreatable),
                         [](const auto& tested) { return std::string(tested.param); });

TEST_P(Classes, HaveOneIdentityAndCountWhoHoldsThem) {
  const std::vector<Face> faces = NewFaces();
  IDispatch* first = faces.front().host.Get();
  for (const Face& face : faces) {
    EXPECT_EQ(face.host.Identity(), first);
    EXPECT_EQ(face.host.Face(std::string(faces.front().table.Name()).c_str()).Get(), first);
  }
  const auto held = static_cast<ULONG>(faces.size());
  EXPECT_EQ(first->lpVtbl->AddRef(first), held + 1);
  EXPECT_EQ(first->lpVtbl->Release(first), held);
  EXPECT_EQ(LiveObjects(), liveObjects_ + 1);
}

TEST_P(Classes, HaveTheirMembersByNameAndNumberInSlotOrder) {
  for (const Face& face : NewFaces()) {
    IDispatch* dispatch = face.host.Get();
    const auto members = face.table.Members();
    ASSERT_FALSE(members.empty());
    for (std::size_t place = 0; place < members.size(); ++place) {
      const std::string name(members[place].name);
      const DISPID number = NumberAt(face.table, place);
      for (const std::string& spelling : {name, automation::Folded(name), InUpperCase(name)}) {
        EXPECT_EQ(face.host.Id(spelling.c_str()), number) << face.table.Name() << '.' << spelling;
      }
      // With the names of its parameters, of which the last one is not one.
      std::vector<std::string> spelled{name};
      for (std::string_view parameter : members[place].ParameterNames()) spelled.emplace_back(parameter);
      spelled.emplace_back("pNone");
      std::vector<std::unique_ptr<Utf16>> texts;
      std::vector<OLECHAR*> names;
      for (const std::string& text : spelled) {
        texts.push_back(std::make_unique<Utf16>(InUpperCase(text)));
        names.push_back(texts.back()->Get());
      }
      std::vector<DISPID> expected{number};
      for (std::size_t parameter = 0; parameter + 2 < names.size(); ++parameter) {
        expected.push_back(static_cast<DISPID>(parameter));
      }
      std::vector<DISPID> ids(names.size(), 12345);
      const auto known = static_cast<UINT>(names.size() - 1);
      EXPECT_EQ(dispatch->lpVtbl->GetIDsOfNames(dispatch, &IID_NULL, names.data(), known, 0, ids.data()),
                S_OK)
          << name;
      expected.push_back(12345);
      EXPECT_EQ(ids, expected) << name;
      EXPECT_EQ(dispatch->lpVtbl->GetIDsOfNames(dispatch, &IID_NULL, names.data(), known + 1, 0, ids.data()),
                DISP_E_UNKNOWNNAME)
          << name;
      expected.back() = DISPID_UNKNOWN;
      EXPECT_EQ(ids, expected) << name;
    }
    EXPECT_EQ(face.host.Id("NoSuchMember"), DISPID_UNKNOWN);
    EXPECT_EQ(face.host.Id(""), DISPID_UNKNOWN);
    const auto last = static_cast<DISPID>(members.size());
    for (const DISPID none : {last + 1, DISPID{-2}, DISPID_UNKNOWN}) {
      EXPECT_EQ(face.host.Invoke(none, DISPATCH_PROPERTYGET).result, DISP_E_MEMBERNOTFOUND);
    }
  }
}

TEST_P(Classes, GiveAndTakeEachPropertyInItsKind) {
  const std::size_t count = NewFaces().size();
  for (std::size_t which = 0; which < count; ++which) {
    const Interface& table = *FindCreatable(GetParam())->interfaces[which];
    for (const Member& member : table.Members()) {
      if (member.IsMethod()) continue;
      const std::string what = std::string(table.Name()) + "." + std::string(member.name);
      SCOPED_TRACE(what);
      const std::string name(member.name);
      const Pointer host = NewFaces()[which].host;
      const Outcome read = host.Read(name.c_str());
      if (!member.get) {
        EXPECT_EQ(read.result, DISP_E_EXCEPTION);
        EXPECT_EQ(read.scode, kRuntimeErrors + 394);
        EXPECT_EQ(read.description, what + " can be written only");
      } else {
        EXPECT_EQ(read.result, S_OK) << read.scode << read.description;
        if (member.type.kind != VariantKind::Variant) {
          EXPECT_EQ(read.value.Kind(), KindOf(member.type));
        }
      }
      const Value value = member.get ? read.value : Fitting(member.type);
      const bool byReference = !member.put && member.putRef;
      const Outcome written =
          byReference ? host.WriteReference(name.c_str(), value) : host.Write(name.c_str(), value);
      if (!member.put && !member.putRef) {
        EXPECT_EQ(written.result, DISP_E_EXCEPTION);
        EXPECT_EQ(written.scode, kRuntimeErrors + 383);
        EXPECT_EQ(written.description, what + " can be read only");
        continue;
      }
      EXPECT_EQ(written.result, S_OK) << written.scode << written.description;
      EXPECT_EQ(
          (byReference ? host.Write(name.c_str(), value) : host.WriteReference(name.c_str(), value)).result,
          member.put && member.putRef ? S_OK : DISP_E_MEMBERNOTFOUND);
      if (!member.get) continue;
      const Outcome again = host.Read(name.c_str());
      EXPECT_EQ(again.result, S_OK);
      EXPECT_TRUE(FromVariant(again.value.Raw()) == FromVariant(read.value.Raw()));
    }
  }
}

TEST_P(Classes, CountTheArgumentsOfEachMember) {
  for (const Face& face : NewFaces()) {
    for (const Member& member : face.table.Members()) {
      SCOPED_TRACE(std::string(face.table.Name()) + "." + std::string(member.name));
      const DISPID id = face.host.Id(std::string(member.name).c_str());
      if (member.IsMethod()) {
        std::vector<Value> arguments = FittingArguments(member);
        std::vector<Value> more = arguments;
        more.push_back(0);
        EXPECT_EQ(face.host.Invoke(id, DISPATCH_METHOD, more).result, DISP_E_BADPARAMCOUNT);
        if (member.Required() > 0) {
          arguments.resize(member.Required() - 1);
          const Outcome less = face.host.Invoke(id, DISPATCH_METHOD, arguments);
          EXPECT_EQ(less.result, DISP_E_PARAMNOTOPTIONAL);
          EXPECT_EQ(less.argument, std::nullopt);
          EXPECT_EQ(face.host.Invoke(id, DISPATCH_METHOD).result, DISP_E_PARAMNOTOPTIONAL);
          const auto none = static_cast<DISPID>(member.parameters.size());
          const Outcome misnamed = face.host.Invoke(id, DISPATCH_METHOD, {0}, {none});
          EXPECT_EQ(misnamed.result, DISP_E_PARAMNOTFOUND);
          EXPECT_EQ(misnamed.argument, 0u);
        }
        for (std::size_t place = 0; place < member.Required(); ++place) {
          std::vector<Value> leftOut = FittingArguments(member);
          leftOut[place] = Value::LeftOut();
          const Outcome outcome = face.host.Invoke(id, DISPATCH_METHOD, leftOut);
          EXPECT_EQ(outcome.result, DISP_E_PARAMNOTOPTIONAL);
          EXPECT_EQ(outcome.argument, member.parameters.size() - 1 - place);
        }
        EXPECT_EQ(face.host.Invoke(id, DISPATCH_PROPERTYGET).result, DISP_E_MEMBERNOTFOUND);
        EXPECT_EQ(face.host.Invoke(id, DISPATCH_PROPERTYPUT, {0}, {DISPID_PROPERTYPUT}).result,
                  DISP_E_MEMBERNOTFOUND);
        continue;
      }
      EXPECT_EQ(face.host.Invoke(id, DISPATCH_PROPERTYGET, {0}).result, DISP_E_BADPARAMCOUNT);
      EXPECT_EQ(face.host.Invoke(id, DISPATCH_METHOD).result, DISP_E_MEMBERNOTFOUND);
      if (!member.put && !member.putRef) continue;
      const WORD writes = member.put ? DISPATCH_PROPERTYPUT : DISPATCH_PROPERTYPUTREF;
      const Value value = Fitting(member.type);
      EXPECT_EQ(face.host.Invoke(id, writes).result, DISP_E_PARAMNOTOPTIONAL);
      EXPECT_EQ(face.host.Invoke(id, writes, {value, value}, {DISPID_PROPERTYPUT}).result,
                DISP_E_BADPARAMCOUNT);
      const Outcome unnamed = face.host.Invoke(id, writes, {value});
      EXPECT_EQ(unnamed.result, DISP_E_PARAMNOTFOUND);
      EXPECT_EQ(unnamed.argument, 0u);
    }
  }
}

TEST_P(Classes, RefuseArgumentsOfWrongTypes) {
  for (const Face& face : NewFaces()) {
    for (const Member& member : face.table.Members()) {
      const std::string name(member.name);
      for (std::size_t place = 0; place < member.parameters.size(); ++place) {
        SCOPED_TRACE(std::string(face.table.Name()) + "." + name + ", parameter " + std::to_string(place));
        const Parameter& parameter = member.parameters[place];
        const std::size_t atPlace = member.parameters.size() - 1 - place;
        for (const Wrong& wrong : WrongOnes(parameter.type)) {
          std::vector<Value> arguments = FittingArguments(member);
          arguments[place] = wrong.value;
          const Outcome outcome = face.host.Call(name.c_str(), arguments);
          EXPECT_EQ(outcome.result, wrong.result) << wrong.value.Kind() << outcome.description;
          EXPECT_EQ(outcome.argument, atPlace) << wrong.value.Kind();
          EXPECT_EQ(outcome.scode, wrong.number ? kRuntimeErrors + wrong.number : 0);
        }
        if (!parameter.byReference || parameter.type.kind == VariantKind::Variant) continue;
        double date = 0;
        std::vector<Value> arguments = FittingArguments(member);
        arguments[place] = Value::Place(VT_DATE, &date);
        const Outcome mismatch = face.host.Call(name.c_str(), arguments);
        EXPECT_EQ(mismatch.result, DISP_E_TYPEMISMATCH);
        EXPECT_EQ(mismatch.argument, atPlace);
        arguments[place] = Value::Place(KindOf(parameter.type), nullptr);
        EXPECT_EQ(face.host.Call(name.c_str(), arguments).result, DISP_E_TYPEMISMATCH);
      }
      if (!member.put && !member.putRef) continue;
      SCOPED_TRACE(std::string(face.table.Name()) + "." + name);
      for (const Wrong& wrong : WrongOnes(member.type)) {
        const Outcome outcome = member.put ? face.host.Write(name.c_str(), wrong.value)
                                           : face.host.WriteReference(name.c_str(), wrong.value);
        EXPECT_EQ(outcome.result, wrong.result) << wrong.value.Kind() << outcome.description;
        EXPECT_EQ(outcome.argument, 0u) << wrong.value.Kind();
        EXPECT_EQ(outcome.scode, wrong.number ? kRuntimeErrors + wrong.number : 0);
      }
    }
  }
}

TEST_P(Classes, RefuseCallsWithoutTheirPointers) {
  for (const Face& face : NewFaces()) {
    IDispatch* dispatch = face.host.Get();
    const auto invoke = [dispatch](DISPID id, REFIID iid, WORD flags, DISPPARAMS* parameters) {
      return dispatch->lpVtbl->Invoke(dispatch, id, iid, 0, flags, parameters, nullptr, nullptr, nullptr);
    };
    VARIANT value;
    VariantInit(&value);
    DISPID put = DISPID_PROPERTYPUT;
    for (std::size_t place = 0; place < face.table.Members().size(); ++place) {
      const Member& member = face.table.Members()[place];
      SCOPED_TRACE(std::string(face.table.Name()) + "." + std::string(member.name));
      const DISPID id = NumberAt(face.table, place);
      for (const WORD flags :
           {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF}) {
        DISPPARAMS none{}, noValues{nullptr, &put, 1, 1}, noNames{&value, nullptr, 1, 1},
            moreNames{&value, &put, 0, 1};
        EXPECT_EQ(invoke(id, &IID_NULL, flags, nullptr), E_POINTER);
        EXPECT_EQ(invoke(id, &IID_NULL, flags, &noValues), E_POINTER);
        EXPECT_EQ(invoke(id, &IID_NULL, flags, &noNames), E_POINTER);
        EXPECT_EQ(invoke(id, &IID_NULL, flags, &moreNames), E_INVALIDARG);
        EXPECT_EQ(invoke(id, &IID_IDispatch, flags, &none), DISP_E_UNKNOWNINTERFACE);
      }
    }
    const auto ids = [dispatch](REFIID iid, OLECHAR** names, UINT count, DISPID* id) {
      return dispatch->lpVtbl->GetIDsOfNames(dispatch, iid, names, count, 0, id);
    };
    const Utf16 name(std::string(face.table.Members().front().name));
    OLECHAR* names[] = {name.Get(), nullptr};
    OLECHAR* noName[] = {nullptr};
    DISPID found[2] = {7, 7};
    EXPECT_EQ(ids(&IID_NULL, nullptr, 1, found), E_POINTER);
    EXPECT_EQ(ids(&IID_NULL, names, 1, nullptr), E_POINTER);
    EXPECT_EQ(ids(&IID_NULL, names, 0, found), E_INVALIDARG);
    EXPECT_EQ(ids(&IID_IUnknown, names, 1, found), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(found[0], 7);
    EXPECT_EQ(ids(&IID_NULL, noName, 1, found), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(found[0], DISPID_UNKNOWN);
    EXPECT_EQ(ids(&IID_NULL, names, 2, found), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(found[0], 1);
    EXPECT_EQ(found[1], DISPID_UNKNOWN);
    EXPECT_EQ(dispatch->lpVtbl->QueryInterface(dispatch, &IID_IUnknown, nullptr), E_POINTER);
    void* other = dispatch;
    EXPECT_EQ(dispatch->lpVtbl->QueryInterface(dispatch, nullptr, &other), E_POINTER);
    EXPECT_EQ(other, nullptr);
    other = dispatch;
    EXPECT_EQ(dispatch->lpVtbl->QueryInterface(dispatch, &IID_IClassFactory, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
  }
}

TEST_P(Classes, BelongToTheirThread) {
  for (const Face& face : NewFaces()) {
    IDispatch* dispatch = face.host.Get();
    const Utf16 name(std::string(face.table.Members().front().name));
    const auto told = std::async(std::launch::async, [&] {
                        OLECHAR* names[] = {name.Get()};
                        DISPID id = 7;
                        DISPPARAMS none{};
                        void* other = dispatch;
                        std::vector<HRESULT> results{
                            dispatch->lpVtbl->QueryInterface(dispatch, &IID_IUnknown, &other),
                            dispatch->lpVtbl->GetIDsOfNames(dispatch, &IID_NULL, names, 1, 0, &id)};
                        for (std::size_t place = 0; place < face.table.Members().size(); ++place) {
                          results.push_back(dispatch->lpVtbl->Invoke(
                              dispatch, NumberAt(face.table, place), &IID_NULL, 0,
                              DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr));
                        }
                        EXPECT_EQ(id, 7);
                        EXPECT_EQ(other, nullptr);
                        return results;
                      }).get();
    EXPECT_EQ(told, std::vector<HRESULT>(face.table.Members().size() + 2, RPC_E_WRONG_THREAD));
  }
}

/// What members raise of new objects, that have nothing yet, with ones, empty texts and empty rows.
const std::map<std::string_view, LONG> kRaised = {{"GetTransformState", 13},
                                                  {"InitImageLibrary", 13},
                                                  {"DeleteFromDB", 3021},
                                                  {"LoadFromDB", 3021},
                                                  {"CreatePrinterReportEX", 438},
                                                  {"CreateStaticElementPrinterReport", 438},
                                                  {"ItfHmiElement_CreateStaticElementPrinterReport", 438},
                                                  {"RestoreAllOperands", 9},
                                                  {"ValidateFontNumber", 9},
                                                  {"ItfVarBinaryHandler_ValidateFontNumber", 9},
                                                  {"SetBinaryData", 331},
                                                  {"SaveToDB", 91},
                                                  {"SaveToDBEx", 91},
                                                  {"ResizeImage", 91},
                                                  {"ResizeImage16", 91},
                                                  {"ResizeImageEx", 91},
                                                  {"SetImageSystem", 91},
                                                  {"Stretch", 91}};

TEST_P(Classes, GiveResultsOfTheirMethodsInTheirKinds) {
  const std::size_t count = NewFaces().size();
  for (std::size_t which = 0; which < count; ++which) {
    const Interface& table = *FindCreatable(GetParam())->interfaces[which];
    for (const Member& member : table.Members()) {
      if (!member.IsMethod()) continue;
      SCOPED_TRACE(std::string(table.Name()) + "." + std::string(member.name));
      const Pointer host = NewFaces()[which].host;
      std::vector<Value> places = FittingArguments(member), arguments = places;
      for (std::size_t place = 0; place < places.size(); ++place) {
        if (member.parameters[place].byReference) arguments[place] = Value::Place(places[place]);
      }
      const Outcome outcome = host.Call(std::string(member.name).c_str(), arguments);
      EXPECT_EQ(outcome.argument, std::nullopt) << outcome.description;
      if (outcome.result == S_OK) {
        if (member.type.kind != VariantKind::Variant) {
          EXPECT_EQ(outcome.value.Kind(), KindOf(member.type));
        }
        continue;
      }
      EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
      const auto raised = kRaised.find(member.name);
      if (raised == kRaised.end()) {
        ADD_FAILURE() << outcome.scode << ' ' << outcome.description;
        continue;
      }
      EXPECT_EQ(outcome.scode, kRuntimeErrors + raised->second) << outcome.description;
      EXPECT_NE(outcome.description, "");
      EXPECT_EQ(outcome.source, "Quenzel7");
    }
  }
}

}  // namespace
}  // namespace quenzel7::server
