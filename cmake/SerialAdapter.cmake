# What carries the serial ports: "qt", the toolkit's own module, or "asio", Boost.Asio's serial_port.
# Both stand behind ports/port.h and keep the same promises; the tests hold both to them.
find_package(Qt6SerialPort 6.4 QUIET)
set(brivon_usual_adapter asio)
if(Qt6SerialPort_FOUND)
  set(brivon_usual_adapter qt)
endif()
set(BRIVON_SERIAL_ADAPTER "" CACHE STRING
  "What carries the serial ports: qt, the toolkit's own module, or asio, Boost's headers; empty: qt \
where that module is found")
set_property(CACHE BRIVON_SERIAL_ADAPTER PROPERTY STRINGS "" qt asio)
# Not kept: the module may be there the next time.
if(NOT BRIVON_SERIAL_ADAPTER)
  set(BRIVON_SERIAL_ADAPTER ${brivon_usual_adapter})
endif()

if(BRIVON_SERIAL_ADAPTER STREQUAL "qt")
  find_package(Qt6SerialPort 6.4 REQUIRED)
  message(STATUS "Serial ports: by Qt's own module, ${Qt6SerialPort_VERSION}")
elseif(BRIVON_SERIAL_ADAPTER STREQUAL "asio")
  message(STATUS "Serial ports: by Boost.Asio")
else()
  message(FATAL_ERROR "BRIVON_SERIAL_ADAPTER is \"${BRIVON_SERIAL_ADAPTER}\": expected qt or asio")
endif()

# Makes brivon_boost, on which the sources that include Boost's headers rest.
function(brivon_find_boost)
  if(TARGET brivon_boost)
    return()
  endif()
  # The headers are the same for every system: those of this machine do where others are built for.
  find_path(BRIVON_BOOST_FOLDER boost/asio/serial_port.hpp
    PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED
    DOC "The folder in which boost/asio/serial_port.hpp is (Debian: libboost-dev)")
  set(folder ${BRIVON_BOOST_FOLDER})
  if(CMAKE_CROSSCOMPILING)
    # Beside them are headers of this machine that are wrong there.
    set(folder ${CMAKE_BINARY_DIR}/boost_alone)
    file(MAKE_DIRECTORY ${folder})
    file(CREATE_LINK ${BRIVON_BOOST_FOLDER}/boost ${folder}/boost SYMBOLIC)
  endif()
  find_package(Threads REQUIRED)
  add_library(brivon_boost INTERFACE)
  target_include_directories(brivon_boost SYSTEM INTERFACE ${folder})
  target_link_libraries(brivon_boost INTERFACE Threads::Threads)
  if(WIN32)
    target_compile_definitions(brivon_boost INTERFACE _WIN32_WINNT=0x0A00)
    target_link_libraries(brivon_boost INTERFACE ws2_32 mswsock)
  endif()
endfunction()
