# Makes a C++ file that holds files as text: the function pageFiles() of scanhost/view/PageFiles.h.
# cmake -D OUTPUT=file.cpp -D FILES=file|file... -P EmbedFiles.cmake
string(REPLACE "|" ";" files "${FILES}")
set(code "#include \"view/PageFiles.h\"\n\n#include <array>\n\nnamespace ScanHost {\n\nnamespace {\n\n")
set(entries "")
set(count 0)
foreach(file IN LISTS files)
  file(READ "${file}" text)
  cmake_path(GET file FILENAME name)
  # A literal ends at its own mark; nothing else in it has a meaning.
  string(FIND "${text}" ")embedded\"" mark)
  if(NOT mark EQUAL -1)
    message(FATAL_ERROR "${file} cannot be embedded: it holds the end of a literal")
  endif()
  string(APPEND code "constexpr char kText${count}[] = R\"embedded(${text})embedded\";\n\n")
  string(APPEND entries "    {\"${name}\", {kText${count}, sizeof kText${count} - 1}},\n")
  math(EXPR count "${count} + 1")
endforeach()
string(APPEND code "constexpr std::array<PageFile, ${count}> kFiles{{\n${entries}}};\n\n}  // namespace\n\n"
  "std::span<const PageFile> pageFiles() {\n    return kFiles;\n}\n\n}  // namespace ScanHost\n")
file(WRITE "${OUTPUT}" "${code}")
