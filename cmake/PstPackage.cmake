# The Debian package that scripts/package makes of what is installed.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pstolvane1)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION
"The program stolvane prints stock and sales reports from the books of a
company, as tables, pages, workbooks and for programs. With it come the
library pStolvane1, which gives the same reports to hosts in C++ and C as
rowsets, its development files and the documents.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_RELOCATABLE OFF)
set(CPACK_STRIP_FILES OFF)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/PackageTree.cmake)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# Letters of all Indian scripts, and completion in the shell.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-core | fonts-indic, bash-completion")
include(CPack)
