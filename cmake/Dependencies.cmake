# Everything the program stands on, from Debian packages.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core DBus Gui Network Widgets Svg Test)
find_package(OpenCVCore REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(FFMPEG REQUIRED IMPORTED_TARGET libavformat libavcodec libavutil libswscale libswresample
    libavfilter)
pkg_check_modules(PULSE REQUIRED IMPORTED_TARGET libpulse)
# Macros of its own would part from the precompiled headers.
set_target_properties(PkgConfig::PULSE PROPERTIES INTERFACE_COMPILE_OPTIONS "")
pkg_check_modules(GRAPHICSMAGICK REQUIRED IMPORTED_TARGET GraphicsMagick++)
find_package(Cups 2.4 REQUIRED)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)
pkg_check_modules(SECCOMP REQUIRED IMPORTED_TARGET libseccomp)
