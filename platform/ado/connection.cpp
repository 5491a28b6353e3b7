#include "platform/ado/connection.h"

#include "platform/automation/automation_error.h"
#include "platform/automation/member.h"

namespace quenzel7::ado {
namespace {

using automation::Member;
using automation::Method;

constexpr Member kMembers[] = {
    Method<Connection, &Connection::Execute>(
        "Execute", "Runs a statement; a query gives a recordset of its rows.", "statement"),
    Method<Connection, &Connection::CreateRecordset>("CreateRecordset", "A recordset that is not yet open."),
    Method<Connection, &Connection::BeginTrans>("BeginTrans", "Begins a transaction."),
    Method<Connection, &Connection::CommitTrans>("CommitTrans", "Makes the transaction lasting."),
    Method<Connection, &Connection::RollbackTrans>("RollbackTrans", "Undoes the transaction."),
    Method<Connection, &Connection::Close>("Close", "Ends the connection."),
};

}  // namespace

const automation::ClassInfo& Connection::ClassOf() {
  static const automation::Interface interface("Connection", kMembers);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{kClassName, interfaces, nullptr};
  return info;
}

bool IsSameConnection(const ConnectionRef& connection, const std::weak_ptr<Connection>& noted) {
  return connection && !connection.owner_before(noted) && !noted.owner_before(connection);
}

Transaction::~Transaction() {
  if (!open_) return;
  try {
    connection_.RollbackTrans();
  } catch (const automation::AutomationError&) {
    // See the class: nothing better can be done here.
  }
}

void Transaction::Commit() {
  connection_.CommitTrans();
  open_ = false;
}

}  // namespace quenzel7::ado
