# The standard library's parallel sort. libstdc++ runs it on oneTBB: without its headers the sort
# silently becomes a serial one, with them but unlinked the link fails.
function(vardex_use_parallel_sort target)
  if(NOT VARDEX_PARALLEL_SORT)
    return()
  endif()
  find_package(TBB 2021.6 CONFIG QUIET)  # the first that can be told to end its threads
  if(NOT TBB_FOUND)
    message(WARNING "oneTBB 2021.6 or newer was not found: scan points will be sorted on one thread")
    return()
  endif()
  target_compile_definitions(${target} PRIVATE VARDEX_PARALLEL_SORT)
  target_link_libraries(${target} PRIVATE TBB::tbb)
endfunction()
