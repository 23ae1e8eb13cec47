# zef_library(NAME DEPS...): a static library of every .cpp of the current folder.
# A folder with no sources yet gives an INTERFACE library, so the tree builds as it grows.
function(zef_library name)
  file(GLOB _src CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(_src)
    add_library(${name} STATIC ${_src})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARGN})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} INTERFACE ${ARGN})
  endif()
endfunction()
