# Which folders a folder includes from: its target, named after it, is linked with theirs, and
# tests/include_directions.cmake fails for any other. README shows the same arrows.
set(folders core engine input/rules participant widgets shell shell/notes input output/report output/chart
            output/result statements statements/program)
set(arrows_core)
set(arrows_engine core)
set(arrows_input/rules core)
set(arrows_participant core input/rules)
set(arrows_widgets core)
set(arrows_shell core widgets participant)
set(arrows_shell/notes core engine widgets shell)
set(arrows_input core engine input/rules widgets shell shell/notes)
set(arrows_output/report core engine widgets shell)
set(arrows_output/chart core engine widgets shell output/report)
set(arrows_output/result core engine input/rules widgets shell output/report)
set(arrows_statements core engine input/rules)
set(arrows_statements/program core engine widgets shell output/report output/result statements)
set(without_qt core engine input/rules participant statements)

function(link_along_arrows folder)
  string(REPLACE / _ target ${folder})
  string(REPLACE / _ others "${arrows_${folder}}")
  target_link_libraries(${target} PUBLIC kelvar_options ${others} ${ARGN})
endfunction()
