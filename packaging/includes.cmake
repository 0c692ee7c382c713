# SPDX-License-Identifier: MIT
#
# Refuses an include that the architecture does not allow: one with "..", or one from a room to a room that it must not
# know. The build runs it before it compiles.
# Usage: cmake -D ROOT=FOLDER -P includes.cmake

# A room, and the rooms and headers whose files it may include. What no row allows is refused.
set(rules
  core/platform.h        " "
  core/screen/           "platform|screen"
  core/home/             "platform|screen|home"
  core/exercise/         "platform|screen|exercise"
  core/modes/            "platform|screen|exercise|modes"
  core/challenge/        "platform|screen|exercise|challenge"
  core/results/          "platform|screen|challenge|results"
  core/program           "platform|screen|program"
  core/screens           "program|home|exercise|modes|challenge|results|screens"
  frontends/timer_queue  "platform|timer_queue"
  frontends/enumerator_names "platform"
  frontends/shared_variables "platform|screen|program|shared_variables"
  frontends/recording/   "platform|screen|program|screens|timer_queue|enumerator_names|shared_variables|recording"
  frontends/web/         "platform|screen|program|screens|timer_queue|enumerator_names|shared_variables|web"
  frontends/qt/          "platform|screens|timer_queue|qt")

function(refuse_includes file allowed)
  file(STRINGS ${ROOT}/${file} includes REGEX "^[ \t]*#[ \t]*include[ \t]*[\"<]")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "^[^\"<]*[\"<]([^\">]*).*" "\\1" header "${include}")
    if(include MATCHES "\"|\\.\\." OR EXISTS ${ROOT}/core/${header} OR EXISTS ${ROOT}/frontends/${header})
      if(NOT header MATCHES "^(${allowed})(/[^.]*)?\\.h$")
        message(FATAL_ERROR "${file} must not include ${header}: see packaging/includes.cmake")
      endif()
    endif()
  endforeach()
endfunction()

function(check file)
  set(rest ${rules})
  while(rest)
    list(POP_FRONT rest room allowed)
    string(FIND ${file} ${room} at)
    if(at EQUAL 0)
      refuse_includes(${file} "${allowed}")
      return()
    endif()
  endwhile()
  message(FATAL_ERROR "${file} is in no room: see packaging/includes.cmake")
endfunction()

file(GLOB_RECURSE files RELATIVE ${ROOT}
  ${ROOT}/core/*.h ${ROOT}/core/*.cpp ${ROOT}/frontends/*.h ${ROOT}/frontends/*.cpp)
foreach(file IN LISTS files)
  check(${file})
endforeach()
