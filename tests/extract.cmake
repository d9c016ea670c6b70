# Statement extraction: the SQL statement around the caret, read line by line from a source.
quillbox_unit_test(test_extract LIBS quillbox_platform quillbox_sqlcode quillbox_basekit SOURCES
  ${CMAKE_CURRENT_SOURCE_DIR}/extract/StatementExtractionTest.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/extract/StatementExtractionPropertyTest.cpp)
target_compile_definitions(test_extract PRIVATE QUILLBOX_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data")
