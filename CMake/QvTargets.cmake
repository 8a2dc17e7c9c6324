# Every target is described through these functions, and nowhere else.
include_guard()

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

find_program(QV_CCACHE ccache)
if(QV_CCACHE)
    # Without these, what uses a precompiled header is compiled each time.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${QV_CCACHE})
endif()

add_library(qv_options INTERFACE)
target_compile_options(qv_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${QV_WERROR}>:-Werror> -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)

# What ships calls across its own sources for each cell of a sheet: these let GCC inline such calls. Nobody replaces
# our functions by preloading others.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set(QV_RELEASE_OPTIONS $<$<CONFIG:RelWithDebInfo>:-O3> $<$<CONFIG:RelWithDebInfo>:-fno-semantic-interposition>
        $<$<CONFIG:RelWithDebInfo>:-fno-plt>)
    set(QV_RELEASE_PROPERTIES INTERPROCEDURAL_OPTIMIZATION_RELWITHDEBINFO ON)
endif()

# Clang links the runtime of a sanitizer into programs only, so a library has undefined names then.
if(NOT (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_FLAGS MATCHES "-fsanitize"))
    set(QV_NO_UNDEFINED -Wl,--no-undefined)
endif()

# qv_library(<name> ROOT <include root> SOURCES ... HEADERS ... [USES ...] [USES_PRIVATELY ...])
# USES names what the public headers include; USES_PRIVATELY what only the sources include.
function(qv_library name)
    cmake_parse_arguments(ARG "" "ROOT" "SOURCES;HEADERS;USES;USES_PRIVATELY" ${ARGN})
    add_library(${name} SHARED ${ARG_SOURCES})
    target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${ARG_ROOT} FILES ${ARG_HEADERS})
    target_link_libraries(${name} PUBLIC ${ARG_USES} PRIVATE ${ARG_USES_PRIVATELY} qv_options)
    target_link_options(${name} PRIVATE ${QV_NO_UNDEFINED} -Wl,--exclude-libs,ALL)
    target_compile_options(${name} PRIVATE ${QV_RELEASE_OPTIONS})
    set_target_properties(${name} PROPERTIES ${QV_RELEASE_PROPERTIES} VERIFY_INTERFACE_HEADER_SETS ON
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    qv_add_layer(${name} "${ARG_USES}" "${ARG_USES_PRIVATELY}")
endfunction()

# qv_headers(<name> ROOT <include root> HEADERS ... [USES ...]): a library that is headers alone.
function(qv_headers name)
    cmake_parse_arguments(ARG "" "ROOT" "HEADERS;USES" ${ARGN})
    add_library(${name} INTERFACE)
    target_sources(${name} INTERFACE FILE_SET HEADERS BASE_DIRS ${ARG_ROOT} FILES ${ARG_HEADERS})
    target_link_libraries(${name} INTERFACE ${ARG_USES})
    set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
    qv_add_layer(${name} "${ARG_USES}" "")
endfunction()

function(qv_add_layer name uses uses_privately)
    file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    list(JOIN uses " " uses)
    list(JOIN uses_privately " " uses_privately)
    set_property(GLOBAL APPEND PROPERTY QV_LAYERS
        "  \"${name}\": {\"folder\": \"${folder}\", \"uses\": \"${uses}\", \"uses_privately\": \"${uses_privately}\"}")
endfunction()

function(qv_write_layers path)
    get_property(rows GLOBAL PROPERTY QV_LAYERS)
    list(JOIN rows ",\n" body)
    file(WRITE ${path} "{\n${body}\n}\n")
endfunction()

# qv_program(<source> <library>...): an executable named after its source file.
function(qv_program source)
    get_filename_component(name ${source} NAME_WE)
    add_executable(${name} ${source})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${ARGN} qv_options)
    set(qv_program_name ${name} PARENT_SCOPE)
endfunction()

# qv_test(<source> <library>... [LABELS <label>...]): one program and one CTest entry for each test file. A program
# that returns 77 is counted as skipped: it lacks its counterpart, and has said which. Labels that ./dev knows:
# interop (needs packages-interop.txt) and concurrency (runs under ThreadSanitizer too; a target of that name builds all).
function(qv_test source)
    cmake_parse_arguments(ARG "" "" "LABELS" ${ARGN})
    qv_program(${source} ${ARG_UNPARSED_ARGUMENTS} GTest::gmock GTest::gtest_main)
    target_compile_options(${qv_program_name} PRIVATE ${QV_TEST_OPTIONS})
    if(QV_TEST_PCH)
        target_precompile_headers(${qv_program_name} REUSE_FROM qv_test_headers)
        target_compile_options(${qv_program_name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    endif()
    add_test(NAME ${qv_program_name} COMMAND ${qv_program_name} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    set_tests_properties(${qv_program_name} PROPERTIES LABELS "${ARG_LABELS}" SKIP_RETURN_CODE 77)
    if("concurrency" IN_LIST ARG_LABELS)
        add_dependencies(concurrency ${qv_program_name})
    endif()
endfunction()
add_custom_target(concurrency)

# qv_fuzzer(<source> <library>...): a libFuzzer target; without libFuzzer, a program that replays its seeds as a test.
function(qv_fuzzer source)
    qv_program(${source} ${ARGN})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        target_link_options(${qv_program_name} PRIVATE -fsanitize=fuzzer)
    else()
        target_sources(${qv_program_name} PRIVATE ${PROJECT_SOURCE_DIR}/Fuzz/ReplayCorpus.cpp)
        get_filename_component(folder ${source} DIRECTORY)
        add_test(NAME ${qv_program_name}
            COMMAND ${qv_program_name} ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/${qv_program_name}.seeds)
    endif()
endfunction()
