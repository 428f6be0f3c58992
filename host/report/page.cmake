# Bundles the scripts and styles of the report's page into a source file, ${PAGE_ASSETS}.
set(PAGE_FOLDER ${CMAKE_CURRENT_SOURCE_DIR}/report/page)
set(PAGE_ASSETS ${CMAKE_CURRENT_BINARY_DIR}/report/page_assets.cpp)
find_program(NODE NAMES node nodejs REQUIRED)
if(NOT EXISTS ${PAGE_FOLDER}/node_modules/uplot)
  message(FATAL_ERROR "The libraries of the report's page are missing: run scripts/page-sources.sh")
endif()
file(GLOB_RECURSE PAGE_SOURCES CONFIGURE_DEPENDS ${PAGE_FOLDER}/*.js ${PAGE_FOLDER}/*.css)
list(FILTER PAGE_SOURCES EXCLUDE REGEX node_modules)
add_custom_command(
  OUTPUT ${PAGE_ASSETS}
  COMMAND ${NODE} build.mjs ${CMAKE_CURRENT_BINARY_DIR}/report
  WORKING_DIRECTORY ${PAGE_FOLDER}
  DEPENDS ${PAGE_SOURCES} ${PAGE_FOLDER}/build.mjs ${PAGE_FOLDER}/package-lock.json
  COMMENT "Bundling the report's page"
  VERBATIM)
