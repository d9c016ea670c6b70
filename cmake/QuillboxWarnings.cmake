# Warnings are errors for every target of the project.
function(quillbox_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Werror
    -Wno-error=deprecated-declarations)
endfunction()
