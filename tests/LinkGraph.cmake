# Fails when LIBRARY needs a library of windows or of a higher layer.
execute_process(COMMAND ${READELF} --dynamic ${LIBRARY} OUTPUT_VARIABLE dynamic RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT dynamic MATCHES "NEEDED.*libQt6Core")
  message(FATAL_ERROR "the libraries that ${LIBRARY} needs can not be read")
endif()
if(dynamic MATCHES "NEEDED[^\n]*(libQt6Gui|libQt6Widgets|libQt6PrintSupport|libledgora[._])[^\n]*")
  message(FATAL_ERROR "${LIBRARY} must know no window: ${CMAKE_MATCH_0}")
endif()
