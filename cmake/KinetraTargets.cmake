# What all targets of the project share: language level, warnings, sanitizers, precompiled headers, and how the tests of
# a folder are declared.

add_library(kinetra_options INTERFACE)
target_compile_features(kinetra_options INTERFACE cxx_std_17)
# clang counts -Wsign-conversion to -Wconversion, g++ does not in C++.
target_compile_options(kinetra_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                                                 $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>
                                                 $<$<BOOL:${KINETRA_WERROR}>:-Werror>
                                                 # g++ 12 takes the parts of a std::variant that are not in use for it
                                                 $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
if(KINETRA_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
                 $<$<CXX_COMPILER_ID:Clang>:-gline-tables-only>) # what a report needs to name places
  target_compile_options(kinetra_options INTERFACE ${sanitizers})
  target_compile_definitions(kinetra_options INTERFACE KINETRA_SANITIZED) # for tests of time and memory
  # Whoever links a library of ours needs the sanitizers' runtime too, so this one is for the whole tree.
  add_link_options(-fsanitize=address,undefined)
endif()
if(KINETRA_FUZZ)
  target_compile_options(kinetra_options INTERFACE -fsanitize=fuzzer-no-link) # tells the fuzzer which code an input reaches
endif()

# kinetra_precompile(NAME core|optimised|windows|tests|windowTests): the target reads the commonest headers of its kind
# from a file that is compiled once for all such targets. Only the presets for tests do so: what compiles without it too
# has all its #includes. The chief headers of model and window are among them, since so much includes them.
set(kinetra_headers_core <algorithm> <array> <cstdint> <functional> <memory> <optional> <ostream> <string>
                         <unordered_map> <utility> <vector> <QByteArray> <QDomDocument> <QFile> <QHash> <QString>
                         <QStringList> <model/XMLParsing.h>)
set(kinetra_headers_optimised ${kinetra_headers_core})
set(kinetra_headers_windows ${kinetra_headers_core} <QAction> <QApplication> <QCheckBox> <QComboBox> <QFileDialog>
                            <QGroupBox> <QHeaderView> <QKeyEvent> <QLabel> <QLineEdit> <QMainWindow> <QMenu>
                            <QMessageBox> <QMimeData> <QPainter> <QPushButton> <QStandardItemModel> <QStyle>
                            <QTableView> <QTabWidget> <QTreeWidget>)
set(kinetra_headers_tests ${kinetra_headers_core} <sstream> <QDir> <QProcess> <QRegularExpression>
                          <QTemporaryDir> <QtTest>)
set(kinetra_headers_windowTests ${kinetra_headers_windows} <workbench/mainwindow.h> <QtTest>)
set(kinetra_links_core Qt5::Xml)
set(kinetra_links_optimised Qt5::Xml)
set(kinetra_links_windows Qt5::Xml Qt5::Widgets)
set(kinetra_links_tests Qt5::Xml Qt5::Test)
set(kinetra_links_windowTests Qt5::Xml Qt5::Widgets Qt5::Test)
set(kinetra_definitions_core QT_NO_KEYWORDS) # where no header of Qt's objects is included, "slots" is a name like others
set(kinetra_definitions_optimised QT_NO_KEYWORDS)
set(kinetra_flags_optimised $<$<CONFIG:Debug>:-O1>)
# By itself ccache preprocesses what it has not met yet, which takes half as long as to compile it; here the list of
# headers that comes with each object does for that. What uses precompiled headers it caches only when told so.
if(CMAKE_CXX_COMPILER_LAUNCHER MATCHES "ccache$")
  if(KINETRA_PRECOMPILED_HEADERS)
    list(PREPEND CMAKE_CXX_COMPILER_LAUNCHER CCACHE_SLOPPINESS=pch_defines,time_macros)
  endif()
  list(PREPEND CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_DEPEND=1)
endif()
function(kinetra_precompile name kind)
  if(NOT KINETRA_PRECOMPILED_HEADERS)
    return()
  endif()
  set(owner kinetra_precompiled_${kind})
  if(NOT TARGET ${owner})
    set(source ${kinetra_BINARY_DIR}/${owner}.cpp)
    file(GENERATE OUTPUT ${source} CONTENT "// What is compiled with the headers.\n")
    add_library(${owner} OBJECT ${source})
    target_link_libraries(${owner} PRIVATE ${kinetra_links_${kind}} kinetra_options)
    target_include_directories(${owner} PRIVATE ${kinetra_SOURCE_DIR}/src)
    target_compile_options(${owner} PRIVATE $<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp> # for ccache
                                            ${kinetra_flags_${kind}})
    target_compile_definitions(${owner} PRIVATE KINETRA_VERSION="${kinetra_VERSION}" ${kinetra_definitions_${kind}})
    target_precompile_headers(${owner} PRIVATE ${kinetra_headers_${kind}})
    set_target_properties(${owner} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
  endif()
  target_compile_definitions(${name} PRIVATE ${kinetra_definitions_${kind}})
  target_precompile_headers(${name} REUSE_FROM ${owner})
endfunction()

# Tests of large files spend their time in these libraries, and so do many others. Optimised in debug builds too, they
# save some 20 s of processor time for 4 s that it takes to compile them so. The libraries above them would take as long
# as they save.
set(kinetra_optimised_libraries kinetra_text kinetra_xml kinetra_json)

# kinetra_library(NAME SOURCES ... [LINK ...] [WINDOWS]): a static library that is one floor of the house; WINDOWS if it
# has some. Its headers are reached from src/, the only include root.
function(kinetra_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WINDOWS" "" "SOURCES;LINK")
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${kinetra_SOURCE_DIR}/src)
  target_compile_features(${name} PUBLIC cxx_std_17)
  target_link_libraries(${name} PUBLIC ${arg_LINK} PRIVATE $<BUILD_INTERFACE:kinetra_options>)
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
  if(arg_WINDOWS)
    kinetra_precompile(${name} windows)
  elseif(name IN_LIST kinetra_optimised_libraries)
    target_compile_options(${name} PRIVATE ${kinetra_flags_optimised})
    kinetra_precompile(${name} optimised)
  else()
    kinetra_precompile(${name} core)
  endif()
endfunction()

# kinetra_program(NAME SOURCES ... LINK ... [WINDOWS]): an executable in bin/; WINDOWS if it has some.
function(kinetra_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WINDOWS" "" "SOURCES;LINK")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINK} $<BUILD_INTERFACE:kinetra_options>)
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF
                                           RUNTIME_OUTPUT_DIRECTORY ${kinetra_BINARY_DIR}/bin)
  if(arg_WINDOWS)
    kinetra_precompile(${name} windows)
  else()
    kinetra_precompile(${name} core)
  endif()
endfunction()

# kinetra_tests(NAME LINK ... TESTS ... [LARGE ...] [SOURCES ...] [DEFINITIONS ...] [WINDOWS]): the QtTest classes of a
# folder, each in a source of its name, as one program bin/NAME. CTest runs each class by itself and without a display;
# those of the tests that read large files, LARGE, start first, and under the sanitizers they need their time. The
# samples and, if it is there, the folder of real ESI files are known to every test.
function(kinetra_tests name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WINDOWS" "" "SOURCES;LINK;DEFINITIONS;TESTS;LARGE")
  add_executable(${name} ${arg_SOURCES} ${kinetra_SOURCE_DIR}/tests/testMain.cpp)
  target_link_libraries(${name} PRIVATE ${arg_LINK} Qt5::Test kinetra_options)
  target_include_directories(${name} PRIVATE ${kinetra_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE KINETRA_SOURCE_DIR="${kinetra_SOURCE_DIR}" ${arg_DEFINITIONS})
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF RUNTIME_OUTPUT_DIRECTORY ${kinetra_BINARY_DIR}/bin)
  if(arg_WINDOWS)
    kinetra_precompile(${name} windowTests)
  else()
    kinetra_precompile(${name} tests)
  endif()

  # CMake's own rule for moc has it read Qt's headers for each test. It needs none of them.
  set(mocs ${CMAKE_CURRENT_BINARY_DIR}/${name}_moc)
  file(MAKE_DIRECTORY ${mocs})
  target_include_directories(${name} PRIVATE ${mocs})
  foreach(test IN LISTS arg_TESTS)
    set(source ${CMAKE_CURRENT_SOURCE_DIR}/${test}.cpp)
    add_custom_command(OUTPUT ${mocs}/${test}.moc COMMAND Qt5::moc ${source} -o ${mocs}/${test}.moc
                       DEPENDS ${source} VERBATIM)
    target_sources(${name} PRIVATE ${source} ${mocs}/${test}.moc)
    add_test(NAME ${test} COMMAND ${name} ${test})
  endforeach()
  set_tests_properties(${arg_TESTS} PROPERTIES ENVIRONMENT "${kinetra_test_environment}" TIMEOUT 300)
  if(arg_LARGE)
    set_tests_properties(${arg_LARGE} PROPERTIES COST 10 TIMEOUT 900)
  endif()
endfunction()
set(kinetra_test_environment "QT_QPA_PLATFORM=offscreen" "LC_ALL=C.UTF-8")
if(KINETRA_SANITIZE)
  list(APPEND kinetra_test_environment
       "LSAN_OPTIONS=suppressions=${kinetra_SOURCE_DIR}/cmake/leaks.supp:print_suppressions=0"
       "UBSAN_OPTIONS=print_stacktrace=1")
endif()
