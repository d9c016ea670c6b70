# Property tables, property files and style strings of the text layer.
quillbox_unit_test(test_props LIBS quillbox_text quillbox_basekit quillbox_platform SOURCES
  ${CMAKE_CURRENT_SOURCE_DIR}/props/PropSetTest.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/props/PropSetFileTest.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/props/StyleDefinitionTest.cpp)
