# The rules that every target of this project follows, in one place.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(TESSARA_CCACHE ccache)
if(TESSARA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${TESSARA_CCACHE}")
endif()

# Debian's own Python: the one that finds the packages which the tests use.
find_program(TESSARA_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH)

add_library(tessara_rules INTERFACE)
target_compile_options(tessara_rules INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  # What is delivered is not to fail on the fancies of a compiler that nobody here has met.
  $<$<NOT:$<CONFIG:Release>>:-Werror>
  # Optimising, g++ 12 sees overlapping copies in the concatenation of std::string, uninitialised
  # alternatives in std::variant and copies beyond the end of a std::vector where there are none.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict -Wno-maybe-uninitialized
    -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread>)
target_include_directories(tessara_rules INTERFACE "${PROJECT_SOURCE_DIR}/src")

add_link_options(LINKER:--as-needed)

if(TESSARA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# tessara_library(<folder name> SOURCES <files> [DEPENDS <targets>])
# One static library a folder of src/, named modulinfo_<folder name>.
function(tessara_library folder)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(modulinfo_${folder} STATIC ${arg_SOURCES})
  target_link_libraries(modulinfo_${folder} PUBLIC ${arg_DEPENDS} PRIVATE $<BUILD_INTERFACE:tessara_rules>)
  target_include_directories(modulinfo_${folder} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
endfunction()

# tessara_shared_library(<target> <folder names>)
# A shared library of everything that those folders hold and what that calls, with no symbol left open.
function(tessara_shared_library target)
  list(TRANSFORM ARGN PREPEND modulinfo_ OUTPUT_VARIABLE libraries)
  list(TRANSFORM libraries REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
  add_library(${target} SHARED ${objects})
  # Their objects are there already; the libraries are named for what they depend on.
  target_link_libraries(${target} PRIVATE ${libraries})
  target_link_options(${target} PRIVATE LINKER:-z,defs)
endfunction()

# tessara_test(<subsystem> SOURCES <files> [DEPENDS <targets>] [ENVIRONMENT <NAME=value>...])
# One test program a subsystem, each of its cases a test of its own in CTest.
function(tessara_test subsystem)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS;ENVIRONMENT" ${ARGN})
  add_executable(test_${subsystem} ${arg_SOURCES})
  target_link_libraries(test_${subsystem} PRIVATE ${arg_DEPENDS} GTest::gmock_main tessara_rules)
  if(TESSARA_SANITIZE)
    # What is tested has it all; in the tests themselves it is a quarter of the time to compile them.
    target_compile_options(test_${subsystem} PRIVATE -fno-sanitize=undefined)
  endif()
  target_include_directories(test_${subsystem} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  include(GoogleTest)
  gtest_discover_tests(test_${subsystem} TEST_PREFIX "${subsystem}." DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 120 ENVIRONMENT "${arg_ENVIRONMENT}")
endfunction()

# tessara_python_test(<name> <script> [ENVIRONMENT <NAME=value>...])
# A Python unittest file as one test in CTest.
function(tessara_python_test name script)
  cmake_parse_arguments(arg "" "" "ENVIRONMENT" ${ARGN})
  add_test(NAME ${name} COMMAND "${TESSARA_PYTHON}" -B -m unittest -v "${script}"
           WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
  set_tests_properties(${name} PROPERTIES TIMEOUT 120 SKIP_REGULAR_EXPRESSION "skipped=" ENVIRONMENT "${arg_ENVIRONMENT}")
endfunction()
