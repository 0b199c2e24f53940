# SPDX-License-Identifier: MIT
# What every target of the house shares: warnings, strict Qt, precompiled headers, sanitizers.
add_library(tarnwick_options INTERFACE)
target_include_directories(tarnwick_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(tarnwick_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
  QT_NO_KEYWORDS QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400
  TARNWICK_VERSION="${PROJECT_VERSION}")
target_compile_options(tarnwick_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wno-sign-conversion -Werror)
# libpulse wants it; one compiled header serves only sources that agree on it.
target_compile_options(tarnwick_options INTERFACE -pthread)
if(TARNWICK_SANITIZE)
  target_compile_options(tarnwick_options INTERFACE -fsanitize=${TARNWICK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(tarnwick_options INTERFACE -fsanitize=${TARNWICK_SANITIZE})
endif()
if(TARNWICK_FUZZ)
  # The code under test as well: a fuzzer that does not see which way bytes take cannot find new ones.
  target_compile_options(tarnwick_options INTERFACE -fsanitize=fuzzer-no-link,address)
  target_link_options(tarnwick_options INTERFACE -fsanitize=address)
endif()

# One precompiled header serves every target that names the same one: each is 300 MB. So what it was compiled with must not
# differ between targets, and Qt Test's definitions, which name each target's own folder, go.
set_target_properties(Qt6::Test PROPERTIES INTERFACE_COMPILE_DEFINITIONS QT_TESTLIB_LIB)
function(tarnwick_precompile target header)
  if(TARNWICK_PCH)
    get_property(first GLOBAL PROPERTY tarnwick_precompiled_${header})
    if(first)
      target_precompile_headers(${target} REUSE_FROM ${first})
    else()
      target_precompile_headers(${target} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/${header})
      set_property(GLOBAL PROPERTY tarnwick_precompiled_${header} ${target})
    endif()
  endif()
endfunction()

# One static library per folder of src/; the targets it links are the folders that it may include.
function(tarnwick_folder name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(tarnwick_${name} STATIC ${ARG_SOURCES})
  target_link_libraries(tarnwick_${name} PUBLIC tarnwick_options ${ARG_LINK})
  tarnwick_precompile(tarnwick_${name} precompiled.h)
endfunction()

# One test executable per folder of tests/; runs on the offscreen platform unless it says otherwise. With LABEL session it
# runs in a virtual desktop of its own; DESKTOP gives that desktop's options, tarnwick_session adds further desktops.
function(tarnwick_test name)
  cmake_parse_arguments(ARG "" "LABEL;TIMEOUT" "SOURCES;LINK;DESKTOP" ${ARGN})
  if(NOT ARG_LABEL)
    set(ARG_LABEL fast)
  endif()
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 300)
  endif()
  add_executable(test_${name} ${ARG_SOURCES})
  target_link_libraries(test_${name} PRIVATE tarnwick_test_support ${ARG_LINK})
  tarnwick_precompile(test_${name} precompiled_test.h)
  if(ARG_LABEL STREQUAL fast)
    add_test(NAME ${name} COMMAND test_${name})
    set_tests_properties(${name} PROPERTIES LABELS fast TIMEOUT ${ARG_TIMEOUT}
      ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_LOGGING_RULES=qt.qpa.*=false;LC_ALL=C.UTF-8;QT_QPA_PLATFORMTHEME=;TZ=Europe/Berlin")
  elseif(ARG_LABEL STREQUAL session)
    tarnwick_session(${name} DESKTOP ${ARG_DESKTOP} COMMAND $<TARGET_FILE:test_${name}>)
  endif()
endfunction()

# A test that runs a command in the virtual desktop. Two processors each: sessions do not crowd one another out.
function(tarnwick_session name)
  cmake_parse_arguments(ARG "" "TIMEOUT" "DESKTOP;COMMAND" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/tests/session/desktop ${ARG_DESKTOP} -- ${ARG_COMMAND})
  set_tests_properties(${name} PROPERTIES LABELS session TIMEOUT ${ARG_TIMEOUT} PROCESSORS 2
    ENVIRONMENT "LC_ALL=C.UTF-8;TZ=Europe/Berlin")
endfunction()
