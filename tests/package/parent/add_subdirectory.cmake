set(ORVAN_QT OFF)
add_subdirectory(${ORVAN_TREE} orvan)
target_link_libraries(shop PRIVATE orvan::hosting)
