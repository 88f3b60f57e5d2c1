# The libraries and tools that the product is built with, and the Debian packages they come in. What the
# scripts install is listed in scripts/packages.sh. Qt comes last, because it takes longest to find.

include(TessaraRequire)

tessara_require("pkg-config" pkg-config CMAKE PkgConfig)
tessara_require("chmcmd" fp-utils PROGRAM TESSARA_CHMCMD chmcmd)

tessara_require("Asio" libasio-dev HEADER TESSARA_ASIO asio.hpp)
tessara_require("CLI11" libcli11-dev CMAKE CLI11)
tessara_require("expat" libexpat1-dev CMAKE EXPAT)
tessara_require("GLib" libglib2.0-dev PKG_CONFIG glib glib-2.0)
tessara_require("GIO" libglib2.0-dev PKG_CONFIG gio gio-unix-2.0)
tessara_require("gdk-pixbuf" libgdk-pixbuf-2.0-dev PKG_CONFIG gdkpixbuf gdk-pixbuf-2.0)
tessara_require("hidapi" libhidapi-dev PKG_CONFIG hidapi hidapi-hidraw)
tessara_require("libmodbus" libmodbus-dev PKG_CONFIG libmodbus libmodbus)
tessara_require("libudev" libudev-dev PKG_CONFIG libudev libudev)
tessara_require("nlohmann-json" nlohmann-json3-dev CMAKE nlohmann_json)
find_package(Threads REQUIRED)

# Debian's own Python finds the Debian packages that the tests use; another one may not.
tessara_require("Python 3" python3 PROGRAM TESSARA_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)
if(BUILD_TESTING)
  tessara_require("GoogleMock" libgmock-dev HEADER TESSARA_GMOCK gmock/gmock.h)
  tessara_require("GoogleTest" libgtest-dev CMAKE GTest)
endif()
if(BUILD_TESTING OR TESSARA_BENCH)
  tessara_require("umockdev" libumockdev-dev PKG_CONFIG umockdev umockdev-1.0)
endif()

tessara_require("Qt 6" qt6-base-dev CMAKE Qt6 Core Gui PrintSupport Widgets)
tessara_require("Qt SVG" qt6-svg-dev CMAKE Qt6 Svg)
set(qt_tools "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS}")
tessara_require("lrelease" qt6-l10n-tools PROGRAM TESSARA_LRELEASE lrelease HINTS "${qt_tools}")
tessara_require("lupdate" qt6-l10n-tools PROGRAM TESSARA_LUPDATE lupdate HINTS "${qt_tools}")
if(BUILD_TESTING)
  tessara_require("Qt Test" qt6-base-dev CMAKE Qt6 Test)
endif()
