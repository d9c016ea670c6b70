quillbox_unit_test(test_menus
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/menus/MenusTest.cpp)
target_include_directories(test_menus PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/appwnd)
