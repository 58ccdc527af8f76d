// librarycheck LIBRARY: names every drawing of a block library that does not stand as its sort must. The module
// stacks plates and lamps upward from their insertion points and lays overlays over what it measured there, so a
// symbol that stands elsewhere is drawn beside its post and its overlay beside the symbol. Exit status 0: all
// stand right, 1: some do not, 2: wrong usage, 3: the library cannot be read.
#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcPath.h"
#include "DwgCodec.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace {
namespace fs = std::filesystem;

enum class Stand {
    kAbove, // on its insertion point: plates and lamps
    kBelow, // hanging from it: markings
    kAbout, // around it: feet of posts
    kUnit,  // overlays, one unit wide and high, on it
};

// The first row whose folder and beginning of a file name fit decides. Other folders are nobody's symbols.
struct Sort {
    const char* folder;
    const char* name;
    Stand stand;
};
constexpr Sort kSorts[] = {
    {"Táblák", "", Stand::kAbove},
    {"Lámpák", "", Stand::kAbove},
    {"Burkolati jelek", "", Stand::kBelow},
    {"Oszlopkönyvtár", "", Stand::kAbout},
    {"Szimbólumok", "TrfcTable", Stand::kUnit},
    {"Szimbólumok", "TrfcPostBase", Stand::kAbout},
    {"Szimbólumok", "TrfcBlockDefault", Stand::kBelow},
    {"Szimbólumok", "", Stand::kAbove},
};

const Sort* sortOf(const fs::path& relative) {
    const std::string folder = relative.begin()->string(), name = relative.filename().string();
    const auto fits = [&](const Sort& sort) { return folder == sort.folder && name.starts_with(sort.name); };
    const Sort* const found = std::find_if(std::begin(kSorts), std::end(kSorts), fits);
    return found != std::end(kSorts) ? found : nullptr;
}

constexpr double kSlack = 0.001; // of the symbol's longer side; drawn coordinates are rounded

// Empty if the extents stand right, otherwise what is wrong with them.
std::string faultOf(Stand stand, const AcDbExtents& extents) {
    const AcGePoint3d low = extents.minPoint(), high = extents.maxPoint();
    const double slack = kSlack * std::max(high.x - low.x, high.y - low.y);
    const auto differ = [slack](double a, double b) { return std::abs(a - b) > slack; };
    std::string fault;
    if (differ(low.x, -high.x))
        fault = "its middle is not above its insertion point";
    else if ((stand == Stand::kAbove || stand == Stand::kUnit) && low.y < -slack)
        fault = "it reaches below its insertion point";
    else if (stand == Stand::kBelow && high.y > slack)
        fault = "it reaches above its insertion point";
    else if (stand == Stand::kAbout && differ(low.y, -high.y))
        fault = "its middle is not on its insertion point";
    else if (stand == Stand::kUnit && (differ(low.x, -0.5) || differ(low.y, 0.0) || differ(high.y, 1.0)))
        fault = "an overlay is one unit wide and high";
    if (fault.empty())
        return fault;
    char measured[200];
    std::snprintf(measured, sizeof(measured), " (from %g,%g to %g,%g)", low.x, low.y, high.x, high.y);
    return fault + measured;
}

// Measured as the module measures a symbol: the extents of a reference to it, attribute definitions left out.
std::string faultOf(Stand stand, const fs::path& drawing) {
    AcDbDatabase database(false, true);
    if (database.readDwgFile(acHostPath(drawing.string()).c_str()) != Acad::eOk)
        return "it cannot be read";
    AcDbExtents extents;
    if (AcDbBlockReference({}, database.modelSpaceId()).getGeomExtents(extents) != Acad::eOk)
        return "it shows nothing";
    return faultOf(stand, extents);
}

std::vector<fs::path> drawingsOf(const fs::path& library) {
    std::vector<fs::path> drawings;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(library))
        if (entry.is_regular_file() && entry.path().extension() == ".dwg")
            drawings.push_back(fs::relative(entry.path(), library));
    std::sort(drawings.begin(), drawings.end());
    return drawings;
}
} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Usage: librarycheck LIBRARY\n");
        return 2;
    }
    dwgInstallCodec();
    try {
        int checked = 0, wrong = 0;
        for (const fs::path& drawing : drawingsOf(argv[1])) {
            const Sort* const sort = sortOf(drawing);
            if (sort == nullptr)
                continue;
            ++checked;
            const std::string fault = faultOf(sort->stand, argv[1] / drawing);
            wrong += fault.empty() ? 0 : 1;
            if (!fault.empty())
                std::printf("%s: %s\n", drawing.c_str(), fault.c_str());
        }
        std::printf("%d drawings, %d stand the wrong way\n", checked, wrong);
        return wrong == 0 ? 0 : 1;
    } catch (const fs::filesystem_error& error) {
        std::fprintf(stderr, "librarycheck: %s\n", error.what());
        return 3;
    }
}
