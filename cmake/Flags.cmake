# All flags of all targets stand here: link vantry_flags and nothing else sets any.
add_library(vantry_flags INTERFACE)
target_compile_features(vantry_flags INTERFACE cxx_std_20)
target_include_directories(vantry_flags INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(vantry_flags INTERFACE -Wall -Wextra -Wnon-virtual-dtor)
if(VANTRY_WARNINGS_ARE_ERRORS)
  target_compile_options(vantry_flags INTERFACE -Werror)
endif()
if(VANTRY_SANITIZE)
  target_compile_options(vantry_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # The standard library's own checks: an index behind the end, an empty optional.
  target_compile_definitions(vantry_flags INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(vantry_flags INTERFACE -fsanitize=address,undefined)
endif()
if(VANTRY_FUZZ)
  target_compile_options(vantry_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(VANTRY_COVERAGE)
  target_compile_options(vantry_flags INTERFACE --coverage)
  target_link_options(vantry_flags INTERFACE --coverage)
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_FLAGS_RELEASE "-O2")
if(VANTRY_SANITIZE)
  # Half the time and less than half the size of "-O2 -g" for the largest tests; lines in a stack trace stay.
  set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O1 -g1")
endif()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Code of tests runs for seconds and is compiled often: half the optimisation is done in little more than half the
# time. Position independent as the libraries are, so that they can share precompiled headers.
set(VANTRY_TEST_OPTIONS $<$<CONFIG:Release>:-Og> -fPIC)

# A compiler cache and a fast linker are used where they are installed; nothing depends on them.
find_program(VANTRY_CCACHE ccache)
if(VANTRY_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_CURRENT_LIST_DIR}/ccache")
endif()
find_program(VANTRY_MOLD mold)
if(VANTRY_MOLD AND NOT APPLE)
  add_link_options(-fuse-ld=mold)
endif()
