# Takes the library's sources into another project (parent/), in one of two ways; builds and runs a program there, if
# BUILD is set; and sees that the project's tests and its installation are its own.
file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${CMAKE_COMMAND} -G ${GENERATOR} -S ${CMAKE_CURRENT_LIST_DIR}/parent -B ${WORK} -DWAY=${WAY}
        -DORVAN_TREE=${SOURCE} -DCMAKE_CXX_COMPILER=${CXX} -DBUILD_SHARED_LIBS=${SHARED}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
if(NOT BUILD)
    return()
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_CTEST_COMMAND} --test-dir ${WORK} --output-on-failure
    OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
if(NOT printed MATCHES "0 tests failed out of 1\n")
    message(FATAL_ERROR "One test, the project's own, is to run:\n${printed}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --install ${WORK} --prefix ${WORK}/installed OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE installed ${WORK}/installed/*)
if(installed)
    message(FATAL_ERROR "The project installs nothing, but there is ${installed}")
endif()
