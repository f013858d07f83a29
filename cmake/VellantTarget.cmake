# One static library per source folder; warnings are errors on our own code only.
function(vellant_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                         -Wno-sign-conversion)
  # GCC 12 at -O3 warns of overlapping copies inside std::string that cannot happen (a known
  # false positive of its restrict analysis), which would stop a Release build.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(VELLANT_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

function(vellant_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_DEPS})
  vellant_warnings(${name})
endfunction()
