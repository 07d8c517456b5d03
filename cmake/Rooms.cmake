# Compiler settings that every target shares, and the two ways to make one.

add_library(zlt_settings INTERFACE)
target_compile_features(zlt_settings INTERFACE cxx_std_20)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(zlt_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${ZLT_WARNINGS_AS_ERRORS}>:-Werror>)
endif()
# No "foo" + QString surprises, and nothing that Qt has given up.
target_compile_definitions(zlt_settings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(WIN32)
  # Windows 10 and later; no macros called min and max.
  target_compile_definitions(zlt_settings INTERFACE
    _WIN32_WINNT=0x0A00 NOMINMAX WIN32_LEAN_AND_MEAN)
endif()

if(ZLT_FUZZ)
  target_compile_options(zlt_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(ZLT_SANITIZE)
  target_compile_options(zlt_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zlt_settings INTERFACE -fsanitize=address,undefined)
endif()

# zlt_system_sources(VARIABLE POSIX files... WINDOWS files...): those of the system that is built for.
function(zlt_system_sources variable)
  cmake_parse_arguments(SYSTEM "" "" "POSIX;WINDOWS" ${ARGN})
  if(WIN32)
    set(${variable} ${SYSTEM_WINDOWS} PARENT_SCOPE)
  else()
    set(${variable} ${SYSTEM_POSIX} PARENT_SCOPE)
  endif()
endfunction()

# zlt_room(NAME [LINK libraries...] [SOURCES files...])
# One static library for one folder; LINK names the libraries below it. Its headers are included as
# "folder/File.h", and found only by those that link it: each library has an include folder of its
# own, in the build, with a header for each of its headers that leads to the one in the source.
function(zlt_room name)
  cmake_parse_arguments(ROOM "" "" "LINK;SOURCES" ${ARGN})
  add_library(${name} STATIC ${ROOM_SOURCES})
  target_link_libraries(${name} PUBLIC zlt_settings ${ROOM_LINK})
  zlt_lend_headers(${name})
endfunction()

# zlt_lend_headers(TARGET): the headers of the present folder, to TARGET and to all that link it.
function(zlt_lend_headers target)
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  set(include_folder ${PROJECT_BINARY_DIR}/include/${target})
  file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} *.h)
  foreach(header IN LISTS headers)
    file(CONFIGURE OUTPUT ${include_folder}/${folder}/${header}
      CONTENT "#include \"${CMAKE_CURRENT_SOURCE_DIR}/${header}\"\n")
  endforeach()
  target_include_directories(${target} PUBLIC ${include_folder})
endfunction()

# zlt_forms(NAME ...): the same for a folder with Qt classes. A form's .ui stands beside its .cpp;
# its header is made by a command of its own, so that the build knows who includes it.
function(zlt_forms name)
  zlt_room(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  # What Qt's compiler makes is not this project's to lint: one check, since none is an error.
  file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/.clang-tidy
    "Checks: '-*,misc-definitions-in-headers'\n")
  cmake_parse_arguments(ROOM "" "" "LINK;SOURCES" ${ARGN})
  set(forms ${ROOM_SOURCES})
  list(TRANSFORM forms REPLACE "\\.(cpp|h)$" ".ui")
  foreach(form IN LISTS forms)
    if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${form})
      qt6_wrap_ui(headers ${form})
      target_sources(${name} PRIVATE ${headers})
      target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
    endif()
  endforeach()
endfunction()
