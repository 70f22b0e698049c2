# One interface target carries the standard, the warnings and the Qt macros for all of our code.
add_library(ombravision_settings INTERFACE)
target_compile_features(ombravision_settings INTERFACE cxx_std_20)
target_compile_options(ombravision_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2 -Wcast-qual
  -fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=)
if(OMBRAVISION_UNITY)
  # A class of a source file may have a field of that file's own types, and a parameter the name of another file's constant.
  target_compile_options(ombravision_settings INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage> $<$<CXX_COMPILER_ID:Clang>:-Wno-shadow>)
  set(CMAKE_UNITY_BUILD_BATCH_SIZE 12)
endif()
if(OMBRAVISION_WERROR)
  target_compile_options(ombravision_settings INTERFACE -Werror)
endif()
# The headers that asn1c makes ask the C library for more with a name that is no longer current, which the library warns
# of without _DEFAULT_SOURCE; everywhere, since precompiled headers are for the same macros only.
target_compile_definitions(ombravision_settings INTERFACE _DEFAULT_SOURCE
  QT_DISABLE_DEPRECATED_BEFORE=0x060400 QT_NO_FOREACH QT_USE_QSTRINGBUILDER)
target_link_libraries(ombravision_settings INTERFACE Qt6::Core)

# Sanitizers apply to everything that is linked together, so they are set globally.
if(OMBRAVISION_SANITIZE)
  add_compile_options(-fsanitize=${OMBRAVISION_SANITIZE})
  if(OMBRAVISION_SANITIZE_SKIP)
    add_compile_options(-fno-sanitize=${OMBRAVISION_SANITIZE_SKIP})
  endif()
  add_link_options(-fsanitize=${OMBRAVISION_SANITIZE})
  if(OMBRAVISION_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
endif()

set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_CXX_EXTENSIONS OFF)
