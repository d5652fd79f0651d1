# The floors below the windows as a library for other programs: find_package(Vorlix), or pkg-config.
#   lib/libvorlix_*.a  include/vorlix/  lib/cmake/Vorlix/  lib/pkgconfig/vorlix.pc
set(libraryFloors astro record orbit engine elements scan exports observing mounts reports design)

add_library(vorlix_library INTERFACE)
set_target_properties(vorlix_library PROPERTIES EXPORT_NAME vorlix)
target_compile_features(vorlix_library INTERFACE cxx_std_20)
install(TARGETS vorlix_library EXPORT VorlixTargets)
set(pkgConfigLibraries "")
foreach(floor ${libraryFloors})
  target_link_libraries(vorlix_library INTERFACE vorlix_${floor})
  set_target_properties(vorlix_${floor} PROPERTIES EXPORT_NAME ${floor})
  install(TARGETS vorlix_${floor} EXPORT VorlixTargets ARCHIVE DESTINATION lib)
  install(DIRECTORY ${floor}/ DESTINATION include/vorlix/${floor} FILES_MATCHING PATTERN "*.h")
  string(PREPEND pkgConfigLibraries "-lvorlix_${floor} ")  # an archive stands in front of those that it needs
endforeach()
install(EXPORT VorlixTargets NAMESPACE Vorlix:: DESTINATION lib/cmake/Vorlix)

include(CMakePackageConfigHelpers)
write_basic_package_version_file(VorlixConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES cmake/VorlixConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/VorlixConfigVersion.cmake
  DESTINATION lib/cmake/Vorlix)
configure_file(cmake/vorlix.pc.in vorlix.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vorlix.pc DESTINATION lib/pkgconfig)
