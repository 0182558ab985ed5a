# Each folder is a target of its own, so that a folder which uses another one against the order of layers does not link.

if(ORVAN_INSTALL)
    include(GNUInstallDirs)
elseif(NOT CMAKE_INSTALL_LIBDIR)
    # In another project, which may not want the cache entries of GNUInstallDirs. Modules are looked for there.
    set(CMAKE_INSTALL_LIBDIR lib)
    set(CMAKE_INSTALL_FULL_LIBDIR ${CMAKE_INSTALL_PREFIX}/lib)
endif()

set(ORVAN_SOURCE_ROOT ${CMAKE_CURRENT_SOURCE_DIR})
include(${CMAKE_CURRENT_LIST_DIR}/OrvanComponents.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/OrvanSizes.cmake)

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
# header may include only public headers (scripts/check_layers_and_documents.py checks this). With BUILD_SHARED_LIBS the
# target's objects go into a shared library, which has the alias (OrvanComponents.cmake).
function(orvan_library name)
    cmake_parse_arguments(ARG "" "" "PUBLIC_HEADERS;SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
    orvan_part_of(${name} part)
    set(kind STATIC)
    if(BUILD_SHARED_LIBS AND part)
        set(kind OBJECT)
    endif()
    add_library(orvan_${name} ${kind} ${ARG_PUBLIC_HEADERS} ${ARG_SOURCES})
    set_target_properties(orvan_${name} PROPERTIES EXPORT_NAME ${name} DEBUG_POSTFIX d
        POSITION_INDEPENDENT_CODE ON CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
    target_compile_features(orvan_${name} PUBLIC cxx_std_20)
    # Without this option the compiler must allow for functions that are replaced when the program is loaded, because
    # the code may become part of a shared library, and it then inlines less. Nobody replaces functions of this library.
    target_compile_options(orvan_${name} PRIVATE -fno-semantic-interposition)
    orvan_choose_size(${name} orvan_${name} "${ARG_SOURCES}")
    target_include_directories(orvan_${name} PUBLIC $<BUILD_INTERFACE:${ORVAN_SOURCE_ROOT}>
        $<BUILD_INTERFACE:${ORVAN_GENERATED}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    orvan_resolve(${name} links ${ARG_LINKS})
    orvan_resolve(${name} private_links ${ARG_PRIVATE_LINKS})
    target_link_libraries(orvan_${name} PUBLIC ${links} PRIVATE ${private_links})
    orvan_name_target(${name} "${ARG_PUBLIC_HEADERS}")
endfunction()

# orvan_headers(<name> PART <part> PUBLIC_HEADERS ... LINKS ...) makes the same kind of target out of headers alone, which is
# installed with the part.
function(orvan_headers name)
    cmake_parse_arguments(ARG "" "PART" "PUBLIC_HEADERS;LINKS" ${ARGN})
    add_library(orvan_${name} INTERFACE)
    set_target_properties(orvan_${name} PROPERTIES EXPORT_NAME ${name})
    orvan_resolve(${name} links ${ARG_LINKS})
    target_link_libraries(orvan_${name} INTERFACE ${links})
    orvan_name_target(${name} "${ARG_PUBLIC_HEADERS}" ${ARG_PART})
endfunction()

# Gives the target of a folder its alias, and installs it with its headers: one that is no library, with the part that is
# named.
function(orvan_name_target name headers)
    orvan_part_of(${name} part)
    set(target orvan_${name})
    if(BUILD_SHARED_LIBS AND part)
        set(target orvan_part_${part})
    endif()
    add_library(orvan::${name} ALIAS ${target})
    if(ORVAN_INSTALL AND (part OR headers))
        if(target STREQUAL "orvan_${name}")
            if(NOT part)
                set(part ${ARGV2})
            endif()
            install(TARGETS ${target} EXPORT KTVOrvanProduct-${part}
                ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development)
        endif()
        file(RELATIVE_PATH folder ${ORVAN_SOURCE_ROOT} ${CMAKE_CURRENT_SOURCE_DIR})
        install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder} COMPONENT Development)
    endif()
endfunction()

# Puts the library's modules, and those that are named, beside a program of the build folder, where they are found as in
# an installation.
function(orvan_loads_modules program)
    foreach(module IN LISTS ARGN ITEMS orvan_workbooks orvan_postgres)
        if(TARGET ${module})
            add_dependencies(${program} ${module})
            add_custom_command(TARGET ${program} POST_BUILD COMMAND ${CMAKE_COMMAND} -E create_symlink
                $<TARGET_FILE:${module}> $<TARGET_FILE_DIR:${program}>/$<TARGET_FILE_NAME:${module}>)
        endif()
    endforeach()
endfunction()

# Has an installed program or library find the shared libraries in a folder, unless the loader looks there anyway.
function(orvan_finds_libraries target folder)
    if(BUILD_SHARED_LIBS AND NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
        set_target_properties(${target} PROPERTIES INSTALL_RPATH ${folder})
    endif()
endfunction()

# Installs a program with its manual page, which is made from what the program itself says about its use.
function(orvan_install_program program purpose)
    if(NOT ORVAN_INSTALL)
        return()
    endif()
    orvan_finds_libraries(${program} $ORIGIN/../${CMAKE_INSTALL_LIBDIR})
    install(TARGETS ${program} COMPONENT Desk)
    find_package(Python3 COMPONENTS Interpreter)
    if(Python3_FOUND AND NOT (CMAKE_CROSSCOMPILING OR ORVAN_SANITIZE OR ORVAN_THREAD_SANITIZE))
        set(page ${CMAKE_CURRENT_BINARY_DIR}/${program}.1)
        set(writer ${ORVAN_SOURCE_ROOT}/scripts/man_page.py)
        add_custom_command(OUTPUT ${page} DEPENDS ${program} ${writer}
            COMMAND ${Python3_EXECUTABLE} ${writer} $<TARGET_FILE:${program}> ${program} ${purpose} ${page} VERBATIM)
        add_custom_target(${program}-manual ALL DEPENDS ${page})
        install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Desk)
    endif()
endfunction()

# Installs the files with which find_package(KTVOrvanProduct) finds the library.
function(orvan_install_package)
    include(CMakePackageConfigHelpers)
    set(package ${CMAKE_INSTALL_LIBDIR}/cmake/KTVOrvanProduct)
    set(folder_names)
    foreach(part IN LISTS ORVAN_PARTS)
        if(ORVAN_QT OR NOT part STREQUAL qt)
            install(EXPORT KTVOrvanProduct-${part} NAMESPACE orvan:: FILE KTVOrvanProduct-${part}.cmake
                DESTINATION ${package} COMPONENT Development)
            string(APPEND folder_names "set(orvan_folders_of_${part} ${ORVAN_FOLDERS_OF_${part}})\n")
        endif()
    endforeach()
    configure_package_config_file(${ORVAN_SOURCE_ROOT}/cmake/KTVOrvanProductConfig.cmake.in
        ${CMAKE_CURRENT_BINARY_DIR}/KTVOrvanProductConfig.cmake INSTALL_DESTINATION ${package})
    write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/KTVOrvanProductConfigVersion.cmake
        COMPATIBILITY SameMajorVersion)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KTVOrvanProductConfig.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/KTVOrvanProductConfigVersion.cmake DESTINATION ${package} COMPONENT Development)
endfunction()
