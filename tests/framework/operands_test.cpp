#include "framework/operands.h"

#include <gtest/gtest.h>

#include <map>
#include <tuple>

#include "framework/project.h"
#include "platform/fennick1/operand.h"
#include "tests/support/project_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::PropertyBag;
using automation::PropertyBagRef;
using test::CallLog;
using test::ErrorOf;

class Operands : public test::ProjectTest {
 protected:
  struct Make : fennick1::Operand {
    Make(Long type, Long address) : Operand(Platform::Current().operands) {
      OperandType(type);
      OperandAddress(address);
    }
  };
  static bool IsDefined(Long type, Long address) { return Make(type, address).IsDefined(); }
  static void Define(Long type, Long address) { Make(type, address).AddToProject(); }
};

TEST_F(Operands, AddingARowWritesTheNetworkBeforeThePurpose) {
  AddOperandRow(11, 12, 13, eOP_EnabledOperand, 14);
  EXPECT_EQ(TakeLog(),
            CallLog{"execute INSERT INTO HMI_Operands "
                    "(ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) VALUES (11,12,13,14,4)"});
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"11 12 13 14 4"});
}

TEST_F(Operands, AddingARowOfType0WritesNothing) {
  AddOperandRow(11, 0, 13, eOP_VarLinkOperand, 0);
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_TRUE(OperandRows().empty());
  AddOperandRow(11, -1, 13, eOP_VarLinkOperand, 0);
  EXPECT_EQ(OperandRows().size(), 1u);
}

TEST_F(Operands, EveryPurposeHasItsNumberInTheRow) {
  for (const auto purpose :
       {eOP_VarLinkOperand, eOP_TouchOperand, eOP_VarBinaryDataOperand, eOP_EnabledOperand,
        eOP_VisibleOperand, eOP_HighlightOperand, eOP_KeypadSuccessOperand, eOP_StorageStringIdOperand}) {
    AddOperandRow(1, 1, 5, purpose, 0);
  }
  EXPECT_EQ(OperandRows(), (std::vector<std::string>{"1 1 5 0 1", "1 1 5 0 2", "1 1 5 0 3", "1 1 5 0 4",
                                                     "1 1 5 0 5", "1 1 5 0 6", "1 1 5 0 7", "1 1 5 0 8"}));
}

TEST_F(Operands, AValueIsThatOfTheOperandOfThatTypeAddressAndNetwork) {
  Make operand(34, 5);
  operand.OperandValue(Currency{70000});
  operand.AddToProject();
  Make other(34, 5);
  other.OperandNetID(2);
  other.OperandValue(Currency{-1});
  other.AddToProject();
  EXPECT_EQ(OperandValueOf(34, 5, 0), Currency{70000});
  EXPECT_EQ(OperandValueOf(34, 5, 2), Currency{-1});
  EXPECT_EQ(OperandValueOf(34, 6, 0), Currency{0});
  EXPECT_EQ(OperandValueOf(35, 5, 0), Currency{0});
}

TEST_F(Operands, RemovingARowTakesThatRowAndTheOperand) {
  AddOperandRow(1, 2, 3, eOP_TouchOperand, 0);
  AddOperandRow(9, 2, 3, eOP_TouchOperand, 0);
  AddOperandRow(1, 9, 3, eOP_TouchOperand, 0);
  AddOperandRow(1, 2, 9, eOP_TouchOperand, 0);
  AddOperandRow(1, 2, 3, eOP_TouchOperand, 9);
  AddOperandRow(1, 2, 3, eOP_VisibleOperand, 0);
  Define(2, 3);
  Define(2, 4);
  TakeLog();
  RemoveOperandRow(1, 2, 3, 0, eOP_TouchOperand);
  EXPECT_EQ(TakeLog(),
            CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=1 AND OprndType=2 AND OprndAddr=3 "
                    "AND OprndNetID =0 AND OprndPurpose=2"});
  EXPECT_EQ(OperandRows().size(), 5u);
  EXPECT_FALSE(IsDefined(2, 3));
  EXPECT_TRUE(IsDefined(2, 4));
}

TEST_F(Operands, RemovingAllRowsTakesTheElementsRowsAndLeavesTheOperands) {
  AddOperandRow(1, 2, 3, eOP_TouchOperand, 0);
  AddOperandRow(1, 2, 4, eOP_VisibleOperand, 0);
  AddOperandRow(2, 2, 3, eOP_TouchOperand, 0);
  Define(2, 3);
  TakeLog();
  RemoveAllOperandRows(1);
  EXPECT_EQ(TakeLog(), CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=1"});
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"2 2 3 0 2"});
  EXPECT_TRUE(IsDefined(2, 3));
}

TEST_F(Operands, ReleasingTakesTheOperandOutWhetherDefinedOrNot) {
  Define(1, 5);
  ReleaseOperand(1, 5);
  EXPECT_FALSE(IsDefined(1, 5));
  ReleaseOperand(1, 5);
  EXPECT_FALSE(IsDefined(1, 5));
}

TEST_F(Operands, ABagIsAFullCopy) {
  Make operand(1, 5);
  operand.OperandComment("pump");
  operand.AddToProject();
  const PropertyBagRef bag = NewOperandBag(1, 5, 0);
  ReleaseOperand(1, 5);

  Long type = 1, address = 5;
  RestoreOperand(type, address, bag);
  Make restored(1, 5);
  EXPECT_TRUE(restored.IsDefined());
  EXPECT_EQ(restored.OperandComment(), "pump");
  EXPECT_EQ(type, 1);
  EXPECT_EQ(address, 5);
}

TEST_F(Operands, ABagOfAnUndefinedOperandNamesItAllTheSame) {
  Long type = 1, address = 5;
  RestoreOperand(type, address, NewOperandBag(1, 5, 0));
  EXPECT_TRUE(IsDefined(1, 5));
}

TEST_F(Operands, RestoringAPlaceInMemoryThatStillExistsChangesNothing) {
  Make operand(1, 5);
  operand.OperandComment("old");
  operand.AddToProject();
  const PropertyBagRef bag = NewOperandBag(1, 5, 0);
  operand.OperandComment("new");
  operand.AddToProject();
  Long type = 7, address = 8;
  RestoreOperand(type, address, bag);
  Make now(1, 5);
  EXPECT_TRUE(now.IsDefined());
  EXPECT_EQ(now.OperandComment(), "new");
  EXPECT_EQ(type, 7);
  EXPECT_EQ(address, 8);
}

TEST_F(Operands, RestoringType0DoesNothing) {
  const PropertyBagRef bag = NewOperandBag(0, 5, 0);
  Long type = 7, address = 8;
  RestoreOperand(type, address, bag);
  EXPECT_EQ(type, 7);
  EXPECT_EQ(address, 8);
  EXPECT_FALSE(IsDefined(0, 5));
}

TEST_F(Operands, RestoringAValueMakesANewOperandAtAFreeAddress) {
  struct Row {
    Long kept, restored;
  };
  for (const Row row : {Row{15, 15}, Row{34, 37}, Row{35, 38}, Row{37, 37}, Row{38, 38}}) {
    Make operand(row.kept, 3);
    const Currency value{row.kept * 1000001 + 7};
    operand.OperandValue(value);
    operand.OperandComment("limit");
    operand.AddToProject();
    const PropertyBagRef bag = NewOperandBag(row.kept, 3, 0);
    Long type = 99, address = 3;
    RestoreOperand(type, address, bag);
    EXPECT_EQ(type, row.kept == 34 || row.kept == 35 ? row.restored : 99) << row.kept;
    EXPECT_NE(address, 3) << row.kept;
    Make restored(row.restored, address);
    EXPECT_TRUE(restored.IsDefined()) << row.kept;
    EXPECT_EQ(restored.OperandComment(), "") << row.kept;
    EXPECT_EQ(restored.OperandValue(), value) << row.kept;
  }
}

TEST_F(Operands, RestoringTheResultOfARestoreGivesAnotherAddress) {
  Define(34, 1);
  Long type = 34, address = 1;
  RestoreOperand(type, address, NewOperandBag(34, 1, 0));
  EXPECT_EQ(type, 37);
  const Long first = address;
  RestoreOperand(type, address, NewOperandBag(type, address, 0));
  EXPECT_EQ(type, 37);
  EXPECT_NE(address, first);
  EXPECT_TRUE(IsDefined(37, first));
  EXPECT_TRUE(IsDefined(37, address));
}

TEST_F(Operands, ABagThatLacksAFieldIsAnError) {
  Long type = 1, address = 1;
  EXPECT_EQ(ErrorOf([&] { RestoreOperand(type, address, std::make_shared<PropertyBag>()); }), 327);
}

/// A store in memory that notes what it is asked, as "load type/address/network" and the like.
class TracedStore final : public fennick1::OperandStore {
 public:
  std::optional<fennick1::OperandContent> Load(const fennick1::OperandKey& key) override {
    Note("load", key);
    const auto found = kept_.find({key.type, key.address, key.network});
    if (found == kept_.end()) return {};
    return found->second;
  }
  void Add(const fennick1::OperandKey& key, const fennick1::OperandContent& content) override {
    Note("add", key);
    kept_[{key.type, key.address, key.network}] = content;
  }
  void Remove(const fennick1::OperandKey& key) override {
    Note("remove", key);
    kept_.erase({key.type, key.address, key.network});
  }
  Long FreeAddress(Long type, Long network) override {
    log_.push_back("free " + std::to_string(type) + "/" + std::to_string(network));
    return 77;
  }
  CallLog Take() { return std::exchange(log_, {}); }

 private:
  void Note(const char* call, const fennick1::OperandKey& key) {
    log_.push_back(std::string(call) + " " + std::to_string(key.type) + "/" + std::to_string(key.address) +
                   "/" + std::to_string(key.network));
  }
  std::map<std::tuple<Long, Long, Long>, fennick1::OperandContent> kept_;
  CallLog log_;
};

class OperandCalls : public Operands {
 protected:
  void SetUp() override {
    Operands::SetUp();
    Platform::Current().operands = store_;
  }

  std::shared_ptr<TracedStore> store_ = std::make_shared<TracedStore>();
};

TEST_F(OperandCalls, ReleasingAsksAndThenRemovesWhateverTheAnswerInNetwork0) {
  ReleaseOperand(1, 5);
  EXPECT_EQ(store_->Take(), (CallLog{"load 1/5/0", "remove 1/5/0"}));
  Define(1, 5);
  store_->Take();
  ReleaseOperand(1, 5);
  EXPECT_EQ(store_->Take(), (CallLog{"load 1/5/0", "remove 1/5/0"}));
}

TEST_F(OperandCalls, RemovingARowRemovesOnlyWhatIsDefinedAndInNetwork0) {
  RemoveOperandRow(1, 2, 3, 4, eOP_TouchOperand);
  EXPECT_EQ(store_->Take(), CallLog{"load 2/3/0"});
  Define(2, 3);
  store_->Take();
  RemoveOperandRow(1, 2, 3, 4, eOP_TouchOperand);
  EXPECT_EQ(store_->Take(), (CallLog{"load 2/3/0", "remove 2/3/0"}));
}

TEST_F(OperandCalls, RestoringKeepsTheNetworkOfTheBag) {
  Long type = 1, address = 5;
  const PropertyBagRef place = NewOperandBag(1, 5, 4);
  const PropertyBagRef value = NewOperandBag(34, 5, 4);
  store_->Take();
  RestoreOperand(type, address, place);
  EXPECT_EQ(store_->Take(), (CallLog{"load 1/5/4", "add 1/5/4"}));
  RestoreOperand(type, address, value);
  EXPECT_EQ(store_->Take(), (CallLog{"free 37/4", "add 37/77/4"}));
}

TEST_F(OperandCalls, ABagIsMadeAfterAskingInItsNetwork) {
  const PropertyBagRef bag = NewOperandBag(2, 3, 4);
  EXPECT_EQ(store_->Take(), (CallLog{"load 2/3/4"}));
  Make operand(0, 0);
  operand.PropBag(bag);
  EXPECT_EQ(operand.OperandType(), 2);
  EXPECT_EQ(operand.OperandAddress(), 3);
  EXPECT_EQ(operand.OperandNetID(), 4);
}

TEST_F(OperandCalls, RestoringAPlaceInMemoryEntersItOnlyWhenItIsGone) {
  const PropertyBagRef bag = NewOperandBag(1, 5, 0);
  store_->Take();
  Long type = 1, address = 5;
  RestoreOperand(type, address, bag);
  EXPECT_EQ(store_->Take(), (CallLog{"load 1/5/0", "add 1/5/0"}));
  RestoreOperand(type, address, bag);
  EXPECT_EQ(store_->Take(), CallLog{"load 1/5/0"});
}

TEST_F(OperandCalls, RestoringAValueTakesAFreeAddressOfTheTypeThatItBecomes) {
  struct Row {
    Long kept, restored;
  };
  for (const Row row : {Row{15, 15}, Row{34, 37}, Row{35, 38}, Row{37, 37}, Row{38, 38}}) {
    const PropertyBagRef bag = NewOperandBag(row.kept, 5, 0);
    store_->Take();
    Long type = row.kept, address = 5;
    RestoreOperand(type, address, bag);
    const std::string restored = std::to_string(row.restored);
    EXPECT_EQ(store_->Take(), (CallLog{"free " + restored + "/0", "add " + restored + "/77/0"}));
    EXPECT_EQ(type, row.restored);
    EXPECT_EQ(address, 77);
  }
}

TEST_F(OperandCalls, Type0IsNeitherRestoredNorDescribed) {
  const PropertyBagRef bag = NewOperandBag(0, 5, 0);
  store_->Take();
  Long type = 0, address = 5;
  RestoreOperand(type, address, bag);
  EXPECT_EQ(OperandDescription(0, 5, 0), "");
  EXPECT_TRUE(store_->Take().empty());
}

TEST_F(OperandCalls, ADescriptionAsksInItsNetwork) {
  OperandDescription(2, 3, 4);
  EXPECT_EQ(store_->Take(), CallLog{"load 2/3/4"});
}

TEST_F(Operands, DescriptionIsTheNameOfADefinedOperand) {
  EXPECT_EQ(OperandDescription(1, 5, 0), "");
  Define(1, 5);
  EXPECT_EQ(OperandDescription(1, 5, 0), "MB 5");
  EXPECT_EQ(OperandDescription(1, 5, 1), "");
  Define(0, 5);
  EXPECT_EQ(OperandDescription(0, 5, 0), "");
}

TEST_F(Operands, ExactlyFiveTypesHoldAValue) {
  for (Long type = -2; type <= 60; ++type) {
    const bool expected = type == 15 || type == 34 || type == 35 || type == 37 || type == 38;
    EXPECT_EQ(IsValueOperandType(type), expected) << type;
  }
}

}  // namespace
}  // namespace quenzel7
