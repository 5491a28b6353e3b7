# Python, which hosts in that language and their tests run with.
find_package(Python3 3.9 REQUIRED COMPONENTS Interpreter)

# A library with address sanitizers needs their run-time first in a program that was built without them, and with it
# the standard library, whose throwing it watches from the start. What Python keeps to its end is not ours to count.
set(quenzel7_python_environment "PYTHONDONTWRITEBYTECODE=1")
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=[a-z,-]*address")
  set(libraries libasan.so libstdc++.so)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    set(libraries libclang_rt.asan-${CMAKE_SYSTEM_PROCESSOR}.so libstdc++.so)
  endif()
  set(preloaded)
  foreach(library ${libraries})
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
      OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    list(APPEND preloaded ${path})
  endforeach()
  list(JOIN preloaded ":" preloaded)
  list(APPEND quenzel7_python_environment "LD_PRELOAD=${preloaded}" "ASAN_OPTIONS=detect_leaks=0")
endif()

# quenzel7_python_test(NAME WORKING_DIRECTORY ARGUMENT ...)
# registers a run of Python with the package of this source tree and the shared library of this build.
function(quenzel7_python_test name folder)
  add_test(NAME ${name} COMMAND Python3::Interpreter ${ARGN} WORKING_DIRECTORY ${folder})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT
    "${quenzel7_python_environment};PYTHONPATH=${PROJECT_SOURCE_DIR}/hosts/python;QUENZEL7_LIBRARY=$<TARGET_FILE:quenzel7_shared>")
endfunction()
