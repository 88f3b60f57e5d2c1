# The rules that every target of this project follows.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Libraries and programs share precompiled headers, so both are compiled with the same options.
set(CMAKE_CXX_COMPILE_OPTIONS_PIE "-fPIC")
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(TESSARA_CCACHE ccache)
if(TESSARA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # By default, ccache does not cache sources with precompiled headers.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${TESSARA_CCACHE}")
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess)
  endif()
endif()

add_library(tessara_rules INTERFACE)
target_compile_options(tessara_rules INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  # Warnings from untested compilers must not stop the build of what is delivered.
  $<$<NOT:$<CONFIG:Release>>:-Werror>
  # When optimising, g++ 12 falsely reports overlapping copies in the concatenation of std::string,
  # uninitialised alternatives in std::variant and copies beyond the end of a std::vector.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict -Wno-maybe-uninitialized
    -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread>)
target_include_directories(tessara_rules INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_definitions(tessara_rules INTERFACE QT_NO_KEYWORDS)

add_link_options(LINKER:--as-needed)

if(TESSARA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# tessara_precompile(<target> <header of cmake/headers>)
# Compiles the target with a precompiled header, which all targets that name the same header share.
function(tessara_precompile target header)
  get_filename_component(name "${header}" NAME_WE)
  set(owner tessara_precompiled_${name})
  if(NOT TARGET ${owner})
    set(source "${PROJECT_BINARY_DIR}/${owner}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "")
    add_library(${owner} OBJECT "${source}")
    set_target_properties(${owner} PROPERTIES UNITY_BUILD OFF)
    target_link_libraries(${owner} PRIVATE tessara_rules ${ARGN})
    target_precompile_headers(${owner} PRIVATE "${PROJECT_SOURCE_DIR}/cmake/headers/${header}")
  endif()
  target_precompile_headers(${target} REUSE_FROM ${owner})
endfunction()

# tessara_library(<name> SOURCES <files> [DEPENDS <targets>])
# Adds a static library named modulinfo_<name>, usually one per folder.
function(tessara_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(modulinfo_${name} STATIC ${arg_SOURCES})
  target_link_libraries(modulinfo_${name} PUBLIC ${arg_DEPENDS} PRIVATE $<BUILD_INTERFACE:tessara_rules>)
  target_include_directories(modulinfo_${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
  if("${arg_DEPENDS};" MATCHES "(Qt6::Widgets|modulinfo_qt|modulinfo_host);")
    tessara_precompile(modulinfo_${name} qt.h Qt6::Widgets)
  else()
    tessara_precompile(modulinfo_${name} standard.h)
  endif()
endfunction()

# tessara_shared_library(<target> <library names>)
# Adds a shared library of everything in those libraries and what that calls, with no undefined symbol.
function(tessara_shared_library target)
  list(TRANSFORM ARGN PREPEND modulinfo_ OUTPUT_VARIABLE libraries)
  list(TRANSFORM libraries REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
  add_library(${target} SHARED ${objects})
  # Their objects are included already; linking the libraries adds what they depend on.
  target_link_libraries(${target} PRIVATE ${libraries})
  target_link_options(${target} PRIVATE LINKER:-z,defs)
endfunction()

# The time limits of tests only end tests that hang; they are long enough for a busy machine.

# The fonts that tests draw with, passed to each test in its environment.
set(TESSARA_TEST_FONTS "${PROJECT_BINARY_DIR}/tests/fonts.conf")

# tessara_test(<subsystem> SOURCES <files> [DEPENDS <targets>] [ENVIRONMENT <NAME=value>])
# Adds one test program per subsystem; each of its cases is a test of its own in CTest.
function(tessara_test subsystem)
  cmake_parse_arguments(arg "" "ENVIRONMENT" "SOURCES;DEPENDS" ${ARGN})
  add_executable(test_${subsystem} ${arg_SOURCES})
  target_link_libraries(test_${subsystem} PRIVATE ${arg_DEPENDS} GTest::gmock_main tessara_rules)
  if(TESSARA_SANITIZE)
    # The code under test keeps it; in the tests themselves it would take a quarter of the compile time.
    target_compile_options(test_${subsystem} PRIVATE -fno-sanitize=undefined)
  endif()
  target_include_directories(test_${subsystem} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  tessara_precompile(test_${subsystem} test.h GTest::gmock)
  include(GoogleTest)
  gtest_discover_tests(test_${subsystem} TEST_PREFIX "${subsystem}." DISCOVERY_TIMEOUT 600
                       PROPERTIES TIMEOUT 600 ENVIRONMENT "${arg_ENVIRONMENT}"
                                  ENVIRONMENT_MODIFICATION "FONTCONFIG_FILE=set:${TESSARA_TEST_FONTS}")
endfunction()

# tessara_python_test(<name> <script> [ENVIRONMENT <NAME=value>...])
# Adds a Python unittest file as one test in CTest.
function(tessara_python_test name script)
  cmake_parse_arguments(arg "" "" "ENVIRONMENT" ${ARGN})
  add_test(NAME ${name} COMMAND "${TESSARA_PYTHON}" -B -m unittest -v "${script}"
           WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
  set_tests_properties(${name} PROPERTIES TIMEOUT 600 SKIP_REGULAR_EXPRESSION "skipped="
                       ENVIRONMENT "${arg_ENVIRONMENT}"
                       ENVIRONMENT_MODIFICATION "FONTCONFIG_FILE=set:${TESSARA_TEST_FONTS}")
endfunction()
