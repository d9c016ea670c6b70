quillbox_unit_test(test_platform
  LIBS quillbox_platform
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/platform/CStringTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/platform/CWndTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/platform/SystemTest.cpp)
