# Each folder is a target of its own, so that a folder which uses another one against the order of layers does not link.

include(GNUInstallDirs)

set(ORVAN_SOURCE_ROOT ${CMAKE_CURRENT_SOURCE_DIR})

if(ORVAN_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(ORVAN_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
elseif(ORVAN_THREAD_SANITIZE)
    add_compile_options(-fsanitize=thread)
    add_link_options(-fsanitize=thread)
endif()

# orvan_precompile(<target>) has a target's sources read Qt's usual headers in their compiled form. Only for targets with
# Qt and many sources: compiling the headers takes as long as six sources, and the targets without Qt are compiled alike
# in the presets release and headless, which share the results.
function(orvan_precompile target)
    if(ORVAN_PRECOMPILE)
        target_precompile_headers(${target} PRIVATE <QApplication> <QComboBox> <QKeyEvent> <QLineEdit> <QMenu>
            <QMessageBox> <QPainter> <QPushButton> <QTreeView>)
        if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
            target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp") # for ccache
        else()
            # GCC 12 raises them, falsely, in the standard library's headers once they are compiled.
            target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-stringop-overflow)
        endif()
    endif()
endfunction()

# orvan_library(<name> [PUBLIC_HEADERS ...] SOURCES ... [LINKS ...] [PRIVATE_LINKS ...]) makes the target orvan_<name>
# with the alias orvan::<name>. PUBLIC_HEADERS are the headers that hosts include; no others are installed, so a public
# header may include only public headers (scripts/check_layers_and_documents.py checks this).
function(orvan_library name)
    cmake_parse_arguments(ARG "" "" "PUBLIC_HEADERS;SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
    add_library(orvan_${name} STATIC ${ARG_PUBLIC_HEADERS} ${ARG_SOURCES})
    add_library(orvan::${name} ALIAS orvan_${name})
    set_target_properties(orvan_${name} PROPERTIES
        EXPORT_NAME ${name} POSITION_INDEPENDENT_CODE ON CXX_EXTENSIONS OFF)
    target_compile_features(orvan_${name} PUBLIC cxx_std_20)
    # Without this option the compiler must allow for functions that are replaced when the program is loaded, because
    # the code may become part of a shared library, and it then inlines less. Nobody replaces functions of this library.
    target_compile_options(orvan_${name} PRIVATE -fno-semantic-interposition)
    target_include_directories(orvan_${name} PUBLIC
        $<BUILD_INTERFACE:${ORVAN_SOURCE_ROOT}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    target_link_libraries(orvan_${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
    if(ORVAN_INSTALL)
        file(RELATIVE_PATH folder ${ORVAN_SOURCE_ROOT} ${CMAKE_CURRENT_SOURCE_DIR})
        install(TARGETS orvan_${name} EXPORT KTVOrvanProduct)
        install(FILES ${ARG_PUBLIC_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
    endif()
endfunction()

# orvan_headers(<name> PUBLIC_HEADERS ... LINKS ...) makes the same kind of target out of headers alone.
function(orvan_headers name)
    cmake_parse_arguments(ARG "" "" "PUBLIC_HEADERS;LINKS" ${ARGN})
    add_library(orvan_${name} INTERFACE)
    add_library(orvan::${name} ALIAS orvan_${name})
    set_target_properties(orvan_${name} PROPERTIES EXPORT_NAME ${name})
    target_link_libraries(orvan_${name} INTERFACE ${ARG_LINKS})
    if(ORVAN_INSTALL)
        file(RELATIVE_PATH folder ${ORVAN_SOURCE_ROOT} ${CMAKE_CURRENT_SOURCE_DIR})
        install(TARGETS orvan_${name} EXPORT KTVOrvanProduct)
        install(FILES ${ARG_PUBLIC_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
    endif()
endfunction()

# Puts the modules beside a program of the build folder, where they are found as in an installation.
function(orvan_loads_modules program)
    foreach(module IN ITEMS orvan_workbooks orvan_postgres)
        if(TARGET ${module})
            add_dependencies(${program} ${module})
            add_custom_command(TARGET ${program} POST_BUILD COMMAND ${CMAKE_COMMAND} -E create_symlink
                $<TARGET_FILE:${module}> $<TARGET_FILE_DIR:${program}>/$<TARGET_FILE_NAME:${module}>)
        endif()
    endforeach()
endfunction()

# Installs the files with which find_package(KTVOrvanProduct) finds the library.
function(orvan_install_package)
    include(CMakePackageConfigHelpers)
    set(package ${CMAKE_INSTALL_LIBDIR}/cmake/KTVOrvanProduct)
    install(EXPORT KTVOrvanProduct NAMESPACE orvan:: FILE KTVOrvanProductTargets.cmake DESTINATION ${package})
    configure_package_config_file(${ORVAN_SOURCE_ROOT}/cmake/KTVOrvanProductConfig.cmake.in
        ${CMAKE_CURRENT_BINARY_DIR}/KTVOrvanProductConfig.cmake INSTALL_DESTINATION ${package})
    write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/KTVOrvanProductConfigVersion.cmake
        COMPATIBILITY SameMajorVersion)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KTVOrvanProductConfig.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/KTVOrvanProductConfigVersion.cmake DESTINATION ${package})
endfunction()
