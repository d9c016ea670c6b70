# The SQL formatter of the utility library, the Format SQL command of the editor window, and
# the program's format command.
quillbox_unit_test(test_format
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/format/SQLFormatterTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/format/FormatCommandTest.cpp)
target_compile_definitions(test_format PRIVATE QUILLBOX_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data")

# quillbox format writes the layout to standard output, with its options from the command line.
add_test(NAME format_command
  COMMAND sh -c "\"$1\" format --align 1 --comma 0 --case 1 --multiline 0 \"$2/cases/procedures.sql\" | cmp - \"$2/cases/procedures.a1c0k1m0.expected\" && ! \"$1\" format --case 7 \"$2/cases/procedures.sql\" 2>/dev/null"
          format-command $<TARGET_FILE:quillbox_app> ${CMAKE_CURRENT_SOURCE_DIR}/data/format)
