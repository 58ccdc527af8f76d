// One pass over the text of an XML file, building the tree.
#pragma once

#include "XmlElement.h"

#include <string_view>

enum XmlCode : Adesk::Int32 {
    kXmlNone = 0,
    kXmlUnmatchedEndTagWarning = 1,
    kXmlNoData = 2,
    kXmlFirstTokenNotStartTag = 3,
    kXmlMissingStartTagName = 4,
    kXmlMissingEndTagName = 5,
    kXmlUnmatchedQuote = 6,
    kXmlUnmatchedEndTag = 7,
    kXmlUnmatchedClearTagEnd = 8,
    kXmlUnexpectedToken = 9,
    kXmlInvalidTag = 10,
    kXmlNoElements = 11,
    kXmlFileNotFound = 12,
    kXmlFirstTagNotFound = 13,
    kXmlUnknownEntity = 14,
    kXmlConversion = 15,
};

class XmlScanner {
public:
    explicit XmlScanner(std::wstring_view text) : mText(text) {}
    // The hidden root with everything below it. code and position tell of the first fault; a code
    // above the warning means that the tree is not to be used.
    std::shared_ptr<XmlDocNode::Element> scan();
    Adesk::Int32 code() const { return mCode; }
    std::size_t faultPosition() const { return mFault; }

private:
    using Element = XmlDocNode::Element;
    bool fail(XmlCode code, std::size_t position);
    void warn(XmlCode code, std::size_t position);
    bool scanMarkup();
    bool scanText();
    bool skipSection(std::wstring_view opening, std::wstring_view closing, bool keepAsText);
    bool skipDoctype();
    bool scanStartTag();
    bool scanEndTag();
    bool scanAttributes(Element& element, bool& selfClosed);
    bool scanAttributeValue(std::wstring& value);
    bool appendDecoded(std::wstring_view raw, std::size_t position, std::wstring& out);
    std::wstring scanName();
    void skipBlanks();
    bool startsWith(std::wstring_view prefix) const { return mText.substr(mAt).starts_with(prefix); }
    bool atEnd() const { return mAt >= mText.size(); }

    std::wstring_view mText;
    std::size_t mAt = 0;
    std::vector<std::shared_ptr<Element>> mOpen;
    Adesk::Int32 mCode = kXmlNone;
    std::size_t mFault = 0;
};
