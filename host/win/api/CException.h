// The root of the exceptions that are thrown by pointer. Who catches one calls Delete; a catch that
// throws it on (`throw;`) does not.
#pragma once

#include "WinTypes.h"

class CException {
public:
    CException() = default;
    CException(const CException&) = delete;
    CException& operator=(const CException&) = delete;
    virtual ~CException() = default;

    // The text for the user in a buffer of `size` characters, cut where it is longer; FALSE and an
    // empty text where there is none. helpContext, where given, becomes 0.
    virtual BOOL GetErrorMessage(LPTSTR text, UINT size, UINT* helpContext = nullptr) const;
    // Shows that text in a message box; needs the layer of dialogs. messageId is the string of the
    // table that stands in where there is no text.
    int ReportError(UINT type = 0, UINT messageId = 0);
    void Delete() { delete this; }
};
