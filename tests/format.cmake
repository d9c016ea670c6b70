# The SQL formatter of the utility library, and the Format SQL command of the editor window.
quillbox_unit_test(test_format
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/format/SQLFormatterTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/format/FormatCommandTest.cpp)
