# Arrows point down only: windows -> links -> rules. The source lists of src/CMakeLists.txt say which
# kind a file is: brivon_core and brivon_code_pages hold the rules, brivon_links the links,
# brivon_windows the windows and views. A header is of the kind of the source beside it; one without
# a source is a rule unless a list names it. Of the toolkit a rule includes QtCore alone, a link also
# QtNetwork and QtSerialPort.
#
#   cmake -DSOURCE_DIR=... -DSAMPLE_DIR=... -DQT_INCLUDE_DIRS=... -P layers_test.cmake
cmake_minimum_required(VERSION 3.25)

set(modules_rule QtCore)
set(modules_link QtCore QtNetwork QtSerialPort)
set(above_rule link window)
set(above_link window)

# The kind of a file of the program, by its path below the source folder.
function(kind_of file out)
  cmake_path(REMOVE_EXTENSION file LAST_ONLY OUTPUT_VARIABLE stem)
  set(kind rule)
  foreach(candidate IN ITEMS rule link window)
    if("${file}" IN_LIST files_${candidate} OR "${stem}.cpp" IN_LIST files_${candidate})
      set(kind ${candidate})
    endif()
  endforeach()
  if(file MATCHES "^ui_" OR file MATCHES "(^|/)frm[^/]*$")
    set(kind window)
  endif()
  set(${out} ${kind} PARENT_SCOPE)
endfunction()

# Whether the toolkit's header belongs to one of the modules.
function(is_in_modules header modules out)
  set(found FALSE)
  foreach(directory IN LISTS QT_INCLUDE_DIRS)
    foreach(module IN LISTS modules)
      if(EXISTS ${directory}/${module}/${header} OR
          (header MATCHES "^${module}/" AND EXISTS ${directory}/${header}))
        set(found TRUE)
      endif()
    endforeach()
  endforeach()
  set(${out} ${found} PARENT_SCOPE)
endfunction()

# All violations below a source folder, one line each, in the order of the files.
function(find_violations source_dir out)
  file(READ ${source_dir}/CMakeLists.txt build)
  string(REGEX REPLACE "#[^\n]*" "" build "${build}")
  set(targets_rule brivon_core brivon_code_pages)
  set(targets_link brivon_links)
  set(targets_window brivon_windows)
  set(violations "")
  foreach(kind IN ITEMS rule link window)
    set(files_${kind} "")
    foreach(target IN LISTS targets_${kind})
      if(NOT build MATCHES "add_library\\(${target} STATIC([^)]*)\\)")
        list(APPEND violations "there is no list of ${target}")
        continue()
      endif()
      string(REGEX MATCHALL "[^ \t\r\n]+" files "${CMAKE_MATCH_1}")
      list(APPEND files_${kind} ${files})
    endforeach()
  endforeach()
  file(GLOB_RECURSE files RELATIVE ${source_dir} ${source_dir}/*.h ${source_dir}/*.cpp)
  list(SORT files)
  foreach(file IN LISTS files)
    if(file STREQUAL "app/main.cpp")
      continue()
    endif()
    if(file MATCHES "\\.cpp$" AND NOT "${file}" IN_LIST files_rule AND
        NOT "${file}" IN_LIST files_link AND NOT "${file}" IN_LIST files_window)
      list(APPEND violations "${file} is in no list")
      continue()
    endif()
    kind_of(${file} kind)
    if(kind STREQUAL "window")
      continue()
    endif()
    file(STRINGS ${source_dir}/${file} includes REGEX "^[ \t]*#[ \t]*include")
    foreach(include IN LISTS includes)
      if(NOT include MATCHES "include[ \t]*([<\"])([^>\"]+)[>\"]")
        list(APPEND violations "${file} has an include that cannot be read")
        continue()
      endif()
      set(header ${CMAKE_MATCH_2})
      if(CMAKE_MATCH_1 STREQUAL "\"")
        kind_of(${header} header_kind)
        if(header_kind IN_LIST above_${kind})
          list(APPEND violations "${file}, a ${kind}, includes ${header}, a ${header_kind}")
        endif()
      elseif(header MATCHES "^[Qq]")
        is_in_modules(${header} "${modules_${kind}}" is_allowed)
        if(NOT is_allowed)
          list(APPEND violations "${file}, a ${kind}, includes ${header} of the toolkit")
        endif()
      endif()
    endforeach()
  endforeach()
  set(${out} "${violations}" PARENT_SCOPE)
endfunction()

# A small program that does everything wrong once, to show that nothing of it is overlooked.
file(REMOVE_RECURSE ${SAMPLE_DIR})
file(WRITE ${SAMPLE_DIR}/CMakeLists.txt
  "add_library(brivon_code_pages STATIC a/good_rule.cpp)\n"
  "add_library(brivon_core STATIC\n  a/bad_rule.cpp  # a/lost.cpp\n)\n"
  "add_library(brivon_links STATIC\n  a/bad_link.cpp\n  a/good_link.cpp\n)\n"
  "add_library(brivon_windows STATIC\n  a/frmWindow.cpp\n  a/listed_view.h\n  a/view.cpp\n)\n")
file(WRITE ${SAMPLE_DIR}/a/good_rule.cpp
  "#include \"a/good_rule.h\"\n#include <vector>\n#include <unistd.h>\n#include <QString>\n"
  "#include <QtCore/QFile>\n#include \"a/alone.h\"\n// #include <QWidget>\n")
file(WRITE ${SAMPLE_DIR}/a/good_rule.h "#include <QByteArray>\n")
file(WRITE ${SAMPLE_DIR}/a/alone.h "#include <QColor>\n")
file(WRITE ${SAMPLE_DIR}/a/bad_rule.cpp
  "#include <QWidget>\n  #  include <QtGui/QFont>\n#include <QTcpSocket>\n#include <QSerialPort>\n"
  "#include <QtWidgets>\n#include <qlabel.h>\n#include \"a/good_link.h\"\n#include \"a/view.h\"\n"
  "#include \"a/frmWindow.h\"\n#include \"ui_frmWindow.h\"\n#include \"a/listed_view.h\"\n")
file(WRITE ${SAMPLE_DIR}/a/bad_rule.h "#include <QDialog>\n")
file(WRITE ${SAMPLE_DIR}/a/good_link.cpp
  "#include <QTcpSocket>\n#include <QSerialPort>\n#include <QTimer>\n#include \"a/good_rule.h\"\n")
file(WRITE ${SAMPLE_DIR}/a/good_link.h "#include <QNetworkProxy>\n")
file(WRITE ${SAMPLE_DIR}/a/bad_link.cpp
  "#include <QMessageBox>\n#include <QGuiApplication>\n#include \"a/view.h\"\n"
  "#include MACRO\n")
file(WRITE ${SAMPLE_DIR}/a/frmWindow.cpp "#include <QDialog>\n#include \"a/good_link.h\"\n")
file(WRITE ${SAMPLE_DIR}/a/frmWindow.h "#include <QDialog>\n")
file(WRITE ${SAMPLE_DIR}/a/listed_view.h "#include <QPushButton>\n")
file(WRITE ${SAMPLE_DIR}/a/view.cpp "#include <QPainter>\n")
file(WRITE ${SAMPLE_DIR}/a/view.h "#include <QWidget>\n")
file(WRITE ${SAMPLE_DIR}/a/lost.cpp "")
file(WRITE ${SAMPLE_DIR}/app/main.cpp "#include <QApplication>\n")
set(expected
  "a/alone.h, a rule, includes QColor of the toolkit"
  "a/bad_link.cpp, a link, includes QMessageBox of the toolkit"
  "a/bad_link.cpp, a link, includes QGuiApplication of the toolkit"
  "a/bad_link.cpp, a link, includes a/view.h, a window"
  "a/bad_link.cpp has an include that cannot be read"
  "a/bad_rule.cpp, a rule, includes QWidget of the toolkit"
  "a/bad_rule.cpp, a rule, includes QtGui/QFont of the toolkit"
  "a/bad_rule.cpp, a rule, includes QTcpSocket of the toolkit"
  "a/bad_rule.cpp, a rule, includes QSerialPort of the toolkit"
  "a/bad_rule.cpp, a rule, includes QtWidgets of the toolkit"
  "a/bad_rule.cpp, a rule, includes qlabel.h of the toolkit"
  "a/bad_rule.cpp, a rule, includes a/good_link.h, a link"
  "a/bad_rule.cpp, a rule, includes a/view.h, a window"
  "a/bad_rule.cpp, a rule, includes a/frmWindow.h, a window"
  "a/bad_rule.cpp, a rule, includes ui_frmWindow.h, a window"
  "a/bad_rule.cpp, a rule, includes a/listed_view.h, a window"
  "a/bad_rule.h, a rule, includes QDialog of the toolkit"
  "a/lost.cpp is in no list")
find_violations(${SAMPLE_DIR} found)
if(NOT found STREQUAL expected)
  list(JOIN found "\n  " found)
  message(FATAL_ERROR "of the bad sample these violations were found:\n  ${found}")
endif()
file(WRITE ${SAMPLE_DIR}/empty/CMakeLists.txt "")
find_violations(${SAMPLE_DIR}/empty found)
list(LENGTH found count)
if(NOT count EQUAL 4)
  message(FATAL_ERROR "four missing lists were not noticed: ${found}")
endif()

find_violations(${SOURCE_DIR} found)
if(found)
  list(JOIN found "\n  " found)
  message(FATAL_ERROR "the layers are broken:\n  ${found}")
endif()
