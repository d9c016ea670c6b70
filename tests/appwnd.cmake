quillbox_unit_test(test_appwnd
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/appwnd/AppWindowTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/appwnd/FoldingTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/appwnd/FailureDialogTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/appwnd/AcceleratorTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/appwnd/GotoDialogTest.cpp)
