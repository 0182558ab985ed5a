# How a Release build weighs size against speed. With -O3 everywhere, the shared library `core` has 1,031 KB instead of less
# than 600, and the desk's program 3.4 MB of code instead of 2.9. What ./bench measures decides. -O2 is as fast as -O3,
# except where the products string is read and amounts are computed; -Os doubles the time in which a list is shown or
# copied, but nobody notices it in what runs once for a click.
#
# The linker takes each inline function from the first object that has it, with that object's option. So -Os in one place
# can slow down another: with -Os in all of the desk's own sources, a search in a list took 7.4 ms instead of 4.0. They
# have -O2 (apps/orvan-desk/CMakeLists.txt).

# Folders, and single sources of other folders, of which one call does little.
set(ORVAN_SMALL files lookup editor headless registry
    base/RuntimeError.cpp base/UserText.cpp core/Explanation.cpp core/modInit.cpp core/modLocale.cpp
    fields/FieldEntry.cpp icu/LocaleData.cpp icu/LocaleNames.cpp
    ui/Button.cpp ui/ComboBox.cpp ui/Control.cpp ui/EventTap.cpp ui/Form.cpp ui/LocaleSeparators.cpp ui/RowSelection.cpp
    ui/Surface.cpp ui/TextEntry.cpp ui/Timer.cpp ui/ToolSet.cpp
    view/ListCommands.cpp view/ListFind.cpp view/ProductColumns.cpp view/ProductViewCommands.cpp view/ProductViewDesign.cpp
    view/ProductViewPaste.cpp view/ProductViewPrefs.cpp view/ProductViewRows.cpp view/RowExchange.cpp)
# What works through whole lists character by character.
set(ORVAN_FAST base/Currency.cpp base/Integer.cpp base/Text.cpp products/FieldMarks.cpp products/ProductsString.cpp)

# To be called by the folder that has the target.
function(orvan_choose_size folder target sources)
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
