quillbox_unit_test(test_find
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/find/FindReplaceTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/find/MemComboTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/find/FindDialogsTest.cpp)
target_include_directories(test_find PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/editor)
