#include "platform/ado/row_for.h"

#include <string>

#include "platform/automation/convert.h"

namespace quenzel7::ado {
namespace {

/// The value as a statement has it.
std::string Written(const automation::Variant& value) {
  if (!value.IsText()) return automation::To<std::string>(value);
  std::string text = "'";
  for (const char c : value.Text()) text.append(c == '\'' ? 2 : 1, c);
  return text += '\'';
}

}  // namespace

RecordsetRef RowFor(Connection& connection, std::string_view table, std::initializer_list<KeyValue> keys) {
  std::string query = "SELECT * FROM ";
  query.append(table);
  const char* joint = " WHERE ";
  for (const KeyValue& key : keys) {
    query.append(joint).append(key.column).append("=") += Written(key.value);
    joint = " AND ";
  }
  RecordsetRef row = OpenRecordset(connection, query, adOpenStatic, adLockOptimistic);
  if (row->Eof()) {
    row->AddNew();
    for (const KeyValue& key : keys) row->Put(key.column, key.value);
  }
  return row;
}

}  // namespace quenzel7::ado
