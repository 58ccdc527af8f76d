// A small in-memory reader of the module's own XML files. Not a validating parser; never throws:
// a failure is an empty handle or a null text.
#pragma once

#include "AcAdesk.h"

#include <memory>
#include <string>

struct XmlParseResult {
    Adesk::Int32 code = 0;
    int line = 0, column = 0; // 1-based place of the fault
};
// Fixed text of an error code.
const ACHAR* xmlErrorText(Adesk::Int32 code);

// A handle on one element; copies share it. May be empty.
class XmlDocNode {
public:
    bool isEmpty() const { return mElement == nullptr; }
    const ACHAR* name() const; // null for an empty handle and for the hidden root
    bool isDeclaration() const;
    // Names compare without regard to case.
    int childCount(const ACHAR* name) const;
    // The next child of that name from the position in *cursor, which is moved behind it.
    XmlDocNode childByName(const ACHAR* name, int* cursor = nullptr) const;
    XmlDocNode childByNameAt(const ACHAR* name, int k) const;
    const ACHAR* textAt(int i = 0) const;           // null when there is none
    const ACHAR* attributeValueAt(int i) const;     // null when there is none
    const ACHAR* attributeNameAt(int i) const;
    void setTextAt(int i, const ACHAR* text);       // replaces a piece or appends the next one
    void removeTextAt(int i);

    struct Element;
    explicit XmlDocNode(std::shared_ptr<Element> element = nullptr) : mElement(std::move(element)) {}

private:
    friend class XmlParser;
    std::shared_ptr<Element> mElement;
};

// Reads the file and looks for the element named `tag` (any element with an empty tag).
XmlDocNode openDocument(const std::wstring& path, const ACHAR* tag, XmlParseResult* result = nullptr);
XmlDocNode parseDocument(const std::wstring& text, const ACHAR* tag, XmlParseResult* result = nullptr);
