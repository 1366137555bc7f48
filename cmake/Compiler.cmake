# Warnings, sanitizers and link options of every target.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-Wno-restrict) # g++ 12 sees overlaps in std::string's operator+
endif()
if(TARVO_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()

# A program pays at its start for every library it names: name only those it calls.
add_link_options(-Wl,--as-needed)

if(TARVO_SANITIZERS)
  add_compile_options(-fsanitize=${TARVO_SANITIZERS} -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TARVO_SANITIZERS})
endif()
if(TARVO_BUILD_FUZZERS)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
