# Generates the C bindings of a Wayland protocol with wayland-scanner and adds them to a target.
#   pitchlark_wayland_protocol(<target> <client|server> <protocol.xml> [CODE])
# CODE also compiles the protocol's interface tables into the target; leave it out where another
# library of the same program already carries them.
find_package(PkgConfig REQUIRED)
pkg_check_modules(WAYLAND_SCANNER REQUIRED wayland-scanner)
pkg_get_variable(WAYLAND_SCANNER_EXECUTABLE wayland-scanner wayland_scanner)

function(pitchlark_wayland_protocol target side xml)
    cmake_parse_arguments(PARSE_ARGV 3 arg "CODE" "" "")
    get_filename_component(name ${xml} NAME_WE)
    set(directory ${CMAKE_CURRENT_BINARY_DIR}/wayland)
    set(header ${directory}/${name}-${side}-protocol.h)
    add_custom_command(OUTPUT ${header}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${directory}
        COMMAND ${WAYLAND_SCANNER_EXECUTABLE} ${side}-header ${xml} ${header}
        DEPENDS ${xml} VERBATIM)
    target_sources(${target} PRIVATE ${header})
    if(arg_CODE)
        set(code ${directory}/${name}-protocol.c)
        add_custom_command(OUTPUT ${code}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${directory}
            COMMAND ${WAYLAND_SCANNER_EXECUTABLE} private-code ${xml} ${code}
            DEPENDS ${xml} VERBATIM)
        target_sources(${target} PRIVATE ${code})
    endif()
    target_include_directories(${target} PRIVATE ${directory})
endfunction()
