# What `cmake --install` puts in place: libraries, public headers, and what CMake and pkg-config need to find them.

include(CMakePackageConfigHelpers)

set(LEDGORA_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/ledgora)
set(LEDGORA_PACKAGEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/Ledgora)

set_target_properties(ledgora_core PROPERTIES EXPORT_NAME core)
set_target_properties(ledgora_components PROPERTIES EXPORT_NAME components)
install(TARGETS ledgora_core ledgora ledgora_components EXPORT LedgoraTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
  FILE_SET public_headers DESTINATION ${LEDGORA_INCLUDEDIR} COMPONENT development)
install(EXPORT LedgoraTargets NAMESPACE Ledgora:: DESTINATION ${LEDGORA_PACKAGEDIR} COMPONENT development)

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/LedgoraConfig.cmake.in ${PROJECT_BINARY_DIR}/LedgoraConfig.cmake
  INSTALL_DESTINATION ${LEDGORA_PACKAGEDIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/LedgoraConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/LedgoraConfig.cmake ${PROJECT_BINARY_DIR}/LedgoraConfigVersion.cmake
  DESTINATION ${LEDGORA_PACKAGEDIR} COMPONENT development)

file(RELATIVE_PATH LEDGORA_PC_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(${CMAKE_CURRENT_LIST_DIR}/ledgora.pc.in ${PROJECT_BINARY_DIR}/ledgora.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/ledgora.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
