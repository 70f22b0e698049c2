# Every library that is not ours, found once and given an imported target.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core DBus Gui HttpServer LinguistTools Widgets Network OpenGL OpenGLWidgets Sql Svg Xml)
find_package(OpenGL REQUIRED)
find_package(CURL REQUIRED)
find_package(OpenSSL 3.0 REQUIRED COMPONENTS Crypto)
find_package(X11 REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(FFMPEG REQUIRED IMPORTED_TARGET
  libavformat>=59.27 libavcodec>=59.37 libavutil>=57.28 libswscale libswresample)
pkg_check_modules(AVFILTER REQUIRED libavfilter>=8.44) # Loaded when it is needed.
pkg_check_modules(OPENAL REQUIRED IMPORTED_TARGET openal)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb xcb-shm)
if(OMBRAVISION_TESTS)
  find_package(GTest REQUIRED)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
endif()
if(OMBRAVISION_BENCHMARKS)
  find_package(benchmark REQUIRED)
endif()
