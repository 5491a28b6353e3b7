#include <exception>
#include <string>

#include "server/registration/this_library.h"

/// Where this library is; the text stays until the next call.
extern "C" __attribute__((visibility("default"))) const char* PlaceOfProbe() {
  static std::string place;
  try {
    place = quenzel7::server::ThisLibrary();
  } catch (const std::exception& error) {
    place = error.what();
  }
  return place.c_str();
}
