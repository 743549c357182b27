# What every target of the project is built with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

find_program(TESSARA_CCACHE ccache)
if(TESSARA_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${TESSARA_CCACHE}")
endif()

# Headers of libraries, compiled once for the targets of one kind. A compiler cache does without: it would keep nothing of
# what is compiled with them.
option(TESSARA_PRECOMPILED "Precompile the headers of libraries: faster on a machine without a compiler cache" OFF)
if(TESSARA_PRECOMPILED)
  unset(CMAKE_CXX_COMPILER_LAUNCHER)
endif()

# The first target of a kind compiles the headers, the others take them from it.
function(tessara_precompile target kind)
  if(NOT TESSARA_PRECOMPILED)
    return()
  endif()
  get_property(first GLOBAL PROPERTY tessara_precompiled_${kind})
  if(first)
    target_precompile_headers(${target} REUSE_FROM ${first})
    return()
  endif()
  set(headers <algorithm> <array> <charconv> <filesystem> <functional> <map> <memory> <optional> <span> <string>
              <string_view> <variant> <vector>)
  if(kind MATCHES "window")
    list(APPEND headers <QtWidgets>)
  endif()
  if(kind STREQUAL window_tests)
    list(APPEND headers <QtTest>)
  elseif(kind STREQUAL unit_tests)
    list(APPEND headers <gtest/gtest.h>)
  endif()
  target_precompile_headers(${target} PRIVATE ${headers})
  set_property(GLOBAL PROPERTY tessara_precompiled_${kind} ${target})
endfunction()

add_library(tessara_options INTERFACE)
target_compile_features(tessara_options INTERFACE cxx_std_20)
target_include_directories(tessara_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
target_compile_definitions(tessara_options INTERFACE TESSARA_VERSION="${PROJECT_VERSION}")
if(MSVC)
  target_compile_options(tessara_options INTERFACE /W4 /WX /utf-8 /fp:precise)
  target_compile_definitions(tessara_options INTERFACE NOMINMAX _CRT_SECURE_NO_WARNINGS)
else()
  # Reports are compared byte for byte: no contraction of a * b + c into one rounding, never -ffast-math.
  target_compile_options(tessara_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                                                   -Werror -ffp-contract=off)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # A false alarm of this version at -O3: "text" + std::string().
    target_compile_options(tessara_options INTERFACE -Wno-restrict)
  endif()
endif()
if(UNIX AND NOT APPLE)
  # What is shipped: guarded stacks, checked calls of the C library, an address of its own at each start, and tables of
  # the linker that nobody can write.
  set(shipped $<CONFIG:Release>)
  set(in_program $<NOT:$<STREQUAL:$<TARGET_PROPERTY:TYPE>,MODULE_LIBRARY>>)
  target_compile_options(
    tessara_options
    INTERFACE $<${shipped}:-fstack-protector-strong> $<${shipped}:-U_FORTIFY_SOURCE> $<${shipped}:-D_FORTIFY_SOURCE=2>
              $<$<AND:${shipped},${in_program}>:-fPIE>)
  target_link_options(
    tessara_options INTERFACE $<${shipped}:-Wl,-z,relro> $<${shipped}:-Wl,-z,now>
    $<$<AND:${shipped},$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>>:-pie>)
endif()
if(TESSARA_SANITIZE AND NOT MSVC)
  target_compile_options(tessara_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                   -fno-omit-frame-pointer)
  target_link_options(tessara_options INTERFACE -fsanitize=address,undefined)
endif()

# The sources of one folder and its rooms; tests folders are not among them.
function(tessara_sources variable folder)
  set(top "${CMAKE_SOURCE_DIR}/${folder}")
  # Relative names, so that a tree that lies in a folder named "tests" has sources too.
  file(GLOB_RECURSE sources RELATIVE "${top}" CONFIGURE_DEPENDS "${top}/*.cpp" "${top}/*.h")
  list(FILTER sources EXCLUDE REGEX "(^|/)tests/")
  list(TRANSFORM sources PREPEND "${top}/")
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()
