# precompile(TARGET HEADER...): compiles these headers once for all sources of a target, which halves the time to build it.
# Off in the fuzzers' preset, so that a source that does not include what it uses is still found out.
option(OMBRAVISION_PRECOMPILE "Precompile the headers that nearly all sources use" ON)
function(precompile target)
  if(OMBRAVISION_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

set(common_headers
  <QByteArray> <QHash> <QList> <QMutex> <QObject> <QString> <QStringList> <QTimer>
  <algorithm> <array> <atomic> <functional> <memory> <mutex> <optional> <utility> <vector>)

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
  add_library(ombravision_${name} STATIC ${sources})
  target_include_directories(ombravision_${name} PUBLIC ${directories})
  target_link_libraries(ombravision_${name} PUBLIC ombravision_settings ${ARG_LINK})
  precompile(ombravision_${name} ${common_headers})
endfunction()

# add_subsystem_tests(NAME LINK target... [GUI | WINDOW] [LABELS label...])
#
# One test program from the sources of the calling directory. GUI runs them under a QApplication on the offscreen
# platform instead of a QCoreApplication; WINDOW runs them on a real display with OpenGL, a virtual one if there is no
# other, and labels them "window".
function(add_subsystem_tests name)
  cmake_parse_arguments(ARG "GUI;WINDOW" "" "LINK;LABELS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(NOT sources)
    return()
  endif()
  set(main ${CMAKE_SOURCE_DIR}/tests/support/CoreTestMain.cpp)
  if(ARG_GUI)
    set(main ${CMAKE_SOURCE_DIR}/tests/support/GuiTestMain.cpp)
  endif()
  if(ARG_WINDOW)
    set(main ${CMAKE_SOURCE_DIR}/tests/support/WindowTestMain.cpp)
    list(APPEND ARG_LABELS window)
  endif()
  list(PREPEND ARG_LABELS unit)
  add_executable(${name}_tests ${sources} ${main})
  target_link_libraries(${name}_tests PRIVATE ${ARG_LINK} ombravision_test_support GTest::gmock Qt6::Test)
  list(LENGTH sources count)
  if(count GREATER 6)
    precompile(${name}_tests ${common_headers} <gmock/gmock.h>)
  endif()
  include(GoogleTest)
  list(JOIN ARG_LABELS "-" label) # Discovered tests take one label; "unit-window" is found by both of its parts.
  gtest_discover_tests(${name}_tests
    TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 LABELS ${label})
endfunction()
