# Warnings are errors for every target of ours; third-party headers come in as system includes.
add_library(korvel_warnings INTERFACE)
target_compile_options(korvel_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wnull-dereference
  -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough)

# Sanitizers are applied globally so that libraries, tests and executables agree.
if(KORVEL_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()
