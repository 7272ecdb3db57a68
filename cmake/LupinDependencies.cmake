# Every library comes from Debian's packages (scripts/install-deps); nothing is downloaded.
find_package(PkgConfig REQUIRED)
find_package(SQLite3 REQUIRED)
find_package(PostgreSQL REQUIRED)
find_package(ICU REQUIRED COMPONENTS uc i18n)
find_package(fmt REQUIRED)
find_package(nlohmann_json REQUIRED)
pkg_check_modules(PANGOCAIRO REQUIRED IMPORTED_TARGET pangocairo pangoft2 cairo cairo-pdf cairo-png cairo-ft fontconfig freetype2)
# The PDF writer embeds font subsets itself and compresses its pages on several threads.
pkg_check_modules(PDFWRITER REQUIRED IMPORTED_TARGET harfbuzz-subset zlib)
find_library(ZINT_LIBRARY zint)
find_package(Cups REQUIRED)
if(LUPIN_BENCH)
  find_package(benchmark REQUIRED)
endif()
# The fuzz build has only the libraries under its targets: no program, no tests, no windows.
if(NOT LUPIN_FUZZ)
  find_package(CLI11 CONFIG REQUIRED)
  find_package(GTest REQUIRED)
  # The desktop: widgets, the local socket of the list windows, and Qt Test for driving the windows.
  find_package(Qt6 REQUIRED COMPONENTS Widgets Network Test)
endif()
