#pragma once

#include <span>
#include <string>

namespace quenzel7::server {

/// A class as the registration file tells it.
struct RegisteredClass {
  /// "Quenzel7.clsRectangle".
  std::string programmaticName;
  /// "{5C7B1E0A-7A41-4E0F-9D52-3F7C1B6E8A17}".
  std::string clsid;
};

/// The user's registration file: quenzel7/server.ini in the folder of data that the environment names,
/// XDG_DATA_HOME, else .local/share in HOME. Empty when neither is an absolute path.
std::string RegistrationFile();

/// Writes down which classes there are and which library has them, a section each:
///
///     [Quenzel7.clsRectangle]
///     CLSID = {5C7B1E0A-7A41-4E0F-9D52-3F7C1B6E8A17}
///     InprocServer32 = /usr/lib/libquenzel7.so
///
/// in place of all sections of ours ("Quenzel7.", in any case) that were there; those of others stay before
/// them. The file takes its place complete or not at all, and like the folders that are made for it only its
/// user sees it. Raises "registration file PATH ...": error 76, 70, 7 or 57 by the reason of the system; 76
/// when the environment names no folder, 5 for a path of the library that cannot stand in a line.
void Register(const std::string& libraryPath, std::span<const RegisteredClass> classes);

/// Takes our sections out of the file, and the file away when nothing is left. Without a file there is
/// nothing to do. Errors as those of Register.
void Unregister();

}  // namespace quenzel7::server
