# The flags of the house and the three kinds of target it has.

add_library(driftbox_flags INTERFACE)
target_compile_options(driftbox_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
target_compile_definitions(driftbox_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(driftbox_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)

# driftbox_library(name LINK libraries...) makes a static library of the calling folder's sources.
function(driftbox_library name)
    cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    if(NOT sources)
        return()
    endif()
    add_library(${name} STATIC ${sources})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX POSITION_INDEPENDENT_CODE ON)
    # A new header alone does not make moc run again.
    if(NOT sources STREQUAL DRIFTBOX_${name}_SOURCES)
        file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/timestamp)
        set(DRIFTBOX_${name}_SOURCES "${sources}" CACHE INTERNAL "")
    endif()
    target_link_libraries(${name} PUBLIC driftbox_flags ${ARG_LINK})
endfunction()

set(DRIFTBOX_LEAKS ${CMAKE_SOURCE_DIR}/tests/leaks-of-libraries.txt)

# driftbox_test(Name LINK libraries... [DISPLAY]) registers the Qt Test executable of Name.cpp.
# A warning or error that the test did not announce fails it. With DISPLAY the test brings up its
# own X server and window manager.
function(driftbox_test name)
    cmake_parse_arguments(ARG "DISPLAY" "" "LINK" ${ARGN})
    add_executable(${name} ${name}.cpp)
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE driftbox_fakes driftbox_test_support Qt6::Test ${ARG_LINK})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        TIMEOUT 300
        FAIL_REGULAR_EXPRESSION "QWARN  :|QCRITICAL:|QSYSTEM:|Sanitizer"
        ENVIRONMENT "LC_ALL=C.UTF-8;TZ=UTC;LSAN_OPTIONS=print_suppressions=0:suppressions=${DRIFTBOX_LEAKS}")
    if(NOT ARG_DISPLAY)
        set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    endif()
endfunction()
