# What every target of this project is compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

find_program(UTILITY_CCACHE ccache)
if(UTILITY_CCACHE)
    # The precompiled header needs both kinds of sloppiness; the base folder lets checkouts share objects.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros ${UTILITY_CCACHE})
endif()

find_program(UTILITY_LLD NAMES ld.lld)
if(UTILITY_LLD)
    add_link_options(-fuse-ld=lld)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(UTILITY_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()
# The same sums on every processor: no product is joined with a sum into one rounding.
add_compile_options(-ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Hardware faults in our code become typed exceptions: any instruction may throw.
    add_compile_options(-fnon-call-exceptions)
    # Nobody puts a function of his own in place of one of ours, so exported ones may be inlined too.
    add_compile_options(-fno-semantic-interposition)
    # Needed with a precompiled header: lets the compiler cache see through it.
    add_compile_options(-fpch-preprocess)
endif()

# Sanitizers, named as for -fsanitize: "address,undefined", "thread".
set(UTILITY_SANITIZE "" CACHE STRING "Sanitizers to build with")
if(UTILITY_SANITIZE)
    add_compile_options(-fsanitize=${UTILITY_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${UTILITY_SANITIZE})
endif()

# The fuzzer steers by what it sees of the library's own branches.
function(utility_observe target)
    if(UTILITY_BUILD_FUZZERS)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
endfunction()

# One precompiled header for library, tests and tools.
function(utility_precompile target)
    target_precompile_headers(${target} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/Precompiled.h)
endfunction()
