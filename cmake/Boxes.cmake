# One static library per folder ("box"): a box sees only what it links, so a wrong include does not link.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE)
    # Without these ccache would not cache anything compiled with precompiled headers.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()

option(BRISKLOG_WARNINGS_AS_ERRORS "Treat every warning as an error" OFF)
option(BRISKLOG_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(BRISKLOG_FUZZERS "Build the fuzzers; needs clang, sanitizes everything" OFF)

add_library(brisklog-options INTERFACE)
target_include_directories(brisklog-options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(brisklog-options INTERFACE
    # Precompiled headers can be shared only between targets with the same options.
    -pthread
    # Tells the compiler cache which precompiled headers were used.
    $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>
    # g++ 12 warns of overlaps in text + text that do not exist (its bug 105329).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # g++ 14 takes a returned reference for one to an argument. Older versions ignore the option.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-dangling-reference>
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
    $<$<BOOL:${BRISKLOG_WARNINGS_AS_ERRORS}>:-Werror>
    $<$<BOOL:${BRISKLOG_SANITIZE}>:-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined>
    $<$<BOOL:${BRISKLOG_FUZZERS}>:-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined
        -fsanitize-ignorelist=${CMAKE_SOURCE_DIR}/tests/fuzz/ignored-checks.txt>)
target_link_options(brisklog-options INTERFACE
    $<$<BOOL:${BRISKLOG_SANITIZE}>:-fsanitize=address,undefined>
    $<$<BOOL:${BRISKLOG_FUZZERS}>:-fsanitize=address,undefined>)
# Accesses past the end of a container are findings too.
target_compile_definitions(brisklog-options INTERFACE $<$<BOOL:${BRISKLOG_FUZZERS}>:_GLIBCXX_ASSERTIONS>)
# We write for Qt 6.4: what later versions advise against is the only way there.
target_compile_definitions(brisklog-options INTERFACE QT_WARN_DEPRECATED_UP_TO=0x060400)
# Keywords such as "signals" would collide with other libraries' headers.
target_compile_definitions(brisklog-options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)

# Most boxes are compiled in batches of files (unity builds), which takes a third of the time; names in unnamed namespaces
# must therefore be unique within a box. Screens are the exception, because their constants share names; they use
# precompiled headers instead. The tidy preset does neither, so that missing includes are found.
set(BRISKLOG_SCREEN_HEADERS
    <algorithm> <array> <chrono> <filesystem> <functional> <map> <memory> <optional> <string> <vector>
    <QApplication> <QKeyEvent> <QLabel> <QListView> <QMouseEvent> <QPainter> <QPointer> <QToolTip>)

# brisklog_box(NAME libraries…): every .cpp file of the calling folder becomes the static library brisklog-NAME.
function(brisklog_box name)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_library(brisklog-${name} STATIC ${sources})
    set_target_properties(brisklog-${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_link_libraries(brisklog-${name} PUBLIC brisklog-options ${ARGN})
    if("${ARGN}" MATCHES "brisklog-(lists|controls|sheets|[a-z]+-screens)"
       OR "${name}" STREQUAL "lists")
        set_target_properties(brisklog-${name} PROPERTIES UNITY_BUILD OFF)
        target_precompile_headers(brisklog-${name} REUSE_FROM brisklog-look)
    endif()
endfunction()

# brisklog_tests(NAME libraries…): every .cpp file in and below the calling folder becomes one GoogleTest program;
# each test case runs in its own process. What libraries leak once per process is not counted as ours.
function(brisklog_tests name)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_executable(test-${name} ${sources})
    target_link_libraries(test-${name} PRIVATE brisklog-test-support ${ARGN})
    # Its code runs only once; compiling it takes longer.
    target_compile_options(test-${name} PRIVATE -O0)
    gtest_discover_tests(test-${name} TEST_PREFIX ${name}. DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120
        ENVIRONMENT "LSAN_OPTIONS=print_suppressions=0:suppressions=${CMAKE_SOURCE_DIR}/tests/support/library-leaks.txt")
endfunction()
