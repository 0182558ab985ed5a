file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/installed
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE headers RELATIVE ${WORK}/installed/include ${WORK}/installed/include/*)
list(LENGTH headers count)
list(JOIN headers "\n  " lines)
message(STATUS "${count} headers are installed:\n  ${lines}")

set(configure ${CMAKE_COMMAND} -G ${GENERATOR} -S ${CMAKE_CURRENT_LIST_DIR}/host
    -DCMAKE_PREFIX_PATH=${WORK}/installed -DCMAKE_CXX_COMPILER=${CXX} -DAPPS=${SOURCE}/apps -DQT=${QT})
execute_process(COMMAND ${configure} -B ${WORK}/unknown -DCOMPONENTS=core\;colours RESULT_VARIABLE failed
    OUTPUT_QUIET ERROR_VARIABLE told)
if(NOT failed OR NOT told MATCHES "colours")
    message(FATAL_ERROR "An unknown component is to fail with its name: ${told}")
endif()
set(components core catalogue)
if(QT)
    list(APPEND components qt)
endif()
execute_process(COMMAND ${configure} -B ${WORK}/host "-DCOMPONENTS=${components}" OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK}/host COMMAND_ERROR_IS_FATAL ANY)

# Runs a host and compares what it prints.
function(expect_output expected)
    execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=en_US XDG_STATE_HOME=${WORK} ${ARGN}
        OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
    if(NOT printed STREQUAL expected)
        message(FATAL_ERROR "printed:\n${printed}expected:\n${expected}")
    endif()
endfunction()

file(WRITE ${WORK}/products.txt "1~Desk lamp:::74.95:2:0:149.9:~\n")
expect_output("#  Product    Qty  Ext Price\n1  Desk lamp    2    $149.90\nTotal  $149.90\n"
    ${WORK}/host/orvan-grid ${WORK}/products.txt)
expect_output("1  Desk lamp  2  $149.90  $149.90\n149.9 EUR, 2 pages, dial 0.5, rich\n" ${WORK}/host/own-names)

# The examples are projects of their own, with tests of their own, which run the conformance suites.
set(examples own-manager)
if(QT)
    list(APPEND examples quick-host order-window)
endif()
foreach(example IN LISTS examples)
    set(built ${WORK}/examples/${example})
    execute_process(COMMAND ${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE}/examples/${example} -B ${built}
            -DCMAKE_PREFIX_PATH=${WORK}/installed -DCMAKE_CXX_COMPILER=${CXX}
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND ${CMAKE_COMMAND} --build ${built} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
set(examples_with_tests ${examples})
list(REMOVE_ITEM examples_with_tests quick-host)
foreach(example IN LISTS examples_with_tests)
    execute_process(COMMAND ${CMAKE_CTEST_COMMAND} --test-dir ${WORK}/examples/${example} --output-on-failure
            --no-tests=error
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()

# A host that asks pkg-config. Its libraries are found as the loader is told, because they do not stand in a system folder.
find_program(PKG_CONFIG pkg-config REQUIRED)
file(GLOB_RECURSE pc ${WORK}/installed/orvan-catalogue.pc)
get_filename_component(pc_folder ${pc} DIRECTORY)
get_filename_component(libraries ${pc_folder} DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${pc_folder})
set(pkg_parts orvan-core orvan-catalogue)
if(QT)
    list(APPEND pkg_parts orvan-qt)
endif()
execute_process(COMMAND ${PKG_CONFIG} --exists --print-errors ${pkg_parts} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${PKG_CONFIG} --cflags --libs orvan-catalogue OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND ${flags})
execute_process(COMMAND ${CXX} -std=c++20 -I${SOURCE}/apps ${SOURCE}/apps/orvan-grid/main.cpp ${SOURCE}/apps/orvan-grid/Explained.cpp -o ${WORK}/pkg-grid ${flags}
    COMMAND_ERROR_IS_FATAL ANY)
expect_output("#  Product    Qty  Ext Price\n1  Desk lamp    2    $149.90\nTotal  $149.90\n"
    LD_LIBRARY_PATH=${libraries} ${WORK}/pkg-grid ${WORK}/products.txt)

execute_process(COMMAND ${PYTHON} ${CMAKE_CURRENT_LIST_DIR}/exports.py ${WORK}/installed ${BUILD_TYPE}
        ${WORK}/host/orvan-grid ${WORK}/host/own-names ${WORK}/examples/own-manager/own-manager-test
    COMMAND_ERROR_IS_FATAL ANY)
