# Warnings are errors for every target of ours; third-party headers come in as system includes.
add_library(korvel_warnings INTERFACE)
target_compile_options(korvel_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wnull-dereference
  -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough)
# GCC 12's optimiser reports overlapping copies inside std::string for "literal" + string
# temporaries (GCC bug 105329, fixed in 13): a false -Wrestrict in every optimised build.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12
   AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(korvel_warnings INTERFACE -Wno-restrict)
endif()

# Sanitizers are applied globally so that libraries, tests and executables agree.
if(KORVEL_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()
