# What an installed copy offers: the library, its public headers, a CMake package and a pkg-config file.

include(CMakePackageConfigHelpers)

install(TARGETS UtilityCore EXPORT UtilityTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_SKIP)
install(TARGETS UtilityCore LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_ONLY)
# Back ends show nothing; the tables are read by headers.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/utility
        FILES_MATCHING PATTERN "*.h" PATTERN "*.def" PATTERN "backend" EXCLUDE)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Utility)
install(EXPORT UtilityTargets NAMESPACE Utility:: DESTINATION ${package_folder})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/UtilityConfig.cmake.in
        ${PROJECT_BINARY_DIR}/UtilityConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/UtilityConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/UtilityConfig.cmake ${PROJECT_BINARY_DIR}/UtilityConfigVersion.cmake
        DESTINATION ${package_folder})
configure_file(${PROJECT_SOURCE_DIR}/cmake/utility-core.pc.in ${PROJECT_BINARY_DIR}/utility-core.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/utility-core.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
