# What the web host is built from besides the sources of its folder: the front end and the help, embedded.

set(QV_WEB_WORK ${CMAKE_BINARY_DIR}/web-assets)
set(QV_WEB_FOLDER ${QV_WEB_WORK}/site)
file(GLOB_RECURSE QV_WEB_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/web/*)
file(GLOB QV_HELP_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/help/*)
find_program(QV_NODE node)

set(QV_WEB_MAKE COMMAND ${CMAKE_COMMAND} -E rm -rf ${QV_WEB_FOLDER}
                COMMAND ${CMAKE_COMMAND} -E make_directory ${QV_WEB_FOLDER})
if(QV_NODE AND EXISTS ${CMAKE_SOURCE_DIR}/web/build.mjs AND EXISTS ${CMAKE_SOURCE_DIR}/node_modules/esbuild)
  list(APPEND QV_WEB_MAKE COMMAND ${QV_NODE} ${CMAKE_SOURCE_DIR}/web/build.mjs --out ${QV_WEB_FOLDER})
else()
  message(WARNING "The program is built without its front end: that takes Node.js and `npm ci` before.")
  list(APPEND QV_WEB_MAKE COMMAND ${CMAKE_COMMAND} -E copy_directory
       ${CMAKE_SOURCE_DIR}/hosts/web/placeholder ${QV_WEB_FOLDER})
endif()
if(QV_HELP_SOURCES)
  list(APPEND QV_WEB_MAKE COMMAND ${CMAKE_COMMAND} -E copy_directory
       ${CMAKE_SOURCE_DIR}/docs/help ${QV_WEB_FOLDER}/help)
endif()

add_custom_command(
  OUTPUT ${QV_WEB_WORK}/assets.S ${QV_WEB_WORK}/assets.cpp
  ${QV_WEB_MAKE}
  COMMAND ${CMAKE_COMMAND} -DFOLDER=${QV_WEB_FOLDER} -DOUTPUT=${QV_WEB_WORK}/assets
          -P ${CMAKE_SOURCE_DIR}/cmake/assets.cmake
  DEPENDS ${QV_WEB_SOURCES} ${QV_HELP_SOURCES} ${CMAKE_SOURCE_DIR}/cmake/assets.cmake
          ${CMAKE_SOURCE_DIR}/hosts/web/placeholder/index.html ${CMAKE_SOURCE_DIR}/package-lock.json
  WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
  COMMENT "Building the front end"
  VERBATIM)
target_sources(qv_hosts_web PRIVATE ${QV_WEB_WORK}/assets.S ${QV_WEB_WORK}/assets.cpp)

# The library fences its memory in a way that the thread sanitizer of this compiler announces not to follow.
if(QV_SANITIZE MATCHES "thread" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  set_source_files_properties(${CMAKE_SOURCE_DIR}/hosts/web/plain_transport.cpp PROPERTIES COMPILE_OPTIONS -Wno-tsan)
endif()
