#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/automation/class_info.h"
#include "platform/automation/object.h"
#include "platform/automation/variant.h"

namespace quenzel7::loomis2 {

/// The library of pictures that the elements of a project share. Hosts reach it by member name too. Reading
/// pictures from files is not part of it yet.
class ImageLibrary : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "ImageLibrary";

  /// The class, whose objects hosts do not create themselves.
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// The name under which the host knows the library; empty until it was given.
  virtual std::string Name() const = 0;
  /// Gives the library its name.
  virtual void Name(const std::string& name) = 0;
  /// The folder of the picture files, with a separator at its end.
  virtual std::string Folder() const = 0;
  /// Gives the folder, as a host writes it.
  virtual void Folder(const std::string& folder) = 0;
  /// The panel's colours: an array of 32-bit integers of one dimension; Empty until it was given.
  virtual automation::Variant Palette() const = 0;
  /// Gives the colours. A library refuses what is no such array by an automation error.
  virtual void Palette(const automation::Variant& palette) = 0;
};

using ImageLibraryRef = std::shared_ptr<ImageLibrary>;

/// The embedded default: holds what it is given.
class HeldImageLibrary final : public ImageLibrary {
 public:
  std::string Name() const override { return name_; }
  void Name(const std::string& name) override { name_ = name; }
  std::string Folder() const override { return folder_; }
  void Folder(const std::string& folder) override { folder_ = folder; }
  automation::Variant Palette() const override { return palette_; }
  /// Keeps the colours as they are now. Error 13 when the value is no such array; the earlier palette stays
  /// then.
  void Palette(const automation::Variant& palette) override;

 private:
  std::string name_;
  std::string folder_;
  automation::Variant palette_;
};

}  // namespace quenzel7::loomis2
