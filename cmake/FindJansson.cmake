# Finds jansson, the JSON parser of the command: the target Jansson::Jansson. Debian's package brings no file for CMake.
find_path(Jansson_INCLUDE_DIR jansson.h)
find_library(Jansson_LIBRARY jansson)
mark_as_advanced(Jansson_INCLUDE_DIR Jansson_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Jansson REQUIRED_VARS Jansson_LIBRARY Jansson_INCLUDE_DIR)

if(Jansson_FOUND AND NOT TARGET Jansson::Jansson)
  add_library(Jansson::Jansson UNKNOWN IMPORTED)
  set_target_properties(Jansson::Jansson PROPERTIES IMPORTED_LOCATION ${Jansson_LIBRARY}
                                                    INTERFACE_INCLUDE_DIRECTORIES ${Jansson_INCLUDE_DIR})
endif()
