# Installs libquillbox.so, one public header per chief class under include/quillbox/, the
# property file for hosts under share/quillbox/, a CMake package (find_package(Quillbox) gives
# Quillbox::quillbox and quillbox_deploy_properties) and quillbox.pc.
#
# Hosts include the headers as <quillbox/Name.h>, and only include/ is on their include path:
# the headers reach each other by quoted sibling names, so a host's own System.h or Registry.h
# is never shadowed by the library's.
include(CMakePackageConfigHelpers)

set(QUILLBOX_PUBLIC_HEADERS
  ${PROJECT_BINARY_DIR}/generated/QuillboxExport.h
  ${PROJECT_SOURCE_DIR}/platform/WinTypes.h
  ${PROJECT_SOURCE_DIR}/platform/CString.h
  ${PROJECT_SOURCE_DIR}/platform/CWnd.h
  ${PROJECT_SOURCE_DIR}/platform/Accelerators.h
  ${PROJECT_SOURCE_DIR}/platform/CDialog.h
  ${PROJECT_SOURCE_DIR}/platform/OleData.h
  ${PROJECT_SOURCE_DIR}/platform/KeyCodes.h
  ${PROJECT_SOURCE_DIR}/platform/MessageBox.h
  ${PROJECT_SOURCE_DIR}/platform/Registry.h
  ${PROJECT_SOURCE_DIR}/platform/Resources.h
  ${PROJECT_SOURCE_DIR}/platform/System.h
  ${PROJECT_SOURCE_DIR}/platform/CDC.h
  ${PROJECT_SOURCE_DIR}/platform/CMenu.h
  ${PROJECT_SOURCE_DIR}/platform/Controls.h
  ${PROJECT_SOURCE_DIR}/engine/ScintillaConstants.h
  ${PROJECT_SOURCE_DIR}/engine/Indicators.h
  ${PROJECT_SOURCE_DIR}/engine/EngineTypes.h
  ${PROJECT_SOURCE_DIR}/kits/basekit/CKTRegistry.h
  ${PROJECT_SOURCE_DIR}/kits/basekit/CKTUtilTrace.h
  ${PROJECT_SOURCE_DIR}/kits/basekit/CKTUtil.h
  ${PROJECT_SOURCE_DIR}/kits/basekit/CKTTextFile.h
  ${PROJECT_SOURCE_DIR}/kits/basekit/CSQLFormatter.h
  ${PROJECT_SOURCE_DIR}/text/SString.h
  ${PROJECT_SOURCE_DIR}/text/PropSet.h
  ${PROJECT_SOURCE_DIR}/text/PropSetFile.h
  ${PROJECT_SOURCE_DIR}/text/StyleDefinition.h
  ${PROJECT_SOURCE_DIR}/text/WordList.h
  ${PROJECT_SOURCE_DIR}/editor/CScintillaWnd.h
  ${PROJECT_SOURCE_DIR}/editor/Accessor.h
  ${PROJECT_SOURCE_DIR}/editor/WindowAccessor.h
  ${PROJECT_SOURCE_DIR}/appwnd/CKTScinWnd.h
  ${PROJECT_SOURCE_DIR}/appwnd/CKTScinReadWnd.h
  ${PROJECT_SOURCE_DIR}/sqledit/CKTSQLEditWnd.h
  ${PROJECT_SOURCE_DIR}/sqledit/CodeLanguages.h
  ${PROJECT_SOURCE_DIR}/dialogs/CGotoDlg.h
  ${PROJECT_SOURCE_DIR}/dialogs/CMemComboBox.h
  ${PROJECT_SOURCE_DIR}/module/CReg.h
  ${PROJECT_SOURCE_DIR}/kits/tablekit/CFileDialogEx.h
  ${PROJECT_SOURCE_DIR}/kits/namekit/CNamekitMgr.h
  ${PROJECT_SOURCE_DIR}/kits/namekit/SqliteNamekitMgr.h
  ${PROJECT_SOURCE_DIR}/module/Quillbox.h)

install(TARGETS quillbox EXPORT QuillboxTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${QUILLBOX_PUBLIC_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quillbox)
install(EXPORT QuillboxTargets NAMESPACE Quillbox:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Quillbox)

set(QUILLBOX_PROPERTIES_INSTALL_FILE ${CMAKE_INSTALL_DATADIR}/quillbox/properties/SciTEGlobal.properties)
set(QUILLBOX_TRANSLATIONS_INSTALL_DIR ${CMAKE_INSTALL_DATADIR}/quillbox/translations)
install(FILES ${PROJECT_SOURCE_DIR}/properties/SciTEGlobal.properties
  DESTINATION ${CMAKE_INSTALL_DATADIR}/quillbox/properties)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/QuillboxConfig.cmake.in
  ${PROJECT_BINARY_DIR}/QuillboxConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Quillbox
  PATH_VARS QUILLBOX_PROPERTIES_INSTALL_FILE QUILLBOX_TRANSLATIONS_INSTALL_DIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuillboxConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/QuillboxConfig.cmake
  ${PROJECT_BINARY_DIR}/QuillboxConfigVersion.cmake
  ${PROJECT_SOURCE_DIR}/cmake/FindQScintilla.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Quillbox)

# The .pc file finds its prefix from its own folder, so the installed tree can move.
file(RELATIVE_PATH QUILLBOX_PC_PREFIX_FROM_PCDIR /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(${PROJECT_SOURCE_DIR}/cmake/quillbox.pc.in ${PROJECT_BINARY_DIR}/quillbox.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/quillbox.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
