# Refreshes a copy of each committed translation from the sources and fails when any string
# lacks a finished translation: a new string without one, or one left unfinished.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
foreach(ts quillbox_ko.ts:platform,engine,kits,text,editor,appwnd,sqledit,dialogs,module,res quillbox_app_ko.ts:app
           quillbox_app_en.ts:app)
  string(REPLACE ":" ";" parts ${ts})
  list(GET parts 0 ts)
  list(GET parts 1 dirs)
  string(REPLACE "," ";" dirs ${dirs})
  list(TRANSFORM dirs PREPEND ${SOURCE_DIR}/)
  file(COPY_FILE ${SOURCE_DIR}/translations/${ts} ${WORK_DIR}/${ts})
  execute_process(COMMAND ${LUPDATE} -silent -locations none -no-obsolete ${dirs} -ts ${WORK_DIR}/${ts}
                  RESULT_VARIABLE rc)
  file(READ ${WORK_DIR}/${ts} text)
  string(REGEX MATCHALL "<source>[^<]*</source>[ \n\t]*<translation type=\"unfinished\"" missing "${text}")
  string(REGEX MATCHALL "<translation></translation>" empty "${text}")
  if(NOT rc EQUAL 0 OR missing OR empty)
    message(FATAL_ERROR "${ts}: lupdate said ${rc}; strings without a finished translation:\n${missing}${empty}")
  endif()
endforeach()
message(STATUS "every string has a finished translation")
