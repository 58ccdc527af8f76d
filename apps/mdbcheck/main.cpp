// mdbcheck FILE: prints every rule of the Access file format (Jet 4) that the file breaks. Exit
// status 0: clean, 1: rules are broken, 2: wrong usage, 3: the file cannot be opened.
#include "rules/JetCheck.h"
#include "store/StoreTable.h"

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Usage: mdbcheck FILE\n");
        return 2;
    }
    try {
        const std::vector<odbc::JetViolation> found = odbc::checkJet(argv[1]);
        for (const odbc::JetViolation& violation : found)
            std::printf("page %u: %s\n", static_cast<unsigned>(violation.page), violation.text.c_str());
        return found.empty() ? 0 : 1;
    } catch (const odbc::StoreError& error) {
        std::fprintf(stderr, "mdbcheck: %s\n", error.what());
        return 3;
    }
}
