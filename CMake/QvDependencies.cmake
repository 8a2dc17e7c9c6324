# What comes from Debian, looked up once.
include_guard()

# Debian's Python, for which packages.txt installs modules, and not the first one on the path.
set(Python3_EXECUTABLE /usr/bin/python3 CACHE FILEPATH "The Python that scripts are run with")

find_package(Boost 1.65 REQUIRED COMPONENTS filesystem regex)
find_package(XercesC 3.2 REQUIRED)
find_package(fmt 9 REQUIRED)
find_package(ICU REQUIRED COMPONENTS i18n uc)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(Threads REQUIRED)

# Debian's libzip-config.cmake insists on programs of another package, so pkg-config finds the library.
find_package(PkgConfig REQUIRED)
pkg_check_modules(libzip REQUIRED IMPORTED_TARGET libzip)
