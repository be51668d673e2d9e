# A room is a folder that knows or does one thing. Its files are of four kinds, and each kind is a
# library of its own: rules see the toolkit's Core module alone, links also Network and SerialPort,
# drawings also Gui, views also Widgets, so that a rule that includes a widget does not compile.
# Rooms are added from the bottom up, and one rests only on rooms that were added before it.
#
#   brivon_room(page RULES ... LINKS ... DRAWINGS ... VIEWS ... RESTS_ON row sending ...)
#
# makes brivon_page of the rules, brivon_page_links, brivon_page_drawings and brivon_page_views. A
# "frmXxx.cpp" brings its "frmXxx.ui" along. RESTS_ON names every room whose headers this one
# includes; the test "rooms" holds the includes against it.
#
# What differs between systems stands in a pair, "xxx_unix.cpp" and "xxx_windows.cpp", behind one
# header. All three are named, and each system compiles its own. ONLY_UNIX names what has no
# counterpart.
function(brivon_room room)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "RULES;LINKS;DRAWINGS;VIEWS;ONLY_UNIX;RESTS_ON")
  foreach(below IN LISTS arg_RESTS_ON)
    if(NOT TARGET brivon_${below})
      message(FATAL_ERROR "${room} rests on ${below}, which is not below it")
    endif()
    list(APPEND rules brivon_${below})
    list(APPEND links brivon_${below}_links)
    list(APPEND drawings brivon_${below}_drawings)
    list(APPEND views brivon_${below}_views)
  endforeach()
  foreach(kind IN ITEMS RULES LINKS DRAWINGS VIEWS)
    brivon_files_of_system(files_${kind} "${arg_${kind}}" "${arg_ONLY_UNIX}")
  endforeach()
  brivon_kind(brivon_${room} "${files_RULES}" Qt6::Core ${rules})
  brivon_kind(brivon_${room}_links "${files_LINKS}"
    Qt6::Network Qt6::SerialPort brivon_${room} ${links})
  brivon_kind(brivon_${room}_drawings "${files_DRAWINGS}"
    Qt6::Gui brivon_${room}_links ${drawings})
  brivon_kind(brivon_${room}_views "${files_VIEWS}"
    Qt6::Widgets brivon_${room}_drawings ${views})

  set_property(GLOBAL APPEND PROPERTY BRIVON_ROOMS ${room})
  string(CONCAT declared
    "set(folder_${room} [[${CMAKE_CURRENT_SOURCE_DIR}]])\nset(below_${room} ${arg_RESTS_ON})\n"
    "set(rule_${room} ${arg_RULES})\nset(link_${room} ${arg_LINKS})\n"
    "set(drawing_${room} ${arg_DRAWINGS})\nset(view_${room} ${arg_VIEWS})\n")
  set_property(GLOBAL APPEND_STRING PROPERTY BRIVON_ROOM_TABLE ${declared})
endfunction()

# Leaves of `files` those that are compiled on this system.
function(brivon_files_of_system out files only_unix)
  set(left ${files})
  foreach(file IN LISTS files)
    string(REGEX REPLACE "_(unix|windows)\\.cpp$" "_unix.cpp" on_unix ${file})
    string(REGEX REPLACE "_(unix|windows)\\.cpp$" "_windows.cpp" on_windows ${file})
    set(is_pair FALSE)
    if(NOT on_unix STREQUAL on_windows AND on_unix IN_LIST files AND on_windows IN_LIST files)
      set(is_pair TRUE)
    endif()
    if(is_pair AND WIN32)
      list(REMOVE_ITEM left ${on_unix})
    elseif(is_pair)
      list(REMOVE_ITEM left ${on_windows})
    elseif(WIN32 AND file IN_LIST only_unix)
      list(REMOVE_ITEM left ${file})
    endif()
  endforeach()
  set(${out} ${left} PARENT_SCOPE)
endfunction()

# A library of `files` that rests on the libraries behind them. Without a source among the files it
# is a name for what it rests on.
function(brivon_kind target files)
  cmake_path(GET CMAKE_CURRENT_SOURCE_DIR PARENT_PATH include_root)
  set(sources ${files})
  list(FILTER sources INCLUDE REGEX "\\.cpp$")
  if(NOT sources)
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE ${include_root})
    target_link_libraries(${target} INTERFACE ${ARGN})
    return()
  endif()
  set(forms ${sources})
  list(FILTER forms INCLUDE REGEX "^frm")
  list(TRANSFORM forms REPLACE "\\.cpp$" ".ui")
  qt_wrap_ui(form_headers ${forms})
  add_library(${target} STATIC ${sources} ${form_headers})
  target_include_directories(${target} PUBLIC ${include_root} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
  target_link_libraries(${target} PUBLIC ${ARGN} PRIVATE brivon_flags)
  set_target_properties(${target} PROPERTIES AUTOMOC ON)
  if(BRIVON_PRECOMPILED_HEADERS AND "Qt6::Widgets" IN_LIST ARGN)
    target_precompile_headers(${target} REUSE_FROM brivon_view_headers)
  elseif(BRIVON_PRECOMPILED_HEADERS)
    target_precompile_headers(${target} REUSE_FROM brivon_rule_headers)
  endif()
endfunction()

# Writes what the rooms declared to `path`, for the test "rooms".
function(brivon_write_rooms path)
  get_property(rooms GLOBAL PROPERTY BRIVON_ROOMS)
  get_property(table GLOBAL PROPERTY BRIVON_ROOM_TABLE)
  file(WRITE ${path} "set(rooms ${rooms})\n${table}")
endfunction()
