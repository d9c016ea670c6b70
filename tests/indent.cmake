# Word lists, on the text layer (its trace lines go through the utility library).
quillbox_unit_test(test_wordlist LIBS quillbox_text quillbox_basekit quillbox_platform SOURCES
  ${CMAKE_CURRENT_SOURCE_DIR}/indent/WordListTest.cpp)

# The document accessor, automatic indentation, word completion and brace matching, on an
# editor window of the library.
quillbox_unit_test(test_indent
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/indent/AccessorTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/indent/IndentationTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/indent/WordCompletionTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/indent/AppIndentTest.cpp)
target_include_directories(test_indent PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/editor)
