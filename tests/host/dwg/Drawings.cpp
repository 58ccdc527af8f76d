// Finds the folder of foreign drawings and reads its index.
#include "Drawings.h"

#include "TestSupport.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

std::string drawingsFolder() {
    const char* named = std::getenv("KORVANT_DRAWINGS");
    const std::string folder = named != nullptr ? named : testSourceDir() + "/../shared/drawings";
    return std::filesystem::exists(folder + "/INDEX.tsv") ? folder : std::string();
}

std::vector<IndexedDrawing> indexedDrawings(const std::string& version) {
    std::vector<IndexedDrawing> drawings;
    std::ifstream index(drawingsFolder() + "/INDEX.tsv");
    std::string line;
    std::getline(index, line); // headings
    while (std::getline(index, line)) {
        std::istringstream cells(line);
        IndexedDrawing drawing;
        std::string bytes, model, paper, blocks;
        std::getline(cells, drawing.path, '\t');
        std::getline(cells, drawing.version, '\t');
        std::getline(cells, bytes, '\t');
        std::getline(cells, model, '\t');
        std::getline(cells, paper, '\t');
        std::getline(cells, blocks, '\t');
        std::getline(cells, drawing.modelByType, '\t');
        drawing.path = drawingsFolder() + "/" + drawing.path;
        drawing.modelEntities = std::atoi(model.c_str());
        drawing.paperEntities = std::atoi(paper.c_str());
        drawing.blockEntities = std::atoi(blocks.c_str());
        if (version.empty() || drawing.version == version)
            drawings.push_back(drawing);
    }
    return drawings;
}

std::vector<unsigned char> fileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void writeBytes(const std::string& path, const std::vector<unsigned char>& bytes) {
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}
