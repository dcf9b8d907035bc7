# taq_test(NAME LABEL logic|form|x [CLIPS] SOURCES … LINK …): one GoogleTest program, one ctest entry per program.
# logic needs no screen; form runs real widgets on the offscreen platform; x runs on a private X server with a window
# manager, one at a time, and may be repeated once. CLIPS gives it the test clips (tests/clips), made before it starts.
find_package(GTest REQUIRED)
set(TAQ_CLIPS ${CMAKE_BINARY_DIR}/clips)

function(taq_test name)
    cmake_parse_arguments(TEST "CLIPS" "LABEL" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${TEST_SOURCES})
    target_link_libraries(${name} PRIVATE taq_rules taq_testing ${TEST_LINK} GTest::gtest GTest::gmock)
    target_compile_definitions(${name} PRIVATE SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    if(TEST_LABEL STREQUAL "x")
        add_test(NAME ${name} COMMAND ${CMAKE_SOURCE_DIR}/tools/with_display.sh $<TARGET_FILE:${name}>)
        set_tests_properties(${name} PROPERTIES RESOURCE_LOCK display)
    else()
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    endif()
    set_tests_properties(${name} PROPERTIES LABELS ${TEST_LABEL} TIMEOUT 600)
    if(TEST_CLIPS)
        target_link_libraries(${name} PRIVATE taq_clips)
        set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED clips)
    endif()
endfunction()

# The reader of foreign pictures stands beside each program that opens them.
function(taq_with_reader name)
    add_dependencies(${name} taq_reader)
    add_custom_command(TARGET ${name} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E create_symlink $<TARGET_FILE:taq_reader> $<TARGET_FILE_DIR:${name}>/taq-reader)
endfunction()
