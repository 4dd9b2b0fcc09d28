# The one place that says how our own code is compiled: with many warnings, and in the sanitizer
# build so that memory faults and undefined behaviour are found.
add_library(quillon_compile_options INTERFACE)
target_compile_options(quillon_compile_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference)
# Warnings are errors in our own checks. They must not keep anybody from building the program with a
# compiler or a library of later days. The option stands in a file, so that what has been built stays
# built when ./run and ./test take turns.
if(QUILLON_WARNINGS_ARE_ERRORS)
    set(warning_options -Werror)
else()
    set(warning_options "")
endif()
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/warnings.options CONTENT "${warning_options}\n")
target_compile_options(quillon_compile_options INTERFACE @${PROJECT_BINARY_DIR}/warnings.options)
target_compile_definitions(quillon_compile_options INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_KEYWORDS
    QUILLON_VERSION="${PROJECT_VERSION}")
if(QUILLON_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
# What libFuzzer learns from; the targets themselves are linked with it in fuzz/.
if(QUILLON_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
