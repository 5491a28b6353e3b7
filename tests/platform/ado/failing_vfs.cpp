#include "tests/platform/ado/failing_vfs.h"

#include <sqlite3.h>

#include <limits>
#include <stdexcept>

namespace quenzel7::ado {

struct FailingVfs::Layer {
  std::string name;
  sqlite3_vfs* usual = nullptr;
  sqlite3_vfs vfs{};
  int calls = 0;
  int firstFailure = 0;
  int lastFailure = 0;
  int failures = 0;
  int openFiles = 0;

  bool Fails() {
    ++calls;
    if (calls < firstFailure || calls > lastFailure) return false;
    ++failures;
    return true;
  }
};

namespace {

using Layer = FailingVfs::Layer;

/// Our file; the usual layer's file lies behind it in memory.
struct File {
  sqlite3_file base;
  Layer* layer;
};

Layer& LayerOf(sqlite3_vfs* vfs) { return *static_cast<Layer*>(vfs->pAppData); }
Layer& LayerOf(sqlite3_file* file) { return *reinterpret_cast<File*>(file)->layer; }
sqlite3_file* Usual(sqlite3_file* file) {
  return reinterpret_cast<sqlite3_file*>(reinterpret_cast<File*>(file) + 1);
}

int Close(sqlite3_file* file) {
  --LayerOf(file).openFiles;
  return Usual(file)->pMethods->xClose(Usual(file));
}

int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
  if (LayerOf(file).Fails()) return SQLITE_FULL;
  return Usual(file)->pMethods->xWrite(Usual(file), bytes, count, offset);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  if (LayerOf(file).Fails()) return SQLITE_FULL;
  return Usual(file)->pMethods->xTruncate(Usual(file), size);
}

int Sync(sqlite3_file*, int) { return SQLITE_OK; }

/// Hands a call on a file to the usual layer.
template <auto Method>
struct HandOn;
template <class... P, int (*sqlite3_io_methods::*Method)(sqlite3_file*, P...)>
struct HandOn<Method> {
  static int Call(sqlite3_file* file, P... arguments) {
    return (Usual(file)->pMethods->*Method)(Usual(file), arguments...);
  }
};

void ShmBarrier(sqlite3_file* file) { Usual(file)->pMethods->xShmBarrier(Usual(file)); }

constexpr sqlite3_io_methods kFileMethods = {
    2,
    Close,
    HandOn<&sqlite3_io_methods::xRead>::Call,
    Write,
    Truncate,
    Sync,
    HandOn<&sqlite3_io_methods::xFileSize>::Call,
    HandOn<&sqlite3_io_methods::xLock>::Call,
    HandOn<&sqlite3_io_methods::xUnlock>::Call,
    HandOn<&sqlite3_io_methods::xCheckReservedLock>::Call,
    HandOn<&sqlite3_io_methods::xFileControl>::Call,
    HandOn<&sqlite3_io_methods::xSectorSize>::Call,
    HandOn<&sqlite3_io_methods::xDeviceCharacteristics>::Call,
    HandOn<&sqlite3_io_methods::xShmMap>::Call,
    HandOn<&sqlite3_io_methods::xShmLock>::Call,
    ShmBarrier,
    HandOn<&sqlite3_io_methods::xShmUnmap>::Call,
    nullptr,
    nullptr,
};

int Open(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags) {
  Layer& layer = LayerOf(vfs);
  file->pMethods = nullptr;
  reinterpret_cast<File*>(file)->layer = &layer;
  const int result = layer.usual->xOpen(layer.usual, name, Usual(file), flags, outFlags);
  if (result == SQLITE_OK) {
    file->pMethods = &kFileMethods;
    ++layer.openFiles;
  }
  return result;
}

}  // namespace

FailingVfs::FailingVfs() : layer_(std::make_unique<Layer>()) {
  static int count = 0;
  Layer& layer = *layer_;
  layer.name = "failing-" + std::to_string(++count);
  layer.usual = sqlite3_vfs_find(nullptr);
  layer.vfs = *layer.usual;
  layer.vfs.zName = layer.name.c_str();
  layer.vfs.pNext = nullptr;
  layer.vfs.pAppData = &layer;
  layer.vfs.szOsFile = static_cast<int>(sizeof(File)) + layer.usual->szOsFile;
  layer.vfs.xOpen = Open;
  // The calls that look at what belongs to their layer; all others are the usual ones as they are.
  layer.vfs.xDelete = [](sqlite3_vfs* vfs, const char* name, int) {
    return LayerOf(vfs).usual->xDelete(LayerOf(vfs).usual, name, 0);
  };
  layer.vfs.xAccess = [](sqlite3_vfs* vfs, const char* name, int flags, int* result) {
    return LayerOf(vfs).usual->xAccess(LayerOf(vfs).usual, name, flags, result);
  };
  layer.vfs.xFullPathname = [](sqlite3_vfs* vfs, const char* name, int size, char* full) {
    return LayerOf(vfs).usual->xFullPathname(LayerOf(vfs).usual, name, size, full);
  };
  if (sqlite3_vfs_register(&layer.vfs, 0) != SQLITE_OK) throw std::runtime_error("no file system layer");
}

FailingVfs::~FailingVfs() { sqlite3_vfs_unregister(&layer_->vfs); }

const std::string& FailingVfs::Name() const { return layer_->name; }

void FailingVfs::FailAt(int number) {
  layer_->calls = layer_->failures = 0;
  layer_->firstFailure = layer_->lastFailure = number;
}

void FailingVfs::FailFrom(int number) {
  FailAt(number);
  layer_->lastFailure = std::numeric_limits<int>::max();
}

void FailingVfs::Heal() { layer_->firstFailure = std::numeric_limits<int>::max(); }

int FailingVfs::Failures() const { return layer_->failures; }

int FailingVfs::OpenFiles() const { return layer_->openFiles; }

}  // namespace quenzel7::ado
