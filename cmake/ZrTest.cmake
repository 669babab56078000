# SPDX-License-Identifier: LGPL-2.1-or-later
# zr_add_test(tst_name [SOURCES file...] [LIBRARIES target...] [ENVIRONMENT NAME=value...])
# One Qt Test executable: tst_name.cpp, further sources, and the library under test.
function(zr_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES;ENVIRONMENT")
    add_executable(${name} ${name}.cpp ${arg_SOURCES})
    zr_target(${name})
    zr_reuse_headers(${name} test)
    # A test's class is in its source, which includes what moc makes of it. AUTOMOC would scan and compile further files
    # for each program.
    set(moc ${CMAKE_CURRENT_BINARY_DIR}/moc)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    qt6_generate_moc(${name}.cpp ${moc}/${name}.moc TARGET ${name})
    target_sources(${name} PRIVATE ${moc}/${name}.moc)
    target_include_directories(${name} PRIVATE ${moc})
    target_link_libraries(${name} PRIVATE ZrSupplyDatabase::ZrSupplyDatabase Qt6::Test ${arg_LIBRARIES} Qt6::Sql)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        TIMEOUT 600
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;${arg_ENVIRONMENT}")
endfunction()
