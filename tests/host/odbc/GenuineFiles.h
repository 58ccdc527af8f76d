// Databases that Access itself had made. They lie outside of the checkout; a test that needs them skips without.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace jettest {

// A row of the folder's index: what others counted in the file.
struct GenuineFile {
    std::string name; // of the file
    std::string path;
    bool jet3 = false;
    std::vector<std::pair<std::string, std::size_t>> tables; // with their rows
    std::size_t queries = 0, relations = 0;
};

// Empty where the folder is absent. KORVANT_DATABASES names another one.
std::vector<GenuineFile> genuineFiles();
// A copy of it in the test's own folder; empty where the folder is absent.
std::string copyOfGenuine(const std::string& name);

} // namespace jettest

#define SKIP_WITHOUT_GENUINE_FILES()                                                                                                                 \
    if (jettest::genuineFiles().empty())                                                                                                             \
    GTEST_SKIP() << "skipped: the folder of genuine databases is absent"
