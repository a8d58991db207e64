# What is installed, and the Debian package of it. The drawing tool of the tests' pictures, pgbp-shot, stays here.
set(programs pgbp pgbp-suite pgbp-report pgbp-check pgbp-drive pgbp-audit-reader pgbp-books-link)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)

# Debian wants pages and changelog compressed, and the same bytes from the same sources: no name and no time in them.
find_program(GZIP gzip REQUIRED)
function(compressed input output)
    add_custom_command(
        OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} -E copy ${input} ${output}.plain
        COMMAND ${GZIP} -9nc ${output}.plain > ${output}
        DEPENDS ${input})
endfunction()

set(documents ${PROJECT_BINARY_DIR}/documents)
file(MAKE_DIRECTORY ${documents})
foreach(program IN LISTS programs)
    compressed(${packaging}/man/${program}.1 ${documents}/${program}.1.gz)
    list(APPEND pages ${documents}/${program}.1.gz)
endforeach()
compressed(${packaging}/changelog ${documents}/changelog.gz)

add_custom_target(documents ALL DEPENDS ${pages} ${documents}/changelog.gz)
add_custom_target(installed) # all that the rules below take
add_dependencies(installed ${programs} documents)
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON) # a package needs no tests

install(TARGETS ${programs} RUNTIME)
install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/pgbp PATTERN README.md EXCLUDE)
install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${packaging}/pgbp.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/pgbp.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${packaging}/pgbp.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(DIRECTORY ${PROJECT_BINARY_DIR}/icons/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
install(FILES ${packaging}/copyright ${documents}/changelog.gz docs/user-guide.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/screens DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME pgbp)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "PGBP maintainers <maintainers@pgbp.example>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/package)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE) # whatever the mask of who builds
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"income from business or profession of Indian tax returns
Computes the head of income Profits and Gains from Business or Profession of an
Indian income-tax return, for tax preparers who key long columns of figures
without the mouse: lines of business with their adjustments, presumptive
income, depreciation, partners, and the statements that the forms ask for.
.
A practice is a folder of data files, or a database server. The computation of
each client can be printed, or written as PDF, workbook or text.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What is loaded or started by name, which no binary tells: fonts; who shows a file; drivers of a database server.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation | fonts-noto-core | fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "odbc-mariadb, tdsodbc, qt6-wayland")
include(CPack)
