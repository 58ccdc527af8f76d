// A built-in database: a file, read when it is opened and replaced when it is closed.
#pragma once

#include "jet/JetSource.h"
#include "session/SafeFile.h"
#include "session/SqlStore.h"
#include "store/Session.h"

#include <optional>

namespace odbc {

enum class FileForm : std::uint8_t { Access, Workbook };

class FileSession : public Session {
public:
    // A host path. An Access file must stand there; a workbook that does not is made by close.
    FileSession(FileForm form, std::wstring_view hostPath, bool readOnly);

    void execute(std::wstring_view sql) override;
    ResultSet query(std::wstring_view sql) override;
    void close() override;

private:
    void openAccess();
    void writeAccess(ReplacingFile& file);
    void writeWorkbook(ReplacingFile& file);

    std::string mShown; // the path as the caller has it
    std::string mPath;
    FileForm mForm;
    std::string mWhyReadOnly; // empty where the file can be changed
    std::optional<LockedFile> mFile; // none: a workbook that does not stand yet
    std::optional<JetSource> mJet; // an Access file of somebody else's, which is changed in places
    SqlStore mStore;
};

// Makes an empty Access file. StoreError where a file stands there already or none can be written.
void createAccessFile(std::wstring_view hostPath);

} // namespace odbc
