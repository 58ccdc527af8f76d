// The writer behind IXmlWriter, over libxml2's text writer.
#pragma once

#include "WinCounted.h"
#include "XmlLite.h"

#include <libxml/xmlwriter.h>
#include <string>
#include <string_view>
#include <vector>

class XmlWriter final : public WinCounted<IXmlWriter> {
public:
    HRESULT SetOutput(IUnknown* output) override;
    HRESULT GetProperty(UINT property, LONG_PTR* value) override;
    HRESULT SetProperty(UINT property, LONG_PTR value) override;
    HRESULT WriteAttributeString(LPCWSTR prefix, LPCWSTR localName, LPCWSTR namespaceUri, LPCWSTR value) override;
    HRESULT WriteCData(LPCWSTR text) override;
    HRESULT WriteCharEntity(WCHAR character) override;
    HRESULT WriteChars(const WCHAR* text, UINT count) override;
    HRESULT WriteComment(LPCWSTR text) override;
    HRESULT WriteElementString(LPCWSTR prefix, LPCWSTR localName, LPCWSTR namespaceUri, LPCWSTR value) override;
    HRESULT WriteEndDocument() override;
    HRESULT WriteEndElement() override;
    HRESULT WriteFullEndElement() override;
    HRESULT WriteProcessingInstruction(LPCWSTR name, LPCWSTR text) override;
    HRESULT WriteStartDocument(XmlStandalone standalone) override;
    HRESULT WriteStartElement(LPCWSTR prefix, LPCWSTR localName, LPCWSTR namespaceUri) override;
    HRESULT WriteString(LPCWSTR text) override;
    HRESULT WriteWhitespace(LPCWSTR text) override;
    HRESULT Flush() override;

private:
    struct Element {
        bool children = false;                // something stands in it that was put on a line of its own
        bool mixed = false;                   // it is the caller's to format
        std::vector<std::wstring> attributes; // namespace, blank, name
        std::vector<std::wstring> prefixes;   // used on it, so that no declaration may change them
        std::size_t bindings = 0;             // namespaces in scope outside of it
    };
    struct Binding {
        std::wstring prefix, uri; // an empty prefix: the default namespace
    };
    enum class State { NoOutput, Fresh, Open, Ended }; // Fresh: nothing is written yet

    ~XmlWriter() override;
    bool answersTo(REFIID iid) const override { return iid == IID_IUnknown || iid == IID_IXmlWriter; }
    static int toStream(void* writer, const char* bytes, int count);
    void closeOutput();
    // S_OK where the document takes more; an error otherwise.
    HRESULT ready() const;
    bool inElement() const { return !mElements.empty(); }
    bool isDocument() const { return mConformance == XmlConformanceLevel_Document || mDeclared; }
    bool isMixed() const { return inElement() ? mElements.back().mixed : mTopMixed; }
    void raw(std::string_view bytes);
    void beginLine(bool ofChild);
    HRESULT content(std::string_view bytes); // of the innermost element, which becomes mixed
    HRESULT misc(const std::string& markup);
    void endElement(bool full);
    // Finds or chooses the prefix of a name in a namespace; what has to be declared for it goes to `declare`.
    HRESULT resolve(LPCWSTR givenPrefix, LPCWSTR givenUri, bool attribute, std::wstring& prefix, std::vector<Binding>& declare) const;
    const std::wstring* uriOf(std::wstring_view prefix) const;
    bool declaredHere(std::wstring_view prefix) const;
    HRESULT declare(const std::wstring& prefix, const std::wstring& uri);
    void attribute(const std::string& name, std::wstring_view value);

    ISequentialStream* mStream = nullptr;
    xmlTextWriterPtr mWriter = nullptr;
    xmlOutputBufferPtr mBuffer = nullptr; // the writer's own
    HRESULT mFault = S_OK;                // of the stream; nothing is written behind it
    State mState = State::NoOutput;
    bool mTagOpen = false; // attributes may follow
    bool mDeclared = false, mRootDone = false, mTopMixed = false;
    std::vector<Element> mElements;
    std::vector<Binding> mBindings;
    LONG_PTR mProperties[_XmlWriterProperty_Last + 1] = {0, 0, 1, 0, XmlConformanceLevel_Document, 0};
    LONG_PTR mConformance = XmlConformanceLevel_Document; // while the document lasts
};
