#include "server/abi/cell_kind.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <string>

#include "tests/server/abi/cell_samples.h"
#include "tests/support/counted_object.h"
#include "tests/support/failing_memory.h"
#include "tests/support/nothing_left.h"

namespace quenzel7::server {
namespace {

using test::CountedObject;
using test::Failing;
using test::NothingLeft;

const CellKind& Kind(VARTYPE kind) { return *FindCellKind(kind); }

TEST(CellKind, TheKindsAreThoseOfArraysAndNoOthers) {
  const NothingLeft nothingLeft;
  unsigned published = 0;
  for (unsigned number = 0; number <= 0xFFFF; ++number) {
    const CellKind* const found = FindCellKind(static_cast<VARTYPE>(number));
    const auto& kinds = test::kPublishedKinds;
    if (published == std::size(kinds) || number != kinds[published].kind) {
      EXPECT_EQ(found, nullptr) << number;
      continue;
    }
    ASSERT_NE(found, nullptr) << number;
    EXPECT_EQ(found->kind, number);
    EXPECT_EQ(found->bytes, kinds[published].bytes) << number;
    EXPECT_EQ(found->feature, kinds[published].feature) << number;
    ++published;
  }
  EXPECT_EQ(published, 20u);
}

TEST(CellKind, FeaturesTellTheCellsThatOwnSomething) {
  const NothingLeft nothingLeft;
  EXPECT_EQ(FindOwningKind(0), nullptr);
  EXPECT_EQ(FindOwningKind(0xF0FF), nullptr);
  EXPECT_EQ(FindOwningKind(0x0190), FindCellKind(VT_BSTR));
  EXPECT_EQ(FindOwningKind(0x0280), FindCellKind(VT_UNKNOWN));
  EXPECT_EQ(FindOwningKind(0x0480), FindCellKind(VT_DISPATCH));
  EXPECT_EQ(FindOwningKind(0x0880), FindCellKind(VT_VARIANT));
}

TEST(CellKind, NumbersAreCopiedByTheirBytesAndOwnNothing) {
  const NothingLeft nothingLeft;
  for (const test::PublishedKind& row : test::kPublishedKinds) {
    if (row.feature != 0) continue;
    SCOPED_TRACE(row.kind);
    const std::string from = "abcdefghij";
    std::string to(10, '.');
    EXPECT_EQ(CopyCell(Kind(row.kind), from.data(), to.data()), S_OK);
    EXPECT_EQ(to, from.substr(0, row.bytes) + std::string(10 - row.bytes, '.'));
    FreeCell(Kind(row.kind), to.data());
  }
}

TEST(CellKind, TextsAreCopiedWithAllTheirBytes) {
  const NothingLeft nothingLeft;
  BSTR from = SysAllocStringByteLen("a\0\0\0b", 5), to = nullptr;
  EXPECT_EQ(CopyCell(Kind(VT_BSTR), &from, &to), S_OK);
  EXPECT_NE(to, from);
  ASSERT_EQ(SysStringByteLen(to), 5u);
  EXPECT_EQ(std::memcmp(to, from, 5), 0);
  FreeCell(Kind(VT_BSTR), &from);
  FreeCell(Kind(VT_BSTR), &to);

  const BSTR none = nullptr;
  to = reinterpret_cast<BSTR>(&from);
  EXPECT_EQ(CopyCell(Kind(VT_BSTR), &none, &to), S_OK);
  EXPECT_EQ(to, nullptr);
  FreeCell(Kind(VT_BSTR), &to);
}

TEST(CellKind, ObjectsAreHeldAndLetGo) {
  const NothingLeft nothingLeft;
  for (const VARTYPE kind : {VT_DISPATCH, VT_UNKNOWN}) {
    SCOPED_TRACE(kind);
    CountedObject object;
    void *from = object.Dispatch(), *to = nullptr;
    EXPECT_EQ(CopyCell(Kind(kind), &from, &to), S_OK);
    EXPECT_EQ(to, from);
    EXPECT_EQ(object.Held(), 1);
    FreeCell(Kind(kind), &to);
    EXPECT_EQ(object.Held(), 0);

    from = nullptr;
    EXPECT_EQ(CopyCell(Kind(kind), &from, &to), S_OK);
    EXPECT_EQ(to, nullptr);
    FreeCell(Kind(kind), &to);
  }
}

TEST(CellKind, AVariantIsCopiedIntoRawMemory) {
  const NothingLeft nothingLeft;
  CountedObject object;
  VARIANT from = test::ObjectValue(object.Dispatch());
  VARIANT to;
  // Were this taken for a value, its clearing would fail.
  std::memset(&to, 0xFF, sizeof to);
  EXPECT_EQ(CopyCell(Kind(VT_VARIANT), &from, &to), S_OK);
  EXPECT_EQ(to.vt, VT_DISPATCH);
  EXPECT_EQ(to.value.pdispVal, object.Dispatch());
  EXPECT_EQ(object.Held(), 2);
  FreeCell(Kind(VT_VARIANT), &to);
  FreeCell(Kind(VT_VARIANT), &from);
  EXPECT_EQ(object.Held(), 0);
}

TEST(CellKind, WhatCannotBeCopiedLeavesTheMemoryAsItIs) {
  const NothingLeft nothingLeft;
  BSTR from = SysAllocStringByteLen("a", 1);
  BSTR to = from;
  {
    const Failing failing(0);
    EXPECT_EQ(CopyCell(Kind(VT_BSTR), &from, &to), E_OUTOFMEMORY);
  }
  EXPECT_EQ(to, from);
  SysFreeString(from);

  VARIANT value = {}, copy = test::LongValue(5);
  value.vt = 15;
  EXPECT_EQ(CopyCell(Kind(VT_VARIANT), &value, &copy), DISP_E_BADVARTYPE);
  EXPECT_EQ(copy.vt, VT_I4);
  EXPECT_EQ(copy.value.lVal, 5);
}

}  // namespace
}  // namespace quenzel7::server
