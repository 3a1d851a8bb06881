include(CMakePackageConfigHelpers)

install(TARGETS zelk-core zelk-std-bindings zelk-metadata-services
  EXPORT zelk-metadata-services-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY platform/core/include/ platform/std-bindings/include/ include/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "*.h")

if(ZELK_RELOCATABLE)
  # The program finds the libraries of its own prefix even if the prefix is moved.
  file(RELATIVE_PATH bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(zelk-metadata PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
endif()
install(TARGETS zelk-metadata RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set(printed_dir ${PROJECT_BINARY_DIR}/tools/zelk-metadata)
install(FILES ${printed_dir}/zelk-metadata.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${printed_dir}/zelk-metadata.bash RENAME zelk-metadata
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${printed_dir}/zelk-metadata.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
set(ZELK_ZSH_DIR ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING
  "Folder for the completion of zsh; packages of Debian use share/zsh/vendor-completions")
install(FILES ${printed_dir}/_zelk-metadata DESTINATION ${ZELK_ZSH_DIR})
install(DIRECTORY ${printed_dir}/schemas DESTINATION ${CMAKE_INSTALL_DATADIR}/zelk-metadata
  FILES_MATCHING PATTERN "*.json")

# The examples of --help and of the manual page run in this folder.
install(DIRECTORY metadata DESTINATION ${CMAKE_INSTALL_DATADIR}/zelk-metadata
  FILES_MATCHING PATTERN "*.json")
# The documents, with everything that they link to.
install(FILES README.md ARCHITECTURE.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs examples metadata DESTINATION ${CMAKE_INSTALL_DOCDIR}
  FILES_MATCHING PATTERN "*.md" PATTERN "*.cc" PATTERN "*.json" PATTERN "*.png")

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zelk-metadata-services)
install(EXPORT zelk-metadata-services-targets NAMESPACE Zelk:: DESTINATION ${package_dir})
configure_package_config_file(cmake/zelk-metadata-services-config.cmake.in
  ${CMAKE_BINARY_DIR}/package/zelk-metadata-services-config.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(
  ${CMAKE_BINARY_DIR}/package/zelk-metadata-services-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_BINARY_DIR}/package/zelk-metadata-services-config.cmake
  ${CMAKE_BINARY_DIR}/package/zelk-metadata-services-config-version.cmake
  DESTINATION ${package_dir})

# pkg-config computes the prefix from the place of its file, so that an installation can be moved.
# Folders outside the prefix are absolute. If the libraries are in such a folder, so is the file, and
# the prefix is absolute, too.
set(pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  set(pc_prefix ${CMAKE_INSTALL_PREFIX})
else()
  file(RELATIVE_PATH pc_to_prefix /${pc_dir} /)
  string(REGEX REPLACE "/$" "" pc_to_prefix "${pc_to_prefix}")
  set(pc_prefix "\${pcfiledir}/${pc_to_prefix}")
endif()
foreach(folder LIBDIR INCLUDEDIR)
  set(pc_${folder} "\${prefix}/${CMAKE_INSTALL_${folder}}")
  if(IS_ABSOLUTE ${CMAKE_INSTALL_${folder}})
    set(pc_${folder} ${CMAKE_INSTALL_${folder}})
  endif()
endforeach()
configure_file(cmake/zelk-metadata-services.pc.in
  ${CMAKE_BINARY_DIR}/package/zelk-metadata-services.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/package/zelk-metadata-services.pc
  DESTINATION ${pc_dir})
