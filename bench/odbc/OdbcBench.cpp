// The exchange store against the command-line shell of SQLite, in one run: the same 150,000 literal
// INSERT statements, read from the same file, by the shell into memory and by CDatabase into an Access file
// and (as many as a sheet takes) a workbook, both written at close. Then the Access file is
// read back and every row selected by OBJ_ID in 40,000 statements. Prints times and peak memory.
#include "AcUtText.h"
#include "CRecordset.h"
#include "OdbcInst.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>
#include <sys/resource.h>
#include <unistd.h>

namespace {
constexpr int kRows = 150000, kObjects = 40000, kSheetRows = 65535;
constexpr const char* kCreate =
    "CREATE TABLE TABLA (ID NUMBER, OBJ_ID NUMBER, TIPUS TEXT, CSOPORT NUMBER, SORSZAM NUMBER, KIEG_SORSZAM NUMBER, KONYVTAR_TIP1 TEXT, "
    "KONYVTAR_TIP2 TEXT, PX NUMBER, PY NUMBER, ELTOLAS NUMBER, SZELESSEG NUMBER, MAGASSAG NUMBER, ELFORG NUMBER, LEPTEK NUMBER, KIHELY_TIP TEXT);";

double secondsOf(const auto& job) {
    const auto start = std::chrono::steady_clock::now();
    job();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void writeStatements(const std::string& path) {
    std::ofstream file(path);
    file << kCreate << '\n';
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(-1e6, 1e6), angle(0, 360);
    const char* const states[] = {"meglévő", "tervezett", "megszüntetendő", "letakart"};
    char line[1024];
    for (int i = 0; i < kRows; ++i) {
        const bool complement = i % 5 == 0;
        std::snprintf(line, sizeof line,
                      "INSERT INTO [TABLA] ([ID],[OBJ_ID],[TIPUS],[CSOPORT],[SORSZAM]%s,[KONYVTAR_TIP1],[KONYVTAR_TIP2],[PX],[PY],[ELTOLAS],[SZELESSEG],"
                      "[MAGASSAG],[ELFORG],[LEPTEK],[KIHELY_TIP]) VALUES (%d,%d,'%s',%d,%d%s,'Veszélyt jelző táblák\\A %d','A-%03d.dwg',%f,%f,%f,%f,%f,%f,%f,'%s');",
                      complement ? ",[KIEG_SORSZAM]" : "", i + 1, i % kObjects + 1, i % 7 == 0 ? "lámpa" : "tábla", i % 3 + 1, i % 4 + 1, complement ? ",2" : "",
                      i % 40, i % 200, place(random), place(random), 0.0, 0.6, 0.9, angle(random), 1.0, states[i % 4]);
        file << line << '\n';
    }
}

void runFile(const std::string& path, CDatabase& access, CDatabase& workbook) {
    std::ifstream file(path);
    std::string line;
    for (int count = 0; std::getline(file, line); ++count) {
        const std::wstring sql = acFromUtf8(line);
        access.ExecuteSQL(sql.c_str());
        if (count <= kSheetRows)
            workbook.ExecuteSQL(sql.c_str());
    }
}

int selectAll(CDatabase& database) {
    int rows = 0;
    CDBVariant value;
    for (int object = 1; object <= kObjects; ++object) {
        CRecordset set(&database);
        set.Open(2, acFormat(L"SELECT * FROM TABLA WHERE OBJ_ID=%d ORDER BY CSOPORT, SORSZAM", object).c_str(), 4);
        for (; !set.IsEOF(); set.MoveNext()) {
            for (const wchar_t* field : {L"ID", L"TIPUS", L"CSOPORT", L"ELFORG", L"LEPTEK", L"KIHELY_TIP"})
                set.GetFieldValue(field, value);
            ++rows;
        }
    }
    return rows;
}

double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

int run(const std::string& folder) {
    const std::string statements = folder + "/rows.sql";
    const std::wstring path = acFromUtf8(folder) + L"/rows.mdb", sheet = acFromUtf8(folder) + L"/rows.xls";
    writeStatements(statements);
    const double shell = secondsOf([&] {
        if (std::system(("sqlite3 :memory: < " + statements).c_str()) != 0)
            std::exit(1);
    });
    const double store = secondsOf([&] {
        SQLConfigDataSource(nullptr, ODBC_ADD_DSN, L"Access Driver (*.mdb)", (L"CREATE_DB=\"" + path + L"\" General").c_str());
        CDatabase access, workbook;
        access.Open(nullptr, FALSE, FALSE, (L"ODBC;DRIVER={Access Driver (*.mdb)};DBQ=" + path).c_str());
        workbook.Open(nullptr, FALSE, FALSE, (L"ODBC;DRIVER={Excel Driver (*.xls)};DBQ=" + sheet).c_str());
        const double inserting = secondsOf([&] { runFile(statements, access, workbook); });
        const double mdb = secondsOf([&] { access.Close(); });
        const double xls = secondsOf([&] { workbook.Close(); });
        std::printf("inserted in %.2f s, .mdb written in %.2f s, .xls in %.2f s\n", inserting, mdb, xls);
    });
    std::printf("shell %.2f s, store %.2f s: %.2f times the shell; peak %.0f MB\n", shell, store, store / shell, peakMegabytes());
    int rows = 0;
    const double reading = secondsOf([&] {
        CDatabase access;
        const double opening = secondsOf([&] { access.Open(nullptr, FALSE, FALSE, (L"ODBC;DRIVER={Access Driver (*.mdb)};DBQ=" + path).c_str()); });
        std::printf("opened in %.2f s\n", opening);
        rows = selectAll(access);
    });
    std::printf("read back, %d rows selected in %d statements: %.2f s; peak %.0f MB\n", rows, kObjects, reading, peakMegabytes());
    return rows == kRows ? 0 : 1;
}
} // namespace

int main() {
    char folder[] = "/tmp/bench-odbc-XXXXXX";
    if (mkdtemp(folder) == nullptr)
        return 1;
    int status = 1;
    try {
        status = run(folder);
    } catch (CDBException* error) {
        std::cerr << acToUtf8(error->m_strError.text()) << '\n';
        error->Delete();
    }
    for (const char* name : {"/rows.sql", "/rows.mdb", "/rows.xls"})
        ::unlink((std::string(folder) + name).c_str());
    ::rmdir(folder);
    return status;
}
