# Runs while installing, for CMakeLists.txt: makes and installs the files that name the program's
# place. Only now that is known, as `cmake --install --prefix` and CPack choose another prefix than
# the build was configured with.
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_PREFIX NORMALIZE OUTPUT_VARIABLE prefix)
set(EDITOR "${prefix}/bin/quillon")

function(install_file folder file)
    file(INSTALL "${file}" DESTINATION "${prefix}/${folder}"
        PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endfunction()

function(install_configured folder name)
    configure_file("${source}/${name}.in" "${work}/${name}" @ONLY)
    install_file(${folder} "${work}/${name}")
endfunction()

function(install_compressed folder file name)
    set(compressed "${work}/${folder}/${name}.gz")
    file(MAKE_DIRECTORY "${work}/${folder}")
    execute_process(COMMAND gzip -9nc "${source}/${file}" OUTPUT_FILE "${compressed}"
        COMMAND_ERROR_IS_FATAL ANY)
    install_file(${folder} "${compressed}")
endfunction()

install_configured(share/applications quillon.desktop)
install_configured(share/dbus-1/services org.quillon.XmlEditor.service)
install_configured(share/metainfo org.quillon.XmlEditor.metainfo.xml)
install_compressed(share/man/man1 quillon.1 quillon.1)
install_compressed(share/man/ja/man1 quillon.ja.1 quillon.1)
install_compressed(share/doc/quillon ../CHANGELOG.md changelog)
install_compressed(share/doc/quillon changelog.Debian changelog.Debian)
file(REMOVE_RECURSE "${work}")
