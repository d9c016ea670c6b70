quillbox_unit_test(test_readwnd
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/readwnd/ReadWindowTest.cpp)
