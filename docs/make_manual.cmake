# Makes the manual's pages: the folder OUTPUT, anew, with manual.html, the page of the protocol that
# it points to, their style and pictures, and in chapters/ a page for each chapter that leads there.
# CMARK is the converter, SOURCE the folder of the texts. Headings get the anchors that the texts'
# own links name, which are those of the places where such texts are usually read.
cmake_minimum_required(VERSION 3.25)

# The anchor of a heading, by its HTML: small letters, digits, "_", and "-" for each blank.
function(anchor_of heading out)
  string(REGEX REPLACE "<[^>]*>|&[a-z]+[;]" "" text "${heading}")
  string(TOLOWER "${text}" text)
  string(REGEX REPLACE "[^a-z0-9 _-]" "" text "${text}")
  string(REPLACE " " "-" text "${text}")
  set(${out} "${text}" PARENT_SCOPE)
endfunction()

# Gives the headings of `html` their anchors; the anchors go into the list `anchors_out`.
function(add_anchors html html_out anchors_out)
  set(done "")
  set(anchors "")
  while(html MATCHES "<h([1-6])>([^\n]*)</h[1-6]>")
    set(heading "${CMAKE_MATCH_0}")
    set(level ${CMAKE_MATCH_1})
    set(title "${CMAKE_MATCH_2}")
    anchor_of("${title}" anchor)
    if(anchor IN_LIST anchors)
      message(FATAL_ERROR "Two headings have the anchor ${anchor}")
    endif()
    list(APPEND anchors ${anchor})
    string(FIND "${html}" "${heading}" at)
    string(LENGTH "${heading}" length)
    string(SUBSTRING "${html}" 0 ${at} before)
    math(EXPR behind "${at} + ${length}")
    string(SUBSTRING "${html}" ${behind} -1 html)
    string(APPEND done "${before}<h${level} id=\"${anchor}\">${title}</h${level}>")
  endwhile()
  set(${html_out} "${done}${html}" PARENT_SCOPE)
  set(${anchors_out} ${anchors} PARENT_SCOPE)
endfunction()

function(write_page path title head body)
  file(WRITE ${path} "<!DOCTYPE html>
<html lang=\"en\">
<head>
<meta charset=\"utf-8\">
<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">
<meta name=\"color-scheme\" content=\"light dark\">
<title>${title}</title>
${head}
</head>
<body>
${body}</body>
</html>
")
endfunction()

file(REMOVE_RECURSE ${OUTPUT})
file(COPY ${SOURCE}/manual.css DESTINATION ${OUTPUT})
foreach(page protocol_and_files manual)
  execute_process(COMMAND ${CMARK} --extension table ${SOURCE}/${page}.md
    OUTPUT_VARIABLE html COMMAND_ERROR_IS_FATAL ANY)
  add_anchors("${html}" html anchors)
  # The texts point to each other.
  string(REGEX REPLACE "href=\"(manual|protocol_and_files)\\.md" "href=\"\\1.html" html "${html}")
  string(REGEX MATCH "<h1 [^>]*>([^\n]*)</h1>" heading "${html}")
  write_page(${OUTPUT}/${page}.html "${CMAKE_MATCH_1} - Brivon"
    "<link rel=\"stylesheet\" href=\"manual.css\">" "${html}")
  string(REGEX MATCHALL "src=\"pictures/[^\"]*\"" pictures "${html}")
  foreach(picture IN LISTS pictures)
    string(REGEX REPLACE "src=\"(.*)\"" "\\1" picture "${picture}")
    file(COPY ${SOURCE}/${picture} DESTINATION ${OUTPUT}/pictures)
  endforeach()
endforeach()

# `anchors` are the manual's, which came last.
foreach(anchor IN LISTS anchors)
  write_page(${OUTPUT}/chapters/${anchor}.html "The operator's manual - Brivon"
    "<meta http-equiv=\"refresh\" content=\"0; url=../manual.html#${anchor}\">"
    "<p><a href=\"../manual.html#${anchor}\">The operator's manual</a></p>\n")
endforeach()
