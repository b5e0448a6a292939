# find_package(velmora) and pkg-config.
include(CMakePackageConfigHelpers)
install(TARGETS velmora EXPORT velmoraTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/velmora DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h")
install(EXPORT velmoraTargets NAMESPACE velmora:: FILE velmora-config.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/velmora)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/velmora-config-version.cmake
                                 COMPATIBILITY SameMinorVersion)
configure_file(${PROJECT_SOURCE_DIR}/cmake/velmora.pc.in ${CMAKE_CURRENT_BINARY_DIR}/velmora.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/velmora-config-version.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/velmora)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/velmora.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
