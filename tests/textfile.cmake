# The utility library's text files: encoding detection, conversion and atomic saving.
quillbox_unit_test(test_textfile LIBS quillbox_platform quillbox_basekit ICU::uc ICU::i18n SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/textfile/TextFileReadTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/textfile/TextFileWriteTest.cpp)
target_compile_definitions(test_textfile PRIVATE QUILLBOX_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data")
