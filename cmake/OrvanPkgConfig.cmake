# Files for pkg-config: orvan-core, orvan-catalogue and orvan-qt, for hosts that are not built with CMake.

set(folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH to_prefix /${folder} /) # the installation may be moved
string(REGEX REPLACE "/$" "" to_prefix ${to_prefix})
set(postfix "")
if(CMAKE_BUILD_TYPE STREQUAL "Debug")
    set(postfix d)
endif()
set(static_core "icu-i18n icu-uc spdlog")
set(static_catalogue sqlite3)
set(static_qt "")
foreach(part IN LISTS ORVAN_PARTS)
    if(part STREQUAL qt AND NOT ORVAN_QT)
        continue()
    endif()
    set(requires ${ORVAN_PARTS_BELOW_${part}})
    list(TRANSFORM requires PREPEND orvan-)
    set(libraries -lorvan_${part}${postfix})
    if(NOT BUILD_SHARED_LIBS)
        set(libraries ${ORVAN_FOLDERS_OF_${part}})
        list(REVERSE libraries) # the linker reads each library once, so what needs another one stands before it
        list(TRANSFORM libraries REPLACE "(.+)" "-lorvan_\\1${postfix}")
        list(JOIN libraries " " libraries)
        list(APPEND requires ${static_${part}})
    endif()
    if(part STREQUAL qt)
        list(APPEND requires Qt6Widgets)
    endif()
    list(JOIN requires " " requires)
    set(file ${CMAKE_CURRENT_BINARY_DIR}/orvan-${part}.pc)
    file(WRITE ${file} "prefix=\${pcfiledir}/${to_prefix}
libdir=\${prefix}/${CMAKE_INSTALL_LIBDIR}
includedir=\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}

Name: orvan-${part}
Description: ${PROJECT_DESCRIPTION}: ${part}
Version: ${PROJECT_VERSION}
Requires: ${requires}
Libs: -L\${libdir} ${libraries}
Cflags: -I\${includedir}
")
    install(FILES ${file} DESTINATION ${folder} COMPONENT Development)
endforeach()
