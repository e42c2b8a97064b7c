# Embeds the files of a folder into a program as an assembler file and the table that names them.
#
#   cmake -DFOLDER=... -DOUTPUT=... -P assets.cmake
#
# A file F.gz beside F is the content that is embedded for F; where it is missing it is made. Writes OUTPUT.S and
# OUTPUT.cpp.

set(type_html "text/html; charset=utf-8")
set(type_js "text/javascript; charset=utf-8")
set(type_css "text/css; charset=utf-8")
set(type_txt "text/plain; charset=utf-8")
set(type_json "application/json")
set(type_svg "image/svg+xml")
set(type_png "image/png")
set(type_woff2 "font/woff2")

file(GLOB_RECURSE files LIST_DIRECTORIES false RELATIVE ${FOLDER} ${FOLDER}/*)
list(FILTER files EXCLUDE REGEX "\\.gz$")
list(SORT files)
set(assembler ".section .rodata\n")
set(names "")
set(rows "")
set(number 0)
foreach(file ${files})
  string(REGEX REPLACE ".*\\." "" extension ${file})
  if(NOT DEFINED type_${extension})
    message(FATAL_ERROR "${file}: the content type of this kind of file is not known.")
  endif()
  set(packed ${FOLDER}/${file}.gz)
  if(NOT EXISTS ${packed})
    set(packed ${OUTPUT}.${number}.gz)
    execute_process(COMMAND gzip -9 -n -c ${FOLDER}/${file} OUTPUT_FILE ${packed} COMMAND_ERROR_IS_FATAL ANY)
  endif()
  file(SHA256 ${packed} hash)
  string(SUBSTRING ${hash} 0 20 tag)
  set(symbol qv_asset_${number})
  string(APPEND assembler "# ${hash}\n.global ${symbol}\n${symbol}:\n.incbin \"${packed}\"\n"
         ".global ${symbol}_end\n${symbol}_end:\n")
  string(APPEND names "extern const char ${symbol}[], ${symbol}_end[];\n")
  string(APPEND rows "      {\"/${file}\", \"${type_${extension}}\", \"${tag}\", {${symbol}, "
         "static_cast<std::size_t>(${symbol}_end - ${symbol})}},\n")
  math(EXPR number "${number} + 1")
endforeach()
file(WRITE ${OUTPUT}.S "${assembler}.section .note.GNU-stack,\"\",%progbits\n")
file(WRITE ${OUTPUT}.cpp "#include \"hosts/web/assets.h\"

extern \"C\" {
${names}}

namespace qv {

std::span<const Asset> EmbeddedAssets() {
  static const Asset assets[] = {
${rows}  };
  return assets;
}

}  // namespace qv
")
