# Makes the page PAGE of the chapter CHAPTER with the tool LOWDOWN.
execute_process(COMMAND ${LOWDOWN} -thtml --parse-no-metadata --html-no-owasp --out-no-smarty ${CHAPTER}
                OUTPUT_VARIABLE chapter COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "href=\"([a-z_]+)[.]md" "href=\"\\1.html" chapter "${chapter}")

string(REGEX MATCH "<h1[^>]*>([^\n]*)</h1>\n(.*)" whole "${chapter}")
set(title "${CMAKE_MATCH_1}")
set(body "${CMAKE_MATCH_2}")

# Its sections, to leap to.
string(REGEX MATCHALL "<h2[^\n]*</h2>" headings "${body}")
foreach(heading IN LISTS headings)
  string(REGEX REPLACE "<h2 id=\"([^\"]*)\">(.*)</h2>" "<li><a href=\"#\\1\">\\2</a></li>\n" entry "${heading}")
  string(APPEND sections "${entry}")
endforeach()

configure_file(${CMAKE_CURRENT_LIST_DIR}/page.html.in ${PAGE} @ONLY)
