#include "XmlWriter.h"

#include "AcUtText.h"
#include "XmlMarkup.h"

#include <algorithm>

namespace {
constexpr wchar_t kXmlUri[] = L"http://www.w3.org/XML/1998/namespace";

std::wstring_view view(LPCWSTR text) { return text == nullptr ? std::wstring_view() : std::wstring_view(text); }
const xmlChar* xml(const std::string& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }
std::string qualified(std::wstring_view prefix, std::wstring_view name) {
    return prefix.empty() ? acToUtf8(name) : acToUtf8(prefix) + ":" + acToUtf8(name);
}
HRESULT checkName(LPCWSTR name) {
    if (view(name).empty())
        return E_INVALIDARG;
    return xmlIsName(name) ? S_OK : WC_E_NAMECHARACTER;
}
HRESULT checkText(std::wstring_view text) { return xmlIsText(text) ? S_OK : WC_E_XMLCHARACTER; }
} // namespace

XmlWriter::~XmlWriter() { closeOutput(); }

// ---- output ------------------------------------------------------------------------------------

// A failure is kept here alone: libxml2 would print it.
int XmlWriter::toStream(void* writer, const char* bytes, int count) {
    auto* self = static_cast<XmlWriter*>(writer);
    ULONG done = 0;
    if (SUCCEEDED(self->mFault))
        self->mFault = self->mStream->Write(bytes, static_cast<ULONG>(count), &done);
    return count;
}

void XmlWriter::closeOutput() {
    if (mBuffer != nullptr)
        xmlOutputBufferFlush(mBuffer);
    // An element that is still open is no matter of the writer's end: freed without its end tag.
    if (mWriter != nullptr)
        xmlFreeTextWriter(mWriter);
    if (mStream != nullptr)
        mStream->Release();
    mWriter = nullptr;
    mBuffer = nullptr;
    mStream = nullptr;
    mState = State::NoOutput;
}

HRESULT XmlWriter::SetOutput(IUnknown* output) {
    closeOutput();
    mElements.clear();
    mBindings.clear();
    mFault = S_OK;
    mTagOpen = mDeclared = mRootDone = mTopMixed = false;
    mConformance = mProperties[XmlWriterProperty_ConformanceLevel];
    if (output == nullptr)
        return S_OK;
    void* stream = nullptr;
    if (const HRESULT result = output->QueryInterface(IID_ISequentialStream, &stream); FAILED(result))
        return result;
    mStream = static_cast<ISequentialStream*>(stream);
    mBuffer = xmlOutputBufferCreateIO(toStream, nullptr, this, nullptr);
    mWriter = mBuffer != nullptr ? xmlNewTextWriter(mBuffer) : nullptr;
    if (mWriter == nullptr) {
        if (mBuffer != nullptr)
            xmlOutputBufferClose(mBuffer);
        mBuffer = nullptr;
        closeOutput();
        return E_OUTOFMEMORY;
    }
    mState = State::Fresh;
    return S_OK;
}

HRESULT XmlWriter::GetProperty(UINT property, LONG_PTR* value) {
    if (value == nullptr || property > _XmlWriterProperty_Last)
        return E_INVALIDARG;
    *value = mProperties[property];
    return S_OK;
}

HRESULT XmlWriter::SetProperty(UINT property, LONG_PTR value) {
    if (property > _XmlWriterProperty_Last)
        return E_INVALIDARG;
    if (property == XmlWriterProperty_ConformanceLevel && (value < XmlConformanceLevel_Auto || value > XmlConformanceLevel_Document))
        return E_INVALIDARG;
    const bool isSwitch = property != XmlWriterProperty_ConformanceLevel && property != XmlWriterProperty_MultiLanguage;
    mProperties[property] = isSwitch ? value != 0 : value;
    if (mState == State::Fresh)
        mConformance = mProperties[XmlWriterProperty_ConformanceLevel];
    return S_OK;
}

HRESULT XmlWriter::ready() const {
    if (mState == State::NoOutput)
        return E_UNEXPECTED;
    return mState == State::Ended ? WR_E_INVALIDACTION : mFault;
}

HRESULT XmlWriter::Flush() {
    if (mState == State::NoOutput)
        return E_UNEXPECTED;
    if (SUCCEEDED(mFault))
        xmlOutputBufferFlush(mBuffer);
    return mFault;
}

// Ends the start tag that is open, and writes.
void XmlWriter::raw(std::string_view bytes) {
    xmlTextWriterWriteRawLen(mWriter, reinterpret_cast<const xmlChar*>(bytes.data()), static_cast<int>(bytes.size()));
    mTagOpen = false;
    mState = State::Open;
}

// A new line for what comes next: for a child of the innermost element, or for its end tag.
void XmlWriter::beginLine(bool ofChild) {
    const bool indented = mProperties[XmlWriterProperty_Indent] != 0 && !isMixed() && mState == State::Open;
    if (indented && (ofChild || mElements.back().children))
        raw("\r\n" + std::string(2 * (mElements.size() - (ofChild ? 0 : 1)), ' '));
    if (ofChild && inElement())
        mElements.back().children = true;
}

// ---- document ----------------------------------------------------------------------------------

HRESULT XmlWriter::WriteStartDocument(XmlStandalone standalone) {
    if (const HRESULT result = ready(); FAILED(result))
        return result;
    if (standalone < XmlStandalone_Omit || standalone > XmlStandalone_No)
        return E_INVALIDARG;
    if (mState != State::Fresh || mDeclared || mConformance == XmlConformanceLevel_Fragment)
        return WR_E_INVALIDACTION;
    mDeclared = true;
    if (mProperties[XmlWriterProperty_OmitXmlDeclaration] != 0)
        return S_OK;
    const char* const alone = standalone == XmlStandalone_Yes ? " standalone=\"yes\"" : standalone == XmlStandalone_No ? " standalone=\"no\"" : "";
    raw(std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"") + alone + "?>");
    return mFault;
}

HRESULT XmlWriter::WriteEndDocument() {
    if (const HRESULT result = ready(); FAILED(result))
        return result;
    if (!inElement() && (mState == State::Fresh || (isDocument() && !mRootDone)))
        return WR_E_INVALIDACTION; // a document has a root
    while (inElement())
        endElement(false);
    mState = State::Ended;
    return mFault;
}

// ---- elements ----------------------------------------------------------------------------------

HRESULT XmlWriter::WriteStartElement(LPCWSTR prefix, LPCWSTR localName, LPCWSTR namespaceUri) {
    HRESULT result = ready();
    if (SUCCEEDED(result))
        result = checkName(localName);
    if (FAILED(result))
        return result;
    if (!inElement() && mRootDone && isDocument())
        return WR_E_INVALIDACTION;
    std::wstring chosen;
    std::vector<Binding> declarations;
    result = resolve(prefix, namespaceUri, false, chosen, declarations);
    if (FAILED(result))
        return result;
    beginLine(true);
    Element element;
    element.mixed = inElement() && mElements.back().mixed;
    element.bindings = mBindings.size();
    mElements.push_back(std::move(element));
    xmlTextWriterStartElement(mWriter, xml(qualified(chosen, localName)));
    mTagOpen = true;
    mState = State::Open;
    for (const Binding& binding : declarations)
        declare(binding.prefix, binding.uri);
    if (!chosen.empty() && chosen != L"xml")
        mElements.back().prefixes.push_back(chosen);
    return mFault;
}

void XmlWriter::endElement(bool full) {
    const bool empty = mTagOpen;
    if (!empty)
        beginLine(false);
    if (empty && !full) {
        // The text writer has no blank before the slash; it and we write into the same buffer.
        if (mProperties[XmlWriterProperty_CompactEmptyElement] == 0)
            xmlOutputBufferWrite(mBuffer, 1, " ");
        xmlTextWriterEndElement(mWriter);
    } else {
        xmlTextWriterFullEndElement(mWriter);
    }
    mTagOpen = false;
    mBindings.resize(mElements.back().bindings);
    mElements.pop_back();
    mRootDone = mRootDone || !inElement();
}

HRESULT XmlWriter::WriteEndElement() {
    if (const HRESULT result = ready(); FAILED(result))
        return result;
    if (!inElement())
        return WR_E_INVALIDACTION;
    endElement(false);
    return mFault;
}

HRESULT XmlWriter::WriteFullEndElement() {
    if (const HRESULT result = ready(); FAILED(result))
        return result;
    if (!inElement())
        return WR_E_INVALIDACTION;
    endElement(true);
    return mFault;
}

HRESULT XmlWriter::WriteElementString(LPCWSTR prefix, LPCWSTR localName, LPCWSTR namespaceUri, LPCWSTR value) {
    HRESULT result = ready(); // before the text: of two faults the first one met is told
    if (SUCCEEDED(result))
        result = checkName(localName);
    if (SUCCEEDED(result))
        result = checkText(view(value));
    if (SUCCEEDED(result))
        result = WriteStartElement(prefix, localName, namespaceUri);
    if (SUCCEEDED(result) && value != nullptr)
        result = WriteString(value);
    if (SUCCEEDED(result))
        result = WriteEndElement();
    return result;
}

// ---- attributes and namespaces -----------------------------------------------------------------

const std::wstring* XmlWriter::uriOf(std::wstring_view prefix) const {
    for (std::size_t i = mBindings.size(); i-- > 0;)
        if (mBindings[i].prefix == prefix)
            return &mBindings[i].uri;
    return nullptr;
}

bool XmlWriter::declaredHere(std::wstring_view prefix) const {
    for (std::size_t i = mElements.back().bindings; i < mBindings.size(); ++i)
        if (mBindings[i].prefix == prefix)
            return true;
    return false;
}

HRESULT XmlWriter::resolve(LPCWSTR givenPrefix, LPCWSTR givenUri, bool attribute, std::wstring& prefix, std::vector<Binding>& declarations) const {
    prefix = view(givenPrefix);
    const std::wstring_view uri = view(givenUri);
    if (!prefix.empty() && !xmlIsName(prefix))
        return WC_E_NAMECHARACTER;
    if (!xmlIsText(uri))
        return WC_E_XMLCHARACTER;
    if (prefix == L"xmlns")
        return WR_E_XMLNSPREFIXDECLARATION;
    if (prefix == L"xml")
        return uri.empty() || uri == kXmlUri ? S_OK : WR_E_XMLPREFIXDECLARATION;
    if (uri.empty()) {
        if (!prefix.empty() && uriOf(prefix) == nullptr)
            return WR_E_NSPREFIXWITHEMPTYNSURI;
        return S_OK;
    }
    if (prefix.empty()) {
        for (std::size_t i = mBindings.size(); i-- > 0;) {
            const Binding& known = mBindings[i];
            if (known.uri == uri && uriOf(known.prefix) == &known.uri && (!attribute || !known.prefix.empty())) {
                prefix = known.prefix;
                return S_OK;
            }
        }
        // An attribute without a prefix is in no namespace, so it needs one.
        for (int number = 1; attribute && (prefix.empty() || uriOf(prefix) != nullptr); ++number)
            prefix = L"p" + std::to_wstring(number);
    } else if (const std::wstring* known = uriOf(prefix); known != nullptr && *known == uri) {
        return S_OK;
    }
    if (attribute && declaredHere(prefix))
        return WR_E_NSPREFIXDECLARED;
    declarations.push_back({prefix, std::wstring(uri)});
    return S_OK;
}

void XmlWriter::attribute(const std::string& name, std::wstring_view value) {
    xmlTextWriterStartAttribute(mWriter, xml(name));
    xmlTextWriterWriteRaw(mWriter, xml(xmlEscapedAttribute(value)));
    xmlTextWriterEndAttribute(mWriter);
}

// A declaration on the element whose start tag is open. One that repeats a declaration is dropped.
HRESULT XmlWriter::declare(const std::wstring& prefix, const std::wstring& uri) {
    if (declaredHere(prefix))
        return *uriOf(prefix) == uri ? mFault : WR_E_NSPREFIXDECLARED;
    const auto& used = mElements.back().prefixes;
    if (std::find(used.begin(), used.end(), prefix) != used.end())
        return *uriOf(prefix) == uri ? mFault : WR_E_NSPREFIXDECLARED;
    mBindings.push_back({prefix, uri});
    attribute(prefix.empty() ? "xmlns" : "xmlns:" + acToUtf8(prefix), uri);
    return mFault;
}

HRESULT XmlWriter::WriteAttributeString(LPCWSTR prefix, LPCWSTR localName, LPCWSTR namespaceUri, LPCWSTR value) {
    HRESULT result = ready();
    if (SUCCEEDED(result))
        result = checkName(localName);
    if (SUCCEEDED(result))
        result = checkText(view(value));
    if (FAILED(result))
        return result;
    if (!mTagOpen)
        return WR_E_INVALIDACTION;
    const std::wstring_view name = localName;
    if (view(prefix).empty() && name == L"xmlns")
        return declare({}, std::wstring(view(value)));
    if (view(prefix) == L"xmlns") {
        if (name == L"xml" || name == L"xmlns")
            return name == L"xml" ? WR_E_XMLPREFIXDECLARATION : WR_E_XMLNSPREFIXDECLARATION;
        return view(value).empty() ? WR_E_NSPREFIXWITHEMPTYNSURI : declare(std::wstring(name), value);
    }
    std::wstring chosen;
    std::vector<Binding> declarations;
    result = resolve(prefix, namespaceUri, true, chosen, declarations);
    if (FAILED(result))
        return result;
    const std::wstring* const known = declarations.empty() && !chosen.empty() && chosen != L"xml" ? uriOf(chosen) : nullptr;
    const std::wstring uri = known != nullptr ? *known : chosen == L"xml" ? kXmlUri : chosen.empty() ? L"" : declarations.front().uri;
    const std::wstring full = uri + L" " + std::wstring(name);
    const auto& present = mElements.back().attributes;
    if (std::find(present.begin(), present.end(), full) != present.end())
        return WR_E_DUPLICATEATTRIBUTE;
    for (const Binding& binding : declarations)
        declare(binding.prefix, binding.uri);
    attribute(qualified(chosen, name), view(value));
    mElements.back().attributes.push_back(full);
    if (!chosen.empty() && chosen != L"xml")
        mElements.back().prefixes.push_back(chosen);
    return mFault;
}

// ---- content -----------------------------------------------------------------------------------

HRESULT XmlWriter::content(std::string_view bytes) {
    if (!inElement() && isDocument())
        return WR_E_INVALIDACTION; // text outside of the root
    raw(bytes);
    (inElement() ? mElements.back().mixed : mTopMixed) = true;
    return mFault;
}

HRESULT XmlWriter::WriteString(LPCWSTR text) {
    HRESULT result = ready();
    if (SUCCEEDED(result) && text != nullptr)
        result = checkText(text);
    return FAILED(result) || text == nullptr ? result : content(xmlEscapedText(text));
}

HRESULT XmlWriter::WriteChars(const WCHAR* text, UINT count) {
    HRESULT result = ready();
    if (SUCCEEDED(result) && text == nullptr && count > 0)
        result = E_INVALIDARG;
    if (SUCCEEDED(result) && count > 0)
        result = checkText({text, count});
    return FAILED(result) || count == 0 ? result : content(xmlEscapedText({text, count}));
}

HRESULT XmlWriter::WriteCharEntity(WCHAR character) {
    HRESULT result = ready();
    if (SUCCEEDED(result))
        result = checkText({&character, 1});
    return FAILED(result) ? result : content(acToUtf8(acFormat(L"&#x%X;", static_cast<unsigned>(character))));
}

HRESULT XmlWriter::WriteCData(LPCWSTR text) {
    HRESULT result = ready();
    if (SUCCEEDED(result))
        result = checkText(view(text));
    return FAILED(result) ? result : content("<![CDATA[" + xmlCDataText(view(text)) + "]]>");
}

HRESULT XmlWriter::WriteWhitespace(LPCWSTR text) {
    HRESULT result = ready();
    if (SUCCEEDED(result) && !xmlIsWhitespace(view(text)))
        result = WR_E_NONWHITESPACE;
    if (FAILED(result) || text == nullptr)
        return result;
    raw(acToUtf8(text));
    (inElement() ? mElements.back().mixed : mTopMixed) = true;
    return mFault;
}

HRESULT XmlWriter::misc(const std::string& markup) {
    beginLine(true);
    raw(markup);
    return mFault;
}

HRESULT XmlWriter::WriteComment(LPCWSTR text) {
    HRESULT result = ready();
    if (SUCCEEDED(result))
        result = checkText(view(text));
    return FAILED(result) ? result : misc("<!--" + xmlCommentText(view(text)) + "-->");
}

HRESULT XmlWriter::WriteProcessingInstruction(LPCWSTR name, LPCWSTR text) {
    HRESULT result = ready();
    if (SUCCEEDED(result))
        result = checkName(name);
    if (SUCCEEDED(result))
        result = acutWcsicmp(name, L"xml") == 0 ? WC_E_LEADINGXML : checkText(view(text));
    if (FAILED(result))
        return result;
    return misc("<?" + acToUtf8(name) + (view(text).empty() ? "" : " " + xmlInstructionText(view(text))) + "?>");
}

HRESULT CreateXmlWriter(REFIID iid, void** object, IMalloc*) {
    if (object == nullptr)
        return E_POINTER;
    auto* writer = new XmlWriter;
    const HRESULT result = writer->QueryInterface(iid, object);
    writer->Release();
    return result;
}
