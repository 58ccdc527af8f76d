// A connection to a database: an Access file, its Excel twin, or what a driver of the machine reaches.
//
// The built-in drivers hold the whole file in memory: it is read when the connection is opened and,
// if anything was changed, written when it is closed. The new file is written beside the old one,
// synced and put in its place, so that the old file or the new one stands at any moment.
//
// Faults are thrown as CDBException*.
#pragma once

#include "CDBException.h"

#include <memory>
#include <vector>

class CRecordset;
namespace odbc {
class Session;
}

class CDatabase {
public:
    enum DbOpenOptions : DWORD {
        openExclusive = 0x0001, // the built-in drivers are always exclusive
        openReadOnly = 0x0002,
        useCursorLib = 0x0004, // snapshots are ours anyway
        noOdbcDialog = 0x0008,
        forceOdbcDialog = 0x0010
    };

    CDatabase();
    CDatabase(const CDatabase&) = delete;
    CDatabase& operator=(const CDatabase&) = delete;
    // Closes as Close does, but throws nothing: where the file cannot be written the old one stays
    // and the reason goes to standard error. Call Close to learn of it.
    virtual ~CDatabase();

    // lpszConnect: "ODBC;" and then "KEY=value;" pairs, a value with a semicolon in braces. DRIVER
    // names a driver of SQLGetInstalledDrivers, DBQ the file of a built-in one; READONLY=TRUE is the
    // same as bReadOnly. lpszDSN, where not empty, names a data source of the machine.
    // FALSE only where neither a driver nor a data source is named: a user would be asked, and there is nobody
    // to ask. Every other failure throws, and so does a second connection to the same file, of this
    // program or another.
    virtual BOOL Open(LPCTSTR lpszDSN, BOOL bExclusive = FALSE, BOOL bReadOnly = FALSE, LPCTSTR lpszConnect = L"ODBC;",
                      BOOL bUseCursorLib = TRUE);
    // The same with the options as bits; the "ODBC;" in front may be left out. With noOdbcDialog a
    // string that names no driver throws.
    virtual BOOL OpenEx(LPCTSTR lpszConnectString, DWORD dwOptions = 0);
    // Closes the recordsets of this connection, then writes what was changed. When that throws, the
    // connection is closed all the same and the old file stands. Nothing happens when it is not open.
    virtual void Close();
    BOOL IsOpen() const { return mSession != nullptr; }

    // Runs one statement; rows that it gives are dropped.
    void ExecuteSQL(LPCTSTR lpszSQL);

private:
    friend class CRecordset;
    odbc::Session& session() const; // throws where not open
    std::unique_ptr<odbc::Session> mSession;
    std::vector<CRecordset*> mRecordsets; // open ones
};
