# Compiler flags and the two kinds of target of this project.

find_program(DRIFTBOX_LLD ld.lld)
if(DRIFTBOX_LLD)
    add_link_options(-fuse-ld=lld)
endif()

add_library(driftbox_flags INTERFACE)
target_compile_options(driftbox_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
    # Several sources are compiled as one, which GCC takes for unnamed types in a header.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
target_compile_definitions(driftbox_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(driftbox_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)

# driftbox_library(name SOURCES files... [LINK libraries...]) makes a static library. A header is
# listed only where it has no source file beside it and moc has to read it.
function(driftbox_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_link_libraries(${name} PUBLIC driftbox_flags ${ARG_LINK})
endfunction()

set(DRIFTBOX_LEAKS ${CMAKE_SOURCE_DIR}/tests/leaks-of-libraries.txt)

# driftbox_add_test(name target class) registers a test class of an executable under a name.
# A warning or error that the test did not announce fails it.
function(driftbox_add_test name target class)
    add_test(NAME ${name} COMMAND ${target} ${class})
    set_tests_properties(${name} PROPERTIES
        TIMEOUT 300
        FAIL_REGULAR_EXPRESSION "QWARN  :|QCRITICAL:|QSYSTEM:|Sanitizer"
        ENVIRONMENT "LC_ALL=C.UTF-8;TZ=UTC;LSAN_OPTIONS=print_suppressions=0:suppressions=${DRIFTBOX_LEAKS}")
endfunction()

# driftbox_tests(name LINK libraries... [TESTS classes...] [DISPLAY_TESTS classes...]) makes one
# executable of the test classes of a folder; each class has a file of its name and is a test of
# ctest. Those of DISPLAY_TESTS bring up an X server of their own.
function(driftbox_tests name)
    cmake_parse_arguments(ARG "" "" "TESTS;DISPLAY_TESTS;LINK" ${ARGN})
    list(TRANSFORM ARG_TESTS APPEND .cpp OUTPUT_VARIABLE sources)
    list(TRANSFORM ARG_DISPLAY_TESTS APPEND .cpp OUTPUT_VARIABLE display_sources)
    add_executable(${name} ${sources} ${display_sources})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE
        driftbox_fakes driftbox_test_support driftbox_test_main Qt6::Test ${ARG_LINK})
    foreach(test IN LISTS ARG_TESTS ARG_DISPLAY_TESTS)
        cmake_path(GET test FILENAME class)
        driftbox_add_test(${class} ${name} ${class})
        if(test IN_LIST ARG_TESTS)
            set_property(TEST ${class} APPEND PROPERTY ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
        endif()
    endforeach()
endfunction()
