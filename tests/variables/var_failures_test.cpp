/// A project, a host and a handler that fail under a variable, at each call in turn: the error comes through,
/// what was done before it stands, what comes after it is not done, and the variable can be used again.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/ado/sqlite_connection.h"
#include "tests/platform/ado/failing_vfs.h"
#include "tests/support/raises.h"
#include "tests/support/saved_variable.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::ErrorOf;

constexpr Long kDatabaseError = static_cast<Long>(automation::ErrorNumber::Database);

class FailingRowOfVariable : public test::SavedVariable {
 protected:
  /// Lets each of the calls that an action on a new variable makes fail in turn; `make` gives the variable,
  /// `check` is told the calls of the whole action and the number of the one that failed.
  template <class Make, class Action, class Check>
  void FailAtEachCall(Make make, Action action, Check check) {
    CallLog calls;
    {
      Empty();
      const auto whole = make();
      TakeLog();
      action(*whole);
      calls = TakeLog();
    }
    ASSERT_FALSE(calls.empty());
    for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
      Empty();
      const auto variable = make();
      TakeLog();
      Changes().Clear();
      Events().Clear();
      Recorder().FailAt(step + 1);
      const test::Raised raised = test::RaisedBy([&] { action(*variable); });
      Recorder().FailAt(0);
      EXPECT_EQ(raised.number, kDatabaseError) << step << ": " << calls[static_cast<std::size_t>(step)];
      EXPECT_EQ(TakeLog().size(), static_cast<std::size_t>(step) + 1) << step;
      check(calls, step, *variable);
    }
  }

  /// Takes everything out of the project. The next element has another ID than those before.
  void Empty() {
    for (const char* table : {"HMI_Elements", "ElementsAndImages", "HMI_Operands", "Operands"}) {
      Connection().Execute(std::string("DELETE FROM ") + table);
    }
  }

  bool WasTold(corvane1::ProjectEventKind kind) {
    for (const corvane1::ProjectEvent& event : Events().Events()) {
      if (event.kind == kind) return true;
    }
    return false;
  }
};

TEST_F(FailingRowOfVariable, ANewOneWhoseSavingFailsHasOnlyDoneWhatCameBefore) {
  FailAtEachCall(
      [this] {
        auto variable = WithNotedHandler(eVT_Trend);
        variable->GlobalVarID(36);
        variable->TabIndex(255);
        return variable;
      },
      [](clsVar& variable) { variable.SaveToDB(); },
      [this](const CallLog& calls, int step, clsVar& variable) {
        EXPECT_EQ(Elements().size(), step > PlaceOf("Update", calls) ? 1u : 0u) << step;
        const int idRead = PlaceOf("get ID", CallLog(calls.begin() + 3, calls.end())) + 3;
        EXPECT_EQ(variable.ID() != -1, step > idRead) << step;
        EXPECT_EQ(variable.TabIndex(), step > PlaceOf("Close", calls) ? 0 : 255) << step;
        EXPECT_EQ(WasTold(corvane1::ProjectEventKind::GlobalVarKeypad),
                  step > PlaceOf("global keypad 36", calls))
            << step;
        EXPECT_EQ(WasTold(corvane1::ProjectEventKind::ElementSaved), step > PlaceOf("saved 5", calls))
            << step;
        EXPECT_TRUE(Changes().ChangedPages().empty()) << step;
        // Saved again, it has its row; a row whose number did not come to the variable stays beside it.
        EXPECT_TRUE(variable.SaveToDB());
        EXPECT_EQ(Elements().size(), step == idRead ? 2u : 1u) << step;
      });
}

TEST_F(FailingRowOfVariable, AnOldOneWhoseSavingFailsKeepsItsRow) {
  for (const auto save : {&clsVar::SaveToDB, &clsVar::SaveToDBEx}) {
    FailAtEachCall(
        [this] {
          auto variable = WithNotedHandler(eVT_TankGraph);
          variable->SaveToDB();
          variable->VarName("changed");
          return variable;
        },
        [save](clsVar& variable) { (variable.*save)(); },
        [this](const CallLog& calls, int step, clsVar& variable) {
          const std::string id = std::to_string(variable.ID());
          EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "Text"}),
                    CallLog{id + (step > PlaceOf("Update", calls) ? " changed" : " level")})
              << step;
          EXPECT_EQ(WasTold(corvane1::ProjectEventKind::VarKeypad), step > PlaceOf("keypad 5", calls))
              << step;
          EXPECT_FALSE(WasTold(corvane1::ProjectEventKind::ElementSaved)) << step;
          EXPECT_TRUE(variable.SaveToDB());
          EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "Text"}), CallLog{id + " changed"});
        });
  }
}

TEST_F(FailingRowOfVariable, LoadingThatFailsHasOnlyTakenWhatCameBefore) {
  ado::RecordsetRef row;
  Long id = -1;
  FailAtEachCall(
      [&] {
        auto saved = WithNotedHandler(eVT_ListImage);
        saved->SaveToDB();
        Connection().Execute("UPDATE HMI_Elements SET DefaultDisplay=2, FontNumber=5");
        Link(saved->ID(), 0, 61, 3);
        Link(saved->ID(), 1, 62, 3);
        row = RowOf(saved->ID());
        id = saved->ID();
        auto variable = std::make_shared<clsVar>();
        variable->SetBinaryHandler(eVT_ListImage, NotedHandler());
        variable->TabIndex(255);
        return variable;
      },
      [&](clsVar& variable) { variable.LoadFromDB(*row); },
      [&](const CallLog& calls, int step, clsVar& variable) {
        const clsVar fresh;
        const auto isPast = [&](const std::string& call) { return step > PlaceOf(call, calls); };
        const auto expect = [&](const std::string& column, Long actual, Long loaded, Long before) {
          EXPECT_EQ(actual, isPast("get " + column) ? loaded : before) << column << ' ' << step;
        };
        expect("ID", variable.ID(), id, -1);
        expect("GroupID", variable.GroupID(), 11, -1);
        expect("Xs", variable.Xs(), 12, 0);
        expect("Ys", variable.Ys(), 13, 0);
        expect("Dx", variable.Dx(), 140, 0);
        expect("Dy", variable.Dy(), 150, 0);
        expect("TouchOprndAddr", variable.TouchOprndAddr(), 22, -1);
        expect("EnabledOpAddr", variable.EnabledOpAddr(), 28, -1);
        expect("VisibleOpAddr", variable.VisibleOpAddr(), 23, -1);
        expect("HighlightOpAddr", variable.HighlightOpAddr(), 29, -1);
        expect("KeypadSuccessOpAddr", variable.KeypadSuccessOpAddr(), 30, -1);
        expect("VarType", variable.VarType(), eVT_ListImage, eVT_BinaryText);
        expect("VarKeyPadEntry", variable.KeypadEntry(), 1, 0);
        if (isPast("get VarType")) {
          expect("VarOprndType", variable.OperandType(), 24, 0);
          expect("VarOprndAddr", variable.OperandAddress(), 25, 0);
        }
        EXPECT_EQ(variable.VarName(), isPast("get Text") ? "level" : "") << step;
        expect("DefaultDisplay", variable.DefaultDisplay(), 2, 1);
        EXPECT_EQ(variable.HatchStyle(), isPast("handler.BuildImageList") ? eHS_Cross : eHS_None) << step;
        expect("ColorBack", variable.ColorBack(), 16, fresh.ColorBack());
        expect("ColorBackTouch", variable.ColorBackTouch(), 18, fresh.ColorBackTouch());
        expect("Alignment", variable.Alignment(), 7, 4);
        expect("FontNumber", variable.FontNumber(), 5, fresh.FontNumber());
        expect("DescriptionFontNumber", variable.DescriptionFontNumber(), 6, fresh.DescriptionFontNumber());
        EXPECT_EQ(variable.GetColOpPropertyBag()->Count(), isPast("handler.BuildOpPropBag") ? 6 : 0) << step;
        const int transparency = PlaceOf("get TransparencyLevel", calls);
        EXPECT_EQ(variable.TransparencyLevel(), step > transparency + 1 ? 3 : 0) << step;
        expect("StorageText", variable.StorageText(), 31, 0);
        expect("StorageLibNum", variable.StorageLibNum(), 32, 0);
        expect("StrStorageOprndType", variable.ListText()->StorageStringType(), 33, 0);
        expect("StrStorageOprndAddr", variable.ListText()->StorageStringID(), 34, -1);
        // Loaded again, it has everything.
        EXPECT_TRUE(variable.LoadFromDB(*row));
        EXPECT_EQ(variable.ListText()->StorageFont(), 35);
        EXPECT_EQ(variable.OperandAddress(), 25);
        row = nullptr;
      });
}

TEST_F(FailingRowOfVariable, ADeletionThatFailsHasOnlyDoneWhatCameBefore) {
  FailAtEachCall(
      [this] {
        auto variable = WithNotedHandler(eVT_Trend);
        variable->GlobalVarID(36);
        variable->SaveToDB();
        Link(variable->ID(), 0, 61);
        Define(22);
        Define(30);
        return variable;
      },
      [](clsVar& variable) { static_cast<ItfHmiElement&>(variable).DeleteFromDB(); },
      [this](const CallLog& calls, int step, clsVar&) {
        const auto isPast = [&](const std::string& call) { return step > PlaceOf(call, calls); };
        EXPECT_EQ(Elements().empty(), isPast("execute DELETE * FROM HMI_Elements")) << step;
        EXPECT_EQ(WasTold(corvane1::ProjectEventKind::ElementDeleted), isPast("deleted 5")) << step;
        EXPECT_EQ(WasTold(corvane1::ProjectEventKind::GlobalElementDeleted), isPast("global gone")) << step;
        EXPECT_EQ(IsDefined(22), !isPast("execute DELETE * FROM HMI_Operands")) << step;
        EXPECT_EQ(IsDefined(30), !isPast("execute DELETE * FROM HMI_Operands")) << step;
        EXPECT_EQ(Rows("SELECT * FROM ElementsAndImages", {"Element_ID"}).empty(),
                  isPast("execute DELETE * FROM ElementsAndImages"))
            << step;
        EXPECT_TRUE(Changes().ChangedPages().empty()) << step;
      });
}

TEST_F(FailingRowOfVariable, RestoringThatFailsHasOnlyDoneWhatCameBefore) {
  FailAtEachCall(
      [this] {
        auto variable = WithNotedHandler(eVT_Trend);
        variable->SaveToDB();
        variable->BuildOpPropBag();
        return variable;
      },
      [](clsVar& variable) { variable.RestoreAllOperands(); },
      [this](const CallLog& calls, int step, clsVar& variable) {
        ASSERT_EQ(calls.size(), 7u);
        EXPECT_EQ(calls.back(), "handler.RestoreAllOperands 5");
        EXPECT_EQ(OperandRows().size(), static_cast<std::size_t>(step));
        EXPECT_EQ(variable.OperandAddress(), 25);
        // What is entered and has no row yet is that of the failing call.
        const Long addresses[] = {22, 25, 28, 23, 29, 30};
        for (int place = 0; place < 6; ++place) {
          EXPECT_EQ(IsDefined(addresses[place], place == 1 ? 24 : 1), place <= step) << place << step;
        }
      });
}

TEST_F(FailingRowOfVariable, AReplicaThatFailsLeavesTheVariableAsItIs) {
  FailAtEachCall(
      [this] {
        auto variable = WithNotedHandler(eVT_BarGraph);
        variable->SaveToDB();
        return variable;
      },
      [](clsVar& variable) { variable.Replica(); },
      [](const CallLog&, int step, clsVar& variable) {
        EXPECT_EQ(variable.VarName(), "level") << step;
        EXPECT_NE(variable.Replica(), nullptr);
      });
}

/// Raises when it is asked for what a variable asks it.
class FailingHost final : public corvane1::MessageService, public corvane1::NumberGenerator {
 public:
  Long ShowMessage(Long, automation::Variant&) override { Fail("message"); }
  Long NewUniqueNumber() override { Fail("number"); }

 private:
  [[noreturn]] static void Fail(const char* what) {
    throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, what);
  }
};

TEST_F(FailingRowOfVariable, AHostThatGivesNoNumberLetsNothingBeSaved) {
  Platform::Current().numberGenerator = std::make_shared<FailingHost>();
  const auto variable = Distinct();
  TakeLog();
  EXPECT_RAISES(5, "number", variable->SaveToDB());
  EXPECT_EQ(TakeLog(), (CallLog{"open SELECT * FROM HMI_ELEMENTS WHERE ID=-1 [3,3,1]", "AddNew", "get ID"}));
  EXPECT_EQ(variable->ID(), -1);
  EXPECT_TRUE(Elements().empty());
}

TEST_F(FailingRowOfVariable, AHostThatCannotShowTheRefusalIsAnError) {
  Platform::Current().messageService = std::make_shared<FailingHost>();
  Connection().Execute("INSERT INTO HMI_Elements (ID) VALUES (32767)");
  const auto variable = Distinct();
  EXPECT_RAISES(5, "message", variable->SaveToDB());
  EXPECT_EQ(variable->ID(), -1);
  EXPECT_EQ(Elements(), CallLog{"32767"});
}

TEST_F(FailingRowOfVariable, WithoutAProjectEverythingIsError91) {
  const auto saved = Distinct();
  saved->SaveToDB();
  const auto database = Platform::Current().projectDatabase;
  Platform::Current().projectDatabase = std::make_shared<corvane1::HeldProjectDatabase>();
  EXPECT_EQ(ErrorOf([&] { Distinct()->SaveToDB(); }), 91);
  EXPECT_EQ(ErrorOf([&] { saved->SaveToDB(); }), 91);
  EXPECT_EQ(ErrorOf([&] { saved->SaveToDBEx(); }), 91);
  EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*saved).DeleteFromDB(); }), 91);
  EXPECT_EQ(ErrorOf([&] { saved->Replica(); }), 91);
  Platform::Current().projectDatabase = database;
  EXPECT_TRUE(saved->SaveToDB());
}

TEST_F(FailingRowOfVariable, ARefusedRowLeavesWhatTheHandlerSaved) {
  const auto variable = WithNotedHandler(eVT_Trend);
  variable->SaveToDB();
  dynamic_cast<test::HandlerInRow&>(*variable->BinaryHandlers(eVT_Trend)).whileSaved = [this] {
    Connection().Execute("INSERT INTO ElementsAndImages (Element_ID,Image_CRC) VALUES (5,61)");
  };
  Connection().Execute(
      "CREATE TRIGGER Refuse BEFORE UPDATE ON HMI_Elements BEGIN SELECT RAISE(ABORT, 'refused'); END");
  TakeLog();
  const test::Raised raised = test::RaisedBy([&] { variable->SaveToDB(); });
  EXPECT_EQ(raised.number, kDatabaseError);
  EXPECT_NE(raised.description.find("refused"), std::string::npos) << raised;
  const CallLog log = TakeLog();
  EXPECT_EQ(CallLog(log.end() - 2, log.end()), (CallLog{"handler.SaveToDB 5 23", "Update"}));
  EXPECT_EQ(Rows("SELECT * FROM ElementsAndImages", {"Element_ID", "Image_CRC"}), CallLog{"5 61"});
}

TEST_F(FailingRowOfVariable, AReadOnlyProjectLoadsAndRefusesEveryChange) {
  Distinct()->SaveToDB();
  CloseProject();
  const auto project = corvane1::OpenProject(Path(), corvane1::ProjectMode::ReadOnly);
  const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
  database->Hold(project);
  Platform::Current().heldProject->Hold(project);
  Platform::Current().projectDatabase = database;
  const auto row = project->Execute("SELECT * FROM HMI_Elements");
  clsVar loaded;
  EXPECT_TRUE(loaded.LoadFromDB(*row));
  EXPECT_EQ(loaded.VarName(), "level");
  row->Close();
  const auto expectRefused = [](const auto& change) {
    const test::Raised raised = test::RaisedBy(change);
    EXPECT_EQ(raised.number, kDatabaseError);
    EXPECT_NE(raised.description.find("attempt to write a readonly database"), std::string::npos) << raised;
  };
  expectRefused([&] { loaded.SaveToDB(); });
  expectRefused([&] { loaded.SaveToDBEx(); });
  expectRefused([&] { Distinct()->SaveToDB(); });
  expectRefused([&] { static_cast<ItfHmiElement&>(loaded).DeleteFromDB(); });
  expectRefused([&] { loaded.RestoreAllOperands(); });
  expectRefused([&] { loaded.Replica(); });
  Platform::Current().heldProject->Hold(nullptr);
  database->Hold(nullptr);
  project->Close();
}

/// Saving twice, restoring and deleting with no transaction around: what was written before the failing write
/// stays.
TEST_F(FailingRowOfVariable, ADiskThatFillsUpAtEachWriteInTurnLeavesAWholeProject) {
  const auto kept = Distinct();
  kept->SaveToDB();
  CloseProject();
  const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
  Platform::Current().projectDatabase = database;
  ado::FailingVfs disk;
  bool failedOnce = false;
  for (int write = 1; write < 2000; ++write) {
    const test::TemporaryFolder folder;
    const std::string path = folder.File("copy.qz7");
    std::filesystem::copy_file(Path(), path);
    bool failed = false;
    {
      const auto project =
          corvane1::OpenProject(path, corvane1::ProjectMode::Open, {.fileSystem = disk.Name()});
      Platform::Current().heldProject->Hold(project);
      database->Hold(project);
      disk.FailAt(write);
      const auto added = Distinct();
      const test::Raised raised = test::RaisedBy([&] {
        added->SaveToDB();
        added->BuildOpPropBag();
        added->SaveToDB();
        added->RestoreAllOperands();
        static_cast<ItfHmiElement&>(*kept).DeleteFromDB();
        project->Execute("PRAGMA wal_checkpoint(TRUNCATE)");
      });
      failed = disk.Failures() > 0;
      if (raised.number != 0) {
        EXPECT_EQ(raised.number, kDatabaseError);
        EXPECT_NE(raised.description.find("full"), std::string::npos) << raised;
        failedOnce = true;
      }
      disk.Heal();
      // The object can still be used: what failed is made good.
      if (added->ID() == -1) {
        EXPECT_EQ(ErrorOf([&] { added->SaveToDB(); }), 0);
      }
      Platform::Current().heldProject->Hold(nullptr);
      database->Hold(nullptr);
      project->Close();
    }
    EXPECT_EQ(disk.OpenFiles(), 0);
    const auto again = corvane1::OpenProject(path, corvane1::ProjectMode::Open);
    const Long elements =
        automation::To<Long>(again->Execute("SELECT COUNT(*) AS N FROM HMI_Elements")->Get("N"));
    EXPECT_GE(elements, 1);
    EXPECT_LE(elements, 2);
    again->Close();
    if (!failed) {
      EXPECT_TRUE(failedOnce);
      return;
    }
  }
  FAIL() << "some write failed every time";
}

}  // namespace
}  // namespace quenzel7
