#pragma once

#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// A kind of cells that arrays can have.
struct CellKind {
  VARTYPE kind = VT_EMPTY;
  ULONG bytes = 0;
  USHORT feature = 0;  ///< of arrays whose cells own something
};

/// The kind of that number; nullptr when arrays cannot hold such cells.
const CellKind* FindCellKind(VARTYPE kind);

/// The kind of the cells of an array with such a feature; nullptr when they own nothing.
const CellKind* FindOwningKind(USHORT features);

/// Makes a cell of raw memory a copy that owns its contents. A failure leaves it as it is: E_OUTOFMEMORY, and
/// what VariantCopy gives.
HRESULT CopyCell(const CellKind& kind, const void* from, void* to);

/// Frees what a cell owns, and leaves raw memory.
void FreeCell(const CellKind& kind, void* cell);

}  // namespace quenzel7::server
