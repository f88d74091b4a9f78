# The storeys of the house as include directories: what a target links is what its files can include, so that an include
# which runs back up finds no file. Each storey has a directory that holds nothing but a link to its own.
#   add_storey(name)   target <name>_storey, for #include "name/..."
function(add_storey name)
  set(directory ${PROJECT_BINARY_DIR}/storeys/${name})
  file(MAKE_DIRECTORY ${directory})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${name} ${directory}/${name} SYMBOLIC)
  add_library(${name}_storey INTERFACE)
  target_include_directories(${name}_storey INTERFACE ${directory})
endfunction()

foreach(storey text seams net ui games app tests benchmarks)
  add_storey(${storey})
endforeach()
