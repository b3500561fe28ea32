# What the author of an add-on compiles and links against, installed: the headers, the library, and where both are for
# CMake (find_package(Tessel), target Tessel::addon) and pkg-config (tessel-addon).
include(CMakePackageConfigHelpers)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/Tessel)
set_target_properties(tessel_addon PROPERTIES EXPORT_NAME addon)
install(TARGETS tessel_addon EXPORT TesselTargets)
install(DIRECTORY include/tessel DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT TesselTargets NAMESPACE Tessel:: DESTINATION ${package})

configure_package_config_file(cmake/TesselConfig.cmake.in TesselConfig.cmake INSTALL_DESTINATION ${package}
                              NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(TesselConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/TesselConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/TesselConfigVersion.cmake
        DESTINATION ${package})

# The package says where it is from its own place, so that the tree may be moved.
file(RELATIVE_PATH TESSEL_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/tessel-addon.pc.in tessel-addon.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tessel-addon.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
