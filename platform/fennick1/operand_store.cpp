#include "platform/fennick1/operand_store.h"

#include <utility>

#include "platform/ado/row_for.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/convert.h"

namespace quenzel7::fennick1 {
namespace {

std::string RowOf(const OperandKey& key) {
  return " FROM Operands WHERE Type=" + std::to_string(key.type) +
         " AND Address=" + std::to_string(key.address) + " AND NetID=" + std::to_string(key.network);
}

}  // namespace

ProjectOperandStore::ProjectOperandStore(std::function<ado::ConnectionRef()> connection)
    : connection_(std::move(connection)) {}

std::optional<OperandContent> ProjectOperandStore::Load(const OperandKey& key) {
  const auto row = ado::OpenRecordset(*connection_(), "SELECT Comment, Value" + RowOf(key), ado::adOpenStatic,
                                      ado::adLockReadOnly);
  std::optional<OperandContent> content;
  if (!row->Eof()) {
    content = {automation::To<std::string>(row->Get("Comment")), automation::To<Currency>(row->Get("Value"))};
  }
  row->Close();
  return content;
}

void ProjectOperandStore::Add(const OperandKey& key, const OperandContent& content) {
  const auto row = ado::RowFor(*connection_(), "Operands",
                               {{"Type", key.type}, {"Address", key.address}, {"NetID", key.network}});
  row->Put("Comment", content.comment);
  row->Put("Value", content.value);
  row->Update();
  row->Close();
}

void ProjectOperandStore::Remove(const OperandKey& key) { connection_()->Execute("DELETE *" + RowOf(key)); }

Long ProjectOperandStore::FreeAddress(Long type, Long network) {
  const ado::ConnectionRef connection = connection_();
  if (!Load({type, 0, network})) return 0;
  // Address 0 is taken, so there is a first address without a follower.
  const auto last = connection->Execute("SELECT MIN(Address) AS Found FROM Operands AS Taken WHERE Type=" +
                                        std::to_string(type) + " AND NetID=" + std::to_string(network) +
                                        " AND Address>=0 AND NOT EXISTS (SELECT * FROM Operands AS Following"
                                        " WHERE Following.Type=Taken.Type AND Following.NetID=Taken.NetID"
                                        " AND Following.Address=Taken.Address+1)");
  const automation::Variant found = last->Get("Found");
  last->Close();
  return automation::Add(automation::To<Long>(found), 1);
}

}  // namespace quenzel7::fennick1
