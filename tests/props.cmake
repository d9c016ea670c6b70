# Property tables, property files and style strings of the text layer; the reading cases are
# in data/props.
quillbox_unit_test(test_props LIBS quillbox_text quillbox_basekit quillbox_platform SOURCES
  ${CMAKE_CURRENT_SOURCE_DIR}/props/PropSetTest.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/props/StyleDefinitionTest.cpp)
target_compile_definitions(test_props PRIVATE QUILLBOX_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data")
