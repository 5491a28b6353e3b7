#pragma once

#include <cstddef>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/variant.h"

namespace quenzel7::server {

/// Values as an array of one dimension, indices from 0: a record that hosts read field by field, or a list of
/// records.
automation::Variant ArrayOf(std::vector<automation::Variant> values);

/// A list of records: of each entry the array of the fields that the function tells.
template <class Entries, class FieldsOf>
automation::Variant Rows(const Entries& entries, FieldsOf fieldsOf) {
  std::vector<automation::Variant> rows;
  rows.reserve(entries.size());
  for (const auto& entry : entries) rows.push_back(ArrayOf(fieldsOf(entry)));
  return ArrayOf(std::move(rows));
}

/// The fields of a record.
using Fields = std::vector<automation::Variant>;

}  // namespace quenzel7::server
