# The byte strings of the text layer.
quillbox_unit_test(test_sstring LIBS quillbox_text quillbox_basekit quillbox_platform SOURCES
  ${CMAKE_CURRENT_SOURCE_DIR}/text/SStringTest.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/text/SStringPropertyTest.cpp)
