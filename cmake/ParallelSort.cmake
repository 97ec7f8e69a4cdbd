# The parallel sort runs on oneTBB. Without it, points are sorted on one thread.

# Looks for oneTBB unless the serial sort is asked for; TBB_FOUND says whether it is used.
macro(vardex_find_one_tbb)
  set(TBB_FOUND FALSE)
  if(VARDEX_PARALLEL_SORT)
    find_package(TBB 2021.6 CONFIG QUIET)
  endif()
endmacro()

# Gives a target the parallel sort, and what keeps its scheduler from harming the host.
function(vardex_use_parallel_sort target)
  vardex_find_one_tbb()
  if(TBB_FOUND)
    target_sources(${target} PRIVATE mobile/core/ResidentScheduler.cpp)
    target_compile_definitions(${target} PRIVATE VARDEX_PARALLEL_SORT)
    target_link_libraries(${target} PRIVATE TBB::tbb ${CMAKE_DL_LIBS})
  elseif(VARDEX_PARALLEL_SORT)
    message(WARNING "oneTBB 2021.6 or newer was not found: scan points will be sorted on one thread")
  endif()
endfunction()
