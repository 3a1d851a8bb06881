# Writes a C++ file with the texts of the page:
#   cmake -DOUTPUT=FILE.cc -DBUNDLED=FOLDER -P embed.cmake
# FOLDER has the bundled script main.js and the style page.css.
file(READ ${CMAKE_CURRENT_LIST_DIR}/page/page.html frame)
file(READ ${BUNDLED}/page.css style)
file(READ ${BUNDLED}/main.js script)
file(WRITE ${OUTPUT} "#include \"docs/texts.h\"

namespace Zelk::Tool::Docs {

const std::string_view kFrame = R\"zelk(${frame})zelk\";
const std::string_view kStyle = R\"zelk(${style})zelk\";
const std::string_view kScript = R\"zelk(${script})zelk\";

}  // namespace Zelk::Tool::Docs
")
