# Installs what BUILD has built into TREE, as an administrator does it. The file types stand there
# twice besides, together with the system's own: in TREE/table with the table that desktops look
# them up in, in TREE/descriptions without one.
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${TREE})
unset(ENV{DESTDIR})
foreach(component brivon virtual_panel)
  execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --component ${component} --prefix ${TREE}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endforeach()

set(types ${TREE}/share/mime/packages/org.brivon.Brivon.xml)
set(types_of_all /usr/share/mime/packages/freedesktop.org.xml)
if(EXISTS ${types_of_all})
  list(APPEND types ${types_of_all})
endif()
foreach(way table descriptions)
  file(COPY ${types} DESTINATION ${TREE}/${way}/mime/packages)
endforeach()
find_program(UPDATE_MIME_DATABASE update-mime-database)
if(UPDATE_MIME_DATABASE)
  execute_process(COMMAND ${UPDATE_MIME_DATABASE} ${TREE}/table/mime
    OUTPUT_QUIET ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()
