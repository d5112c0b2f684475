# Build settings that every target of the project shares.

option(CIMHTTP_BUILD_TESTS "Build the tests" ON)
option(CIMHTTP_BUILD_BENCH "Build the benchmarks" OFF)
option(CIMHTTP_BUILD_FUZZERS "Build the fuzzers (clang only)" OFF)
option(CIMHTTP_DEBIAN "Make Debian packages with cpack" OFF)
option(CIMHTTP_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" ON)
set(CIMHTTP_SANITIZE "" CACHE STRING "Sanitizers to build with, e.g. address,undefined or thread")
option(CIMHTTP_COVERAGE "Instrument for gcov" OFF)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

# Programs and libraries stand side by side at the top of the build folder, so
# that a person types build/release/cimhttp and the loader finds its libraries.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")
set(CMAKE_INSTALL_RPATH "$ORIGIN:$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

add_library(cimhttp_options INTERFACE)
target_compile_features(cimhttp_options INTERFACE cxx_std_17)
if(MSVC)
  # Not warned of: that an exported class has members or bases that are not exported. They are made by the same compiler.
  target_compile_options(cimhttp_options INTERFACE /W4 /permissive- /utf-8 /Zc:__cplusplus /bigobj /wd4251 /wd4275)
  target_compile_definitions(cimhttp_options INTERFACE _CRT_SECURE_NO_WARNINGS BOOST_ALL_NO_LIB)
else()
  target_compile_options(cimhttp_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                         -Woverloaded-virtual -Wconversion -Wsign-conversion)
endif()
if(CIMHTTP_WARNINGS_AS_ERRORS)
  target_compile_options(cimhttp_options INTERFACE "$<IF:$<BOOL:${MSVC}>,/WX,-Werror>")
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CIMHTTP_SANITIZE)
  # GCC 12 reports false positives in Boost and the standard library once the
  # sanitizers have rewritten the code it analyses.
  target_compile_options(cimhttp_options INTERFACE -Wno-maybe-uninitialized)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CIMHTTP_SANITIZE MATCHES "thread")
  # Asio's fences, which the sanitizer does not see: it may report too much for them, not too little.
  target_compile_options(cimhttp_options INTERFACE -Wno-tsan)
endif()
if(WIN32)
  target_compile_definitions(cimhttp_options INTERFACE _WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX)
endif()

option(CIMHTTP_FOR_LINT "Use no option that clang-tidy does not know" OFF)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT WIN32 AND NOT CIMHTTP_FOR_LINT)
  add_compile_options(-fno-gnu-unique)  # symbols of that kind keep a library in the process for good
endif()

# What a library that reads from strangers should be built with: a stack that is watched, jumps to where jumps may go,
# checked copies, and tables that nobody writes to once the program runs. Windows' linker has its own by default.
if(NOT WIN32 AND NOT CIMHTTP_SANITIZE AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
  add_compile_options(-fstack-protector-strong -fstack-clash-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    add_compile_options(-fcf-protection)
  endif()
  add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
endif()

if(CIMHTTP_SANITIZE)
  add_compile_options(-fsanitize=${CIMHTTP_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${CIMHTTP_SANITIZE})
endif()
if(CIMHTTP_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()

# A command line is read once in a program's run; what reads it is templates whose optimisation takes long.
function(cimhttp_compile_quickly)
  if(NOT MSVC)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -O0)
  endif()
endfunction()
