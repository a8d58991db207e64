# The newest entry of the package's changelog is the version, here and in the package.
set(PGBP_CHANGELOG ${CMAKE_CURRENT_LIST_DIR}/../packaging/changelog)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PGBP_CHANGELOG})
file(STRINGS ${PGBP_CHANGELOG} newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^pgbp \\(([0-9.]+)\\) ")
    message(FATAL_ERROR "packaging/changelog begins with no version: ${newest}")
endif()
set(PGBP_VERSION ${CMAKE_MATCH_1})
