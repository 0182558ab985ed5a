# How a Release build weighs size against speed. What ./bench measures decides. A program that is linked with the static
# libraries is as fast as can be where keys are answered and lists are shown: there `core` has the build type's own -O3. As
# a shared library it would have 1,031 KB then; with -O2, and with -Os for what runs once for a click, it has less than 600,
# and a key in a box takes twice as long (0.4 us instead of 0.8).
#
# The other parts have -O2. The desk's own sources, too (apps/orvan-desk/CMakeLists.txt): with -O3 everywhere its program has
# half a megabyte more of code. It does not have -Os, because the linker takes each inline function from the first object
# that has it, with that object's option: with -Os in the desk's sources, a search in a list took 7.4 ms instead of 4.0.

# In the shared library: folders, and single sources of other folders, of which one call does little.
set(ORVAN_SMALL files lookup editor headless registry
    base/RuntimeError.cpp base/UserText.cpp core/Explanation.cpp core/modInit.cpp core/modLocale.cpp
    fields/FieldEntry.cpp icu/LocaleData.cpp icu/LocaleNames.cpp
    trace/TraceFile.cpp
    ui/Button.cpp ui/ComboBox.cpp ui/Control.cpp ui/EventTap.cpp ui/Form.cpp ui/LocaleSeparators.cpp ui/RowSelection.cpp
    ui/Surface.cpp ui/TextEntry.cpp ui/Timer.cpp ui/ToolSet.cpp
    view/ListCommands.cpp view/ListFind.cpp view/ProductColumns.cpp view/ProductViewCommands.cpp view/ProductViewDesign.cpp
    view/ProductViewPaste.cpp view/ProductViewPrefs.cpp view/ProductViewRows.cpp view/RowExchange.cpp)
# What works through whole lists character by character.
set(ORVAN_FAST base/Currency.cpp base/Integer.cpp base/Text.cpp products/FieldMarks.cpp products/ProductsString.cpp)

# To be called by the folder that has the target.
function(orvan_choose_size folder target sources)
    orvan_part_of(${folder} part)
    if(part STREQUAL core AND NOT BUILD_SHARED_LIBS)
        return()
    endif()
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O2>)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    foreach(source IN LISTS sources)
        if(folder IN_LIST ORVAN_SMALL OR "${folder}/${source}" IN_LIST ORVAN_SMALL)
            set_property(SOURCE ${source} APPEND PROPERTY COMPILE_OPTIONS $<$<CONFIG:Release>:-Os>)
        elseif("${folder}/${source}" IN_LIST ORVAN_FAST)
            set_property(SOURCE ${source} APPEND PROPERTY COMPILE_OPTIONS $<$<CONFIG:Release>:-O3>)
        endif()
    endforeach()
endfunction()
