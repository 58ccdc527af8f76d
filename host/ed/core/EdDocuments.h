// The open drawings and which of them is current. Host-internal face of acDocManager.
#pragma once

#include "AcEdReactors.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class EdDocument : public AcApDocument {
public:
    EdDocument(std::unique_ptr<AcDbDatabase> database, std::wstring name, bool saved);
    const ACHAR* fileName() const override { return mName.c_str(); }
    AcDbDatabase* database() const override { return mDatabase.get(); }
    bool hasFile() const { return mHasFile; }
    void setFile(const std::wstring& path);
    std::wstring title() const;  // the name without its folder
    std::wstring folder() const; // with a backslash at the end, or empty

    // What the selection prompts remember of this drawing.
    struct Selection {
        AcDbObjectIdArray pickFirst, previous;
        AcDbObjectId last; // the object drawn last
    };
    Selection& selection() { return mSelection; }

private:
    std::unique_ptr<AcDbDatabase> mDatabase;
    std::wstring mName;
    bool mHasFile;
    Selection mSelection;
};

class EdDocuments : public AcApDocManager {
public:
    static EdDocuments& instance();
    ~EdDocuments() override;
    AcApDocument* curDocument() const override { return mCurrent; }
    AcApDocument* document(const AcDbDatabase* database) const override;
    void addReactor(AcApDocManagerReactor* reactor) override;
    void removeReactor(AcApDocManagerReactor* reactor) override;
    Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const ACHAR* text, bool activate, bool wrapUp, bool echo) override;

    EdDocument* current() const { return mCurrent; }
    std::vector<EdDocument*> all() const; // in the order they were opened
    // The open drawing of that file; null when there is none.
    EdDocument* ofFile(const std::wstring& path) const;
    void activate(EdDocument* document);
    // A new drawing, made current; the modules hear of it.
    EdDocument& createNew();
    // Null where it cannot be opened, with the reason in one sentence. The current drawing stays.
    EdDocument* open(const std::wstring& path, std::wstring& error);
    // Drops the current drawing without saving; the one opened before becomes current, if any.
    void closeCurrent();
    // Drops all; for the end of the program and of a test.
    void closeAll();
    // Writes the current drawing with its preview, and gives it that name.
    Acad::ErrorStatus save(const std::wstring& path, std::wstring& error);

private:
    EdDocument& adopt(std::unique_ptr<EdDocument> document);
    void each(const std::function<void(AcApDocManagerReactor&)>& tell);
    std::vector<std::unique_ptr<EdDocument>> mDocuments;
    std::vector<AcApDocManagerReactor*> mReactors;
    EdDocument* mCurrent = nullptr;
    int mNewCount = 0;
};

// Reads a drawing as the working one: custom entities look up the settings of the drawing they are read from.
// The reason of a failure in words; the working drawing is the earlier one again.
Acad::ErrorStatus edReadDrawing(AcDbDatabase& database, const std::wstring& path, std::wstring& reason);
// The drawing that commands work on; null before the first one is open.
AcDbDatabase* edDatabase();
// Adds the entity to the current space and closes it. On failure it stays the caller's.
Acad::ErrorStatus edAppend(AcDbDatabase& database, AcDbEntity* entity, AcDbObjectId& id);
// The same with the current layer, colour and line type; it becomes the last object drawn.
AcDbObjectId edDraw(std::unique_ptr<AcDbEntity> entity);
