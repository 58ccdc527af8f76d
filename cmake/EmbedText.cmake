# Writes a text file as a C++ source: cmake -DIN=... -DOUT=... -DSYMBOL=... -P EmbedText.cmake
file(READ "${IN}" hex HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
string(REGEX REPLACE "(0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],)" "\\1\n" bytes "${bytes}")
file(WRITE "${OUT}" "// Made from a text file at build time.\n#include <cstddef>\nnamespace {\nconst unsigned char kBytes[] = {\n${bytes}0};\n}\n"
     "extern const char* const ${SYMBOL};\nextern const std::size_t ${SYMBOL}_size;\n"
     "const char* const ${SYMBOL} = reinterpret_cast<const char*>(kBytes);\nconst std::size_t ${SYMBOL}_size = sizeof kBytes - 1;\n")
