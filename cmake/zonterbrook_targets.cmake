# The helpers that the folders' CMakeLists.txt are written with: a library, an executable, a test.
# They keep the lists in the folders down to what differs: which sources, and which folders below may be used.

# zonterbrook_library(<folder> SOURCES <source>... [LINKS <target>...])
# The static library zonterbrook_<folder>. LINKS are its row of the include graph: a routine of a folder that is not below
# this one stays an undefined symbol in this folder's test, which links nothing else.
function(zonterbrook_library folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    add_library(zonterbrook_${folder} STATIC ${arg_SOURCES})
    target_link_libraries(zonterbrook_${folder} PUBLIC ${arg_LINKS} PRIVATE zonterbrook_options)
endfunction()

# zonterbrook_executable(<name> SOURCES <source>... [LINKS <target>...])
# The executable bin/<name>, as the target <name> with its hyphens turned to underscores.
function(zonterbrook_executable name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    string(REPLACE "-" "_" target ${name})
    add_executable(${target} ${arg_SOURCES})
    set_target_properties(${target} PROPERTIES OUTPUT_NAME ${name})
    target_link_libraries(${target} PRIVATE ${arg_LINKS} zonterbrook_options)
    add_dependencies(${target} zonterbrook_data)
endfunction()

# zonterbrook_test(<folder> SOURCES <source>... [LINKS <target>...] [TIMEOUT <seconds>])
# The executable tests/tests_<folder>; each of its cases is a test of its own for ctest. A test finds its own material
# under ZONTERBROOK_TEST_DATA_DIR, the shipped files under ZONTERBROOK_DATA_DIR and the tree under ZONTERBROOK_SOURCE_DIR.
function(zonterbrook_test folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "SOURCES;LINKS")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 300)
    endif()
    zonterbrook_test_executable(tests_${folder} ${arg_SOURCES})
    target_link_libraries(tests_${folder} PRIVATE ${arg_LINKS} GTest::gtest_main)
    # Listed when the tests are run and not when they are built: a test that fails to start fails ctest, not the build.
    gtest_discover_tests(tests_${folder} TEST_PREFIX "${folder}." NO_PRETTY_VALUES DISCOVERY_MODE PRE_TEST
        PROPERTIES TIMEOUT ${arg_TIMEOUT})
endfunction()

# zonterbrook_qt_test(<folder> SOURCES <source>... [LINKS <target>...] [TIMEOUT <seconds>])
# The same for tests that need an application object and an event loop: they bring their own main and are one test each.
function(zonterbrook_qt_test folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "SOURCES;LINKS")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 300)
    endif()
    zonterbrook_test_executable(tests_${folder} ${arg_SOURCES})
    target_link_libraries(tests_${folder} PRIVATE ${arg_LINKS} Qt6::Test GTest::gtest)
    add_test(NAME ${folder} COMMAND tests_${folder})
    set_tests_properties(${folder} PROPERTIES TIMEOUT ${arg_TIMEOUT} ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QTEST_DISABLE_STACK_DUMP=1")
endfunction()

function(zonterbrook_test_executable target)
    add_executable(${target} ${ARGN})
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${target} PRIVATE
        ZONTERBROOK_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
        ZONTERBROOK_DATA_DIR="${PROJECT_SOURCE_DIR}/data"
        ZONTERBROOK_TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data")
    target_link_libraries(${target} PRIVATE zonterbrook_options)
endfunction()
