# The SQL window's code-language logic: bind scanners, copy as code, paste from code.
quillbox_unit_test(test_sqlcode LIBS quillbox_platform quillbox_sqlcode SOURCES
  ${CMAKE_CURRENT_SOURCE_DIR}/sqlcode/BindScannerTest.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/sqlcode/CopyAsCodeTest.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/sqlcode/PasteFromCodeTest.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/sqlcode/RoundTripTest.cpp)
target_compile_definitions(test_sqlcode PRIVATE QUILLBOX_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data")
