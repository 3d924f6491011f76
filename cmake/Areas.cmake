# One static library a folder. The two kinds differ in what they may reach: an area of rules
# sees QtCore only, so that it cannot grow a window; a view or desktop area sees the widgets.
# Each kind keeps a list of its own: the program, the tests and the benchmarks take in what is on it.

function(_jobwright_library name)
    cmake_parse_arguments(A "" "FOLDER" "DEPENDS;LIBS" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${A_FOLDER}/*.cpp" "${A_FOLDER}/*.h" "${A_FOLDER}/*.ui" "${A_FOLDER}/*.qrc")
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    foreach(dependency IN LISTS A_DEPENDS)
        target_link_libraries(${name} PUBLIC ${dependency})
    endforeach()
    target_link_libraries(${name} PUBLIC ${A_LIBS})
endfunction()

function(add_area name)
    _jobwright_library(${name} ${ARGN})
    target_link_libraries(${name} PUBLIC Qt6::Core)
    set_property(GLOBAL APPEND PROPERTY JOBWRIGHT_AREAS ${name})
    target_precompile_headers(${name} REUSE_FROM pch_core)
endfunction()

function(add_gui_area name)
    _jobwright_library(${name} ${ARGN})
    target_link_libraries(${name} PUBLIC Qt6::Widgets)
    set_property(GLOBAL APPEND PROPERTY JOBWRIGHT_GUI_AREAS ${name})
    target_precompile_headers(${name} REUSE_FROM pch_widgets)
endfunction()
