# quillon_library(NAME SOURCES file... [PUBLIC lib...] [PRIVATE lib...])
# One static library for one folder. Headers are included by their path from the top of the tree.
function(quillon_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE quillon_compile_options
        ${ARG_PRIVATE})
endfunction()

# quillon_test(NAME SOURCES file... LIBS lib...)
# One GoogleTest program. The time it may take is for one that hangs: much slower machines, and
# much busier ones, pass as well.
function(quillon_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE quillon_compile_options ${ARG_LIBS} GTest::gmock_main)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 1800)
endfunction()
