# How every target of ours is compiled. Third-party headers come in as system headers and stay silent.
add_library(kaloria_options INTERFACE)
target_include_directories(kaloria_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(kaloria_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
  -Wold-style-cast -Woverloaded-virtual -Wnull-dereference -Wformat=2)
# GCC 12 sees overlapping copies inside std::string where there are none (GCC bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(kaloria_options INTERFACE -Wno-restrict)
endif()
if(KALORIA_WERROR)
  target_compile_options(kaloria_options INTERFACE -Werror)
endif()

# The engine tells a fault by the floating-point status flags, so no arithmetic may be dropped or moved
# across the place that reads them.
target_compile_options(kaloria_options INTERFACE -fno-fast-math -ftrapping-math)
# Distributions' clang before 15 warns that it honours -ftrapping-math only partly; the guard in
# engine/numeric_fault.h does not rely on it.
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  target_compile_options(kaloria_options INTERFACE -Wno-overriding-t-option -Wno-unknown-warning-option)
endif()

if(KALORIA_SANITIZE)
  target_compile_options(kaloria_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kaloria_options INTERFACE -fsanitize=address,undefined)
endif()

# kaloria_library(<name> SOURCES... LINKS... [HEADERS...]): static library kaloria_<name> with alias
# kaloria::<name>. HEADERS of others are precompiled, but not under the sanitizers: that build sees whether
# every source, and the header that it includes first, brings along what it needs. Nor the C++ library's own:
# GCC forgets that what it precompiled are system headers, and warns of what its optimizer makes of them.
function(kaloria_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;HEADERS" ${ARGN})
  add_library(kaloria_${name} STATIC ${ARG_SOURCES})
  add_library(kaloria::${name} ALIAS kaloria_${name})
  target_include_directories(kaloria_${name} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(kaloria_${name} PRIVATE kaloria_options PUBLIC ${ARG_LINKS})
  if(ARG_HEADERS AND NOT KALORIA_SANITIZE)
    target_precompile_headers(kaloria_${name} PRIVATE ${ARG_HEADERS})
  endif()
  # No parser is above the application, and the windows would only become slower.
  if(KALORIA_FUZZ AND NOT name STREQUAL "ui")
    target_compile_options(kaloria_${name} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()
