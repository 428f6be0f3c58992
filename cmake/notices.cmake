# Writes the notices file of an installation: a text of our own, and the copyright files of the
# packages in NOTICE_PACKAGES. Run at installation, with NOTICES as the file's place.
set(file $ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/${NOTICES})
file(READ ${CMAKE_CURRENT_LIST_DIR}/notices.txt text)
file(WRITE ${file} "${text}")
foreach(package ${NOTICE_PACKAGES})
  file(READ /usr/share/doc/${package}/copyright text)
  string(LENGTH ${package} length)
  string(REPEAT = ${length} line)
  file(APPEND ${file} "\n\n${package}\n${line}\n\n${text}")
endforeach()
message(STATUS "Installing: ${file}")
