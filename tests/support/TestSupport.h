// What every test program shares: temporary folders and the check that no object stays open.
#pragma once

#include <string>

// A fresh folder of its own for the running test, removed when the program ends. Host path.
std::wstring testTempDir();
// The same as a file-system path.
std::string testTempPath();
// The checkout that the tests were built from, and its build folder; file-system paths.
const std::string& testSourceDir();
const std::string& testBuildDir();
