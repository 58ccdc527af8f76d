// Reactors of the editor: what the module prints of variables, and the export that ends tracking.
#pragma once

#include "AcEdReactors.h"

class CEditorReactor : public AcEditorReactor {
public:
    static CEditorReactor* instance(); // made on first use; stays to the end of the process
    void sysVarChanged(const ACHAR* name, bool success) override;
    void commandEnded(const ACHAR* globalName) override;
};

// A diagnostic: prints one line for each document event. Added by no command.
class CDocActivatedReactor : public AcApDocManagerReactor {
public:
    static void add();
    static void remove();
    void documentCreated(AcApDocument* document) override;
    void documentToBeActivated(AcApDocument* document) override;
    void documentActivated(AcApDocument* document) override;
};

// The per-document record of the framework. Empty: all per-document state lives in the drawing.
class CDocData {};
AcApDataManager<CDocData>& docDataManager();
