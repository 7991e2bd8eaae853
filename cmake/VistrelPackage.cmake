# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# What is installed besides the programs, and the Debian packages: vistrel, and vistrel-dev with the
# headers for makers of a host. scripts/package.sh makes and tries them.
set(packaging "${PROJECT_SOURCE_DIR}/packaging")

install(FILES "${packaging}/vistrel-completion.bash" RENAME vistrel-run
        DESTINATION share/bash-completion/completions)
install(FILES "${packaging}/vistrel-completion.bash" RENAME vistrel-viewer
        DESTINATION share/bash-completion/completions)
install(FILES "${packaging}/vistrel-viewer.desktop" DESTINATION share/applications)
install(FILES "${packaging}/copyright" DESTINATION share/doc/vistrel)
install(DIRECTORY examples/ DESTINATION share/vistrel/examples FILES_MATCHING PATTERN "*.py"
        PATTERN "minimal_host" EXCLUDE)
install(DIRECTORY host_api/ DESTINATION include/vistrel COMPONENT development
        FILES_MATCHING PATTERN "*.h")
install(FILES "${packaging}/copyright" docs/host.md DESTINATION share/doc/vistrel-dev
        COMPONENT development)
install(DIRECTORY examples/minimal_host DESTINATION share/doc/vistrel-dev/examples
        COMPONENT development)

# Manual pages and changelogs are installed compressed, as Debian has them.
find_program(GZIP_EXECUTABLE gzip REQUIRED)
set(compressed "${PROJECT_BINARY_DIR}/packaging")
foreach(file IN ITEMS vistrel-run.1 vistrel-viewer.1 vistrel-stop-window.1 changelog)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${packaging}/${file}")
    file(MAKE_DIRECTORY "${compressed}")
    execute_process(COMMAND "${GZIP_EXECUTABLE}" -9nc "${packaging}/${file}"
                    OUTPUT_FILE "${compressed}/${file}.gz" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
install(DIRECTORY "${compressed}/" DESTINATION share/man/man1 FILES_MATCHING PATTERN "*.1.gz")
install(FILES "${compressed}/changelog.gz" DESTINATION share/doc/vistrel)
install(FILES "${compressed}/changelog.gz" DESTINATION share/doc/vistrel-dev
        COMPONENT development)
install(FILES "${packaging}/lintian-overrides" RENAME vistrel DESTINATION share/lintian/overrides)

# What is packed was built before; tests are no part of it.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vistrel)
set(CPACK_PACKAGE_CONTACT "The Vistrel Python scripting authors <vistrel@example.org>")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME vistrel)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
# Texts in charts need a font.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS fonts-dejavu-core)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS python3-numpy)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS "python3-opencv, python3-matplotlib")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Python scripts for cameras and images
Short Python scripts open cameras, take pictures, measure them, draw charts
and save files: without a screen in vistrel-run, on the desktop in
vistrel-viewer. Cameras are GigE Vision and USB3 Vision devices, and a
simulated one.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME vistrel-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS qt6-base-dev)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Python scripts for cameras and images - headers
The interfaces between the Vistrel scripting plugin and the application that
loads it, for makers of such an application.")
include(CPack)
