# The two kinds of target of the house: a room (static library) and a test program.

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
add_compile_definitions(QT_NO_KEYWORDS QT_NO_CAST_FROM_BYTEARRAY QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(DALVORA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()
find_program(MOLD mold)
if(MOLD AND NOT CMAKE_CROSSCOMPILING)
  add_link_options(-fuse-ld=mold)
endif()
# Symbols are bound at once: cheaper at the start than one by one at their first call, and their table is
# read-only from then on.
if(UNIX)
  add_link_options(-Wl,-z,relro,-z,now)
endif()

# dalvora_room(name SOURCES files... PUBLIC libs... PRIVATE libs...)
# Headers are included by their path from the project's root.
function(dalvora_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  add_library(${name} STATIC ${ROOM_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ROOM_PUBLIC} PRIVATE ${ROOM_PRIVATE})
endfunction()

# dalvora_module(name SOURCES files... LINK libs...)
# A part of the program that is loaded when it is first used, from the folder "quorvane" beside the program.
function(dalvora_module name)
  cmake_parse_arguments(MODULE "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} MODULE ${MODULE_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${MODULE_LINK})
  set_target_properties(${name} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin/quorvane)
endfunction()

# dalvora_surroundings(test seconds)
# What every test runs in: no screen, a language, at most so many seconds. Windows draws on its own screen, since
# elsewhere its programs would have no fonts.
function(dalvora_surroundings test seconds)
  set(platform offscreen)
  if(WIN32)
    set(platform windows)
  endif()
  set_tests_properties(${test} PROPERTIES TIMEOUT ${seconds}
    ENVIRONMENT "QT_QPA_PLATFORM=${platform};LC_ALL=C.UTF-8;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()

# dalvora_test(name [GUI] [TIMEOUT seconds] SOURCES files... [POSIX files...] LINK libs... [POSIX_LINK libs...])
# GUI tests get a QApplication, the others a QCoreApplication. What stands behind POSIX needs a database server, other
# processes' signals or the like and is left out of the Windows tests.
function(dalvora_test name)
  cmake_parse_arguments(CASE "GUI" "TIMEOUT" "SOURCES;POSIX;LINK;POSIX_LINK" ${ARGN})
  if(NOT WIN32)
    list(APPEND CASE_SOURCES ${CASE_POSIX})
    list(APPEND CASE_LINK ${CASE_POSIX_LINK})
  endif()
  if(CASE_GUI)
    set(main_source ${PROJECT_SOURCE_DIR}/tests/support/GuiTestMain.cpp)
    set(main_libraries Qt6::Widgets Qt6::Test)
  else()
    set(main_source ${PROJECT_SOURCE_DIR}/tests/support/CoreTestMain.cpp)
    set(main_libraries Qt6::Core)
  endif()
  add_executable(${name} ${CASE_SOURCES} ${main_source})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests/bin)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE GTest::gtest GTest::gmock ${main_libraries} ${CASE_LINK})
  add_test(NAME ${name} COMMAND ${name})
  if(NOT CASE_TIMEOUT)
    set(CASE_TIMEOUT 300)
  endif()
  dalvora_surroundings(${name} ${CASE_TIMEOUT})
endfunction()
