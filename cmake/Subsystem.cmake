# precompile(TARGET FAMILY HEADER...): compiles these headers once for all sources of all targets of a family, which halves
# the time to build them. The first target has the fewest macros of its family: what it compiles fits the others.
# Off in the fuzzers' preset, so that a source that does not include what it uses is still found out.
option(OMBRAVISION_PRECOMPILE "Precompile the headers that nearly all sources use" ON)
function(precompile target family)
  if(NOT OMBRAVISION_PRECOMPILE)
    return()
  endif()
  get_property(first GLOBAL PROPERTY precompiled_${family})
  if(first)
    target_precompile_headers(${target} REUSE_FROM ${first})
  else()
    target_precompile_headers(${target} PRIVATE ${ARGN})
    set_property(GLOBAL PROPERTY precompiled_${family} ${target})
  endif()
  # Clang writes into what it precompiles when each header was changed, which is another time in each clone: what uses it
  # would never be found in the compiler's cache of another one.
  target_compile_options(${target} PRIVATE "$<$<COMPILE_LANG_AND_ID:CXX,Clang>:SHELL:-Xclang -fno-pch-timestamp>")
endfunction()

set(common_headers
  <QByteArray> <QHash> <QList> <QMutex> <QObject> <QString> <QStringList> <QTimer>
  <algorithm> <array> <atomic> <functional> <memory> <mutex> <optional> <utility> <vector>)

# keep_apart(SOURCE...): those of these files that include Xlib, whose names are macros and common words, are compiled
# alone where several are compiled at a time.
function(keep_apart)
  foreach(source IN LISTS ARGN)
    file(STRINGS ${source} xlib REGEX "^#include <X11/")
    if(xlib)
      set_source_files_properties(${source} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
  endforeach()
endfunction()

# add_subsystem(NAME COMPONENTS dir... LINK target...)
#
# Turns a list of component directories into one static library, ombravision_NAME. Its include path is its own
# directories and, through LINK, those of the libraries below it: an include that climbs upward does not compile.
function(add_subsystem name)
  cmake_parse_arguments(ARG "" "" "COMPONENTS;LINK" ${ARGN})
  set(directories "")
  set(sources "")
  foreach(component IN LISTS ARG_COMPONENTS)
    set(directory ${CMAKE_CURRENT_SOURCE_DIR}/${component})
    if(NOT IS_DIRECTORY ${directory})
      message(FATAL_ERROR "the map names ${component} in ${name}, which has no directory")
    endif()
    file(GLOB files CONFIGURE_DEPENDS ${directory}/*.h ${directory}/*.cpp)
    list(APPEND directories ${directory})
    list(APPEND sources ${files})
  endforeach()
  keep_apart(${sources})
  add_library(ombravision_${name} STATIC ${sources})
  target_include_directories(ombravision_${name} PUBLIC ${directories})
  target_link_libraries(ombravision_${name} PUBLIC ombravision_settings ${ARG_LINK})
  precompile(ombravision_${name} code ${common_headers})
endfunction()

# add_subsystem_tests(NAME LINK target... [WINDOW filter])
#
# One test program from the sources of the calling directory, its tests on the offscreen platform. Those that a WINDOW
# filter of GoogleTest names need a display with OpenGL: they run as one, NAME.window, in a virtual display.
function(add_subsystem_tests name)
  cmake_parse_arguments(ARG "" "WINDOW" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  keep_apart(${sources})
  add_executable(${name}_tests ${sources} ${CMAKE_SOURCE_DIR}/tests/support/TestMain.cpp)
  target_link_libraries(${name}_tests PRIVATE ${ARG_LINK} ombravision_test_support)
  precompile(${name}_tests tests)
  include(GoogleTest)
  if(NOT ARG_WINDOW STREQUAL "*")
    set(filter "*")
    if(ARG_WINDOW)
      set(filter "-${ARG_WINDOW}")
    endif()
    gtest_discover_tests(${name}_tests
      TEST_FILTER "${filter}" TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60
      PROPERTIES TIMEOUT 120 LABELS unit)
  endif()
  if(ARG_WINDOW)
    add_test(NAME ${name}.window
      COMMAND ${CMAKE_SOURCE_DIR}/scripts/with-display $<TARGET_FILE:${name}_tests> --gtest_filter=${ARG_WINDOW})
    set_tests_properties(${name}.window PROPERTIES LABELS window TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=xcb")
  endif()
endfunction()
