# What all targets of the project share: language level, warnings, sanitizers, and how a test is declared.

add_library(kinetra_options INTERFACE)
target_compile_features(kinetra_options INTERFACE cxx_std_17)
target_compile_options(kinetra_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                                                 $<$<BOOL:${KINETRA_WERROR}>:-Werror>)
if(KINETRA_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(kinetra_options INTERFACE ${sanitizers})
  # Whoever links a library of ours needs the sanitizers' runtime too, so this one is for the whole tree.
  add_link_options(-fsanitize=address,undefined)
endif()
if(KINETRA_FUZZ)
  target_compile_options(kinetra_options INTERFACE -fsanitize=fuzzer-no-link) # tells the fuzzer which code an input reaches
endif()

# kinetra_library(NAME SOURCES ... [LINK ...]): a static library that is one floor of the house. Its headers are reached
# from src/, the only include root.
function(kinetra_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${kinetra_SOURCE_DIR}/src)
  target_compile_features(${name} PUBLIC cxx_std_17)
  target_link_libraries(${name} PUBLIC ${arg_LINK} PRIVATE $<BUILD_INTERFACE:kinetra_options>)
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
endfunction()

# kinetra_program(NAME SOURCES ... LINK ...): an executable in bin/.
function(kinetra_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINK} $<BUILD_INTERFACE:kinetra_options>)
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF
                                           RUNTIME_OUTPUT_DIRECTORY ${kinetra_BINARY_DIR}/bin)
endfunction()

# kinetra_test(NAME LINK ... [SOURCES ...] [DEFINITIONS ...]): a QtTest program from NAME.cpp, run by CTest without a
# display. The samples and, if it is there, the folder of real ESI files are known to every test.
function(kinetra_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK;DEFINITIONS")
  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINK} Qt5::Test kinetra_options)
  target_include_directories(${name} PRIVATE ${kinetra_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE KINETRA_SOURCE_DIR="${kinetra_SOURCE_DIR}" ${arg_DEFINITIONS})
  set_target_properties(${name} PROPERTIES AUTOMOC ON CXX_EXTENSIONS OFF)
  add_test(NAME ${name} COMMAND ${name})
  set(environment "QT_QPA_PLATFORM=offscreen" "LC_ALL=C.UTF-8")
  if(KINETRA_SANITIZE)
    list(APPEND environment "LSAN_OPTIONS=suppressions=${kinetra_SOURCE_DIR}/cmake/leaks.supp:print_suppressions=0"
         "UBSAN_OPTIONS=print_stacktrace=1")
  endif()
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT 300)
endfunction()
