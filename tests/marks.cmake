quillbox_unit_test(test_marks
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/editor/EditorFixture.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/marks/MarksTest.cpp)
target_include_directories(test_marks PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/editor)
