# What every target of the project shares: warnings, sanitizers, precompiled headers.

add_library(ledgora_options INTERFACE)
target_compile_options(ledgora_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wcast-align
                                                 -Woverloaded-virtual -Wnull-dereference)
target_compile_definitions(ledgora_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER
                                                     LEDGORA_VERSION="${PROJECT_VERSION}")
if(LEDGORA_SANITIZE)
  target_compile_options(ledgora_options INTERFACE -fsanitize=${LEDGORA_SANITIZE} -fno-omit-frame-pointer
                                                   -fno-sanitize-recover=undefined)
  target_link_options(ledgora_options INTERFACE -fsanitize=${LEDGORA_SANITIZE})
endif()

# The layers of the link graph: each library may link only what stands here. Rules must stay usable without a
# window, so nothing of Gui or Widgets may ever reach ledgora_core, not even through another library.
function(ledgora_forbid_windows target)
  get_target_property(links ${target} LINK_LIBRARIES)
  foreach(library IN LISTS links)
    if(library MATCHES "Qt6::(Gui|Widgets|PrintSupport)|^ledgora$|^ledgora_components$")
      message(FATAL_ERROR "${target} must not link ${library}: rules and store know no window")
    endif()
  endforeach()
endfunction()

function(ledgora_library target)
  add_library(${target} SHARED)
  target_link_libraries(${target} PRIVATE ledgora_options)
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
  # The headers that hosts may include; each folder adds its own.
  target_sources(${target} PUBLIC FILE_SET public_headers TYPE HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/src)
  if(NOT LEDGORA_SANITIZE)
    # A layer that calls into one it does not link fails here, not in a host's process.
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()
  set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
                                             INSTALL_RPATH "$ORIGIN")
endfunction()

# Headers of this folder that are installed with the library.
function(ledgora_public_headers target)
  target_sources(${target} PUBLIC FILE_SET public_headers FILES ${ARGN})
endfunction()
