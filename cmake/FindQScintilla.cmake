# Debian's QScintilla for Qt 6 ships no CMake package: find the header and library by hand.
find_path(QSCINTILLA_INCLUDE_DIR Qsci/qsciscintillabase.h
  PATHS /usr/include/x86_64-linux-gnu/qt6 /usr/include/qt6 ${Qt6Core_INCLUDE_DIRS})
find_library(QSCINTILLA_LIBRARY NAMES qscintilla2_qt6)
if(NOT QSCINTILLA_INCLUDE_DIR OR NOT QSCINTILLA_LIBRARY)
  message(FATAL_ERROR "QScintilla for Qt 6 not found: install libqscintilla2-qt6-dev")
endif()
if(NOT TARGET QScintilla::QScintilla)
  add_library(QScintilla::QScintilla UNKNOWN IMPORTED)
  set_target_properties(QScintilla::QScintilla PROPERTIES
    IMPORTED_LOCATION ${QSCINTILLA_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${QSCINTILLA_INCLUDE_DIR}
    INTERFACE_LINK_LIBRARIES "Qt6::Widgets;Qt6::PrintSupport")
endif()
