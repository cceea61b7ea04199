# The CMake package: find_package(customstyle) gives customstyle::customstyle and customstyle::stylesnapshot.
include(CMakePackageConfigHelpers)

set(CUSTOMSTYLE_STUDIO_PAGE ${PROJECT_SOURCE_DIR}/build/studio CACHE PATH
    "Folder of the studio's built page, which is installed where it is there")

set(package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/customstyle)

install(TARGETS customstyle customstyle_stylesnapshot orvik_vi EXPORT customstyle
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(CUSTOMSTYLE_BUILD_TOOLS)
  # What the command needs can be installed alone: cmake --install BUILD --component tool
  install(DIRECTORY tools/export/legends DESTINATION ${CMAKE_INSTALL_DATADIR}/customstyle COMPONENT tool)
  install(TARGETS customstyle_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
  # The studio's page, where script/studio --build has built it.
  install(DIRECTORY ${CUSTOMSTYLE_STUDIO_PAGE}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/customstyle/studio
          COMPONENT tool OPTIONAL PATTERN "*.map" EXCLUDE)
  if(TARGET customstyle_share)
    install(DIRECTORY ${PROJECT_BINARY_DIR}/share/man/man1 DESTINATION ${CMAKE_INSTALL_MANDIR} COMPONENT tool)
    install(DIRECTORY ${PROJECT_BINARY_DIR}/share/bash-completion ${PROJECT_BINARY_DIR}/share/zsh
                      ${PROJECT_BINARY_DIR}/share/fish
            DESTINATION ${CMAKE_INSTALL_DATADIR} COMPONENT tool)
  endif()
endif()
install(DIRECTORY sdkengine/src/app/map/customstyle/include/customstyle
                  sdkengine/src/app/map/stylesnapshot/include/customstyle
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY engine/dev/inc/vi DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/customstyle)
install(EXPORT customstyle NAMESPACE customstyle:: DESTINATION ${package_directory})

configure_package_config_file(cmake/customstyleConfig.cmake.in ${PROJECT_BINARY_DIR}/customstyleConfig.cmake
                              INSTALL_DESTINATION ${package_directory})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/customstyleConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/customstyleConfig.cmake ${PROJECT_BINARY_DIR}/customstyleConfigVersion.cmake
        DESTINATION ${package_directory})
