# Installs the build into WORK_DIR/prefix, then builds and runs the host project against it.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(last_output "${out}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
foreach(header Quillbox.h CScintillaWnd.h SString.h CWnd.h)
  if(NOT EXISTS ${prefix}/include/quillbox/${header})
    message(FATAL_ERROR "installed header missing: quillbox/${header}")
  endif()
endforeach()

# A host that finds the CMake package.
run(${CMAKE_COMMAND} -S ${HOST_DIR} -B ${WORK_DIR}/host-cmake -G Ninja -DCMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/host-cmake)
set(ENV{LD_LIBRARY_PATH} ${prefix}/lib)
run(${WORK_DIR}/host-cmake/quillbox_host)
if(NOT last_output MATCHES "host: 3 lines")
  message(FATAL_ERROR "unexpected host output: ${last_output}")
endif()

# A host that uses pkg-config.
set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs quillbox OUTPUT_VARIABLE flags RESULT_VARIABLE rc
                OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "pkg-config does not know quillbox")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
run(c++ -std=c++20 -fPIC ${HOST_DIR}/main.cpp -o ${WORK_DIR}/quillbox_host_pc ${flags})
run(${WORK_DIR}/quillbox_host_pc)
