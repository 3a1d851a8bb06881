# Writes a C++ file with the texts of the page:
#   cmake -DOUTPUT=FILE.cc -DMODULES="a.js;b.js" -P embed.cmake
# The modules become one script: in the order given, without their import statements and the word
# export. So their top-level names must differ, and each must come after those that it uses while it
# is loaded. Comments that have lines of their own, and blanks at the beginning of lines, are left
# out, so no text may go over several lines.
function(without_comments variable)
  string(REGEX REPLACE "\n *(//|/?\\*)[^\n]*" "" text "\n${${variable}}")
  string(REGEX REPLACE "\n[ \n]+" "\n" text "${text}")
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

set(page ${CMAKE_CURRENT_LIST_DIR}/page)
set(script "")
foreach(module ${MODULES})
  file(READ ${page}/${module} text)
  string(REGEX REPLACE "\nimport [^;]*;" "" text "\n${text}")
  string(REGEX REPLACE "\nexport " "\n" text "${text}")
  string(APPEND script "${text}")
endforeach()
without_comments(script)
# No text of the page has these: blanks around operators, after keywords and in braces, semicolons
# in front of braces, and ends of lines.
string(REGEX REPLACE " (=|=>|===|!==|&&|\\|\\||\\?|\\?\\?|:|<|>|<=|>=|\\+=|\\+) " "\\1" script "${script}")
string(REPLACE "{ " "{" script "${script}")
string(REPLACE " }" "}" script "${script}")
string(REPLACE ") {" "){" script "${script}")
string(REGEX REPLACE "\n(if|for|while) \\(" "\n\\1(" script "${script}")
string(REGEX REPLACE ",\n([])}])" "\\1" script "${script}")
string(REGEX REPLACE "([({,;])\n" "\\1" script "${script}")
string(REPLACE ";}" "}" script "${script}")
file(READ ${page}/page.css style)
without_comments(style)
string(REPLACE ": " ":" style "${style}")
string(REPLACE " {" "{" style "${style}")
string(REGEX REPLACE "([{,;])\n" "\\1" style "${style}")
string(REPLACE ";}" "}" style "${style}")
file(READ ${page}/page.html frame)
file(WRITE ${OUTPUT}.new "#include \"docs/texts.h\"

namespace Zelk::Tool::Docs {

const std::string_view kFrame = R\"zelk(${frame})zelk\";
const std::string_view kStyle = R\"zelk(${style})zelk\";
const std::string_view kScript = R\"zelk(${script})zelk\";

}  // namespace Zelk::Tool::Docs
")
file(RENAME ${OUTPUT}.new ${OUTPUT})
