# What every target of ours is compiled with.
add_library(quibbly_options INTERFACE)
target_compile_options(quibbly_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-align -Wimplicit-fallthrough
  # A record made with designated initialisers names what it sets; the rest has its default.
  -Wno-missing-field-initializers
  # Equal samples give bit-equal scores on every build: a fused multiply-add rounds once where the formula rounds twice.
  -ffp-contract=off)
# quibbly is always there and seldom busy: what it takes of memory counts for more than the last per cent of speed.
set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG")
target_compile_options(quibbly_options INTERFACE -ffunction-sections -fdata-sections)
target_link_options(quibbly_options INTERFACE -Wl,--gc-sections)
target_compile_definitions(quibbly_options INTERFACE
  QUIBBLY_VERSION="${PROJECT_VERSION}" QUIBBLY_BUILD="${QUIBBLY_BUILD}")
# Qt would take the words signals, slots and emit for itself.
target_compile_definitions(quibbly_options INTERFACE QT_NO_KEYWORDS)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 sees an overlap in every literal that a string is added to.
  target_compile_options(quibbly_options INTERFACE -Wno-restrict)
endif()
if(QUIBBLY_WERROR)
  target_compile_options(quibbly_options INTERFACE -Werror)
endif()
if(QUIBBLY_SANITIZE)
  target_compile_options(quibbly_options INTERFACE
    -fsanitize=${QUIBBLY_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quibbly_options INTERFACE -fsanitize=${QUIBBLY_SANITIZE})
endif()
