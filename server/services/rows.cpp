#include "server/services/rows.h"

#include <algorithm>
#include <utility>

namespace quenzel7::server {

using automation::Array;
using automation::Variant;

Variant ArrayOf(std::vector<Variant> values) {
  Array array = Array::OfSize(automation::VariantKind::Variant, static_cast<Long>(values.size()));
  std::move(values.begin(), values.end(), array.Cells<Variant>().begin());
  return array;
}

}  // namespace quenzel7::server
