# Compiles the icons listed in resources/symbols/symbols.txt into the library, as
# :/symbols/<symbol name>.
set(icon_folder ${CMAKE_SOURCE_DIR}/resources/node_modules/bootstrap-icons/icons)
set(symbol_list ${CMAKE_SOURCE_DIR}/resources/symbols/symbols.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${symbol_list})

file(STRINGS ${symbol_list} lines REGEX "^[^#]")
foreach(line IN LISTS lines)
    string(REGEX MATCH "^([^ ]+) +([^ ]+)$" matched "${line}")
    set(icon ${icon_folder}/${CMAKE_MATCH_2}.svg)
    if(NOT matched OR NOT EXISTS ${icon})
        message(FATAL_ERROR "${symbol_list}: no icon for \"${line}\"; has ./dev setup run?")
    endif()
    # Several symbols may share an icon, but a file can have only one alias.
    set(copy ${CMAKE_CURRENT_BINARY_DIR}/symbols/${CMAKE_MATCH_1})
    configure_file(${icon} ${copy} COPYONLY)
    list(APPEND symbol_files ${copy})
endforeach()

qt_add_resources(driftbox_ui symbols
    PREFIX /symbols
    BASE ${CMAKE_CURRENT_BINARY_DIR}/symbols
    FILES ${symbol_files})
