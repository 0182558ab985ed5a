# Debian packages: the shared libraries, what developers need, and the desk with the other programs. `cpack -G DEB` makes them
# in the build folder of the preset `packages`.

set(CPACK_PACKAGE_NAME orvan)
set(CPACK_PACKAGE_VENDOR Orvan)
set(CPACK_PACKAGE_CONTACT "Orvan Desk <support@orvan.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://orvan.example/desk)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Runtime Development Desk desktop)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The desk's package is looked through before the libraries' one is installed, so dpkg-shlibdeps finds them in the build folder.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_CURRENT_BINARY_DIR}/orvan)

# The parts of the library are always of one version, and the desk is of the same one.
set(same "liborvan${ORVAN_ABI} (= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME liborvan${ORVAN_ABI})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "lists of products to show and edit: the shared libraries")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS ON)
if(ORVAN_PACKED_RELOCATIONS)
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "libc6 (>= 2.36)") # dpkg-shlibdeps looks at functions alone
endif()
# dpkg has the loader learn of the libraries, and forget them.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/packages/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_BINARY_DIR}/packages/triggers)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME liborvan-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "lists of products to show and edit: headers and CMake files")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${same}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_RECOMMENDS qt6-base-dev) # for the component qt alone
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
if(NOT BUILD_SHARED_LIBS)
    string(APPEND CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ", libicu-dev, libspdlog-dev, libsqlite3-dev")
endif()

set(CPACK_DEBIAN_DESK_PACKAGE_NAME orvan-desk)
set(CPACK_DEBIAN_DESK_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_DESK_DESCRIPTION "opens, edits, saves and prints quotes, makes catalogues from price lists, and reads traces")
set(CPACK_DEBIAN_DESK_PACKAGE_DEPENDS "${same}")
set(CPACK_DEBIAN_DESK_PACKAGE_RECOMMENDS qt6-translations-l10n)

include(CPack)
cpack_add_component(desktop GROUP Desk)
cpack_add_component(Desk GROUP Desk)
cpack_add_component(Runtime GROUP Runtime)
cpack_add_component(Development GROUP Development)
