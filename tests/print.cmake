# Printing and preview: device contexts, the print dialog and the editor's print passes.
quillbox_unit_test(test_print
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/print/PrintingTest.cpp)
target_include_directories(test_print PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/editor)
