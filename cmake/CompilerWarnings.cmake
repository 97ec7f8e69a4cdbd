# Warnings for every target of the project. As errors only when VARDEX_WERROR is on (CI does that).
function(vardex_set_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wimplicit-fallthrough)
  if(VARDEX_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
