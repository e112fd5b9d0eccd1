# Runs the demo once per screen under its own X server and keeps each picture in OUTPUT.
file(MAKE_DIRECTORY ${OUTPUT})
foreach(shot IN ITEMS "fixtures;TIDEWELL_SECTION=fixtures" "standings;TIDEWELL_SECTION=standings"
                      "teams;TIDEWELL_SECTION=teams" "stadiums;TIDEWELL_SECTION=stadiums"
                      "favorites;TIDEWELL_SECTION=favorites" "match-detail;TIDEWELL_DETAIL=match:68"
                      "team-detail;TIDEWELL_DETAIL=team:1" "stadium-detail;TIDEWELL_DETAIL=stadium:1"
                      "settings;TIDEWELL_DETAIL=settings"
                      "bracket-2026-07-04;TIDEWELL_SECTION=bracket;2026-07-04T20:00:00Z"
                      "bracket-2026-07-19;TIDEWELL_SECTION=bracket;2026-07-19T21:30:00Z")
    list(GET shot 0 name)
    list(GET shot 1 hook)
    set(at 2026-06-27T21:30:00Z)
    list(LENGTH shot fields)
    if(fields GREATER 2)
        list(GET shot 2 at)
    endif()
    set(path ${OUTPUT}/${name}.png)
    file(REMOVE ${path})
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env ${hook} TIDEWELL_SNAPSHOT=${path} TIDEWELL_PINNED=1
                TIDEWELL_DEMO_AT=${at}
                ${CMAKE_CURRENT_LIST_DIR}/../Support/with-xvfb.sh ${PROGRAM} --demo
        TIMEOUT 60 RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET)
    if(NOT EXISTS ${path})
        message(FATAL_ERROR "no snapshot of ${name} (exit ${result})")
    endif()
    message(STATUS "${name}: ${path}")
endforeach()
