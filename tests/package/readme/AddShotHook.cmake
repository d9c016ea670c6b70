# Given to the README's host project as CMAKE_PROJECT_INCLUDE: once the project's own
# CMakeLists.txt has made its program, the shot hook is added to it. The README's files stay
# as they are.
set(QUILLBOX_SHOT_HOOK ${CMAKE_CURRENT_LIST_DIR}/ShotHook.cpp)
cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL target_sources myhost PRIVATE ${QUILLBOX_SHOT_HOOK})
