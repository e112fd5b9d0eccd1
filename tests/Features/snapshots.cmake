# Runs the demo once per screen under its own X server and keeps each picture in OUTPUT.
file(MAKE_DIRECTORY ${OUTPUT})
foreach(shot IN ITEMS "fixtures;TIDEWELL_SECTION=fixtures" "standings;TIDEWELL_SECTION=standings"
                      "teams;TIDEWELL_SECTION=teams" "stadiums;TIDEWELL_SECTION=stadiums"
                      "favorites;TIDEWELL_SECTION=favorites" "match-detail;TIDEWELL_DETAIL=match:68"
                      "team-detail;TIDEWELL_DETAIL=team:1" "stadium-detail;TIDEWELL_DETAIL=stadium:1"
                      "settings;TIDEWELL_DETAIL=settings")
    list(GET shot 0 name)
    list(GET shot 1 hook)
    set(path ${OUTPUT}/${name}.png)
    file(REMOVE ${path})
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env ${hook} TIDEWELL_SNAPSHOT=${path} TIDEWELL_PINNED=1
                TIDEWELL_DEMO_AT=2026-06-27T21:30:00Z
                xvfb-run -a -s "-screen 0 1440x900x24" ${PROGRAM} --demo
        TIMEOUT 60 RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET)
    if(NOT EXISTS ${path})
        message(FATAL_ERROR "no snapshot of ${name} (exit ${result})")
    endif()
    message(STATUS "${name}: ${path}")
endforeach()
