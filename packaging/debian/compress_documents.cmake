# CPack runs this on the tree that it is about to pack: Debian's policy asks for compressed manual pages and changelogs. gzip
# leaves names and dates out.
set(share ${CPACK_TEMPORARY_DIRECTORY}/usr/share)
file(GLOB documents ${share}/man/man1/*.1 ${share}/doc/sparrowfield/changelog*)
execute_process(COMMAND gzip -9n ${documents} COMMAND_ERROR_IS_FATAL ANY)
