# Compiler flags, and the functions that define this project's libraries and tests.

find_program(DRIFTBOX_LLD ld.lld)
if(DRIFTBOX_LLD)
    add_link_options(-fuse-ld=lld)
endif()

# The preset asan-ubsan does without the check of objects' types (vptr): GCC 12 takes a lambda for the
# object that it captures.
set(DRIFTBOX_SANITIZER "" CACHE STRING "Sanitizer of this build, by its preset")
set(DRIFTBOX_SANITIZER_EXCLUSIONS ${CMAKE_SOURCE_DIR}/tests/sanitizer-exclusions.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${DRIFTBOX_SANITIZER_EXCLUSIONS})
file(STRINGS ${DRIFTBOX_SANITIZER_EXCLUSIONS} DRIFTBOX_EXCLUDED_TESTS REGEX "^[^#]")

add_library(driftbox_flags INTERFACE)
target_compile_options(driftbox_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
    # In a unity build GCC takes the anonymous namespaces of sources for those of headers.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
target_compile_definitions(driftbox_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(driftbox_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)

# driftbox_library(name SOURCES files... [LINK libraries...]) adds a static library. List a header
# only if it needs moc and has no source file of the same name.
function(driftbox_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_link_libraries(${name} PUBLIC driftbox_flags ${ARG_LINK})
endfunction()

set(DRIFTBOX_LEAKS ${CMAKE_SOURCE_DIR}/tests/leaks-of-libraries.txt)

# driftbox_add_test(name target class) registers one test class of a test executable with CTest. A
# warning or an error in the log fails the test unless it was announced with QTest::ignoreMessage.
function(driftbox_add_test name target class)
    add_test(NAME ${name} COMMAND ${target} ${class})
    set_tests_properties(${name} PROPERTIES
        TIMEOUT 300
        FAIL_REGULAR_EXPRESSION "QWARN  :|QCRITICAL:|QSYSTEM:|Sanitizer"
        ENVIRONMENT "LC_ALL=C.UTF-8;TZ=UTC;LSAN_OPTIONS=print_suppressions=0:suppressions=${DRIFTBOX_LEAKS};TSAN_OPTIONS=ignore_noninstrumented_modules=1")
    if(DRIFTBOX_SANITIZER AND "${DRIFTBOX_SANITIZER} ${name}" IN_LIST DRIFTBOX_EXCLUDED_TESTS)
        set_property(TEST ${name} PROPERTY DISABLED TRUE)
    endif()
endfunction()

# driftbox_tests(name LINK libraries... [TESTS classes...] [DISPLAY_TESTS classes...]) adds one
# executable with the test classes of a folder. Each class is in a file of the same name and is a
# separate CTest test. DISPLAY_TESTS start an X server of their own; TESTS run offscreen.
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
