# Installs the library, so that another project can say find_package(druvelk) and link druvelk::druvelk.
include(CMakePackageConfigHelpers)
set(config ${CMAKE_INSTALL_LIBDIR}/cmake/druvelk)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)

install(TARGETS druvelk EXPORT druvelk ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT druvelk NAMESPACE druvelk:: FILE druvelkTargets.cmake DESTINATION ${config})
foreach(folder app environment map models resources scene)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/druvelk
    FILES_MATCHING PATTERN "*.h" PATTERN icons EXCLUDE)
endforeach()
install(FILES ${CMAKE_CURRENT_LIST_DIR}/druvelkConfig.cmake DESTINATION ${config})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/druvelkConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/druvelkConfigVersion.cmake DESTINATION ${config})
