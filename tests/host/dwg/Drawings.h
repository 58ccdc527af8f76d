// The folder of foreign drawings that the tests read; it is not shipped, so tests skip without it.
#pragma once

#include <string>
#include <vector>

struct IndexedDrawing {
    std::string path, version, modelByType;
    int modelEntities = 0, paperEntities = 0, blockEntities = 0;
};
// The folder: KORVANT_DRAWINGS, or the one beside the project; empty when there is none.
std::string drawingsFolder();
// The rows of its index; only those of that version when one is named.
std::vector<IndexedDrawing> indexedDrawings(const std::string& version = {});
std::vector<unsigned char> fileBytes(const std::string& path);
void writeBytes(const std::string& path, const std::vector<unsigned char>& bytes);

#define SKIP_WITHOUT_DRAWINGS()                                                                                        \
    if (drawingsFolder().empty())                                                                                      \
    GTEST_SKIP() << "skipped: no folder of drawings"
