# Warnings are errors for every target of the project. GCC 12 reports -Wrestrict falsely for
# std::string concatenation at -O3 (the optimiser's own speculative paths), so that one stays
# a warning there rather than failing Release builds of correct code.
function(quillbox_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Werror
    -Wno-error=deprecated-declarations
    $<$<CXX_COMPILER_ID:GNU>:-Wno-error=restrict>)
endfunction()
