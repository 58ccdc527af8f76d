// "ODBC;DRIVER={name};DBQ=path;..." taken apart.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace odbc {

class ConnectString {
public:
    // A leading "ODBC;" is dropped. A value may stand in braces, a closing one inside doubled. Pieces without
    // "=" and empty ones are dropped.
    explicit ConnectString(std::wstring_view text);
    // The value of a key, whatever its case; empty where it is not given. An empty value in apostrophes
    // is empty.
    std::wstring value(std::wstring_view key) const;
    bool isTrue(std::wstring_view key) const; // TRUE, YES or another number than 0
    void set(std::wstring_view key, std::wstring_view value);
    // For the driver manager: without the empty values.
    std::wstring text() const;

private:
    std::vector<std::pair<std::wstring, std::wstring>> mPairs;
};

} // namespace odbc
