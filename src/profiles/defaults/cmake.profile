name: CMake Default Profile
case-sensitive: yes
code-order: yes

# Commands are written in lower case and their keywords in upper case, so the lists compare with
# case.

[keywords 1] control flow
if
elseif
else
endif
foreach
endforeach
while
endwhile
function
endfunction
macro
endmacro
block
endblock
return
break
continue

[keywords 2] commands
cmake_minimum_required
project
add_executable
add_library
add_subdirectory
add_custom_command
add_custom_target
add_dependencies
add_compile_options
add_definitions
add_test
target_link_libraries
target_include_directories
target_compile_definitions
target_compile_options
target_compile_features
target_sources
set
unset
list
string
message
option
find_package
find_program
find_library
include
install
configure_file
file
get_filename_component
set_target_properties
set_tests_properties
set_property
get_property
enable_testing
include_directories
link_directories
execute_process
math
cmake_parse_arguments

[keywords 3] arguments and conditions
PUBLIC
PRIVATE
INTERFACE
REQUIRED
COMPONENTS
STATUS
WARNING
FATAL_ERROR
SEND_ERROR
AND
OR
NOT
DEFINED
EXISTS
STREQUAL
EQUAL
MATCHES
VERSION_LESS
VERSION_GREATER_EQUAL
TRUE
FALSE
ON
OFF
CACHE
STRING
BOOL
PATH
FILEPATH
INTERNAL
FORCE
APPEND
COMMAND
DEPENDS
OUTPUT
TARGET
TARGETS
DESTINATION
VERBATIM
WORKING_DIRECTORY
PROPERTIES

[delimiters]
delimiter1  "     "
delimiter2  ${    }
delimiter2  $<    >
comment     #[[   ]]
comment     #     \n
