# Instruments a target with the sanitizers named in VARDEX_SANITIZE, for example "address,undefined".
function(vardex_set_sanitizers target)
  if(VARDEX_SANITIZE)
    target_compile_options(${target} PRIVATE
      -fsanitize=${VARDEX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${VARDEX_SANITIZE})
  endif()
endfunction()
