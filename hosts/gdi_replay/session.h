#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "hosts/gdi_replay/case_file.h"
#include "platform/gdi/surface.h"
#include "platform/gdi/types.h"

namespace quenzel7::gdi_replay {

/// A case uses an operation that the interface does not have.
class MissingOperation : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The contexts and objects of a case under their names. Destroys them at its end.
class Session {
 public:
  explicit Session(std::filesystem::path file) : file_(std::move(file)) {}
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Makes the call of a step, `query` left out, and gives what a query of it returns. Throws
  /// FormatError and MissingOperation.
  std::vector<std::string> Call(const Step& step);

  /// The present picture of a surface, and the one that was staged.
  Picture Actual(const Step& check);
  Picture Staged(const Step& check);

  /// The answer to `query PtInRegionMap`: colour 1 where the point is inside.
  Picture RegionMap(const Step& query);

 private:
  friend class Arguments;
  friend struct Operations;

  struct Stage {
    gdi::Surface surface;
    gdi::Surface staged;

    template <typename Paint>
    void Set(Paint&& paint);
  };

  /// An object's name in the case, or how an object without one is told.
  std::string NameOf(gdi::Handle object) const;

  std::filesystem::path file_;
  std::map<std::string, Stage> stages_;
  std::map<std::string, gdi::HDC> contexts_;
  std::map<std::string, gdi::HGDIOBJ> objects_;
};

}  // namespace quenzel7::gdi_replay
