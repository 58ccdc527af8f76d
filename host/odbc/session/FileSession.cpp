#include "session/FileSession.h"

#include "AcPath.h"
#include "AcUtText.h"
#include "biff/BiffReader.h"
#include "biff/BiffWriter.h"
#include "jet/JetReader.h"
#include "jet/JetWriter.h"

namespace odbc {

namespace {
template <class Writer, class Fill> void writeSafely(const std::string& path, const std::string& shown, const Fill& fill) {
    ReplacingFile file(path, shown);
    try {
        Writer writer(file.path());
        fill(writer);
        writer.finish();
    } catch (const StoreError& error) {
        // The user knows his file by its own name.
        std::string text = error.what();
        if (const std::size_t at = text.find(file.path()); at != std::string::npos)
            text.replace(at, file.path().size(), shown);
        throw StoreError(text);
    }
    file.commit();
}
} // namespace

FileSession::FileSession(FileForm form, std::wstring_view hostPath, bool readOnly)
    : mShown(acToUtf8(hostPath)), mPath(acFileSystemPath(hostPath)), mForm(form), mReadOnly(readOnly),
      mStore(form == FileForm::Access ? kDatabaseRules : kWorkbookRules) {
    if (form == FileForm::Workbook && !fileExists(mPath)) {
        if (!mayReplace(mPath))
            throw StoreError("The file \"" + mShown + "\" cannot be made: its folder is missing or cannot be written.");
        return;
    }
    mLock.emplace(mPath, mShown);
    if (!mayReplace(mPath))
        mReadOnly = true; // it can be read all the same
    else
        ReplacingFile::removeLeftovers(mPath);
    if (form == FileForm::Access)
        readJet(mPath, mStore);
    else
        readBiff(mPath, mStore);
}

void FileSession::execute(std::wstring_view sql) {
    mStore.execute(sql, mReadOnly);
}

ResultSet FileSession::query(std::wstring_view sql) {
    return mStore.query(sql);
}

void FileSession::close() {
    if (!mStore.changed())
        return;
    const auto fill = [this](TableSink& writer) { mStore.writeTo(writer); };
    if (mForm == FileForm::Access)
        writeSafely<JetWriter>(mPath, mShown, fill);
    else
        writeSafely<BiffWriter>(mPath, mShown, fill);
}

void createAccessFile(std::wstring_view hostPath) {
    const std::string path = acFileSystemPath(hostPath), shown = acToUtf8(hostPath);
    if (fileExists(path))
        throw StoreError("The file \"" + shown + "\" exists already.");
    writeSafely<JetWriter>(path, shown, [](TableSink&) {});
}

} // namespace odbc
