# How a Release build weighs size against speed in `core`: with -O3 everywhere its shared library has 1,031 KB instead of
# less than 600. What ./bench measures decides. -O2 is as fast there as -O3, except where the products string is read and
# amounts are computed; -Os doubles the time in which a list is shown or copied, but nobody notices it in what runs once
# for a click. The parts above `core` keep the build type's own options.

# Folders, and single sources of other folders, of which one call does little.
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
function(orvan_choose_size folder sources)
    orvan_part_of(${folder} part)
    if(NOT part STREQUAL core)
        return()
    endif()
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    foreach(source IN LISTS sources)
        if(folder IN_LIST ORVAN_SMALL OR "${folder}/${source}" IN_LIST ORVAN_SMALL)
            set(option -Os)
        elseif("${folder}/${source}" IN_LIST ORVAN_FAST)
            continue()
        else()
            set(option -O2)
        endif()
        set_property(SOURCE ${source} APPEND PROPERTY COMPILE_OPTIONS $<$<CONFIG:Release>:${option}>)
    endforeach()
endfunction()
