// The road of a host: objects of its own as services, and what elements do when they are called from outside.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "framework/enums.h"
#include "framework/library_services.h"
#include "server/live_objects.h"
#include "server/services/late_object.h"
#include "tests/server/host.h"
#include "tests/server/host_object.h"
#include "tests/server/sample.h"
#include "tests/support/project_fixture.h"

namespace quenzel7::server {
namespace {

using quenzel7::test::CallLog;
using test::HostObject;
using test::Outcome;
using test::Pointer;
using test::Value;
using Lines = std::vector<std::string>;

constexpr LONG kRuntimeErrors = QUENZEL7_RESULT(0x800A0000u);

/// The value of an argument, references followed.
const VARIANT& Followed(const VARIANT& argument) {
  return argument.vt == (VT_BYREF | VT_VARIANT) ? *argument.value.pvarVal : argument;
}

std::string Shown(const Value& value) {
  switch (value.Kind()) {
    case VT_EMPTY:
      return "Empty";
    case VT_I4:
      return std::to_string(value.Number());
    case VT_BSTR:
      return '"' + value.Text() + '"';
    case VT_DISPATCH:
      return value.Raw().value.pdispVal ? "Object" : "Nothing";
    default:
      return "kind " + std::to_string(value.Kind());
  }
}

/// The calls of a host's object, a line each: "Show 1 "text"".
Lines CallsOf(const HostObject& object) {
  Lines lines;
  for (const HostObject::Call& call : object.calls) {
    std::string line = call.member;
    for (const Value& argument : call.arguments) line += " " + Shown(argument);
    lines.push_back(line);
  }
  return lines;
}

/// What gives always the same.
HostObject::Action Giving(const Value& value) {
  return [value](const std::vector<VARIANT*>&, VARIANT* result, EXCEPINFO*) -> HRESULT {
    return result ? VariantCopy(result, &value.Raw()) : S_OK;
  };
}

class Boundary : public quenzel7::test::ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    const Platform& platform = Platform::Current();
    std::dynamic_pointer_cast<corvane1::CollectedMessageBoxes>(platform.messageBoxes)->Output(nullptr);
    std::dynamic_pointer_cast<corvane1::CollectedMessages>(platform.messageService)->Output(nullptr);
    std::dynamic_pointer_cast<corvane1::CollectedErrors>(platform.errorLog)->Output(nullptr);
    services_ = Pointer::HostServices();
    live_ = LiveObjects();
  }
  void TearDown() override {
    EXPECT_EQ(LiveObjects(), live_);
    services_.Reset();
    ProjectTest::TearDown();
  }

  Pointer Service(const char* name) const { return Pointer::In(services_.Read(name).value); }
  /// Brings the embedded service back.
  void UseEmbedded(const char* service) const {
    EXPECT_EQ(services_.WriteReference(service, Pointer().AsValue()).result, S_OK);
  }
  /// An object of the host's own as a service, for as long as this lives.
  class InUse {
   public:
    InUse(const Boundary& test, const char* service, HostObject& object) : test_(test), service_(service) {
      EXPECT_EQ(test.services_.WriteReference(service, object.Handed().AsValue()).result, S_OK);
    }
    InUse(const InUse&) = delete;
    InUse& operator=(const InUse&) = delete;
    ~InUse() { test_.UseEmbedded(service_); }

   private:
    const Boundary& test_;
    const char* const service_;
  };
  /// The connection of the project, in a host's hands.
  Pointer HostsConnection() const {
    return Pointer::In(Service("ProjectDatabase").Call("OpenConnection").value);
  }

  /// A rectangle at (12, 13), 14 x 15.
  static Pointer Rectangle() {
    const Pointer rectangle = Pointer::Create("clsRectangle");
    for (const auto& [name, value] : std::initializer_list<std::pair<const char*, LONG>>{
             {"Xs", 12}, {"Ys", 13}, {"Dx", 14}, {"Dy", 15}}) {
      EXPECT_EQ(rectangle.Write(name, value).result, S_OK);
    }
    return rectangle;
  }
  static void Save(const Pointer& element) {
    const Outcome saved = element.Face("ItfHmiElement").Call("SaveToDB");
    EXPECT_EQ(saved.result, S_OK) << saved.description;
  }

  Pointer services_;
  Long live_ = 0;
};

// --- Message boxes, messages, error log ---

TEST_F(Boundary, BoxesAreShownByTheHostsOwnObject) {
  HostObject boxes;
  boxes.Has("Show", Giving(1));
  const Pointer embedded = Service("MessageBoxes");
  const InUse inUse(*this, "MessageBoxes", boxes);
  EXPECT_EQ(Service("MessageBoxes").Get(), &boxes);
  const Pointer text = Pointer::Create("clsText");
  EXPECT_EQ(text.Write("Txt", "\xE4\xBD\xA0").result, S_OK);
  ASSERT_FALSE(boxes.calls.empty());
  EXPECT_EQ(CallsOf(boxes).front(),
            "Show \"Tessaline can't handle Multibyte chars\" 0 \"Language is not supported\"");
  EXPECT_EQ(boxes.calls.front().flags, DISPATCH_METHOD | DISPATCH_PROPERTYGET);

  UseEmbedded("MessageBoxes");
  EXPECT_EQ(boxes.references, 0);
  EXPECT_NE(Service("MessageBoxes").Get(), &boxes);
  const std::size_t shown = boxes.calls.size();
  EXPECT_EQ(text.Write("Txt", "\xE4\xBD\xA1").result, S_OK);
  EXPECT_EQ(boxes.calls.size(), shown);
  EXPECT_EQ(Service("MessageBoxes").Read("Shown").value.Kind(), VT_ARRAY | VT_VARIANT);
}

TEST_F(Boundary, WhatTheHostsBoxesRaiseReachesTheHost) {
  HostObject boxes;
  boxes.Has("Show", [](const std::vector<VARIANT*>&, VARIANT*, EXCEPINFO* info) {
    info->scode = kRuntimeErrors + 70;
    info->bstrDescription = ToBstr("no window is open");
    info->bstrSource = ToBstr("Host");
    return DISP_E_EXCEPTION;
  });
  const InUse inUse(*this, "MessageBoxes", boxes);
  const Outcome written = Pointer::Create("clsText").Write("Txt", "\xE4\xBD\xA0");
  EXPECT_EQ(written.result, DISP_E_EXCEPTION);
  EXPECT_EQ(written.scode, kRuntimeErrors + 70);
  EXPECT_EQ(written.description, "no window is open");
  EXPECT_EQ(written.source, "Host");
  EXPECT_EQ(written.argument, std::nullopt);
}

TEST_F(Boundary, MessagesAreShownByTheHostsOwnObject) {
  HostObject messages;
  messages.Has("ShowMessage", Giving(6));
  const InUse inUse(*this, "Messages", messages);
  const Pointer member = Rectangle();
  EXPECT_EQ(member.Write("TouchOprndAddr", 5).result, S_OK);
  const Pointer members = Pointer::In(services_.Call("NewCollection").value);
  EXPECT_EQ(members.Call("Add", {member.AsValue()}).result, S_OK);
  const Pointer group = Pointer::Create("clsGroup");
  EXPECT_EQ(group.Call("AddObjectsToGroup", {members.AsValue()}).result, S_OK);
  EXPECT_EQ(CallsOf(messages), (Lines{"ShowMessage 6 Empty"}));

  UseEmbedded("Messages");
  EXPECT_EQ(messages.references, 0);
  EXPECT_EQ(group.Call("AddObjectsToGroup", {members.AsValue()}).result, S_OK);
  EXPECT_EQ(messages.calls.size(), 1u);
}

TEST_F(Boundary, AMessageMayChangeItsArgument) {
  HostObject messages;
  messages.Has("ShowMessage", [](const std::vector<VARIANT*>& arguments, VARIANT* result, EXCEPINFO*) {
    const Value answer("answered");
    VariantCopy(arguments[1]->value.pvarVal, &answer.Raw());
    return VariantCopy(result, &Value(7).Raw());
  });
  const InUse inUse(*this, "Messages", messages);
  automation::Variant argument = "asked";
  EXPECT_EQ(ShowLibraryMessage(41, argument), 7);
  EXPECT_EQ(argument, automation::Variant("answered"));
  EXPECT_EQ(CallsOf(messages), (Lines{"ShowMessage 41 \"asked\""}));
}

TEST_F(Boundary, ErrorsAreTakenDownByTheHostsOwnObject) {
  HostObject log;
  log.Has("Report", Giving(Value()));
  const InUse inUse(*this, "ErrorLog", log);
  ReportLibraryError("Corruted Image", -2147220905, "what", "clsBitmap", "Draw", 48);
  EXPECT_EQ(
      CallsOf(log),
      (Lines{"Report \"Corruted Image\" -2147220905 \"what\" \"Quenzel7.dll\" \"clsBitmap\" \"Draw\" 48"}));
  UseEmbedded("ErrorLog");
  EXPECT_EQ(log.references, 0);
  ReportLibraryError("x", 1, "x", "x", "x", 1);
  EXPECT_EQ(log.calls.size(), 1u);
}

TEST_F(Boundary, TheEmbeddedViewIsTheSameObjectBeforeAndAfter) {
  HostObject log;
  const Pointer embedded = Service("ErrorLog");
  const InUse inUse(*this, "ErrorLog", log);
  EXPECT_EQ(Service("ErrorLog").Get(), &log);
  EXPECT_EQ(services_.WriteReference("ErrorLog", embedded.AsValue()).result, S_OK);
  EXPECT_EQ(Service("ErrorLog").Identity(), embedded.Identity());
  EXPECT_EQ(log.references, 0);
}

TEST_F(Boundary, OnlyObjectsBecomeServices) {
  for (const Value& wrong : {Value(5), Value("boxes")}) {
    EXPECT_EQ(services_.WriteReference("MessageBoxes", wrong).result, DISP_E_TYPEMISMATCH);
  }
}

// --- The project database ---

TEST_F(Boundary, ElementsAreSavedThroughAConnectionThatTheHostGives) {
  HostObject database;
  const Pointer connection = HostsConnection();
  database.Has("OpenConnection", Giving(connection.AsValue()));
  const InUse inUse(*this, "ProjectDatabase", database);
  TakeLog();
  Save(Rectangle());
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs", "Ys", "Dx", "Dy"}), (Lines{"12 13 14 15"}));
  EXPECT_FALSE(database.calls.empty());
  for (const std::string& call : CallsOf(database)) EXPECT_EQ(call, "OpenConnection");

  UseEmbedded("ProjectDatabase");
  EXPECT_EQ(database.references, 0);
  const std::size_t asked = database.calls.size();
  Save(Rectangle());
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs"}), (Lines{"12", "12"}));
  EXPECT_EQ(database.calls.size(), asked);
}

/// A connection that a host has written itself, over one of the library that it hides: nothing of the library
/// but fields is seen through it.
class HostsDatabase {
 public:
  explicit HostsDatabase(const Pointer& inner) : inner_(inner) {
    Forward(connection, inner_, {"BeginTrans", "CommitTrans", "RollbackTrans", "Close"});
    connection.Has("Execute", [this](const std::vector<VARIANT*>& arguments, VARIANT* result, EXCEPINFO*) {
      const Outcome rows = inner_.Call("Execute", {Copy(*arguments[0])});
      GiveRecordset(Pointer::In(rows.value), result);
      return rows.result;
    });
    connection.Has("CreateRecordset", [this](const std::vector<VARIANT*>&, VARIANT* result, EXCEPINFO*) {
      const Outcome made = inner_.Call("CreateRecordset");
      GiveRecordset(Pointer::In(made.value), result);
      return made.result;
    });
    database.Has("OpenConnection", [this](const std::vector<VARIANT*>&, VARIANT* result, EXCEPINFO*) {
      return VariantCopy(result, &connection.Handed().AsValue().Raw());
    });
  }

  HostObject database, connection;
  std::vector<std::unique_ptr<HostObject>> recordsets;

  int References() const {
    int held = database.references + connection.references;
    for (const auto& recordset : recordsets) held += recordset->references;
    return held;
  }

 private:
  static Value Copy(const VARIANT& argument) {
    Value value;
    VariantCopy(&value.Raw(), &Followed(argument));
    return value;
  }

  /// Members that do what those of another object do.
  static void Forward(HostObject& object, const Pointer& to, const Lines& members) {
    for (const std::string& member : members) {
      object.Has(member,
                 [&object, to, member](const std::vector<VARIANT*>& arguments, VARIANT* result, EXCEPINFO*) {
                   std::vector<Value> values;
                   for (const VARIANT* argument : arguments) values.push_back(Copy(*argument));
                   const WORD flags = object.calls.back().flags;
                   const Outcome outcome = to.Invoke(to.Id(member.c_str()), flags, values);
                   if (result) VariantCopy(result, &outcome.value.Raw());
                   return outcome.result;
                 });
    }
  }

  void GiveRecordset(const Pointer& rows, VARIANT* result) {
    recordsets.push_back(std::make_unique<HostObject>());
    HostObject& recordset = *recordsets.back();
    Forward(recordset, rows,
            {"Close", "AddNew", "Update", "Delete", "EOF", "BOF", "MoveFirst", "MoveNext", "Move",
             "RecordCount", "FieldCount", "Fields"});
    recordset.Has("Open", [this, rows](const std::vector<VARIANT*>& arguments, VARIANT*, EXCEPINFO*) {
      // The library hands over the host's own connection, not what stands for it.
      EXPECT_EQ(Followed(*arguments[1]).value.pdispVal, &connection);
      return rows
          .Call("Open", {Copy(*arguments[0]), inner_.AsValue(), Copy(*arguments[2]), Copy(*arguments[3]),
                         Copy(*arguments[4])})
          .result;
    });
    VariantCopy(result, &recordset.Handed().AsValue().Raw());
  }

  Pointer inner_;
};

TEST_F(Boundary, ElementsAreSavedAndLoadedThroughAConnectionOfTheHostsOwn) {
  HostsDatabase hosts(HostsConnection());
  const InUse inUse(*this, "ProjectDatabase", hosts.database);
  EXPECT_EQ(Service("ProjectDatabase").Get(), &hosts.database);
  const Pointer rectangle = Rectangle();
  Save(rectangle);
  const LONG id = rectangle.Read("ID").value.Number();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "Xs", "Ys", "Dx", "Dy"}),
            (Lines{std::to_string(id) + " 12 13 14 15"}));
  EXPECT_EQ(rectangle.Write("Xs", 40).result, S_OK);
  Save(rectangle);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs"}), (Lines{"40"}));
  EXPECT_FALSE(hosts.recordsets.empty());

  const Outcome deleted = rectangle.Face("ItfHmiElement").Call("DeleteFromDB");
  EXPECT_EQ(deleted.result, S_OK) << deleted.description;
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs"}), (Lines{}));

  UseEmbedded("ProjectDatabase");
  // The notes of calls have what was passed.
  for (const auto& recordset : hosts.recordsets) recordset->calls.clear();
  EXPECT_EQ(hosts.References(), 0);
}

TEST_F(Boundary, WithoutAConnectionNothingIsSaved) {
  HostObject database;
  database.Has("OpenConnection", Giving(Pointer().AsValue()));
  const InUse inUse(*this, "ProjectDatabase", database);
  const Outcome saved = Rectangle().Face("ItfHmiElement").Call("SaveToDB");
  EXPECT_EQ(saved.result, DISP_E_EXCEPTION);
  EXPECT_EQ(saved.scode, kRuntimeErrors + 91);
  EXPECT_EQ(saved.description, "no project is open: the host gave no connection");
}

// --- The two interfaces of an element ---

TEST_F(Boundary, OnlyTheContractRemovesTheRowOfAHideOperandThatIsTakenAway) {
  const Pointer rectangle = Rectangle();
  const Pointer contract = rectangle.Face("ItfHmiElement");
  for (const bool throughContract : {false, true}) {
    EXPECT_EQ(rectangle.Write("VisibleOpAddr", 23).result, S_OK);
    Save(rectangle);
    Connection().Execute("DELETE * FROM HMI_Operands");
    const std::string id = std::to_string(rectangle.Read("ID").value.Number());
    Connection().Execute(
        "INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) VALUES (" + id +
        ",1,23,0," + std::to_string(static_cast<int>(eOP_VisibleOperand)) + ")");
    TakeLog();
    const Pointer& face = throughContract ? contract : rectangle;
    EXPECT_EQ(face.Write("VisibleOpAddr", -1).result, S_OK);
    EXPECT_EQ(rectangle.Read("VisibleOpAddr").value.Number(), -1);
    EXPECT_EQ(contract.Read("VisibleOpAddr").value.Number(), -1);
    EXPECT_EQ(OperandRows().size(), throughContract ? 0u : 1u);
    const CallLog log = TakeLog();
    EXPECT_EQ(log.size(), throughContract ? 1u : 0u);
  }
}

TEST_F(Boundary, MembersOfOneInterfaceAreNoneOfTheOther) {
  const Pointer rectangle = Rectangle();
  const Pointer contract = rectangle.Face("ItfHmiElement");
  EXPECT_EQ(rectangle.Id("Draw"), DISPID_UNKNOWN);
  EXPECT_NE(contract.Id("Draw"), DISPID_UNKNOWN);
  // What the one is told the other one has.
  EXPECT_EQ(contract.Write("Xs", 31).result, S_OK);
  EXPECT_EQ(rectangle.Read("Xs").value.Number(), 31);
  EXPECT_EQ(rectangle.Write("Xs", 32).result, S_OK);
  EXPECT_EQ(contract.Read("Xs").value.Number(), 32);
}

// --- Collision maps ---

/// A map of cells of one byte, as a host makes it.
class Map {
 public:
  Map(ULONG width, ULONG height) {
    SAFEARRAYBOUND bounds[] = {{width, 0}, {height, 0}};
    array = SafeArrayCreate(VT_UI1, 2, bounds);
  }
  Map(const Map&) = delete;
  Map& operator=(const Map&) = delete;
  ~Map() { SafeArrayDestroy(array); }
  void Occupy(LONG x, LONG y) {
    LONG place[] = {x, y};
    BYTE taken = 1;
    EXPECT_EQ(SafeArrayPutElement(array, place, &taken), S_OK);
  }
  /// By value; the caller of a member keeps what it passes.
  Value AsValue() const {
    SAFEARRAY* copy = nullptr;
    SafeArrayCopy(array, &copy);
    return Value::Of(VT_ARRAY | VT_UI1, copy);
  }
  Value AsReference() { return Value::Place(VT_ARRAY | VT_UI1, &array); }

  SAFEARRAY* array;
};

TEST_F(Boundary, ACollisionMapIsReadAndNotWrittenBack) {
  const Pointer variable = Pointer::Create("clsVar");
  EXPECT_EQ(variable.Write("VarType", eVT_Numeric).result, S_OK);
  for (const char* place : {"Xs", "Ys"}) EXPECT_EQ(variable.Write(place, 10).result, S_OK);
  for (const char* size : {"Dx", "Dy"}) EXPECT_EQ(variable.Write(size, 20).result, S_OK);
  const Pointer contract = variable.Face("ItfHmiElement");
  Map map(100, 50);
  const auto states = [&] {
    const SAFEARRAY* array = map.array;
    const void* cells = map.array->pvData;
    Value holder = map.AsValue();
    const SAFEARRAY* held = holder.Raw().value.parray;
    std::vector<LONG> told;
    for (const Value& argument : {map.AsValue(), map.AsReference(), Value::Place(holder)}) {
      const Outcome outcome = contract.Call("GetTransformState", {argument});
      EXPECT_EQ(outcome.result, S_OK) << outcome.description;
      EXPECT_EQ(outcome.value.Kind(), VT_I4);
      told.push_back(outcome.value.Number());
    }
    EXPECT_EQ(map.array, array);
    EXPECT_EQ(map.array->pvData, cells);
    EXPECT_EQ(map.array->cLocks, 0u);
    EXPECT_EQ(holder.Kind(), VT_ARRAY | VT_UI1);
    EXPECT_EQ(holder.Raw().value.parray, held);
    return told;
  };
  EXPECT_EQ(states(), std::vector<LONG>(3, eCS_Legall));
  // Columns come first: this cell is beside the variable.
  map.Occupy(15, 35);
  EXPECT_EQ(states(), std::vector<LONG>(3, eCS_Legall));
  map.Occupy(25, 15);
  EXPECT_EQ(states(), std::vector<LONG>(3, eCS_Overlap));
  EXPECT_EQ(variable.Write("Xs", 90).result, S_OK);
  EXPECT_EQ(states(), std::vector<LONG>(3, eCS_OutOfRAnge));
}

// --- Reports, collections, recordsets ---

TEST_F(Boundary, AVariableReportsIntoAControlOfTheHosts) {
  HostObject printer;
  printer.Has("Paragraph", Giving(Value()));
  const Pointer variable = Pointer::Create("clsVar");
  EXPECT_EQ(variable.Write("VarType", eVT_Float).result, S_OK);
  LONG number = 12;
  for (const char* name : {"Xs", "Ys", "Dx", "Dy"}) EXPECT_EQ(variable.Write(name, number++).result, S_OK);
  const Outcome reported = variable.Call("CreatePrinterReportEX", {printer.Handed().AsValue()});
  EXPECT_EQ(reported.result, S_OK) << reported.description;
  EXPECT_EQ(CallsOf(printer), (Lines{"Paragraph \"Coordinates (Left,Top,Width,Height): (12,13,14,15)\""}));
  EXPECT_EQ(printer.calls.front().flags, DISPATCH_PROPERTYPUT);
  EXPECT_EQ(printer.calls.front().names, std::vector<DISPID>{DISPID_PROPERTYPUT});
  EXPECT_EQ(printer.references, 0);
}

TEST_F(Boundary, AControlWithoutParagraphsIsToldApart) {
  HostObject printer;
  const Pointer variable = Pointer::Create("clsVar");
  EXPECT_EQ(variable.Write("VarType", eVT_Float).result, S_OK);
  const Outcome reported = variable.Call("CreatePrinterReportEX", {printer.Handed().AsValue()});
  EXPECT_EQ(reported.result, DISP_E_EXCEPTION);
  EXPECT_EQ(reported.scode, kRuntimeErrors + 438);
  EXPECT_EQ(reported.argument, std::nullopt);
  EXPECT_EQ(printer.references, 0);
}

TEST_F(Boundary, FontsAreRenumberedByACollection) {
  const Pointer numbers = Pointer::In(services_.Call("NewCollection").value);
  EXPECT_EQ(numbers.Call("Add", {7, "2"}).result, S_OK);
  EXPECT_EQ(numbers.Call("Add", {8, "5"}).result, S_OK);
  const Pointer number = Pointer::Create("clsVarNumeric");
  const Pointer handler = number.Face("ItfVarBinaryHandler");
  // Fonts are the drawing element's too; the collection goes over by value and by reference.
  EXPECT_EQ(number.Write("FontNumber", 5).result, S_OK);
  IDispatch* place = numbers.Get();
  EXPECT_EQ(handler.Call("ValidateFontNumber", {Value::Place(VT_DISPATCH, &place)}).result, S_OK);
  EXPECT_EQ(place, numbers.Get());
  EXPECT_EQ(number.Read("FontNumber").value.Number(), 8);
  EXPECT_EQ(number.Write("FontNumber", 2).result, S_OK);
  EXPECT_EQ(handler.Call("ValidateFontNumber", {numbers.AsValue()}).result, S_OK);
  EXPECT_EQ(number.Read("FontNumber").value.Number(), 7);
}

TEST_F(Boundary, CollectionsAreEnumerated) {
  const Pointer collection = Pointer::In(services_.Call("NewCollection").value);
  EXPECT_EQ(collection.Call("Add", {7, "seven"}).result, S_OK);
  EXPECT_EQ(collection.Call("Add", {"text"}).result, S_OK);
  EXPECT_EQ(collection.Call("Add", {Rectangle().AsValue()}).result, S_OK);
  EXPECT_EQ(collection.Invoke(DISPID_VALUE, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {"seven"}).value.Number(),
            7);
  const Outcome walked = collection.Invoke(DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
  ASSERT_EQ(walked.value.Kind(), VT_UNKNOWN);
  IUnknown* unknown = walked.value.Raw().value.punkVal;
  IEnumVARIANT* values = nullptr;
  ASSERT_EQ(unknown->lpVtbl->QueryInterface(unknown, &IID_IEnumVARIANT, reinterpret_cast<void**>(&values)),
            S_OK);
  Value got[3];
  ULONG fetched = 0;
  VARIANT raw[4];
  EXPECT_EQ(values->lpVtbl->Next(values, 4, raw, &fetched), S_FALSE);
  ASSERT_EQ(fetched, 3u);
  for (std::size_t place = 0; place < 3; ++place) got[place].Raw() = raw[place];
  EXPECT_EQ(Shown(got[0]), "7");
  EXPECT_EQ(Shown(got[1]), "\"text\"");
  EXPECT_EQ(Pointer::In(got[2]).Read("Xs").value.Number(), 12);
  EXPECT_EQ(values->lpVtbl->Release(values), 1u);
}

TEST_F(Boundary, ElementsAreLoadedFromARecordset) {
  const Pointer saved = Rectangle();
  Save(saved);
  const LONG id = saved.Read("ID").value.Number();
  const Value rows =
      HostsConnection()
          .Call("Execute", {("SELECT * FROM HMI_Elements WHERE ID=" + std::to_string(id)).c_str()})
          .value;
  const Pointer loaded = Pointer::Create("clsRectangle");
  const Outcome outcome = loaded.Face("ItfHmiElement").Call("LoadFromDB", {rows});
  EXPECT_EQ(outcome.result, S_OK) << outcome.description;
  EXPECT_EQ(loaded.Read("ID").value.Number(), id);
  for (const auto& [name, value] :
       std::initializer_list<std::pair<const char*, LONG>>{{"Xs", 12}, {"Ys", 13}, {"Dx", 14}, {"Dy", 15}}) {
    EXPECT_EQ(loaded.Read(name).value.Number(), value) << name;
  }
}

TEST_F(Boundary, ElementsAreNotLoadedFromAnythingElse) {
  const Pointer contract = Rectangle().Face("ItfHmiElement");
  for (const Value& wrong : {Rectangle().AsValue(), Value("rows")}) {
    const Outcome outcome = contract.Call("LoadFromDB", {wrong});
    EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.argument, 0u);
  }
  // An object of the host may be a recordset: it turns out when a member is missing.
  HostObject stranger;
  const Outcome missing = contract.Call("LoadFromDB", {stranger.Handed().AsValue()});
  EXPECT_EQ(missing.result, DISP_E_EXCEPTION);
  EXPECT_EQ(missing.scode, kRuntimeErrors + 438);
  const Outcome nothing = contract.Call("LoadFromDB", {Pointer().AsValue()});
  EXPECT_EQ(nothing.result, DISP_E_EXCEPTION);
  EXPECT_EQ(nothing.scode, kRuntimeErrors + 91);
  EXPECT_EQ(nothing.argument, 0u);
}

}  // namespace
}  // namespace quenzel7::server
