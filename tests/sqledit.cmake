quillbox_unit_test(test_sqledit
  LIBS quillbox SQLite::SQLite3
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/sqledit/CommentTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/sqledit/SqlWindowTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/sqledit/SaveTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/sqledit/CodeCommandsTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/sqledit/CompletionTest.cpp)
