# Helpers that give every layer and test executable the same flags.

if(PANELTUNE_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer
                        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=address,undefined)
endif()

function(paneltune_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra)
    if(PANELTUNE_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# paneltune_layer(<name> SOURCES <files...> [DEPENDS <targets...>])
# Builds the static library paneltune_<name>; headers are included as "<layer>/<file>.h".
function(paneltune_layer name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_library(paneltune_${name} STATIC ${ARG_SOURCES})
    target_include_directories(paneltune_${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(paneltune_${name} PUBLIC ${ARG_DEPENDS})
    paneltune_warnings(paneltune_${name})
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
