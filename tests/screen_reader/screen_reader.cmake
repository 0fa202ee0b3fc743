# The test needs a display, the buses of a desktop and a screen reader's view of them: ./dev installs them.
find_program(KELVAR_PYTHON python3 HINTS /usr/bin NO_CMAKE_ENVIRONMENT_PATH)  # with the system's modules
find_file(KELVAR_CLOCK libfaketimeMT.so.1 PATHS /usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/faketime)
find_program(KELVAR_XVFB Xvfb)
find_program(KELVAR_DBUS dbus-daemon)
execute_process(
  COMMAND ${KELVAR_PYTHON} -c "import gi, Xlib; gi.require_version('Atspi', '2.0')" OUTPUT_QUIET ERROR_QUIET
  RESULT_VARIABLE has_no_reader)
if(KELVAR_PYTHON AND KELVAR_CLOCK AND KELVAR_XVFB AND KELVAR_DBUS AND NOT has_no_reader)
  add_test(NAME screen_reader
           COMMAND ${KELVAR_PYTHON} -B ${CMAKE_CURRENT_LIST_DIR}/screen_reader_test.py ${KELVAR_BIN}
                   ${KELVAR_CLOCK} ${CMAKE_SOURCE_DIR}/core/screens.h)
  set_tests_properties(screen_reader PROPERTIES TIMEOUT 120 COST 20)  # the longest: the first one
elseif("$ENV{CI}" STREQUAL true)
  message(FATAL_ERROR "The test screen_reader lacks packages; ./dev names and installs them")
else()
  message(STATUS "Without the test screen_reader, which lacks packages that ./dev installs")
endif()
