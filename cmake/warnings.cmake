# The one place that says how our own code is compiled: warnings are errors, and the sanitizer
# build finds memory faults and undefined behaviour.
add_library(quillon_compile_options INTERFACE)
target_compile_options(quillon_compile_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Werror)
target_compile_definitions(quillon_compile_options INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_KEYWORDS
    QUILLON_VERSION="${PROJECT_VERSION}")
if(QUILLON_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
