# Headers of libraries that most sources of a target read, compiled once for them all; a third of a
# build's time otherwise goes into those. No source may rely on it: each includes what it uses.
option(TARVO_PRECOMPILE_HEADERS "Compile the headers of libraries once for each target" OFF)

set(TARVO_STANDARD_HEADERS <algorithm> <array> <charconv> <cstdint> <filesystem> <functional> <map>
  <memory> <optional> <span> <string> <string_view> <system_error> <unordered_map> <utility> <vector>)

# tarvo_precompile(TARGET headers...) - the standard's and these.
function(tarvo_precompile target)
  if(TARVO_PRECOMPILE_HEADERS)
    target_precompile_headers(${target} PRIVATE ${TARVO_STANDARD_HEADERS} ${ARGN})
  endif()
endfunction()

# tarvo_reuse_precompiled(TARGET OTHER) - those of the other target, which is compiled alike.
function(tarvo_reuse_precompiled target other)
  if(TARVO_PRECOMPILE_HEADERS)
    target_precompile_headers(${target} REUSE_FROM ${other})
  endif()
endfunction()
