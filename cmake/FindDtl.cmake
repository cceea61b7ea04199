# The headers of dtl, which compares two sequences; gives the target dtl.
find_path(DTL_INCLUDE_DIR dtl/dtl.hpp)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Dtl REQUIRED_VARS DTL_INCLUDE_DIR)
if(Dtl_FOUND AND NOT TARGET dtl)
  add_library(dtl INTERFACE IMPORTED)
  set_target_properties(dtl PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${DTL_INCLUDE_DIR})
endif()
