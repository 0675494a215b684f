# Helpers that give every layer and test executable the same flags.

if(PANELTUNE_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer
                        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=address,undefined)
endif()

function(paneltune_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra)
    # GCC 12's optimiser reports out-of-bounds copies inside std::vector's own insert when the
    # vector was built from a short initializer list; the sanitizer build checks real bounds.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-stringop-overflow
                                                     -Wno-stringop-overread)
    endif()
    if(PANELTUNE_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# paneltune_layer(<name> [STRICT] SOURCES <files...> [DEPENDS <targets...>])
# Builds the static library paneltune_<name>; headers are included as "<layer>/<file>.h".
# STRICT adds -Wshadow -Wconversion for a layer that is clean of them.
function(paneltune_layer name)
    cmake_parse_arguments(ARG "STRICT" "" "SOURCES;DEPENDS" ${ARGN})
    add_library(paneltune_${name} STATIC ${ARG_SOURCES})
    target_include_directories(paneltune_${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(paneltune_${name} PUBLIC ${ARG_DEPENDS})
    paneltune_warnings(paneltune_${name})
    # A layer that is clean of them keeps shadowed names and narrowing conversions out.
    if(ARG_STRICT)
        target_compile_options(paneltune_${name} PRIVATE -Wshadow -Wconversion)
    endif()
endfunction()

# paneltune_tests(<name> SOURCES <files...> [DEPENDS <targets...>])
# Builds the GoogleTest executable <name>_tests and registers its tests with CTest.
function(paneltune_tests name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name}_tests ${ARG_SOURCES})
    target_include_directories(${name}_tests PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(${name}_tests PRIVATE ${ARG_DEPENDS} GTest::gmock GTest::gtest_main)
    paneltune_warnings(${name}_tests)
    gtest_discover_tests(${name}_tests DISCOVERY_MODE PRE_TEST TEST_PREFIX "${name}.")
endfunction()

# Fuzzing. With clang and PANELTUNE_FUZZ every object carries libFuzzer's coverage hooks and the
# sanitizers, so the fuzz targets see into the layers they call.
option(PANELTUNE_FUZZ "Build the fuzz targets as libFuzzer executables (clang only)" OFF)
set(PANELTUNE_LIBFUZZER OFF)
if(PANELTUNE_FUZZ)
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        set(PANELTUNE_LIBFUZZER ON)
        add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer
                            -fno-sanitize-recover=all)
        add_link_options(-fsanitize=address,undefined)
    else()
        message(WARNING "PANELTUNE_FUZZ needs clang; fuzz targets run their seed corpus only")
    endif()
endif()
# scripts/fuzz.sh reads this list: one "<name> <corpus folder>" per line.
set(PANELTUNE_FUZZ_LIST "${CMAKE_BINARY_DIR}/fuzz_targets.txt")
file(WRITE "${PANELTUNE_FUZZ_LIST}" "")
add_custom_target(fuzz_targets)

# paneltune_fuzz_target(<name> SOURCES <files...> [DEPENDS <targets...>] CORPUS <folder>)
# Builds <name>_fuzz into <build>/fuzz from sources that define LLVMFuzzerTestOneInput. Under
# libFuzzer it is a fuzzer; otherwise a small runner feeds it every file of the seed corpus and
# CTest runs that as the test fuzz.<name>. A relative CORPUS is taken from the top of the tree.
function(paneltune_fuzz_target name)
    cmake_parse_arguments(ARG "" "CORPUS" "SOURCES;DEPENDS" ${ARGN})
    if(NOT ARG_CORPUS)
        message(FATAL_ERROR "paneltune_fuzz_target(${name}) needs a CORPUS folder")
    endif()
    cmake_path(ABSOLUTE_PATH ARG_CORPUS BASE_DIRECTORY "${PROJECT_SOURCE_DIR}")
    set(target ${name}_fuzz)
    add_executable(${target} ${ARG_SOURCES})
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/fuzz")
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/src"
                                                 "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(${target} PRIVATE ${ARG_DEPENDS})
    paneltune_warnings(${target})
    add_dependencies(fuzz_targets ${target})
    if(PANELTUNE_LIBFUZZER)
        target_link_options(${target} PRIVATE -fsanitize=fuzzer)
        file(APPEND "${PANELTUNE_FUZZ_LIST}" "${name} ${ARG_CORPUS}\n")
    else()
        target_link_libraries(${target} PRIVATE paneltune_fuzz_runner)
        add_test(NAME fuzz.${name} COMMAND ${target} "${ARG_CORPUS}")
    endif()
endfunction()
