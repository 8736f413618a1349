# What is installed: one shared library from all folders with its public headers, a CMake package and
# a pkg-config file, the program, its manual page and completion, the documents and the examples. It
# may be moved to another folder as a whole.
include(CMakePackageConfigHelpers)

get_property(pst_libraries GLOBAL PROPERTY PST_LIBRARIES)
list(TRANSFORM pst_libraries REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE pst_objects)
add_library(pStolvane1 SHARED ${pst_objects})
add_library(pStolvane1::pStolvane1 ALIAS pStolvane1)
set_target_properties(pStolvane1 PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINKER_LANGUAGE CXX)
target_compile_features(pStolvane1 INTERFACE cxx_std_20)
target_include_directories(pStolvane1 INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/pStolvane1>)
target_link_libraries(pStolvane1 PRIVATE
  SQLite::SQLite3 PkgConfig::LIBPQ ICU::i18n ICU::uc fmt::fmt nlohmann_json::nlohmann_json PkgConfig::XLSXWRITER
  Threads::Threads ZLIB::ZLIB)

# All that a host may include, by its path from the root.
set(PST_PUBLIC_HEADERS
  automation/ColumnLooks.h
  automation/SortText.h
  automation/pstolvane1_arrow.h
  automation/pstolvane1_c.h
  session/CheckCondition.h
  session/EnumName.h
  session/ReportType.h
  session/clsStolvane1.h
  session/clsStolvane1Events.h
  session/data/Chunk.h
  session/data/ColumnInfo.h
  session/data/Connection.h
  session/data/Currency.h
  session/data/DataType.h
  session/data/Date.h
  session/data/Error.h
  session/data/MessageLoop.h
  session/data/NeedsCpp20.h
  session/data/Provider.h
  session/data/Recordset.h
  session/data/RowGroups.h
  session/data/TextArena.h
  session/data/Variant.h
  session/engine/Engines.h
  session/enmValuationMethod.h
  session/rowset/Export.h
  session/rowset/Locale.h
  session/rowset/ReportLook.h
  session/typAliases.h
  session/typCompanyInfoInv.h)

install(TARGETS pStolvane1 EXPORT pStolvane1Targets)
# The library that is installed is stripped; a debugger finds its debug data beside it.
install(CODE "
  set(library \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:pStolvane1>\")
  foreach(command \"${CMAKE_OBJCOPY};--only-keep-debug;\${library};\${library}.debug\"
                  \"${CMAKE_STRIP};--strip-unneeded;\${library}\"
                  \"${CMAKE_OBJCOPY};--add-gnu-debuglink=\${library}.debug;\${library}\")
    execute_process(COMMAND \${command} COMMAND_ERROR_IS_FATAL ANY)
  endforeach()")
foreach(header IN LISTS PST_PUBLIC_HEADERS)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/pStolvane1/${folder})
endforeach()
set(pst_package ${CMAKE_INSTALL_LIBDIR}/cmake/pStolvane1)
install(EXPORT pStolvane1Targets NAMESPACE pStolvane1:: DESTINATION ${pst_package})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/pStolvane1Config.cmake.in
  ${PROJECT_BINARY_DIR}/pStolvane1Config.cmake INSTALL_DESTINATION ${pst_package})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/pStolvane1ConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/pStolvane1Config.cmake
  ${PROJECT_BINARY_DIR}/pStolvane1ConfigVersion.cmake DESTINATION ${pst_package})
file(RELATIVE_PATH pst_prefix_from_pc /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" pst_prefix_from_pc "${pst_prefix_from_pc}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/pStolvane1.pc.in ${PROJECT_BINARY_DIR}/pStolvane1.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/pStolvane1.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR})
