# quillon_precompiled(NAME header [LIBS lib...] [OPTIONS option...])
# Headers that nearly every file includes, compiled once for all libraries or for all tests: these
# are half the time of a build from nothing.
function(quillon_precompiled name header)
    cmake_parse_arguments(ARG "" "" "LIBS;OPTIONS" ${ARGN})
    set(source ${PROJECT_BINARY_DIR}/precompiled/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "")
    add_library(${name} OBJECT ${source})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE quillon_compile_options Qt6::Core ${ARG_LIBS})
    target_compile_options(${name} PRIVATE ${ARG_OPTIONS})
    target_precompile_headers(${name} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/precompiled/${header})
endfunction()

# quillon_library(NAME [WIDGETS] SOURCES file... [PUBLIC lib...] [PRIVATE lib...])
# One static library for one folder. Headers are included by their path from the top of the tree.
# WIDGETS: its files include Qt's widgets.
function(quillon_library name)
    cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE quillon_compile_options
        ${ARG_PRIVATE})
    if(ARG_WIDGETS)
        target_precompile_headers(${name} REUSE_FROM quillon_precompiled_widgets)
    else()
        target_precompile_headers(${name} REUSE_FROM quillon_precompiled_common)
    endif()
endfunction()

# quillon_test(NAME [MOC] SOURCES file... LIBS lib...)
# One GoogleTest program, built quickly rather than to be quick. MOC: its files have classes with
# Q_OBJECT. The time it may take is for one that hangs: much slower machines, and much busier ones,
# pass as well.
function(quillon_test name)
    cmake_parse_arguments(ARG "MOC" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC "${ARG_MOC}" AUTORCC OFF)
    target_compile_options(${name} PRIVATE -O0 -U_FORTIFY_SOURCE)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE quillon_compile_options ${ARG_LIBS} GTest::gmock_main)
    target_precompile_headers(${name} REUSE_FROM quillon_precompiled_test)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 1800)
endfunction()
