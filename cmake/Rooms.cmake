# One static library per room, one place for the compiler's rules.
add_library(taq_rules INTERFACE)
target_compile_options(taq_rules INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
target_compile_definitions(taq_rules INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH)
target_include_directories(taq_rules INTERFACE ${CMAKE_SOURCE_DIR})
option(TAQ_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
if(TAQ_SANITIZE)
    target_compile_options(taq_rules INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
        -fno-sanitize-recover=undefined)
    target_link_options(taq_rules INTERFACE -fsanitize=address,undefined)
endif()

# Qt's headers are compiled once for each of the two depths a room may reach: pictures only, or windows.
function(taq_precompiled_headers name qt header)
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "") # written once, or all would be built anew
    add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PRIVATE taq_rules ${qt})
    target_precompile_headers(${name} PRIVATE ${header})
endfunction()
taq_precompiled_headers(taq_pch_gui Qt6::Gui <QtGui>)
taq_precompiled_headers(taq_pch_widgets Qt6::Widgets <QtWidgets>)

# taq_room(NAME [WIDGETS] SOURCES … LINK …): the static library taq_NAME. WIDGETS lets it reach Qt's windows.
function(taq_room name)
    cmake_parse_arguments(ROOM "WIDGETS" "" "SOURCES;LINK" ${ARGN})
    add_library(taq_${name} STATIC ${ROOM_SOURCES})
    target_link_libraries(taq_${name} PUBLIC taq_rules ${ROOM_LINK})
    if(ROOM_WIDGETS)
        target_link_libraries(taq_${name} PUBLIC Qt6::Widgets)
        target_precompile_headers(taq_${name} REUSE_FROM taq_pch_widgets)
    else()
        target_link_libraries(taq_${name} PUBLIC Qt6::Gui)
        target_precompile_headers(taq_${name} REUSE_FROM taq_pch_gui)
    endif()
endfunction()
