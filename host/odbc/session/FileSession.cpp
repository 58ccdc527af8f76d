#include "session/FileSession.h"

#include "AcPath.h"
#include "AcUtText.h"
#include "biff/BiffReader.h"
#include "biff/BiffWriter.h"
#include "jet/JetPatch.h"
#include "jet/JetWriter.h"

namespace odbc {

namespace {
constexpr const char* kReadOnly = "Az adatbázis csak olvasásra van nyitva, vagy nincs jog a fájl módosításához.";
constexpr const char* kAccess97 = "Az adatbázis Access 97 formátumú: olvasható, de nem módosítható. Mentse el Accessben újabb .mdb formátumban.";
} // namespace

FileSession::FileSession(FileForm form, std::wstring_view hostPath, bool readOnly)
    : mShown(acToUtf8(hostPath)), mPath(acFileSystemPath(hostPath)), mForm(form), mWhyReadOnly(readOnly ? kReadOnly : ""),
      mStore(form == FileForm::Access ? kDatabaseRules : kWorkbookRules) {
    if (form == FileForm::Workbook && !fileExists(mPath)) {
        if (!mayReplace(mPath))
            throw StoreError("A fájl nem hozható létre, mert a mappája hiányzik vagy nem írható: \"" + mShown + "\".");
        return;
    }
    if (fileExists(mPath) && !mayReplace(mPath))
        mWhyReadOnly = kReadOnly; // it can be read all the same
    mFile.emplace(mPath, mShown, mWhyReadOnly.empty());
    if (mWhyReadOnly.empty())
        ReplacingFile::removeLeftovers(mPath);
    if (form == FileForm::Access)
        openAccess();
    else
        readBiff(mFile->descriptor(), mShown, mStore);
}

void FileSession::openAccess() {
    mJet.emplace(mFile->descriptor(), mShown);
    mJet->readTables(mStore);
    const bool ours = !mStore.hasFaults() && mJet->madeHere();
    if (!ours)
        mStore.trackChanges();
    if (mJet->isJet3() && mWhyReadOnly.empty())
        mWhyReadOnly = kAccess97;
    if (!ours && mWhyReadOnly.empty())
        mJet->demand([this](const std::string& table, const TableRules& rules) { mStore.obey(table, rules); },
                     [this](const TableRelation& relation) { mStore.obey(relation); });
    if (ours)
        mJet.reset();
}

void FileSession::execute(std::wstring_view sql) {
    mStore.execute(sql, mWhyReadOnly);
}

ResultSet FileSession::query(std::wstring_view sql) {
    return mStore.query(sql);
}

void FileSession::writeAccess(ReplacingFile& file) {
    if (mJet) {
        JetPatch patch(*mJet);
        for (const jet::JetOrigin& table : mJet->origins())
            patch.change(table, mStore.lastNumber(table.name), [&](ChangeSink& sink) { mStore.changesOf(table.name, sink); });
        patch.writeTo(file.descriptor(), mShown);
        return;
    }
    JetWriter writer(file.descriptor(), mShown);
    mStore.writeTo(writer);
    writer.finish();
}

void FileSession::writeWorkbook(ReplacingFile& file) {
    BiffWriter writer(file.descriptor(), mShown);
    mStore.writeTo(writer);
    writer.finish();
    for (const std::string& note : writer.notes())
        acutPrintf(L"\n%s\n", acFromUtf8(note).c_str());
}

void FileSession::close() {
    if (!mStore.changed())
        return;
    ReplacingFile file(mPath, mShown);
    if (mForm == FileForm::Access)
        writeAccess(file);
    else
        writeWorkbook(file);
    file.commit(mFile ? &*mFile : nullptr);
}

void createAccessFile(std::wstring_view hostPath) {
    const std::string path = acFileSystemPath(hostPath), shown = acToUtf8(hostPath);
    if (fileExists(path))
        throw StoreError("A fájl már létezik: \"" + shown + "\".");
    ReplacingFile file(path, shown);
    JetWriter(file.descriptor(), shown).finish();
    file.commit(nullptr);
}

} // namespace odbc
