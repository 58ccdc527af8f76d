// Small helpers of the shell layer's tests: bytes to and from files, environment, printed text.
#pragma once

#include "AcUtText.h"
#include "TestSupport.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

inline void writeBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}
inline std::string readBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

class EnvironmentValue { // sets one variable for the length of a test
public:
    EnvironmentValue(const char* name, const char* value) : mName(name) {
        if (const char* present = getenv(name))
            mEarlier = present, mHad = true;
        value != nullptr ? setenv(name, value, 1) : unsetenv(name);
    }
    ~EnvironmentValue() { mHad ? setenv(mName.c_str(), mEarlier.c_str(), 1) : unsetenv(mName.c_str()); }

private:
    std::string mName, mEarlier;
    bool mHad = false;
};

class PrintedText { // what was printed to the command line during a test
public:
    PrintedText() : mEarlier(acSetPrintSink([this](std::wstring_view piece) { text += piece; })) {}
    ~PrintedText() { acSetPrintSink(mEarlier); }
    std::wstring text;

private:
    AcPrintSink mEarlier;
};
