// The writer of XML documents: forward only, UTF-8, each call checked. A call that would break the document is
// refused with an error and writes nothing, so what stands in the stream is always the head of
// a well-formed document.
//
// Indentation ends lines with "\r\n" and takes two blanks a level; an element that has text or white space of
// the caller's in it is left as the caller formats it, with all inside it.
#pragma once

#include "WinCom.h"

enum XmlWriterProperty : UINT {
    XmlWriterProperty_MultiLanguage = 0,       // taken, without effect
    XmlWriterProperty_Indent = 1,              // default 0
    XmlWriterProperty_ByteOrderMark = 2,       // default 1; UTF-8 is written without one either way
    XmlWriterProperty_OmitXmlDeclaration = 3,  // default 0
    XmlWriterProperty_ConformanceLevel = 4,    // XmlConformanceLevel; default Document
    XmlWriterProperty_CompactEmptyElement = 5, // default 0: "<a />"; otherwise "<a/>"
    _XmlWriterProperty_Last = XmlWriterProperty_CompactEmptyElement
};
enum XmlConformanceLevel { XmlConformanceLevel_Auto = 0, XmlConformanceLevel_Fragment = 1, XmlConformanceLevel_Document = 2 };
enum XmlStandalone { XmlStandalone_Omit = 0, XmlStandalone_Yes = 1, XmlStandalone_No = 2 };

constexpr HRESULT WC_E_XMLCHARACTER = static_cast<HRESULT>(0xC00CEE2B);        // a character that no document may hold
constexpr HRESULT WC_E_NAMECHARACTER = static_cast<HRESULT>(0xC00CEE2C);       // a name with a character that it may not have
constexpr HRESULT WC_E_LEADINGXML = static_cast<HRESULT>(0xC00CEE3E);          // a name that only the declaration may have
constexpr HRESULT WR_E_NONWHITESPACE = static_cast<HRESULT>(0xC00CEF01);
constexpr HRESULT WR_E_NSPREFIXDECLARED = static_cast<HRESULT>(0xC00CEF02);    // to another namespace, on this element
constexpr HRESULT WR_E_NSPREFIXWITHEMPTYNSURI = static_cast<HRESULT>(0xC00CEF03);
constexpr HRESULT WR_E_DUPLICATEATTRIBUTE = static_cast<HRESULT>(0xC00CEF04);
constexpr HRESULT WR_E_XMLNSPREFIXDECLARATION = static_cast<HRESULT>(0xC00CEF05);
constexpr HRESULT WR_E_XMLPREFIXDECLARATION = static_cast<HRESULT>(0xC00CEF06);
constexpr HRESULT WR_E_INVALIDACTION = static_cast<HRESULT>(0xC00CEF0B);       // not at this place of the document

constexpr IID IID_IXmlWriter{0x7279FC88, 0x709D, 0x4095, {0xB6, 0x3D, 0x69, 0xFE, 0x4B, 0x0D, 0x90, 0x30}};

// Every operation gives S_OK or an error; E_UNEXPECTED without an output, E_INVALIDARG for a name that is
// null. Texts are null-ended; a null text counts as empty. An error of the stream comes
// from the call or the Flush that meets it, and from every call behind it.
class IXmlWriter : public IUnknown {
public:
    // Takes a stream (IStream or ISequentialStream) and begins a new document in it, wherever the last one
    // stood; what was not flushed into the earlier output is written there first. Null lets go of it.
    virtual HRESULT SetOutput(IUnknown* output) = 0;
    virtual HRESULT GetProperty(UINT property, LONG_PTR* value) = 0;
    // E_INVALIDARG for an unknown property or value. Meant to be set before the output.
    virtual HRESULT SetProperty(UINT property, LONG_PTR value) = 0;
    // "xmlns" as name, or as prefix with the prefix as name, declares a namespace.
    virtual HRESULT WriteAttributeString(LPCWSTR prefix, LPCWSTR localName, LPCWSTR namespaceUri, LPCWSTR value) = 0;
    virtual HRESULT WriteCData(LPCWSTR text) = 0; // a "]]>" in it is split over two sections
    virtual HRESULT WriteCharEntity(WCHAR character) = 0;
    virtual HRESULT WriteChars(const WCHAR* text, UINT count) = 0;
    virtual HRESULT WriteComment(LPCWSTR text) = 0; // "--" in it and "-" at its end get a blank
    // An element with text and nothing else; self-closed where the value is null.
    virtual HRESULT WriteElementString(LPCWSTR prefix, LPCWSTR localName, LPCWSTR namespaceUri, LPCWSTR value) = 0;
    // Closes what is open. The output takes no more until SetOutput.
    virtual HRESULT WriteEndDocument() = 0;
    virtual HRESULT WriteEndElement() = 0;     // self-closed where nothing stands in it
    virtual HRESULT WriteFullEndElement() = 0; // always with an end tag
    virtual HRESULT WriteProcessingInstruction(LPCWSTR name, LPCWSTR text) = 0;
    virtual HRESULT WriteStartDocument(XmlStandalone standalone) = 0; // the declaration
    virtual HRESULT WriteStartElement(LPCWSTR prefix, LPCWSTR localName, LPCWSTR namespaceUri) = 0;
    virtual HRESULT WriteString(LPCWSTR text) = 0;
    // Blanks, tabs and line ends; allowed outside of the root, too. Null writes nothing.
    virtual HRESULT WriteWhitespace(LPCWSTR text) = 0;
    // Hands everything to the stream.
    virtual HRESULT Flush() = 0;

protected:
    ~IXmlWriter() = default;
};

class IMalloc;
// A writer with one reference; the allocator is not looked at.
HRESULT CreateXmlWriter(REFIID iid, void** object, IMalloc* allocator);
