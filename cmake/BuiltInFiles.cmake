# Run as a script: writes the C++ source of platform/scripting/built_in_files.h.
#   OUTPUT  the source to write
#   FOLDER  the folder by whose name the files are looked for
#   FILES   the files, in the order of the list
set(entries "")
foreach(file IN LISTS FILES)
  get_filename_component(name "${file}" NAME)
  file(READ "${file}" bytes HEX)
  string(REGEX REPLACE "(..)" "\\\\x\\1" bytes "${bytes}")
  string(APPEND entries "    {\"${FOLDER}\", \"${name}\", \"${bytes}\"},\n")
endforeach()
file(WRITE "${OUTPUT}" "// Made from the files of ${FOLDER}.
#include \"platform/scripting/built_in_files.h\"

namespace quenzel7::scripting {
namespace {

constexpr BuiltInFile kFiles[] = {
${entries}};

}  // namespace

std::span<const BuiltInFile> BuiltInFiles() { return kFiles; }

}  // namespace quenzel7::scripting
")
