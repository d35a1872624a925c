# What every target of the project is compiled with: the language level, the include root and the warnings.
# The warnings are an interface target and not global flags, so that no library of others is ever judged by them.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

add_library(zonterbrook_options INTERFACE)
target_include_directories(zonterbrook_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_options(zonterbrook_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 reports an overlap inside std::string's own operator+ when it inlines deeply; it is wrong (GCC bug 105651).
    target_compile_options(zonterbrook_options INTERFACE -Wno-restrict)
endif()

# A released binary names its sources from the top of the tree, not from the folder where it happened to be built.
target_compile_options(zonterbrook_options INTERFACE
    "$<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>")

if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    # Counting the bits of a set is one instruction on every such processor of the last fifteen years, and a call without it.
    target_compile_options(zonterbrook_options INTERFACE -march=x86-64-v2)
endif()
