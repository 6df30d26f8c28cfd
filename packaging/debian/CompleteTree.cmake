# Makes of a plain installation what Debian asks for: changelog and copyright, the latter in place of the licence,
# compressed manual pages, and completion for zsh where Debian's zsh looks for it.
set(tree ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
set(documents ${tree}/share/doc/qel)

file(COPY ${QEL_DEBIAN_FOLDER}/changelog ${QEL_DEBIAN_FOLDER}/copyright DESTINATION ${documents}
     FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(REMOVE ${documents}/LICENSE)
file(GLOB pages ${tree}/share/man/man1/*.1)
execute_process(COMMAND gzip -9n ${documents}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${tree}/share/zsh/site-functions ${tree}/share/zsh/vendor-completions)
