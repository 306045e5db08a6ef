# What an installed copy offers: the libraries, their public headers, a CMake package and a pkg-config file.

include(CMakePackageConfigHelpers)

set(libraries UtilityCore)
set(packages utility-core)
set(left_out PATTERN "backend" EXCLUDE) # back ends show nothing
if(UTILITY_BUILD_UI)
    list(APPEND libraries UtilityUi)
    list(APPEND packages utility-ui)
else()
    list(APPEND left_out PATTERN "platform/ui" EXCLUDE PATTERN "src/dialogs" EXCLUDE)
endif()
install(TARGETS ${libraries} EXPORT UtilityTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_SKIP)
install(TARGETS ${libraries} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_ONLY)
# The tables are read by headers.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/utility
        FILES_MATCHING PATTERN "*.h" PATTERN "*.def" ${left_out})

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Utility)
install(EXPORT UtilityTargets NAMESPACE Utility:: DESTINATION ${package_folder})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/UtilityConfig.cmake.in
        ${PROJECT_BINARY_DIR}/UtilityConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/UtilityConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/UtilityConfig.cmake ${PROJECT_BINARY_DIR}/UtilityConfigVersion.cmake
        DESTINATION ${package_folder})
foreach(package IN LISTS packages)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${package}.pc.in ${PROJECT_BINARY_DIR}/${package}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${package}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
