quillbox_unit_test(test_comforts
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/comforts/EditingComfortsTest.cpp)
target_include_directories(test_comforts PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/sqledit ${CMAKE_CURRENT_SOURCE_DIR}/appwnd)
