// Whether a file is in use: locked by this program or another one, or open in Access.
#pragma once

#include <string>

enum class AcFileLock { Shared, Exclusive };
// Takes an advisory lock (flock) on the open file, which ends with the descriptor. False only where another
// one holds a lock that excludes it: a file system that knows no locks (NFS answers EBADF or ENOLCK) keeps nobody out.
bool acLockFile(int descriptor, AcFileLock lock);
// Whether Access has the database open: it keeps a file of the same name that ends with "ldb" beside an
// "mdb" for that time. One left behind by a crash counts too, since nothing tells the two apart.
bool acOpenInAccess(const std::string& fileSystemPath);
// Whether somebody has the file locked or, for a database, open in Access. False where there is no such file.
bool acFileInUse(const std::string& fileSystemPath);
