#include "GenuineFiles.h"

#include "JetTestSupport.h"
#include "TestSupport.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace jettest {

namespace {
std::string folder() {
    const char* named = std::getenv("KORVANT_DATABASES");
    return named != nullptr ? named : testSourceDir() + "/../shared/databases";
}
} // namespace

std::vector<GenuineFile> genuineFiles() {
    std::vector<GenuineFile> files;
    std::ifstream index(folder() + "/INDEX.tsv");
    std::string line;
    std::getline(index, line); // headings
    while (std::getline(index, line)) {
        std::istringstream cells(line);
        GenuineFile file;
        std::string version, bytes, tables, queries, relations;
        std::getline(cells, file.name, '\t');
        std::getline(cells, version, '\t');
        std::getline(cells, bytes, '\t');
        std::getline(cells, tables, '\t');
        std::getline(cells, queries, '\t');
        std::getline(cells, relations, '\t');
        file.path = folder() + "/" + file.name;
        file.jet3 = version == "JET3";
        std::istringstream list(tables);
        for (std::string entry; list >> entry;)
            file.tables.emplace_back(entry.substr(0, entry.rfind(':')), std::stoul(entry.substr(entry.rfind(':') + 1)));
        file.queries = std::stoul(queries);
        file.relations = std::stoul(relations);
        files.push_back(file);
    }
    return files;
}

std::string copyOfGenuine(const std::string& name) {
    const std::string from = folder() + "/" + name;
    if (!std::filesystem::exists(from))
        return {};
    const std::string to = newFile("genuine.mdb");
    std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing);
    std::filesystem::permissions(to, std::filesystem::perms::owner_write, std::filesystem::perm_options::add);
    return to;
}

} // namespace jettest
