quillbox_unit_test(test_tablekit LIBS quillbox_platform quillbox_tablekit
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/tablekit/FileDialogTest.cpp)
