# What Debian expects beside the installed files: the manual page packed, and a changelog of its own
# form. Run at installation, with DOCUMENTS and MANUAL as the folders' places, and VERSION.
set(root $ENV{DESTDIR}${CMAKE_INSTALL_PREFIX})
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE ${root}/${DOCUMENTS}/changelog
  "irvela (${VERSION}) unstable; urgency=medium\n\n  * See CHANGELOG.md.\n\n"
  " -- Irvela <support@irvela.example>  ${now}\n")
execute_process(COMMAND gzip -9nf ${root}/${MANUAL}/irvela.1 ${root}/${DOCUMENTS}/changelog
  COMMAND_ERROR_IS_FATAL ANY)
