# The parts in which the library is used: each is one shared library with BUILD_SHARED_LIBS, and a group of static ones
# without, and can be asked for by name: find_package(KTVOrvanProduct 2.1 COMPONENTS core qt).
#
# A folder's headers mark what leaves its shared library: ORVAN_<PART>_EXPORT what hosts use, ORVAN_EXPORT the types that
# hosts and their component libraries hand to each other, ORVAN_<PART>_INTERNAL what only the library's other parts and
# its own programs use. The latter gets the version node ORVAN_PRIVATE_<version>, so
# that a part is never combined with another version's parts, and hosts are not tempted.

include(CheckLinkerFlag)

# The number in the file names of the shared libraries. CONTRIBUTING.md says what may change without raising it.
set(ORVAN_ABI 2)

set(ORVAN_PARTS core catalogue qt)
set(ORVAN_FOLDERS_OF_core base files ui core fields lookup editor view headless icu products trace registry)
set(ORVAN_FOLDERS_OF_catalogue outside recording catalogue hosting replay)
set(ORVAN_FOLDERS_OF_qt qt hosting_qt)
set(ORVAN_PARTS_BELOW_core)
set(ORVAN_PARTS_BELOW_catalogue core)
set(ORVAN_PARTS_BELOW_qt catalogue core)

# Headers that CMake writes.
set(ORVAN_GENERATED ${CMAKE_CURRENT_BINARY_DIR}/generated)
if(ORVAN_INSTALL)
    install(DIRECTORY ${ORVAN_GENERATED}/orvan DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT Development)
endif()
configure_file(${ORVAN_SOURCE_ROOT}/orvan/hosting/version.h.in ${ORVAN_GENERATED}/orvan/version.h @ONLY)

function(orvan_part_of folder result)
    foreach(part IN LISTS ORVAN_PARTS)
        if(folder IN_LIST ORVAN_FOLDERS_OF_${part})
            set(${result} ${part} PARENT_SCOPE)
            return()
        endif()
    endforeach()
    set(${result} "" PARENT_SCOPE) # the library's own tests, which no host links
endfunction()

# orvan_resolve(<folder> <result> <target>...) replaces the targets of folders by the shared library that has them, but
# for folders of the same part.
function(orvan_resolve folder result)
    orvan_part_of(${folder} own)
    set(resolved)
    foreach(target IN LISTS ARGN)
        if(target MATCHES "^orvan::(.*)")
            orvan_part_of(${CMAKE_MATCH_1} part)
            if(BUILD_SHARED_LIBS AND part AND NOT part STREQUAL own)
                set(target orvan_part_${part})
            else()
                set(target orvan_${CMAKE_MATCH_1})
            endif()
        endif()
        list(APPEND resolved ${target})
    endforeach()
    set(${result} ${resolved} PARENT_SCOPE)
endfunction()

# Writes the part's export header.
function(orvan_write_export_header part)
    string(TOUPPER ${part} upper)
    set(mark "")
    if(BUILD_SHARED_LIBS)
        set(mark " __attribute__((visibility(\"default\")))")
    endif()
    configure_file(${ORVAN_SOURCE_ROOT}/orvan/base/export.h.in ${ORVAN_GENERATED}/orvan/${part}_export.h @ONLY)
endfunction()

# orvan_marked(<header> <mark> <result>) appends patterns of the linker for the names that a header marks. Marked
# declarations begin in the first column, and are read as one line each; `@` stands for a semicolon there. The linker
# takes what stands in quotes for a whole name, and allows neither blanks nor parentheses elsewhere, so `?` stands for them.
function(orvan_marked header mark result)
    set(patterns ${${result}})
    file(READ ${header} text)
    string(REGEX REPLACE "\n +" " " text "${text}")
    string(REGEX REPLACE "([>)])\n([a-z])" "\\1 \\2" text "${text}") # clang-format breaks long types so
    string(REGEX REPLACE "[][]" "" text "${text}")
    string(REPLACE ";" "@" text "${text}")
    string(REPLACE "\n" ";" text "${text}")
    set(namespace orvan)
    foreach(line IN LISTS text)
        if(line MATCHES "^namespace (orvan[a-z:]*) {$")
            set(namespace ${CMAKE_MATCH_1})
        elseif(line MATCHES "^[/#]" OR NOT line MATCHES "${mark} ")
            continue()
        elseif(line MATCHES "^(class|struct) ${mark} ([A-Za-z]+)")
            set(name ${namespace}::${CMAKE_MATCH_2})
            list(APPEND patterns ${name}::* vtable?for?${name} typeinfo?for?${name} typeinfo?name?for?${name}
                vtable?for?${name}::* typeinfo?for?${name}::* typeinfo?name?for?${name}::*
                non-virtual?thunk?to?${name}::* virtual?thunk?to?${name}::*)
        elseif(line MATCHES "${mark} [^(]* operator[^(]+\\(")
            list(APPEND patterns ${namespace}::operator??*) # the linker would take "*(" for something else
        elseif(line MATCHES "${mark} [^(]*(\\(\\)[^(]*)?[ &*]([A-Za-z0-9_]+)\\(")
            list(APPEND patterns ${namespace}::${CMAKE_MATCH_2}?*)
        elseif(line MATCHES "${mark} .* ([A-Za-z0-9_]+)@$")
            list(APPEND patterns ${namespace}::${CMAKE_MATCH_1})
        else()
            message(FATAL_ERROR "${header}: ${mark} is at no class, function or constant: ${line}")
        endif()
    endforeach()
    set(${result} ${patterns} PARENT_SCOPE)
endfunction()

function(orvan_write_version_script part)
    string(TOUPPER ${part} upper)
    set(public)
    set(private)
    foreach(folder IN LISTS ORVAN_FOLDERS_OF_${part})
        if(TARGET orvan_${folder})
            get_target_property(sources orvan_${folder} SOURCES)
            get_target_property(directory orvan_${folder} SOURCE_DIR)
            list(FILTER sources INCLUDE REGEX "\\.h$")
            list(TRANSFORM sources PREPEND ${directory}/)
            set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sources})
            foreach(header IN LISTS sources)
                orvan_marked(${header} ORVAN_${upper}_EXPORT public)
                orvan_marked(${header} ORVAN_EXPORT public)
                orvan_marked(${header} ORVAN_${upper}_INTERNAL private)
            endforeach()
        endif()
    endforeach()
    list(JOIN public ";\n        " public)
    list(JOIN private ";\n        " private)
    set(private_node "")
    if(private)
        set(private_node "ORVAN_PRIVATE_${PROJECT_VERSION} {\n    extern \"C++\" {\n        ${private};\n    };\n};\n")
    endif()
    file(CONFIGURE OUTPUT ${ORVAN_GENERATED}/${part}.map CONTENT
        "ORVAN_${ORVAN_ABI} {\n    global: extern \"C++\" {\n        ${public};\n    };\n    local: *;\n};\n${private_node}")
endfunction()

# To be called before the folders: with BUILD_SHARED_LIBS it makes the targets that they link.
function(orvan_begin_parts)
    if(BUILD_SHARED_LIBS)
        foreach(part IN LISTS ORVAN_PARTS)
            if(ORVAN_QT OR NOT part STREQUAL qt)
                add_library(orvan_part_${part} SHARED ${ORVAN_GENERATED}/orvan/version.h)
                orvan_write_export_header(${part})
            endif()
        endforeach()
    endif()
endfunction()

# To be called after the folders.
function(orvan_end_parts)
    if(BUILD_SHARED_LIBS)
        check_linker_flag(CXX -Wl,-z,pack-relative-relocs ORVAN_PACKED_RELOCATIONS)
    endif()
    foreach(part IN LISTS ORVAN_PARTS)
        set(library orvan_part_${part})
        set(folders ${ORVAN_FOLDERS_OF_${part}})
        list(TRANSFORM folders PREPEND orvan_)
        if(NOT TARGET ${library})
            list(GET folders 0 first)
            if(TARGET ${first})
                orvan_write_export_header(${part})
            endif()
            continue()
        endif()
        set(below ${ORVAN_PARTS_BELOW_${part}})
        list(TRANSFORM below PREPEND orvan_part_)
        set_target_properties(${library} PROPERTIES EXPORT_NAME ${part} OUTPUT_NAME orvan_${part} DEBUG_POSTFIX d
            VERSION ${PROJECT_VERSION} SOVERSION ${ORVAN_ABI} LINKER_LANGUAGE CXX)
        target_include_directories(${library} INTERFACE $<BUILD_INTERFACE:${ORVAN_SOURCE_ROOT}>
            $<BUILD_INTERFACE:${ORVAN_GENERATED}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
        target_compile_features(${library} PUBLIC cxx_std_20)
        target_link_libraries(${library} PUBLIC ${below} PRIVATE ${folders})
        if(part STREQUAL qt)
            target_link_libraries(${library} PUBLIC Qt6::Widgets)
        endif()
        orvan_write_version_script(${part})
        # Nobody replaces functions of the library, so its own calls need no table of addresses; and relocations are packed
        # where the linker can do it: a program then needs glibc 2.36, which systems with ICU 72 have.
        target_link_options(${library} PRIVATE -Wl,--no-undefined -Wl,-Bsymbolic-functions
            $<$<BOOL:${ORVAN_PACKED_RELOCATIONS}>:-Wl,-z,pack-relative-relocs>
            -Wl,--version-script=${ORVAN_GENERATED}/${part}.map)
        set_property(TARGET ${library} PROPERTY LINK_DEPENDS ${ORVAN_GENERATED}/${part}.map)
        orvan_finds_libraries(${library} $ORIGIN)
        if(ORVAN_INSTALL)
            install(TARGETS ${library} EXPORT KTVOrvanProduct-${part}
                LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development)
        endif()
    endforeach()
endfunction()
