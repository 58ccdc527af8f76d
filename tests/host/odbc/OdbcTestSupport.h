// Databases and rows for the tests of the exchange store.
#pragma once

#include "AcUtText.h"
#include "CRecordset.h"
#include "OdbcInst.h"
#include "TestSupport.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

std::wstring accessConnect(const std::wstring& path);
std::wstring excelConnect(const std::wstring& path);
// A new, empty database; its path.
std::wstring newDatabase(const std::wstring& folder = testTempDir(), const std::wstring& name = L"a.mdb");

// Open from the start; fails the test where it cannot be opened.
class OpenDatabase : public CDatabase {
public:
    explicit OpenDatabase(const std::wstring& path) : OpenDatabase(path, accessConnect(path)) {}
    OpenDatabase(const std::wstring& path, const std::wstring& connect);
};

// The text of the exception that the action throws; a failure and empty text where it throws none.
std::wstring refusal(const std::function<void()>& action);
// The same of a statement.
std::wstring refusal(CDatabase& database, const std::wstring& sql);

using Rows = std::vector<std::vector<std::wstring>>;
// Every field as text, an empty one as "-".
Rows rowsOf(CDatabase& database, const std::wstring& sql);

// What the structural checker has against an Access file; empty for a sound one.
std::string violations(const std::wstring& path);

std::string fileBytes(const std::wstring& path);
void writeFile(const std::wstring& path, const std::string& bytes);
// What a command prints, without its errors.
std::string printed(const std::string& command);
