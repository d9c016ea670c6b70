add_test(NAME App.BatchCommandsUseTheSqlWindow
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/app/app-commands.sh $<TARGET_FILE:quillbox_app> ${PROJECT_SOURCE_DIR}
    ${CMAKE_CURRENT_BINARY_DIR}/app-work)
set_tests_properties(App.BatchCommandsUseTheSqlWindow PROPERTIES ENVIRONMENT "${QUILLBOX_TEST_ENV}")
