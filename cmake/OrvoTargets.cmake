# How the project's targets are made: one place for warnings, definitions and sanitizers.

add_library(orvo_flags INTERFACE)
target_compile_options(orvo_flags INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor)
if(ORVO_WERROR)
    target_compile_options(orvo_flags INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # In Qt 5 a shortcut is written as Qt::CTRL | Qt::Key_A, which are two enumerations.
    target_compile_options(orvo_flags INTERFACE -Wthread-safety -Wno-enum-enum-conversion)
endif()
target_compile_definitions(orvo_flags INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
    QT_DEPRECATED_WARNINGS QT_MESSAGELOGCONTEXT ORVO_VERSION="${PROJECT_VERSION}")
target_include_directories(orvo_flags INTERFACE ${CMAKE_SOURCE_DIR})
if(ORVO_SANITIZE)
    # The module does not export its type information, which the vptr check needs.
    target_compile_options(orvo_flags INTERFACE
        -fsanitize=${ORVO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(orvo_flags INTERFACE -fsanitize=${ORVO_SANITIZE})
    if(ORVO_SANITIZE MATCHES "undefined")
        target_compile_options(orvo_flags INTERFACE -fno-sanitize=vptr)
    endif()
endif()

# orvo_add_library(NAME [SHARED] SOURCES … LINK …): a library of this project; paths are relative to the folder.
function(orvo_add_library name)
    cmake_parse_arguments(ARG "SHARED" "" "SOURCES;LINK" ${ARGN})
    if(ARG_SHARED)
        add_library(${name} SHARED ${ARG_SOURCES})
    else()
        add_library(${name} STATIC ${ARG_SOURCES})
    endif()
    target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE orvo_flags)
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
endfunction()

# orvo_set_sanitizer_options(TEST): what sanitizers report, and what they ignore.
function(orvo_set_sanitizer_options test)
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT
        "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/lsan.supp:print_suppressions=0"
        "ASAN_OPTIONS=max_free_fill_size=4096:free_fill_byte=221:detect_odr_violation=0"
        "TSAN_OPTIONS=ignore_noninstrumented_modules=1:history_size=7:suppressions=${CMAKE_SOURCE_DIR}/cmake/tsan.supp")
endfunction()

# orvo_add_test(NAME [GUI] SOURCES … LINK …): a Qt Test program, run by CTest offscreen (GUI: in a real window under Xvfb).
function(orvo_add_test name)
    cmake_parse_arguments(ARG "GUI" "TIMEOUT" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LINK} OrvoTestHarness orvo_flags)
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests UNITY_BUILD OFF)
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    if(ORVO_SANITIZE)
        math(EXPR ARG_TIMEOUT "5 * ${ARG_TIMEOUT}")
    endif()
    if(ARG_GUI)
        add_test(NAME ${name} COMMAND xvfb-run -a -s "-screen 0 1920x1080x24" $<TARGET_FILE:${name}>)
        set_tests_properties(${name} PROPERTIES LABELS gui ENVIRONMENT "QT_QPA_PLATFORM=xcb")
        if(ORVO_SANITIZE)
            # The leaks of an OpenGL driver that is unloaded at the end can be neither named nor suppressed.
            set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "QT_XCB_GL_INTEGRATION=none")
        endif()
    else()
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    endif()
    orvo_set_sanitizer_options(${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT})
endfunction()
