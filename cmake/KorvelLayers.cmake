# One static library per layer of the player. Each layer lists the layers below it that it may
# use; tests/layering_test.sh checks the #include lines against the same order.
#
#   math -> utilities -> world (objects -> body -> worldmodel) -> commands -> skills -> plans
#   -> agent
#
# Sources are picked up from the layer's folders, so adding a class means adding its .h/.cpp pair.
function(korvel_layer name)
  cmake_parse_arguments(LAYER "" "" "DIRS;DEPS" ${ARGN})
  set(sources "")
  foreach(dir IN LISTS LAYER_DIRS)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/${dir}/*.cpp")
    list(APPEND sources ${found})
  endforeach()
  if(sources)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${LAYER_DEPS} PRIVATE korvel_warnings)
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} INTERFACE ${LAYER_DEPS})
  endif()
endfunction()
