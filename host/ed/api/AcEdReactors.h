// Reactors of the editor and of documents; documents and per-document data.
#pragma once

#include "AcDbDatabase.h"

#include <map>
#include <string>

class AcEditorReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditorReactor);
    virtual void commandWillStart(const ACHAR* /*globalName*/) {}
    virtual void commandEnded(const ACHAR* /*globalName*/) {}
    virtual void commandCancelled(const ACHAR* /*globalName*/) {}
    virtual void commandFailed(const ACHAR* /*globalName*/) {}
    virtual void sysVarChanged(const ACHAR* /*name*/, bool /*success*/) {}
};
// The editor: the object registered as "AcEditor".
class AcEditor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditor);
    virtual void addReactor(AcEditorReactor* reactor);    // not owned
    virtual void removeReactor(AcEditorReactor* reactor);
};
inline constexpr const ACHAR* ACED_EDITOR_OBJ = L"AcEditor";
AcEditor* acedEditor();

class AcApDocument : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocument);
    virtual const ACHAR* fileName() const = 0; // full path, or the name of an unsaved drawing such as Drawing1.dwg
    virtual AcDbDatabase* database() const = 0;
};
class AcApDocManagerReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor);
    virtual void documentCreated(AcApDocument*) {}
    virtual void documentToBeActivated(AcApDocument*) {}
    virtual void documentActivated(AcApDocument*) {}
    virtual void documentToBeDestroyed(AcApDocument*) {}
};
class AcApDocManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManager);
    virtual AcApDocument* curDocument() const = 0;
    virtual AcApDocument* document(const AcDbDatabase* database) const = 0;
    virtual void addReactor(AcApDocManagerReactor* reactor) = 0; // not owned
    virtual void removeReactor(AcApDocManagerReactor* reactor) = 0;
    // Queues command-line text to run after the command that runs now.
    virtual Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const ACHAR* text, bool activate = true, bool wrapUp = false, bool echo = true) = 0;
};
AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()
inline AcApDocument* curDoc() { return acDocManagerPtr()->curDocument(); }

// One record of T per document, made on first use and dropped when the document goes.
template <class T> class AcApDataManager : public AcApDocManagerReactor {
public:
    AcApDataManager() { acDocManagerPtr()->addReactor(this); }
    ~AcApDataManager() override { acDocManagerPtr()->removeReactor(this); }
    void documentToBeDestroyed(AcApDocument* document) override { mData.erase(document); }
    T& docData(AcApDocument* document) { return mData[document]; }
    T& docData() { return docData(curDoc()); }
    std::size_t size() const { return mData.size(); }

private:
    std::map<AcApDocument*, T> mData;
};
