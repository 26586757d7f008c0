# Which folder may look at which is said once: by what its targets link. This writes it down for
# tests/check-includes.sh: a line for each target, its name, its folder and what it links itself.

# ornivane_write_layers(file): of all targets under src/ and tools/. To be called when they are all there.
function(ornivane_write_layers file)
  set(lines "")
  foreach(top src tools)
    ornivane_targets_below(${PROJECT_SOURCE_DIR}/${top} targets)
    foreach(target IN LISTS targets)
      set(folder ${target}) # of a library of headers alone
      get_target_property(sources ${target} SOURCES)
      if(sources)
        list(GET sources 0 source)
        get_target_property(directory ${target} SOURCE_DIR)
        file(REAL_PATH ${source} source BASE_DIRECTORY ${directory})
        get_filename_component(folder ${source} DIRECTORY)
        file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR}/${top} ${folder})
      endif()
      get_target_property(libraries ${target} LINK_LIBRARIES)
      if(NOT libraries)
        get_target_property(libraries ${target} INTERFACE_LINK_LIBRARIES)
      endif()
      list(JOIN libraries " " libraries)
      string(APPEND lines "${target} ${folder} ${libraries}\n")
    endforeach()
  endforeach()
  file(WRITE ${file} "${lines}")
endfunction()

# The targets of a directory and of those that it adds.
function(ornivane_targets_below directory result)
  get_property(all DIRECTORY ${directory} PROPERTY BUILDSYSTEM_TARGETS)
  get_property(below DIRECTORY ${directory} PROPERTY SUBDIRECTORIES)
  foreach(one IN LISTS below)
    ornivane_targets_below(${one} more)
    list(APPEND all ${more})
  endforeach()
  set(${result} ${all} PARENT_SCOPE)
endfunction()
