# One library target per folder, so that a dependency that points the wrong way fails to link.

# quenzel7_warnings(TARGET): the warnings that every target of the project is built with.
# At -O3 g++ 12 raises false alarms of two kinds inside the standard library's strings and vectors.
function(quenzel7_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict> $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overflow>
    $<$<BOOL:${QUENZEL7_WERROR}>:-Werror>)
endfunction()

# quenzel7_library(NAME SOURCES ... [DEPENDS ...] [PRIVATE_DEPENDS ...])
# makes the static library quenzel7_NAME with the alias quenzel7::NAME.
function(quenzel7_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS;PRIVATE_DEPENDS" ${ARGN})
  set(target quenzel7_${name})
  add_library(${target} STATIC ${arg_SOURCES})
  add_library(quenzel7::${name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${name}
    POSITION_INDEPENDENT_CODE ON)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/quenzel7>)
  target_link_libraries(${target} PUBLIC ${arg_DEPENDS} PRIVATE ${arg_PRIVATE_DEPENDS})
  quenzel7_warnings(${target})
  set_property(GLOBAL APPEND PROPERTY QUENZEL7_LIBRARIES ${target})
endfunction()

# quenzel7_test(NAME SOURCES ... DEPENDS ...)
# makes a test program that links nothing but what it names, and registers each of its tests.
function(quenzel7_test name)
  if(NOT QUENZEL7_TESTS)
    return()
  endif()
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_compile_features(${name} PRIVATE cxx_std_20)
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${arg_DEPENDS} GTest::gtest GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE
    QUENZEL7_TEST_DATA="${PROJECT_SOURCE_DIR}/tests"
    QUENZEL7_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  quenzel7_warnings(${name})
  # Tests are built to find faults, not to be fast, and build in half the time so.
  target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O1>)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
endfunction()

# quenzel7_install(): libraries, headers and the package files that find_package(quenzel7) reads.
function(quenzel7_install)
  include(CMakePackageConfigHelpers)
  get_property(libraries GLOBAL PROPERTY QUENZEL7_LIBRARIES)
  install(TARGETS ${libraries} EXPORT quenzel7Targets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
  foreach(folder platform framework images shapes variables server)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder}
      DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quenzel7
      FILES_MATCHING PATTERN "*.h" PATTERN "*.inc" PATTERN CMakeFiles EXCLUDE)
  endforeach()
  set(destination ${CMAKE_INSTALL_LIBDIR}/cmake/quenzel7)
  install(EXPORT quenzel7Targets NAMESPACE quenzel7:: DESTINATION ${destination})
  configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/quenzel7Config.cmake.in
    ${PROJECT_BINARY_DIR}/quenzel7Config.cmake INSTALL_DESTINATION ${destination})
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/quenzel7ConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
  install(FILES
    ${PROJECT_BINARY_DIR}/quenzel7Config.cmake
    ${PROJECT_BINARY_DIR}/quenzel7ConfigVersion.cmake
    DESTINATION ${destination})
endfunction()
