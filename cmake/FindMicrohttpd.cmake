# GNU libmicrohttpd, a small HTTP server; gives the target microhttpd.
find_path(MICROHTTPD_INCLUDE_DIR microhttpd.h)
find_library(MICROHTTPD_LIBRARY microhttpd)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Microhttpd REQUIRED_VARS MICROHTTPD_LIBRARY MICROHTTPD_INCLUDE_DIR)
if(Microhttpd_FOUND AND NOT TARGET microhttpd)
  add_library(microhttpd UNKNOWN IMPORTED)
  set_target_properties(microhttpd PROPERTIES
    IMPORTED_LOCATION ${MICROHTTPD_LIBRARY} INTERFACE_INCLUDE_DIRECTORIES ${MICROHTTPD_INCLUDE_DIR})
endif()
