# Finds the demo's dependencies; it's included from the top-level file.
cmake_minimum_required(VERSION 3.20)
project(demo LANGUAGES CXX)

option(DEMO_TESTS "Build the tests" ON)
find_package(Qt6 REQUIRED COMPONENTS Widgets)

#[[ The library and the program
    share one list of sources. ]]
set(DEMO_SOURCES src/main.cpp src/window.cpp)
add_executable(demo ${DEMO_SOURCES})
target_link_libraries(demo PRIVATE Qt6::Widgets)
target_compile_definitions(demo PRIVATE $<$<CONFIG:Debug>:DEMO_DEBUG>)

if(DEMO_TESTS AND NOT CMAKE_CROSSCOMPILING)
    enable_testing()
    add_test(NAME demo_runs COMMAND demo --version)
endif()
message(STATUS "demo: ${CMAKE_BUILD_TYPE}")
